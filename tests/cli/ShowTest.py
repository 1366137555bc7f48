"""The verb "show": a ticket in words and as JSON."""

import datetime
import json
import os
import unittest

from Program import ProgramTest, Ticket

JobType = "com.tarvo.print.JobType"
Forms = "com.tarvo.print.BackgroundFormsOptions"
Secret = {JobType: {"JobType": 6, "SecurePrintPassword": "4711-canary"},
          "com.tarvo.Act.tpif.On": 3, "com.tarvo.Act.tpif.UID": "canary", "com.tarvo.Act.tpif.AID": "canary"}
Job = {
    "com.tarvo.print.FinishingDuplex": 2,
    "com.tarvo.print.JobLevelStock": {"Size": 4, "Color": 1, "Weight": 80, "Punched": 1},
    "com.tarvo.print.FinishingOptions": 9,
    "com.tarvo.print.FinishingStaple2Value": 10,
    "com.tarvo.print.SpecialPages.FrontCover": {"SidesImaged": 2, "Stock": {"Weight": 200}},
    "com.tarvo.print.SpecialPages.InsertList": [{"StartPage": 12, "Quantity": 2, "Stock": {"Color": 2}}],
}


class Show(ProgramTest):
    def show(self, ticket, *words, status=0, **settings):
        result = self.run_program("show", *words, "-", input=Ticket(ticket), **settings)
        self.assertEqual((result.returncode, result.stderr), (status, b""))
        return result.stdout.decode()

    def test_the_job_and_its_sheets_in_words(self):
        text = self.show(Job, "--pages", "12")
        for line in ("  Size: A4 (210 × 297 mm)", "    Weight: 80 gsm", "  Sides: 2-Sided, Flip on Long Edge",
                     "    2 staples, left or top", "  Sheet 1: front cover, A4 (210 × 297 mm), White, 200 gsm, printed outside",
                     "  Sheets 2-7: pages 1-12, A4 (210 × 297 mm), White, 80 gsm, 2-Sided, Flip on Long Edge",
                     "  Sheets 8-9: 2 inserts after page 12, A4 (210 × 297 mm), Blue, 80 gsm"):
            self.assertIn(line + "\n", text)
        self.assertNotIn("STRING NOT FOUND", text)

    def test_the_same_for_programs(self):
        report = json.loads(self.show(Job, "--json", "--pages", "12"))
        settings = {row["key"]: row for section in report["sections"] for row in section["settings"]}
        self.assertEqual(settings["com.tarvo.print.FinishingDuplex"]["value"], 2)
        self.assertEqual(settings["com.tarvo.print.JobLevelStock"]["value"], Job["com.tarvo.print.JobLevelStock"])
        self.assertEqual([(row["kind"], row["firstSheet"], row["lastSheet"]) for row in report["plan"]["sheets"]],
                         [("front-cover", 1, 1), ("pages", 2, 7), ("inserts", 8, 9)])
        self.assertEqual((report["plan"]["sheetCount"], report["plan"]["sheets"][2]["afterPage"]), (9, 12))
        self.assertNotIn("plan", json.loads(self.show(Job, "--json")))

    def test_it_speaks_the_users_language(self):
        text = self.show(Job, "--pages", "2", env={**os.environ, "LANGUAGE": "de"})
        self.assertIn("    Flächengewicht: 80 g/m²\n", text)
        self.assertIn("    2 Klammern, links oder oben\n", text)
        self.assertIn("Bogen 2: Seiten 1-2, ", text)

    def test_secrets_stay_in_the_ticket(self):
        for words in ((), ("--json",)):
            text = self.show(Secret, *words)
            self.assertNotIn("canary", text)
            self.assertIn("Passcode", text)

    def test_what_is_left_to_the_printer_is_not_named(self):
        unset = -2147483648
        ticket = {"com.tarvo.print.Resolution": unset, "com.tarvo.print.JobNotesMessage": "",
                  "com.tarvo.print.HalftoneScreen": [], "com.tarvo.print.AdvancedRotateImage180": 0,
                  "com.tarvo.print.FinishingDuplex": unset, "com.tarvo.print.ImageShiftOptionsJob": {"Option": unset, "X1": 5},
                  Forms: {"UseExistingForm": 1, "CyclePages": 0, "Inches": 1, "X1": 0, "Y1": 0}, JobType: {"JobType": unset}}
        self.assertEqual(self.show(ticket), "The ticket leaves everything to the printer.\n")

    def test_numbers_without_a_menu_entry_are_told_all_the_same(self):
        text = self.show({"com.tarvo.print.Resolution": 4, "com.tarvo.print.HalftoneScreen": 30,
                          "com.tarvo.print.FinishingOutputDestination": 99,
                          JobType: {"JobType": 7, "DelayedPrintTime": datetime.datetime(2026, 11, 21, 15, 0)}},
                         env={**os.environ, "LANGUAGE": "en", "TZ": "UTC"})
        for line in ("Resolution: 1200 × 1200 dpi", "Halftone screen: 125lpi", "Output tray: 99",
                     "Job type: Delayed Print", "Not printed before: 2026-11-21 15:00 +0000"):
            self.assertIn(f"  {line}\n", text)

    def test_only_what_counts_is_told(self):
        ticket = {"com.tarvo.print.Resolution": "hello", "com.tarvo.print.HalftoneScreen": True,
                  "com.tarvo.print.JobNotesMessage": 5, "com.tarvo.print.BookletLayout": 1,
                  "com.tarvo.print.FullColorOptions": {"FCLightness": "bright", "GrayImagesProfile": 4},
                  JobType: {"JobType": 1, "SavedJobName": "x", "SecurePrintPassword": "1234",
                            "DelayedPrintTime": datetime.datetime(2026, 11, 21)}}
        self.assertEqual(self.show(ticket), "Paper/Output\n  Job type: Normal\n")

    def test_an_exception_page_tells_its_colour(self):
        page = {"StartPage": 3, "EndPage": 4, "Antialiasing": 2,
                "FullColorOptionsPage": {"FCLightness": 5, "RGBImagesProfile": 3}}
        self.assertIn("Anti-aliasing: On;  Lightness: 5;  RGB profile of images: Smpte-240m\n",
                      self.show({"com.tarvo.print.SpecialPages.ExceptionList": [page]}))

    def test_what_the_panels_summaries_leave_out_is_told(self):
        finishing = "com.tarvo.print.Finishing"
        text = self.show({
            "com.tarvo.print.JobLevelStock": {"SidesCoated": 3, "kCoatingType": 5, "kGrain": 2, "CustomComment": "shelf 7"},
            finishing + "Options": 52, finishing + "HolePunchValue": 32, finishing + "HolePunchOptions": 5,
            finishing + "Offset": 4, finishing + "OffsetEnableSubset": 1, finishing + "OffsetPagesPerSubset": 24,
            Forms: {"UseExistingForm": 2, "MergeWithString": "Letterhead", "CyclePages": 3, "X1": 25, "Y1": -100},
            "com.tarvo.print.HighlightColorOptionsJob": {"HiglightPrintingColor": 2, "HighlightMappingColor": 13, "HighlightColorR": 65535, "HighlightColorB": 257},
            "com.tarvo.print.SpecialPages.FrontCover": {"Stock": {"SidesCoated": 2}},
            "com.tarvo.print.SpecialPages.ExceptionList": [
                {"StartPage": 2, "EndPage": 3, "LightenDarken": -10, "OutputColor": 1, "com.tarvo.print.ImageShiftOptionsPage":
                 {"Option": 1, "Inches": 0, "FullPrecision": True, "X1": 500, "Y2": -250}}]})
        for line in ("Coating, finish and grain: Matte, Coated on Both Sides, Short Grain", "Comment on the paper: shelf 7",
                     "Hole pattern: 4 Holes", "Pages in a subset: 24", "Merged with the form: Letterhead",
                     "Form cycle starts over at page: 3", "Form shifted by: 0.25 in, -1 in",
                     "  Mapped Color: Custom Color (RGB 255, 0, 1)",
                     "Front  Cover           Blank or Preprinted;  Gloss, Coated on One Side",
                     "2-3    Exception Page  Image Shift: Independent;  Side 1: 5 mm, 0 mm;  Side 2: 0 mm, -2.5 mm;  "
                     "Lighter or darker: -10;  Output color: Grayscale"):
            self.assertIn(f"  {line}\n", text)

    def test_no_terminal_obeys_a_ticket(self):
        text = self.show({"com.tarvo.print.JobNotesMessage": "red\t\u009b31m", "com.tarvo.print.JobNotesSenderName": "a\nb"})
        self.assertIn("red??31m", text)
        self.assertIn("  Sender:\n    a\n    b\n", text)

    def test_wrong_use_and_bad_tickets(self):
        path = str(self.write("ticket.plist", Ticket(Job)))
        for words in ((), (path, path), (path, "--pages", "0"), (path, "--pages", "10000000"), (path, "--pages", "1x")):
            with self.subTest(words):
                self.assertEqual(self.run_program("show", *words).returncode, 2)
        result = self.run_program("show", str(self.write("cut.plist", Ticket(Job)[:200])))
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertRegex(self.messages(result)[0], r"cut\.plist:\d+: ")

    def test_a_job_of_the_most_pages_and_inserts(self):
        ticket = {"com.tarvo.print.SpecialPages.InsertList": [{"StartPage": page, "Quantity": 99999} for page in range(3000)]}
        report = json.loads(self.show(ticket, "--json", "--pages", "9999999"))
        self.assertEqual(report["plan"]["sheetCount"], 9999999 + 3000 * 99999)


if __name__ == "__main__":
    unittest.main()
