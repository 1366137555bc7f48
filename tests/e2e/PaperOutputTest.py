"""The panel Paper/Output in a print dialog that knows nothing of us: what its user picks there reaches the driver."""

import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

from Desktop import DesktopTest, Pdf, choose_in_menu, choose_item, click, jobs, open_print_dialog, options_of_next_job, press, show_tab

Ticket = os.environ["TARVO_TICKET"]


class PaperOutput(DesktopTest):
    def test_evince(self):
        with tempfile.NamedTemporaryFile(prefix="page", suffix=".pdf") as document:
            document.write(Pdf)
            document.flush()
            before = jobs()
            self.start("evince", document.name)
            open_print_dialog(Path(document.name).stem, "evince")
            show_tab("evince", "Page Setup")
            choose_item("evince", "Paper size:", "US Letter")
            show_tab("evince", "Tarvo Features")
            choose_item("evince", "Job Type", "Hold")
            for submenu, item in (("Color", "Blue"), ("Type", "Recycled")):
                click("evince", "Stock")
                choose_in_menu("evince", submenu, item)
            choose_item("evince", "Sides", "2-Sided, Flip on Long Edge")
            choose_item("evince", "Finishing", "2 Staples…")
            press("evince", "2 staples, left or top", "radio button")
            press("evince", "OK")
            click("evince", "Print")
            options = options_of_next_job(before)
        entries = plistlib.loads(subprocess.run([Ticket, "from-job", options], capture_output=True, check=True).stdout)
        self.assertEqual(entries["com.tarvo.print.JobType"], {"JobType": 2})
        self.assertEqual(entries["com.tarvo.print.FinishingDuplex"], 2)
        stock = entries["com.tarvo.print.JobLevelStock"]
        self.assertEqual((stock["Color"], stock["Type"]), (2, 10))
        self.assertRegex(options, r"\b(PageSize|media)=Letter\b")
        self.assertEqual(entries["com.tarvo.print.FinishingOptions"], 9)
        self.assertEqual(entries["com.tarvo.print.FinishingStaple2Value"], 10)
        self.assertIn(" Duplex=DuplexNoTumble", options)


if __name__ == "__main__":
    unittest.main()
