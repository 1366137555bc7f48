"""The panel Paper/Output in a print dialog that knows nothing of us: what its user picks there reaches the driver."""

import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

from Desktop import DesktopTest, Pdf, choose_item, click, jobs, open_print_dialog, options_of_next_job, press, show_tab

Ticket = os.environ["TARVO_TICKET"]


class PaperOutput(DesktopTest):
    def test_evince(self):
        with tempfile.NamedTemporaryFile(prefix="page", suffix=".pdf") as document:
            document.write(Pdf)
            document.flush()
            before = jobs()
            self.start("evince", document.name)
            open_print_dialog(Path(document.name).stem, "evince")
            show_tab("evince", "Tarvo Features")
            choose_item("evince", "Job Type", "Hold")
            choose_item("evince", "Sides", "2-Sided, Flip on Long Edge")
            choose_item("evince", "Output Tray", "Main Tray")
            choose_item("evince", "Finishing", "2 Staples…")
            press("evince", "2 staples, left or top", "radio button")
            press("evince", "OK")
            click("evince", "Print")
            options = options_of_next_job(before)
        entries = plistlib.loads(subprocess.run([Ticket, "from-job", options], capture_output=True, check=True).stdout)
        self.assertEqual(entries["com.tarvo.print.JobType"], {"JobType": 2})
        self.assertEqual(entries["com.tarvo.print.FinishingDuplex"], 2)
        self.assertEqual(entries["com.tarvo.print.FinishingOutputDestination"], 4)
        self.assertEqual(entries["com.tarvo.print.FinishingOptions"], 9)
        self.assertEqual(entries["com.tarvo.print.FinishingStaple2Value"], 10)
        self.assertIn(" Duplex=DuplexNoTumble", options)


if __name__ == "__main__":
    unittest.main()
