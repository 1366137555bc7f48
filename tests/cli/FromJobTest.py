"""The verb "from-job": the ticket that a print job carries."""

import base64
import json
import plistlib
import unittest

from Program import ProgramTest

Job = {"com.tarvo.print.FinishingDuplex": 2, "com.tarvo.print.JobNotesMessage": "Käse, \"50 %\"\n"}
PieceSize = 250


def Options(ticket):
    """The options of a job as a filter is given them."""
    text = base64.urlsafe_b64encode(plistlib.dumps(ticket)).decode()
    pieces = ",".join(text[start:start + PieceSize] for start in range(0, len(text), PieceSize))
    return rf"copies=2 Duplex=None com.tarvo.print.Ticket={pieces} job-name=A\ job\'s\ name nocollate"


class FromJob(ProgramTest):
    def test_the_ticket_of_a_job(self):
        printed = self.run_program("from-job", Options(Job))
        read = self.run_program("from-job", "-", input=Options(Job).encode())
        written = self.run_program("from-job", Options(Job), "-o", "job.plist")
        self.assertEqual([result.stderr for result in (printed, read, written)], [b"", b"", b""])
        self.assertEqual((printed.stdout, written.stdout), (read.stdout, b""))
        self.assertEqual(plistlib.loads(printed.stdout), Job)
        self.assertEqual((self.folder / "job.plist").read_bytes(), printed.stdout)

    def test_what_it_says_for_programs(self):
        result = self.run_program("from-job", Options(Job), "--json", "-o", "job.plist")
        shown = self.run_program("show", "--json", "job.plist")
        self.assertEqual((result.returncode, result.stdout), (0, shown.stdout))
        self.assertTrue(json.loads(result.stdout)["sections"])

    def test_a_job_without_a_ticket(self):
        for options, message in (("copies=2", "the job carries no ticket"),
                                 ("com.tarvo.print.Ticket=PD94b", "the job's ticket is no base64")):
            result = self.run_program("from-job", options, "-o", "job.plist")
            self.assertEqual((result.returncode, result.stdout, self.messages(result)), (1, b"", [message]))
        self.assertEqual(self.files(), [])


if __name__ == "__main__":
    unittest.main()
