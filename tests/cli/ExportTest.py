"""What an export writes and where, how it ends, and what it says."""

import os
import pty
import re
import stat
import subprocess
import unittest

from Program import FrontCover, Header, Options, Program, ProgramTest, Resolution, Ticket, Whole

Broken = b"<plist>\n<dict>\n<key>a</key>\n<integer>x</integer>\n</dict>\n</plist>\n"

# name, ticket, words, exit status, what the document holds, what it does not hold
Chosen = (
    ("the ticket's options", Ticket(Whole, Resolution), [], 0, b"printer-resolution", None),
    ("none in the ticket", Ticket(Resolution), ["--all"], 0, b"printer-resolution", None),
    ("in place of the ticket's", Ticket(Whole, FrontCover, Resolution), ["--covers"], 0, b"", b"printer-resolution"),
    ("one absent, one not", Ticket(FrontCover), ["--inserts", "--covers"], 0, b"", None),
    ("a part with the whole", Ticket(Resolution), ["--covers", "--all"], 0, b"printer-resolution", None),
    ("no options", Ticket(Resolution), [], 3, None, None),
    ("options of another type", Ticket({Options: True}, Resolution), [], 3, None, None),
    ("options of the system", Ticket({"TPIFOptionAll": True}), ["--whole"], 3, None, None),
    ("the part is absent", Ticket(FrontCover), ["--exceptions"], 3, None, None),
    ("an empty dictionary", Ticket(), [], 3, None, None),
)

# name, contents, what the message holds behind the file's name
Unreadable = (
    ("not a property list", b"hello", ":1: "),
    ("empty", b"", ":1: "),
    ("cut", Broken[:20], ":3: "),
    ("bad value", Broken, ':4: bad integer "x"'),
    ("another root", b"<plist><array/></plist>", ": "),
)


def Screen(text):
    """What a terminal shows after the text."""
    lines = [""]
    column = 0
    for letter in text:
        if letter == "\n":
            lines.append("")
        elif letter == "\r":
            column = 0
        else:
            lines[-1] = lines[-1][:column].ljust(column) + letter + lines[-1][column + 1:]
            column += 1
    return [line.rstrip() for line in lines if line.strip()]


class Export(ProgramTest):
    def test_the_parts_are_the_ticket_s_or_the_command_line_s(self):
        for name, ticket, words, status, holds, lacks in Chosen:
            with self.subTest(name):
                result = self.export("-", *words, input=ticket)
                self.assertEqual(result.returncode, status, result.stderr)
                if holds is None:
                    self.assertEqual(result.stdout, b"")
                    self.assertRegex(self.messages(result)[-1], "^standard input: .*; use --all")
                    continue
                self.assertTrue(result.stdout.startswith(Header))
                self.assertTrue(result.stdout.endswith(b"</tpif>"))
                self.assertIn(holds, result.stdout)
                self.assertNotIn(lacks or b"\0", result.stdout)

    def test_the_system_s_entries_count_with_whole_only(self):
        system = {"UseJobName": True, "com.apple.print.JobInfo.PMJobName": "System",
                  "com.tarvo.print.JobNotesJobName": "Ours", "com.tarvo.print.JobNotesSenderName": "Ann"}
        for words, name in (([], b"Ours</job-name>"), (["--whole"], b"System</job-name>")):
            with self.subTest(words):
                self.assertIn(name, self.export("-", *words, input=Ticket(Whole, system)).stdout)

    def test_every_way_out_gives_the_same_bytes(self):
        self.write("a.b.plist", Ticket(Whole, Resolution))
        expected = self.export("a.b.plist").stdout
        ways = (
            (["a.b.plist", "-o", "-"], None),
            (["a.b.plist", "-o", "x.xml"], "x.xml"),
            (["a.b.plist", "--out-dir", "new/deep"], "new/deep/a.b.xml"),
            (["-", "--out-dir", "new"], "new/stdin.xml"),
        )
        for words, file in ways:
            with self.subTest(words):
                result = self.export(*words, input=Ticket(Whole, Resolution))
                self.assertEqual(result.returncode, 0, result.stderr)
                self.assertEqual(self.messages(result), [])
                self.assertEqual(result.stdout if file is None else (self.folder / file).read_bytes(), expected)
                self.assertEqual(result.stdout, expected if file is None else b"")

    def test_an_empty_document_replaces_the_former_one(self):
        former = self.write("a.xml", b"former")
        self.write("a.plist", Ticket(Resolution))
        self.assertEqual(self.export("a.plist", "-o", "a.xml").returncode, 3)
        self.assertEqual(former.read_bytes(), b"")

    def test_unreadable_tickets_say_where_and_why(self):
        former = self.write("out.xml", b"former")
        for name, contents, message in Unreadable:
            with self.subTest(name):
                self.write("job.plist", contents)
                result = self.export("job.plist", "-o", "out.xml")
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertIn("tarvo-ticket: job.plist" + message, result.stderr.decode())
                self.assertEqual(former.read_bytes(), b"former")
        for file, message in (("absent.plist", "absent.plist: cannot read: No such file or directory"),
                              (".", ".: cannot read: Is a directory")):
            with self.subTest(file):
                result = self.export(file)
                self.assertEqual((result.returncode, self.messages(result)), (1, [message]))

    def test_of_several_tickets_the_good_ones_are_done(self):
        self.write("a.plist", Ticket(Whole))
        self.write("b.plist", Broken)
        self.write("c.plist", Ticket(Resolution))
        result = self.export("a.plist", "b.plist", "c.plist", "absent.plist", "--out-dir", "out")
        self.assertEqual(result.returncode, 3)
        lines = self.messages(result)
        self.assertEqual([line.split(":")[0] for line in lines[:-1]], ["b.plist", "c.plist", "absent.plist"])
        self.assertEqual(lines[-1], "exported 1 of 4 tickets; failed: b.plist, absent.plist; empty: c.plist")
        self.assertEqual((self.folder / "out/a.xml").read_bytes(), self.export("a.plist").stdout)
        self.assertEqual([file for file in self.files() if file.startswith("out/")], ["out/a.xml", "out/c.xml"])

    def test_of_several_tickets_none_is_done(self):
        self.write("b.plist", Broken)
        result = self.export("b.plist", "absent.plist", "--out-dir", "out")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.messages(result)[-1], "exported 0 of 2 tickets; failed: b.plist, absent.plist")

    def test_file_names_and_keys_cannot_speak_to_the_terminal(self):
        twice = "<plist><dict>" + 2 * "<key>a&#10;\u009b2J</key><true/>" + "</dict></plist>"
        self.write("\x1b[2J.plist", twice.encode())
        result = self.export("\x1b[2J.plist")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.count(b"\n"), 1)
        self.assertIsNone(re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f]", result.stderr.decode()))


class Targets(ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("a.plist", Ticket(Whole))

    def test_a_link_stays_and_its_file_is_replaced(self):
        former = self.write("real.xml", b"former")
        former.chmod(0o640)
        (self.folder / "link.xml").symlink_to("real.xml")
        self.assertEqual(self.export("a.plist", "-o", "link.xml").returncode, 0)
        self.assertTrue((self.folder / "link.xml").is_symlink())
        self.assertTrue(former.read_bytes().startswith(Header))
        self.assertEqual(stat.S_IMODE(former.stat().st_mode), 0o640)
        self.assertEqual(self.files(), ["a.plist", "link.xml", "real.xml"])

    def test_what_cannot_be_written_is_named(self):
        self.write("file", b"former")
        cases = (
            (["-o", "absent/x.xml"], "absent/x.xml: cannot write: "),
            (["-o", "file/x"], "file/x: cannot write: "),
            (["-o", "."], ".: cannot write: "),
            (["-o", ""], ": cannot write: "),
            (["-o", "/dev/full"], "/dev/full: cannot write: No space left"),
            (["--out-dir", "file"], "file: cannot create the folder: "),
        )
        for words, place in cases:
            with self.subTest(words):
                result = self.export("a.plist", *words)
                self.assertEqual(result.returncode, 1)
                self.assertTrue(self.messages(result)[-1].startswith(place), result.stderr)
                self.assertEqual(self.files(), ["a.plist", "file"])

    @unittest.skipIf(os.geteuid() == 0, "every folder is writable for root")
    def test_a_read_only_folder_keeps_the_former_file(self):
        former = self.write("out/a.xml", b"former")
        former.parent.chmod(0o500)
        self.addCleanup(former.parent.chmod, 0o700)
        result = self.export("a.plist", "--out-dir", "out")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Permission denied", self.messages(result)[-1])
        self.assertEqual(former.read_bytes(), b"former")

    def test_standard_output_that_is_gone(self):
        reader, writer = os.pipe()
        os.close(reader)
        result = self.export("a.plist", stdout=writer)
        os.close(writer)
        self.assertEqual((result.returncode, self.messages(result)[-1]),
                         (1, "standard output: cannot write: Broken pipe"))
        closed = subprocess.run(["sh", "-c", 'exec "$0" export a.plist >&-', Program], cwd=self.folder,
                                stderr=subprocess.PIPE, check=False)
        self.assertEqual((closed.returncode, self.messages(closed)[-1]),
                         (1, "standard output: cannot write: Bad file descriptor"))


class Progress(ProgramTest):
    def on_terminal(self, *words):
        """What standard error sends to a terminal."""
        terminal, end = pty.openpty()
        self.export(*words, stderr=end)
        os.close(end)
        sent = b""
        try:
            while more := os.read(terminal, 65536):
                sent += more
        except OSError:  # how a terminal says that its other end is closed
            pass
        os.close(terminal)
        return sent.decode()

    def test_only_for_several_tickets_on_a_terminal_and_gone_at_the_end(self):
        for name in ("a.plist", "c.plist"):
            self.write(name, Ticket(FrontCover))
        self.write("b.plist", Broken)
        words = ("a.plist", "b.plist", "c.plist", "--covers", "--out-dir", "out")
        sent = self.on_terminal(*words)
        for step in ("1 of 3", "2 of 3", "3 of 3"):
            self.assertIn(step, sent)
        piped = self.export(*words).stderr.decode().splitlines()
        self.assertEqual(Screen(sent), piped)
        self.assertEqual([line for line in piped if re.search(r"\d of \d", line)], piped[-1:])
        self.assertEqual(self.on_terminal("a.plist", "--covers"), "")


if __name__ == "__main__":
    unittest.main()
