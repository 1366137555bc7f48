"""tarvo-ticket check: what is wrong with a ticket or a document, and where."""

import json
import os
import plistlib
import re
import resource
import unittest
from datetime import datetime
from pathlib import Path

from Program import ProgramTest, Ticket

Source = Path(os.environ["TARVO_SOURCE_DIR"])
Prefix = "com.tarvo.print."
Finishing = Prefix + "Finishing"
Inserts = Prefix + "SpecialPages.InsertList"
Exceptions = Prefix + "SpecialPages.ExceptionList"
Unset = -2**31
CpuSeconds = 60  # only a file that costs out of proportion takes as long


def Keys(**entries):
    return {Prefix + key.replace("_", "."): value for key, value in entries.items()}


def Stock(**entries):
    return Keys(JobLevelStock=entries)


def Job(**entries):
    return Keys(JobType=entries)


def Pages(*ranges):
    return {Exceptions: [{"StartPage": first, "EndPage": last} for first, last in ranges]}


def Job300(**entries):
    return Keys(JobNotesRecipient="é" * 300, **entries)


# What is wrong with one entry: a ticket, and the lines of the finding without file and line.
Entries = (
    ("nothing", {}, []),
    ("keys of others", {"com.apple.print.x": 1, "other": "x"}, []),
    ("without its prefix", {"FinishingDuplex": 2}, [f'FinishingDuplex is an unknown key; "{Finishing}Duplex" is one']),
    ("unknown", Keys(Colour=1), [Prefix + "Colour is an unknown key"]),
    ("misspelt", Keys(OPISubstitution=2),
     [f'{Prefix}OPISubstitution is an unknown key; "{Prefix}OPISubsitution" is one']),
    ("unknown inside", Stock(Wieght=80), [Prefix + 'JobLevelStock/Wieght is an unknown key; "Weight" is one']),
    ("unknown in a list", {Inserts: [{}, {"Stock": {"EndPage": 1}}]}, [Inserts + "[1]/Stock/EndPage is an unknown key"]),
    ("string for a number", Keys(FinishingDuplex="2"),
     [Finishing + "Duplex is of kind string and should be a number"]),
    ("boolean for a number", Keys(FinishingOffsetEnableSubset=True),
     [Finishing + "OffsetEnableSubset is of kind boolean and should be a number"]),
    ("number for a boolean", Keys(BookletLayout=1), [Prefix + "BookletLayout is of kind integer and should be a boolean"]),
    ("dictionary for a list", {Inserts: {}}, [Inserts + " is of kind dictionary and should be an array"]),
    ("no dictionaries in a list", {Inserts: [1, 2]}, [Inserts + " holds a value of kind integer and should hold dictionaries alone"]),
    ("a whole real", Keys(FinishingDuplex=2.0), []),
    ("a fraction", Keys(FinishingDuplex=1.5), [Finishing + "Duplex is no whole number of 32 bits"]),
    ("more than 32 bits", Keys(FinishingDuplex=2**31), [Finishing + "Duplex is no whole number of 32 bits"]),
    ("unset", Keys(FinishingDuplex=Unset), []),
    ("unset where it cannot be", {Inserts: [{"Quantity": Unset}]}, [Inserts + "[0]/Quantity cannot be unset"]),
    ("no row of a menu", Keys(FinishingDuplex=4), [Finishing + "Duplex is 4; it may be 1 to 3"]),
    ("no family", Keys(FinishingOptions=2), [Finishing + "Options is 2; it may be 0, 1, 3, 4, 9, 14, 18, 22, 24, 25, 30, "
                                             "32 to 36, 40, 49 to 52"]),
    ("outside a range", Stock(Weight=1000), [Prefix + "JobLevelStock/Weight is 1000; it may be 1 to 999"]),
    ("at its ends", Keys(LightenDarken=-100) | Stock(Weight=999), []),
    ("a length in characters", Stock(Description="é" * 255), []),
    ("one more", Stock(Description="é" * 256), [Prefix + "JobLevelStock/Description has 256 characters; 255 are the most"]),
    ("a note of any length", Job300(), []),
    ("a profile by number and name", Keys(FullColorOptions={"RGBImagesProfile": 6, "CMYKImagesProfile": "House"}), []),
    ("a profile without a row", Keys(FullColorOptions={"RGBImagesProfile": 5}),
     [Prefix + "FullColorOptions/RGBImagesProfile is 5; it may be 1 to 4, 6"]),
    ("a row of highlight colours", Keys(HighlightColorOptionsJob={"HighlightMappingColor": 14}),
     [Prefix + "HighlightColorOptionsJob/HighlightMappingColor is 14; it may be 0 to 13"]),
    ("a boolean or a number", Keys(ImageShiftOptionsJob={"FullPrecision": 1, "Inches": 0}), []),
    ("a passcode of another kind", Job(JobType=6, SecurePrintPassword=4711),
     [Prefix + "JobType/JobType is 6 and needs SecurePrintPassword",
      Prefix + "JobType/SecurePrintPassword is of kind integer and should be a string"]),
)

# What does not go together.
Contradictions = (
    ("a secret", Job(JobType=6, SecurePrintPassword="4711"), []),
    ("no secret", Job(JobType=6, SecurePrintPassword=""), [Prefix + "JobType/JobType is 6 and needs SecurePrintPassword"]),
    ("a time", Job(JobType=7, DelayedPrintTime=datetime(2027, 1, 1)), []),
    ("no time", Job(JobType=7), [Prefix + "JobType/JobType is 7 and needs DelayedPrintTime"]),
    ("saved under its own name", Job(JobType=3, UseJobName=True), []),
    ("saved under no name", Job(JobType=4, UseJobName=False), [Prefix + "JobType/JobType is 4 and needs SavedJobName"]),
    ("no type", Job(SavedJobName="x"), [Prefix + "JobType/JobType is missing"]),
    ("no position", Keys(FinishingOptions=4, FinishingStaple1Value=0),
     [f"{Finishing}Options is 4 and needs {Finishing}Staple1Value"]),
    ("two families", Keys(FinishingOptions=4, FinishingStaple1Value=5, FinishingStaple2Value=10),
     [f"{Finishing}Staple2Value is 10 and does not count: {Finishing}Options is 4"]),
    ("a subset without pages", Keys(FinishingOffset=4, FinishingOffsetEnableSubset=1),
     [f"{Finishing}OffsetEnableSubset is 1 and needs {Finishing}OffsetPagesPerSubset"]),
    ("an offset without a subset", Keys(FinishingOffset=5),
     [f"{Finishing}Offset is 5 and needs {Finishing}OffsetEnableSubset"]),
    ("a subset without an offset", Keys(FinishingOffsetEnableSubset=1, FinishingOffsetPagesPerSubset=2),
     [f"{Finishing}OffsetEnableSubset is 1 and needs {Finishing}Offset"]),
    ("two modes", Keys(FinishingDuplex=2) | {"com.apple.print.PrintSettings.PMDuplexing": 3},
     [f"com.apple.print.PrintSettings.PMDuplexing is 3, but {Finishing}Duplex is 2"]),
    ("a booklet of single sides", Keys(BookletLayout=True, FinishingDuplex=1),
     [f"{Prefix}BookletLayout needs {Finishing}Duplex 3, which is 1"]),
    ("a form without a name", Keys(BackgroundFormsOptions={"UseExistingForm": 2}),
     [Prefix + "BackgroundFormsOptions/UseExistingForm is 2 and needs MergeWithString"]),
    ("widths without trapping", Keys(FullColorOptions={"FCTrappingFastDirection": 4}),
     [Prefix + "FullColorOptions/FCTrappingFastDirection needs FCTrapping"]),
    ("a custom size", Stock(Size=75, Width=21000, Length=1), []),
    ("a custom size without one", Stock(Size=75, Width=21000), [Prefix + "JobLevelStock/Size is 75 and needs Length"]),
    ("numbers of another size", Stock(Size=4, Width=21000), [Prefix + "JobLevelStock/Width needs Size 75"]),
    ("custom and unnamed", Stock(Type=7, Color=10, CustomNameOnly=True),
     [Prefix + "JobLevelStock/Color is 10 and needs CustomColor", Prefix + "JobLevelStock/CustomNameOnly needs CustomName"]),
    ("a transparency on both sides", Stock(Type=2, Color=1) | Keys(FinishingDuplex=2),
     [Prefix + "JobLevelStock/Color is 1, but a transparency is clear, 6",
      Prefix + "JobLevelStock/Type prints a transparency on both sides"]),
    ("on one", Stock(Type=2, Color=6) | Keys(FinishingDuplex=1), []),
    ("a page's mode on the job's", Stock(Type=2) | {Exceptions: [{"StartPage": 1, "EndPage": 1, "SidesImaged": 2}]},
     [Exceptions + "[0]/SidesImaged prints a transparency on both sides"]),
    ("a page's own on the job's mode",
     Keys(FinishingDuplex=3) | {Exceptions: [{"StartPage": 1, "EndPage": 1, "Stock": {"Type": 2}}]},
     [Exceptions + "[0]/Stock prints a transparency on both sides"]),
    ("a cover", Keys(SpecialPages_FrontCover={"SidesImaged": 4, "Stock": {"Type": 2}}),
     [Prefix + "SpecialPages.FrontCover/SidesImaged prints a transparency on both sides"]),
    ("pages backwards", Pages((5, 4)), [Exceptions + "[0]/EndPage is 4, before StartPage 5"]),
    ("pages side by side", Pages((4, 6), (7, 7), (1, 3)), []),
)


class Check(ProgramTest):
    def check(self, *words, **settings):
        return self.run_program("check", *words, **settings)

    def findings(self, result):
        """Entry and reason of each, and the lines they stand in."""
        lines = result.stdout.decode().splitlines()
        self.assertRegex(lines[-1], r"^\d+ files? checked, \d+ findings?$")
        return [re.sub(r"^[^:]*:(\d+:)? ", "", line) for line in lines[:-1]]

    def test_each_kind_of_fault_is_found_and_nothing_else(self):
        for name, ticket, expected in Entries + Contradictions:
            with self.subTest(name):
                result = self.check("-", input=plistlib.dumps(ticket))
                self.assertEqual((self.findings(result), result.stderr), (expected, b""))
                self.assertEqual(result.returncode, 3 if expected else 0)
                self.assertNotIn(b"4711", result.stdout)

    def test_every_key_of_the_sources_is_known_in_its_place(self):
        settings = (Source / "src/settings/TicketKeys.h").read_text()
        root = {key for key in re.findall(r'"(com\.tarvo\.[\w.]+)"', settings)}
        self.assertGreater(len(root), 40)
        found = self.findings(self.check("-", input=plistlib.dumps(dict.fromkeys(root, 1))))
        self.assertNotIn("unknown", "\n".join(found))
        # Of each record, in the dictionary that is its own.
        for header, path in (("Stock", "JobLevelStock"), ("JobType", "JobType"), ("FullColor", "FullColorOptions"),
                             ("HighlightColor", "HighlightColorOptionsJob"), ("ImageShift", "ImageShiftOptionsJob")):
            keys = re.findall(r'Key\s*=\s*"(\w+)"', (Source / f"src/records/{header}Keys.h").read_text())
            inner = dict.fromkeys(set(keys) - {"FCCyanRed", "FCMagentaGreen", "FCYellowBlue"}, 1)
            with self.subTest(header):
                self.assertGreater(len(inner), 4)
                found = self.findings(self.check("-", input=plistlib.dumps(Keys(**{path: inner}))))
                self.assertNotIn("unknown", "\n".join(found))

    def test_lines_are_those_of_the_entries(self):
        lines = Ticket(Stock(Weight=0), Pages((1, 9), (3, 4), (9, 9))).decode().splitlines()
        self.write("t.plist", "\n".join(lines).encode())
        starts = [number for number, line in enumerate(lines, 1) if "StartPage" in line]
        weight = next(number for number, line in enumerate(lines, 1) if "Weight" in line)
        result = self.check("t.plist")
        self.assertEqual(result.stdout.decode().splitlines(), [
            f"t.plist:{weight}: {Prefix}JobLevelStock/Weight is 0; it may be 1 to 999",
            f"t.plist:{starts[1]}: {Exceptions}[1]/StartPage covers pages 3 to 4, as the exception of line {starts[0]} does",
            f"t.plist:{starts[2]}: {Exceptions}[2]/StartPage covers page 9, as the exception of line {starts[0]} does",
            "1 file checked, 3 findings"])

    def test_a_document_is_told_by_its_root_and_checked_as_one(self):
        document = """<tpif><job-template-attributes>
<output-bin syntax="keyword">top-1</output-bin>
<sides syntax="keyword">two-sided-long-edge</sides>
<sides syntax="keyword">duplex</sides>
<sidez syntax="keyword">one-sided</sidez>
<media-col syntax="collection"><media-type syntax="keyword">transparency</media-type>
<media-weight-metric syntax="integer">1000</media-weight-metric></media-col>
<job-save-disposition syntax="collection"><save-disposition syntax="keyword">none</save-disposition></job-save-disposition>
</job-template-attributes></tpif>"""
        self.write("d.plist", document.encode())  # whatever its name
        result = self.check("d.plist")
        self.assertEqual(result.returncode, 3)
        self.assertEqual(result.stdout.decode().splitlines(), [
            'd.plist:2: output-bin "top-1" is lost by an import: no ticket value stands for it',
            'd.plist:4: sides "duplex" is ignored by an import: an earlier one counts',
            'd.plist:5: sidez "one-sided" is ignored by an import: nothing asks for it',
            "d.plist:6: media-col stands out of order: the printer reads it before what is above",
            f"d.plist:6: {Prefix}JobLevelStock/Type prints a transparency on both sides",
            'd.plist:7: media-col.media-weight-metric "1000" is refused by an import: above 999',
            "d.plist:8: job-save-disposition stands out of order: the printer reads it before what is above",
            "1 file checked, 7 findings"])

    def test_what_an_import_takes_and_an_export_lacks_is_found(self):
        document = b"""<tpif><tpif-operation-attributes><job-name syntax="name">A</job-name></tpif-operation-attributes>
<job-template-attributes><finishings syntax="1setOf"><value syntax="enum">20</value>
<value syntax="enum">28</value></finishings><sides syntax="keyword">one-sided</sides></job-template-attributes></tpif>"""
        self.write("d.xml", document)
        lacks = "is taken by an import, but a new export does not contain it"
        self.assertEqual(self.check("d.xml").stdout.decode().splitlines(), [
            f'd.xml:1: job-name "A" {lacks}',
            f'd.xml:3: finishings.value "28" {lacks}',
            f"d.xml:3: {Finishing}Staple2Value is 10 and does not count: {Finishing}Options is 4",
            "1 file checked, 3 findings"])

    def test_findings_of_one_line_are_in_the_order_of_the_document(self):
        page = '<page-overrides><value><sides syntax="keyword">x</sides></value></page-overrides>'
        words = "".join(f'<{name} syntax="keyword">x</{name}>' for name in ("sides", "a", "trapping", "anti-aliasing"))
        document = f"<tpif><job-template-attributes>{page}{words}</job-template-attributes></tpif>"
        found = self.findings(self.check("-", input=document.encode()))
        self.assertEqual([line.split()[0] for line in found],
                         ["page-overrides.value.sides", "sides", "a", "trapping", "anti-aliasing"])

    def test_what_the_program_writes_passes(self):
        notes = Keys(JobNotesJobName="Q", JobNotesSenderName="R")
        cases = (("the driver's own type", Stock(Type=23)), ("saved under the job's name", Job(JobType=3, UseJobName=True)),
                 ("punched where documents cannot say", Keys(FinishingOptions=49, FinishingStaple1Value=5,
                                                             FinishingHolePunchValue=49)),
                 ("covers of one kind", Keys(SpecialPages_FrontCover={"StartPage": 0, "SidesImaged": 3, "Stock": {"Type": 1}},
                                             SpecialPages_BackCover={"StartPage": 0, "SidesImaged": 3, "Stock": {"Type": 1}})))
        for name, ticket in cases:
            with self.subTest(name):
                self.write("t.plist", Ticket(ticket, notes))
                self.assertEqual(self.export("t.plist", "--all", "-o", "d.xml").returncode, 0)
                self.assertEqual(self.run_program("import", "d.xml", "-o", "again.plist").returncode, 0)
                self.assertEqual(self.findings(self.check("t.plist", "d.xml", "again.plist")), [])

    def test_a_document_of_a_million_elements_is_told_in_part(self):
        self.write("d.xml", b"<tpif><job-template-attributes>" + b"<a/>" * 10**6 + b"</job-template-attributes></tpif>")
        result = self.run_bounded("check", "d.xml")
        self.assertEqual(result.returncode, 3)
        self.assertIn(b"d.xml: and 999000 more\n1 file checked, 1000000 findings\n", result.stdout)

    def test_unreadable_files_are_named_and_the_others_checked(self):
        self.write("good.plist", plistlib.dumps({}))
        self.write("bad.plist", b"<plist>\n<dict>\n<key>a</key><integer>x</integer></dict></plist>")
        self.write("bad.xml", b"<tpif>\n<a></b></tpif>")
        self.write("other.xml", b"\n<svg/>")
        self.write("empty", b"")
        broken = ["bad.plist", "bad.xml", "other.xml", "empty", "absent"]
        result = self.check("good.plist", *broken)
        self.assertEqual((result.returncode, result.stdout), (3, b"1 file checked, 0 findings\n"))
        messages = self.messages(result)
        self.assertEqual(messages[0], 'bad.plist:3: bad integer "x"')
        self.assertRegex(messages[1], "^bad.xml:2: .*mismatch: a")
        self.assertEqual(messages[2], 'other.xml:2: neither a ticket nor a document: the root element is "svg"')
        self.assertEqual(messages[4], "absent: cannot read: No such file or directory")
        self.assertEqual(self.check(*broken).returncode, 1)
        self.assertEqual([(self.check(*words, input=b"").returncode) for words in ([], ["-", "-"])], [2, 2])

    def test_as_json(self):
        self.write("t.plist", plistlib.dumps(Keys(FinishingDuplex=4)))
        self.write("bad.xml", b"<tpif>")
        result = self.check("--json", "t.plist", "bad.xml")
        self.assertEqual(result.returncode, 3)
        first, second = json.loads(result.stdout)["files"]
        self.assertEqual(first, {"file": "t.plist", "kind": "ticket", "error": None, "more": 0, "findings": [
            {"line": 5, "entry": Finishing + "Duplex", "reason": "is 4; it may be 1 to 3"}]})
        self.assertEqual((second["kind"], second["findings"]), ("document", []))
        self.assertIsNotNone(second["error"]["reason"])

    def test_the_examples_have_nothing_wrong_but_what_no_import_takes(self):
        tickets = sorted(map(str, (Source / "examples").glob("*.plist")))
        self.assertEqual(self.check(*tickets).stdout, f"{len(tickets)} files checked, 0 findings\n".encode())
        for line in self.findings(self.check(*map(str, (Source / "examples").glob("*.xml")))):
            self.assertRegex(line, " is (ignored|lost) by an import: ")

    def test_hostile_tickets_end_soon_with_a_bounded_result(self):
        many = "".join(f"<key>com.tarvo.{number}</key><true/>" for number in range(10**6))
        page = "<dict><key>StartPage</key><integer>1</integer><key>EndPage</key><integer>9</integer></dict>"
        cases = (("keys", many, 999_000), ("pages", f"<key>{Exceptions}</key><array>{page * 10**5}</array>", 98_999),
                 ("a key of 25 MB", f"<key>com.tarvo.{'k' * 25 * 10**6}</key><true/>", 0))
        for name, entries, more in cases:
            with self.subTest(name):
                before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
                result = self.check("-", input=f"<plist><dict>{entries}</dict></plist>".encode())
                self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before, CpuSeconds)
                self.assertEqual(result.returncode, 3)
                self.assertLess(len(result.stdout), 10**6)
                self.assertEqual(f"standard input: and {more} more\n".encode() in result.stdout, more > 0)


if __name__ == "__main__":
    unittest.main()
