"""What an export writes and where, how it ends, and what it says."""

import contextlib
import os
import pty
import re
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
    ("the inserts", Ticket({"com.tarvo.print.SpecialPages.InsertList": [{}]}), ["--inserts"], 0, b"<insert", None),
    ("a part with the whole", Ticket(Resolution), ["--covers", "--all"], 0, b"printer-resolution", None),
    ("no options", Ticket(Resolution), [], 3, None, None),
    ("options of another type", Ticket({Options: True}, Resolution), [], 3, None, None),
    ("options of the system", Ticket({"TPIFOptionAll": True}), ["--whole"], 3, None, None),
    ("the part is absent", Ticket(FrontCover), ["--exceptions"], 3, None, None),
)

# file, contents, what the message holds behind the file's name
Unreadable = (
    ("text.plist", b"hello", ":1: "),
    ("cut.plist", Broken[:20], ":3: "),
    ("bad value.plist", Broken, ':4: bad integer "x"'),
    ("another root.plist", b"<plist><array/></plist>", ": the root"),
    ("absent.plist", None, ": cannot read: No such file or directory"),
    (".", None, ": cannot read: Is a directory"),
)


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
                self.assertTrue(result.stdout.startswith(Header) and result.stdout.endswith(b"</tpif>"))
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
            (["a.b.plist", "-o", "/dev/stdout"], None),
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

    def test_standard_output_by_name_keeps_what_is_there(self):
        log = self.write("log", b"before\n")
        self.write("a.plist", Ticket(Whole))
        with log.open("ab") as output:
            self.assertEqual(self.export("a.plist", "-o", "/dev/stdout", stdout=output).returncode, 0)
        self.assertTrue(log.read_bytes().startswith(b"before\n" + Header))

    def test_an_empty_document_replaces_the_former_one(self):
        former = self.write("a.xml", b"former")
        self.assertEqual(self.export("-", "-o", "a.xml", input=Ticket(Resolution)).returncode, 3)
        self.assertEqual(former.read_bytes(), b"")

    def test_unreadable_tickets_say_where_and_why(self):
        former = self.write("out.xml", b"former")
        for file, contents, message in Unreadable:
            with self.subTest(file):
                if contents is not None:
                    self.write(file, contents)
                result = self.export(file, "-o", "out.xml")
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertIn(f"tarvo-ticket: {file}{message}", result.stderr.decode())
                self.assertEqual(former.read_bytes(), b"former")

    def test_of_several_tickets_the_good_ones_are_done(self):
        for name, contents in (("a.plist", Ticket(Whole)), ("b.plist", Broken), ("c.plist", Ticket(Resolution))):
            self.write(name, contents)
        result = self.export("a.plist", "b.plist", "c.plist", "absent.plist", "--out-dir", "out")
        lines = self.messages(result)
        self.assertEqual([line.split(":")[0] for line in lines[:-1]], ["b.plist", "c.plist", "absent.plist"])
        self.assertEqual(lines[-1], "exported 1 of 4 tickets; failed: b.plist, absent.plist; empty: c.plist")
        self.assertEqual((self.folder / "out/a.xml").read_bytes(), self.export("a.plist").stdout)
        self.assertEqual([file for file in self.files() if file.startswith("out/")], ["out/a.xml", "out/c.xml"])
        for words, status in ((["a.plist", "b.plist"], 3), (["b.plist", "c.plist"], 3), (["b.plist", "absent"], 1)):
            self.assertEqual(self.export(*words, "--out-dir", "out").returncode, status, words)

    def test_file_names_and_keys_cannot_speak_to_the_terminal(self):
        twice = "<plist><dict>" + 2 * "<key>a&#10;\u009b2J</key><true/>" + "</dict></plist>"
        self.write("\x1b[2J.plist", twice.encode())
        result = self.export("\x1b[2J.plist")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.count(b"\n"), 1)
        self.assertIsNone(re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f]", result.stderr.decode()))

    def test_what_cannot_be_written_is_named(self):
        self.write("a.plist", Ticket(Whole))
        self.write("file", b"former")
        cases = (
            (["-o", "absent/x.xml"], "absent/x.xml: cannot write: "),
            (["-o", "file/x"], "file/x: cannot write: "),
            (["-o", "."], ".: cannot write: "),
            (["-o", ""], ": cannot write: "),
            (["--out-dir", "file"], "file: cannot create the folder: "),
        )
        for words, place in cases:
            with self.subTest(words):
                result = self.export("a.plist", *words)
                self.assertEqual(result.returncode, 1)
                self.assertTrue(self.messages(result)[-1].startswith(place), result.stderr)
                self.assertEqual(self.files(), ["a.plist", "file"])

    def test_standard_output_that_is_gone(self):
        self.write("a.plist", Ticket(Whole))
        reader, writer = os.pipe()
        os.close(reader)
        closed = subprocess.run(["sh", "-c", 'exec "$0" export a.plist >&-', Program], cwd=self.folder,
                                stderr=subprocess.PIPE, check=False)
        for result, reason in ((self.export("a.plist", stdout=writer), "Broken pipe"), (closed, "Bad file descriptor")):
            self.assertEqual((result.returncode, self.messages(result)[-1]),
                             (1, "standard output: cannot write: " + reason))
        os.close(writer)

    def on_terminal(self, *words):
        """What standard error sends to a terminal."""
        terminal, end = pty.openpty()
        self.export(*words, stderr=end)
        os.close(end)
        sent = b""
        with open(terminal, "rb", buffering=0) as screen, contextlib.suppress(OSError):  # raised at its end
            while more := screen.read(65536):
                sent += more
        return sent.decode()

    def test_progress_shows_for_several_tickets_on_a_terminal_and_goes(self):
        for name, contents in (("a.plist", Ticket(FrontCover)), ("b.plist", Broken), ("c.plist", Ticket(FrontCover))):
            self.write(name, contents)
        words = ("a.plist", "b.plist", "c.plist", "--covers", "--out-dir", "out")
        sent = self.on_terminal(*words)
        piped = self.export(*words).stderr.decode()
        shown = r"(\d of 3)\r {6}\r"  # and rubbed out
        self.assertEqual(re.findall(shown, sent), ["1 of 3", "2 of 3", "3 of 3"])
        self.assertEqual(re.sub(shown, "", sent).replace("\r\n", "\n"), piped)
        self.assertEqual(self.on_terminal("a.plist", "--covers"), "")


if __name__ == "__main__":
    unittest.main()
