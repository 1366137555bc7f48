"""A passcode that is typed into the print features is nowhere where others could read it."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from Desktop import (DesktopTest, Folder, Pdf, choose_file, choose_item, click, find, jobs, options_of_next_job, press, show_tab,
                     wait_for)

Program = os.environ["TARVO_PRINT"]
Ticket = os.environ["TARVO_TICKET"]
Name = Path(Program).name
Canary = "6071829354"


def files_with(text, *folders):
    files = (file for folder in folders for file in Path(folder).rglob("*") if file.is_file())
    return [str(file) for file in files if text in file.read_bytes()]


class SecureJob(DesktopTest):
    def attributes(self, number):
        """What every user may ask the print server for."""
        with tempfile.NamedTemporaryFile("w", suffix=".test") as request:
            request.write("""{ OPERATION Get-Job-Attributes GROUP operation-attributes-tag ATTR charset attributes-charset utf-8
                ATTR naturalLanguage attributes-natural-language en ATTR uri printer-uri $uri
                ATTR integer job-id """ + number + """ ATTR keyword requested-attributes all }""")
            request.flush()
            uri = f"ipp://{os.environ['CUPS_SERVER']}/printers/Tarvo_QL900"
            return subprocess.run(["ipptool", "-tv", uri, request.name], capture_output=True, check=True).stdout

    def test_the_passcode_stays_in_the_dialog(self):
        with tempfile.TemporaryDirectory() as folder:
            document, exported = Path(folder) / "page.pdf", Path(folder) / "job.xml"
            document.write_bytes(Pdf)
            before = jobs()
            program = self.start(Program, str(document))
            show_tab(Name, "Tarvo Features")
            choose_item(Name, "Job Type", "Secure Print")
            click(Name, "Print")  # without a passcode
            press(Name, "OK")
            click(Name, "Setup…")
            for field in ("Passcode", "Repeat Passcode"):
                entry = wait_for(field, lambda field=field: find(Name, "password text", field))
                entry.queryEditableText().setTextContents(Canary)
            press(Name, "OK")
            press(Name, "Next Settings")
            click(Name, "Export…")
            choose_file(Name, "Job Ticket Export", exported, "Save")
            wait_for("document", lambda: exported.read_bytes())
            click(Name, "Print")
            options = options_of_next_job(before)
            self.assertEqual((program.wait(60), len(jobs())), (0, len(before) + 1))
            ticket = subprocess.run([Ticket, "from-job", options], capture_output=True, check=True).stdout
            self.assertIn(b"<key>com.tarvo.print.JobType</key>", ticket)
            self.assertNotIn(Canary.encode(), ticket)

            number = jobs()[-1].stem
            attributes = self.attributes(number)
            self.assertIn(b"com.tarvo.print.Ticket", attributes)
            self.assertNotIn(Canary.encode(), attributes)
            # The driver's arguments and environment, spool, logs and caches; all that the dialog has written.
            for name in ("arguments", "environment"):
                self.assertTrue((Folder / f"jobs/{number}.{name}").read_bytes())
            wait_for("log", lambda: b"com.tarvo.print.Ticket" in (Folder / "log/error").read_bytes())
            self.assertEqual(files_with(Canary.encode(), Folder, os.environ["HOME"], folder), [])


if __name__ == "__main__":
    unittest.main()
