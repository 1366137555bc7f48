"""What the command line accepts, and what it says about wrong use."""

import unittest

from Program import Header, ProgramTest, Resolution, Ticket, Whole

# name, words, what the message holds
WrongUse = (
    ("nothing", [], "no verb"),
    ("unknown verb", ["exprot"], '"exprot"'),
    ("a group without its verb", ["stocks"], "list, add"),
    ("unknown verb of a group", ["stocks", "lend"], '"stocks lend"'),
    ("a verb in one word", ["stocks list"], '"stocks list"'),
    ("unknown option without a verb", ["--verbose"], '"--verbose"'),
    ("unknown option", ["export", "a.plist", "--everything"], '"--everything"'),
    ("no ticket", ["export", "--all"], "no ticket"),
    ("option without its value", ["export", "a.plist", "--out-dir"], "--out-dir needs a value"),
    ("nothing behind the sign", ["export", "--output=", "a.plist", "b.plist"], "--output needs a value"),
    ("an option for a value", ["export", "-o", "--all", "a.plist"], "--output needs a value"),
    ("option twice", ["export", "a.plist", "-o", "x", "-o", "y"], "--output is given more than once"),
    ("a flag with a value", ["export", "a.plist", "--all=no"], "--all takes no value"),
    ("both outputs", ["export", "a.plist", "-o", "x", "--out-dir", "out"], "exclude"),
    ("several tickets to standard output", ["export", "a.plist", "b.plist"], "--out-dir"),
    ("standard input twice", ["export", "-", "-", "--out-dir", "out"], "standard input"),
    ("one document for two tickets", ["export", "a.plist", "d/a.plist", "--out-dir", "out"], "out/a.xml"),
    ("one file by two names", ["export", "a.plist", "b.plist", "--out-dir", "linked"], "linked/b.xml"),
    ("the document is a link to the ticket", ["export", "a.plist", "-o", "link"], "link is a ticket"),
    ("no options of a job", ["from-job"], "no options"),
    ("options that were not quoted", ["from-job", "a=1", "b=2"], "in quotes"),
    ("a document is another ticket", ["export", "x.plist", "in/x.xml", "--out-dir", "in"], "in/x.xml"),
)

PageFormats = ("595,842,0", "595.2756,841.8898,3")
NoPageFormats = (
    "", "595,842", "595,842,4", "595,842,-1", "595,842,0.0", "595,842,0,1", "595,2756,841,8898,0",
    "595, 842,0", "595pt,842,0", "5e2,842,0", "0x10,842,0", ",842,0", "595,,0", "0,842,0", "595,-842,0",
    "inf,842,0", "595,nan,0", "1" + "0" * 60 + ",842,0",
)


class Arguments(ProgramTest):
    def test_wrong_use_does_nothing_and_says_why(self):
        for name in ("a.plist", "b.plist", "d/a.plist", "x.plist", "in/x.xml", "linked/a.xml"):
            self.write(name, Ticket(Whole))
        (self.folder / "linked/b.xml").symlink_to("a.xml")
        (self.folder / "link").symlink_to("a.plist")
        before = self.files()
        for name, words, message in WrongUse:
            with self.subTest(name):
                result = self.run_program(*words)
                lines = result.stderr.decode().splitlines()
                self.assertEqual((result.returncode, result.stdout, len(lines)), (2, b"", 2), lines)
                self.assertRegex(lines[0], r"^tarvo-ticket: [a-z-].*[^.]$")
                self.assertIn(message, lines[0])
                self.assertEqual(lines[1], "Try '--help'.")
                self.assertEqual(self.files(), before)

    def test_the_ticket_on_standard_input_is_not_the_document(self):
        path = self.write("a.plist", Ticket(Whole))
        with path.open("rb") as ticket:
            result = self.export("-", "-o", "a.plist", stdin=ticket)
        self.assertEqual(result.returncode, 2)
        self.assertEqual(path.read_bytes(), Ticket(Whole))

    def test_page_formats(self):
        for value in PageFormats + NoPageFormats:
            with self.subTest(value):
                result = self.export("-", "--page-format", value, input=Ticket(Whole))
                self.assertEqual(result.returncode, 0 if value in PageFormats else 2, result.stderr)
                self.assertEqual(f'"{value}"' in result.stderr.decode(), value in NoPageFormats)

    def test_the_page_format_reaches_a_job_without_a_paper_size(self):
        written = [self.export("-", *words, input=Ticket(Whole)).stdout
                   for words in ([], ["--page-format", "595,842,0"], ["--page-format", "595.2756,842,0"])]
        self.assertEqual([b">21000</x-dimension>" in text for text in written], [False, True, False])

    def test_odd_file_names_are_names(self):
        for name in ("[a,b]", "export", "++", "-1", "ä b.plist", "--", "--all"):
            with self.subTest(name):
                self.write(name, Ticket(Whole))
                plain = ["--", name] if name.startswith("-") else [name]
                self.assertTrue(self.export(*plain).stdout.startswith(Header))

    def test_words_in_other_shapes(self):
        self.write("a.plist", Ticket(Resolution))
        expected = self.export("a.plist", "--all").stdout
        for words in (["-ox", "--all", "a.plist"], ["--all", "a.plist", "--output=x"], ["a.plist", "--all", "-o", "x"]):
            with self.subTest(words):
                self.write("x", b"former")
                self.assertEqual(self.export(*words).returncode, 0)
                self.assertEqual((self.folder / "x").read_bytes(), expected)

    def test_help_and_version_are_results(self):
        for words, text in ((["--help"], b"export"), (["-h"], b"export"), (["export", "--help"], b"--out-dir"),
                            (["export", "-h", "a.plist"], b"--out-dir"), (["--version"], b"tarvo-ticket 0.1.0\n"),
                            (["export", "--version"], b"tarvo-ticket 0.1.0\n"),
                            (["stocks", "--help"], b"stocks list"), (["stocks", "-h"], b"stocks list"),
                            (["stocks", "--version"], b"tarvo-ticket 0.1.0\n")):
            with self.subTest(words):
                result = self.run_program(*words)
                self.assertEqual((result.returncode, result.stderr), (0, b""))
                self.assertIn(text, result.stdout)

    def test_a_result_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            for words in (["--version"], ["--help"], ["export", "--help"], ["export", "--all", "-"]):
                with self.subTest(words):
                    result = self.run_program(*words, input=Ticket(Resolution), stdout=full)
                    self.assertEqual(result.returncode, 1)
                    self.assertEqual(self.messages(result)[-1],
                                     "standard output: cannot write: No space left on device")


if __name__ == "__main__":
    unittest.main()
