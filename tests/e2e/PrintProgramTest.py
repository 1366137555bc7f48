"""tarvo-print: its command line, and a print dialog from file to driver."""

import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

from Desktop import DesktopTest, Folder, Pdf, Tab, jobs, options_of_next_job, press, show_tab, wait_for, window_number

Program = os.environ["TARVO_PRINT"]
Ticket = os.environ["TARVO_TICKET"]
Picture = Path(os.environ["TARVO_SOURCE_DIR"]) / "tests/e2e/page.ppm"


def messages(text):
    """The program's own; the toolkit complains of what this desktop lacks."""
    return [line for line in text.splitlines() if line.startswith("tarvo-print: ")]


def run(*words, **settings):
    return subprocess.run([Program, *words], capture_output=True, text=True, timeout=120, check=False, **settings)


class CommandLine(unittest.TestCase):
    def test_wrong_use_says_why(self):
        for words, message in (([], "no file is named"), (["--fast", "a"], 'unknown option "--fast"'),
                               (["a", "-p"], "--printer needs a value"), (["--printer=", "a"], 'unknown option "--printer="')):
            result = run(*words)
            self.assertEqual((result.returncode, result.stderr), (2, f"tarvo-print: {message}\nTry '--help'.\n"))

    def test_help_and_version_need_no_display(self):
        plain = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
        self.assertIn("--printer NAME", run("--help", env=plain).stdout)
        self.assertRegex(run("--version", env=plain).stdout, r"^tarvo-print \d+\.\d+\.\d+\n$")
        result = run("a.pdf", env=plain)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("cannot open the display", result.stderr)

    def test_files_that_cannot_be_printed_are_named(self):
        for file, reason in (("/nonexistent/a.pdf", "cannot read: No such file or directory"),
                             (str(Path(__file__).with_name("CMakeLists.txt")), "neither a PDF document nor a picture: "), ("/", "cannot read: ")):
            result = run(file)
            self.assertEqual(result.returncode, 1)
            self.assertIn(f"tarvo-print: {file}: {reason}", result.stderr)


class Printing(DesktopTest):
    def print_file(self, *words, **settings):
        before = jobs()
        program = subprocess.Popen([Program, *words], stderr=subprocess.PIPE, text=True, **settings)
        self.addCleanup(program.kill)
        show_tab("tarvo-print", Tab)
        press("tarvo-print", "Print")
        self.assertEqual((program.wait(60), messages(program.stderr.read())), (0, []))
        program.stderr.close()
        return options_of_next_job(before)

    def document(self):
        return wait_for("document", lambda: max((Folder / "jobs").glob("*.document"), key=lambda path: int(path.stem)).read_bytes())

    def test_a_document_reaches_the_driver_with_its_ticket(self):
        with tempfile.NamedTemporaryFile(suffix=".pdf") as file:
            file.write(Pdf)
            file.flush()
            options = self.print_file("--printer", "Tarvo_Desk210", file.name)
        self.assertEqual(self.document(), Pdf)
        ticket = subprocess.run([Ticket, "from-job", options], capture_output=True, check=True).stdout
        self.assertEqual(plistlib.loads(ticket), {})

    def test_a_picture_becomes_a_page(self):
        with Picture.open("rb") as picture:
            options = self.print_file("-", stdin=picture)
        self.assertIn("com.tarvo.print.Ticket=", options)
        self.assertRegex(self.document(), rb"^%PDF-")

    def test_any_file_name_will_do(self):
        before = jobs()
        with tempfile.TemporaryDirectory() as folder:
            file = os.fsencode(folder) + b"/caf\xe9.pdf"
            Path(os.fsdecode(file)).write_bytes(Pdf)
            self.print_file(file)
        arguments = (Folder / "jobs" / jobs()[len(before)].name).with_suffix(".arguments").read_text(encoding="utf-8")
        self.assertEqual(arguments.splitlines()[2], "caf\N{REPLACEMENT CHARACTER}.pdf")

    def test_the_dialog_speaks_the_users_language(self):
        for language, title in (("en", "Print Standard Input"), ("de", "Standardeingabe drucken")):
            with Picture.open("rb") as picture:
                program = self.start(Program, "-", stdin=picture, env=os.environ | {"LANGUAGE": language})
            window_number(title)
            program.terminate()
            program.wait()

    def test_cancelling_prints_nothing(self):
        before = jobs()
        program = subprocess.Popen([Program, str(Picture)], stderr=subprocess.PIPE, text=True)
        self.addCleanup(program.kill)
        press("tarvo-print", "Cancel")
        self.assertEqual((program.wait(60), messages(program.stderr.read())),
                         (1, [f"tarvo-print: {Picture}: not printed: the dialog was cancelled"]))
        program.stderr.close()
        self.assertEqual(jobs(), before)


if __name__ == "__main__":
    unittest.main()
