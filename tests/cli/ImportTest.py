"""tarvo-ticket import: documents into a ticket, and the report of what became of them."""

import json
import os
import plistlib
import unittest
from pathlib import Path

from Program import ProgramTest, Ticket

Examples = Path(os.environ["TARVO_SOURCE_DIR"]) / "examples"
Prefix = "com.tarvo.print."


def Job(*members):
    lines = "\n".join(members)
    return f"<tpif><job-template-attributes>\n{lines}\n</job-template-attributes></tpif>".encode()


def Keyword(name, text):
    return f'<{name} syntax="keyword">{text}</{name}>'


LongEdge = Keyword("sides", "two-sided-long-edge")
Stacker = Keyword("output-bin", "stacker")


class Import(ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("a.xml", Job(LongEdge, Stacker))
        self.write("b.xml", Job(Keyword("sides", "one-sided")))
        self.write("broken.xml", Job("<sides>\n<bin></sides>"))

    def run_import(self, *words, **settings):
        return self.run_program("import", *words, **settings)

    def ticket(self, result):
        self.assertEqual(result.returncode, 0, result.stderr)
        return plistlib.loads(result.stdout)

    def test_every_way_in_gives_the_same_ticket(self):
        expected = {Prefix + "FinishingDuplex": 2, Prefix + "FinishingOutputDestination": 4,
                    "com.apple.print.PrintSettings.PMDuplexing": 2}
        self.assertEqual(self.ticket(self.run_import("a.xml")), expected)
        self.assertEqual(self.ticket(self.run_import("-", input=Job(LongEdge, Stacker))), expected)
        self.assertEqual(self.run_import("a.xml", "-o", "t.plist").stdout, b"")
        self.assertEqual(plistlib.loads((self.folder / "t.plist").read_bytes()), expected)

    def test_a_later_document_wins_and_the_ticket_keeps_what_none_gives(self):
        self.write("t.plist", Ticket({Prefix + "FinishingDuplex": 3, Prefix + "Resolution": 2, "other": [1]}))
        self.assertEqual(self.run_import("a.xml", "b.xml", "--into", "t.plist", "-o", "t.plist").returncode, 0)
        self.assertEqual(plistlib.loads((self.folder / "t.plist").read_bytes()),
                         {Prefix + "FinishingDuplex": 1, Prefix + "FinishingOutputDestination": 4,
                          "com.apple.print.PrintSettings.PMDuplexing": 1, Prefix + "Resolution": 2, "other": [1]})

    def test_unreadable_documents_are_named_and_the_others_done(self):
        result = self.run_import("a.xml", "broken.xml", "absent.xml", ".")
        self.assertEqual(result.returncode, 3)
        self.assertEqual(plistlib.loads(result.stdout)[Prefix + "FinishingDuplex"], 2)
        lines = self.messages(result)
        self.assertRegex(lines[0], "^broken.xml:3: .*mismatch: bin")
        self.assertEqual(lines[1:], ["absent.xml: cannot read: No such file or directory",
                                     ".: cannot read: Is a directory",
                                     "imported 1 of 4 documents; unreadable: broken.xml, absent.xml, ."])
        self.write("t.plist", b"former")
        result = self.run_import("broken.xml", "-o", "t.plist")
        self.assertEqual((result.returncode, result.stdout, (self.folder / "t.plist").read_bytes()), (1, b"", b"former"))
        result = self.run_import("a.xml", "--into", "t.plist")
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn("t.plist:1: not an XML document", self.messages(result)[0])

    def test_wrong_use_does_nothing(self):
        cases = (
            ([], "no document is named"),
            (["-", "-"], "standard input can be read once only"),
            (["-", "--into", "-"], "standard input can be read once only"),
            (["a.xml", "-o", "./a.xml"], "./a.xml is a document to import and cannot be the ticket"),
            (["a.xml", "--report", "-o", "-"], "the report and the ticket cannot both go to standard output"),
        )
        for words, message in cases:
            with self.subTest(words):
                result = self.run_import(*words, input=b"")
                self.assertEqual((result.returncode, result.stdout, self.messages(result)), (2, b"", [message]))

    def test_the_report_tells_every_element_and_what_an_export_lacks(self):
        self.write("c.xml", Job(LongEdge, Keyword("sides", "duplex"), Keyword("output-bin", "top-1"),
                                Keyword("toner-saver", "none"), '<job-recipient-name syntax="name">A\u009b2J'
                                "</job-recipient-name>", Keyword("anti-aliasing", "on")))
        result = self.run_import("c.xml", "--report")
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertEqual(result.stdout.decode().splitlines(), [
            "c.xml",
            f'     2  sides "two-sided-long-edge": taken, {Prefix}FinishingDuplex = 2',
            '     3  sides "duplex": ignored, an earlier one counts',
            '     4  output-bin "top-1": lost, no ticket value stands for it',
            '     5  toner-saver "none": ignored, nothing asks for it',
            f'     6  job-recipient-name "A?2J": taken, {Prefix}JobNotesRecipient = "A?2J"',
            '     7  anti-aliasing "on": refused, an unknown word',
            "Not in a new export:",
            '     3  sides "duplex"',
            '     4  output-bin "top-1"',
            '     5  toner-saver "none"',
            '     7  anti-aliasing "on"',
            "2 taken, 2 ignored, 1 refused, 1 lost; 4 not in a new export"])

    def test_the_report_as_json(self):
        result = self.run_import("a.xml", "broken.xml", "--json", "-o", "t.plist")
        self.assertEqual(result.returncode, 3)
        first, second = json.loads(result.stdout)["documents"]
        self.assertEqual(first["elements"][0],
                         {"line": 2, "path": ".tpif.job-template-attributes.sides", "text": "two-sided-long-edge",
                          "outcome": "taken", "key": Prefix + "FinishingDuplex", "value": 2})
        self.assertEqual((first["error"], first["missingFromExport"], second["elements"]), (None, [], []))
        self.assertEqual((first["remark"], first["moreElements"], first["moreMissing"], first["misplaced"]), (None, 0, 0, []))
        misplaced = self.run_import("-", "--json", input=Job(Stacker, LongEdge)).stdout
        self.assertEqual(json.loads(misplaced)["documents"][0]["misplaced"],
                         [{"line": 3, "path": ".tpif.job-template-attributes.sides"}])
        self.assertEqual(second["error"]["line"], 3)
        self.assertEqual(plistlib.loads((self.folder / "t.plist").read_bytes())[Prefix + "FinishingDuplex"], 2)

    def test_the_report_tells_the_first_of_a_million_elements_and_counts_the_others(self):
        self.write("many.xml", Job("<a/>" * 10**6, Stacker))
        result = self.run_bounded("import", "many.xml", "--report", "-o", "t.plist")
        lines = result.stdout.decode().splitlines()
        self.assertEqual((result.returncode, result.stderr, len(lines)), (0, b"", 20_005))
        self.assertEqual(lines[10_001:10_003], ["        and 990001 more", "Not in a new export:"])
        self.assertEqual(lines[-2:], ["        and 990000 more",
                                      "1 taken, 1000000 ignored, 0 refused, 0 lost; 1000000 not in a new export"])
        self.assertEqual(plistlib.loads((self.folder / "t.plist").read_bytes()), {Prefix + "FinishingOutputDestination": 4})

    def test_what_is_no_document_is_said_to_be_none(self):
        self.write("other.xml", b"\n<svg><sides/></svg>")
        for words in ((), ("--report", "-o", "t.plist")):
            with self.subTest(words):
                result = self.run_import("other.xml", "a.xml", *words)
                self.assertEqual((result.returncode, self.messages(result)),
                                 (0, ['other.xml:2: no document to import: the root element is "svg"']))
        self.assertEqual(self.ticket(self.run_import("other.xml")), {})

    def test_the_documents_of_the_examples_come_back(self):
        whole = 0
        for document in sorted(Examples.glob("*.xml")):
            with self.subTest(document.name):
                self.assertEqual(self.run_import(str(document), "-o", "t.plist").returncode, 0)
                report = json.loads(self.run_import(str(document), "--json").stdout)["documents"][0]
                self.assertNotIn("refused", [element["outcome"] for element in report["elements"]])
                isWhole = b"requesting-user-name" in document.read_bytes()
                if isWhole and not report["missingFromExport"]:
                    self.assertEqual(self.export("t.plist", "--all").stdout, document.read_bytes())
                    whole += 1
        self.assertGreater(whole, 3)


if __name__ == "__main__":
    unittest.main()
