"""Help, manual page and completion tell one story: that of the program."""

import re
import subprocess
import unittest

from Program import Folder, ProgramTest

OptionPattern = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")
Completion = Folder / "completions/tarvo-ticket"


def OptionsOf(heading, text):
    return sorted(OptionPattern.findall(" ".join(re.findall(heading, text, re.MULTILINE))))


def Completed(folder, *words):
    """What bash offers for the last of the words."""
    script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
              '_tarvo_ticket tarvo-ticket "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD-1]}"; '
              'printf "%s\\n" "${COMPREPLY[@]}"')
    run = subprocess.run(["bash", "-uec", script, "bash", str(Completion), "tarvo-ticket", *words], cwd=folder,
                         capture_output=True, check=True, text=True)
    assert run.stderr == "", run.stderr
    return sorted(run.stdout.split("\n")[:-1])


class Documents(ProgramTest):
    def setUp(self):
        super().setUp()
        general = self.run_program("--help").stdout.decode()
        self.verbs = re.findall(r"^  ([\w-]+(?: \w+)?)  ", general[:general.index("Options:")], re.MULTILINE)
        self.help = {verb: self.run_program(*verb.split(), "--help").stdout.decode() for verb in self.verbs}
        self.options = {verb: OptionsOf(r"^  (?:-\w, |    )--.*?(?=  |$)", text) for verb, text in self.help.items()}

    def test_the_help_names_options_that_the_program_takes(self):
        self.assertIn("--page-format", self.options["export"])
        for verb, options in self.options.items():
            for option in set(options) - {"-h"}:
                with self.subTest(verb=verb, option=option):
                    self.assertNotIn(b"unknown option", self.run_program(*verb.split(), option).stderr)
            self.assertLessEqual(max(map(len, self.help[verb].splitlines())), 80)

    def test_the_manual_page_is_clean_and_explains_every_option(self):
        page = Folder / "tarvo-ticket.1"
        source = re.sub(r"\\f[BIR]", "", page.read_text()).replace("\\-", "-")
        formatted = subprocess.run(["groff", "-man", "-Tascii", "-ww", "-P-cbou", str(page)],
                                   capture_output=True, check=True, text=True)
        self.assertEqual(formatted.stderr, "")
        every = {option for options in self.options.values() for option in options}
        self.assertEqual(set(OptionsOf(r"^\.TP\n(-.*)$", source)), every)
        spaced = " ".join(formatted.stdout.split())
        for row in re.findall(r"^  (\d)  (.*)$", self.help["export"], re.MULTILINE):
            self.assertIn(" ".join(row), spaced)

    def test_completion_offers_what_may_stand_there(self):
        for name in ("job one.plist", "notes.txt", "-odd.plist", "in/a.plist"):
            self.write(name, b"")
        cases = (
            ("verb", [""], sorted({"--help", "--version", "-h", *(verb.split()[0] for verb in self.verbs)})),
            ("verb of a group", ["stocks", ""],
             sorted(["--help", "--version", "-h", *(verb.split()[1] for verb in self.verbs if verb.startswith("stocks "))])),
            ("options of a group's verb", ["stocks", "add", "--c"], ["--color", "--comment"]),
            ("files of a group's verb", ["stocks", "import", "n"], ["notes.txt"]),
            ("every option", ["export", "-"], self.options["export"]),
            ("options of another verb", ["printer", "-"], self.options["printer"]),
            ("options that begin so", ["export", "a", "--in"], ["--inserts"]),
            ("tickets and folders", ["export", ""], ["-odd.plist", "in", "job one.plist"]),
            ("a ticket of a folder", ["export", "in/"], ["in/a.plist"]),
            ("a file", ["export", "-o", "n"], ["notes.txt"]),
            ("folders only", ["export", "--out-dir", ""], ["in"]),
            ("nothing to offer", ["export", "--page-format", ""], [""]),
        )
        for name, words, expected in cases:
            with self.subTest(name):
                self.assertEqual(Completed(self.folder, *words), expected)


if __name__ == "__main__":
    unittest.main()
