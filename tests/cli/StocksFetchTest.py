"""The verb "stocks fetch", with the demonstration printer as a process."""

import json
import os
import pty
import subprocess
import unittest

from Program import LibraryTest, Program

Media = os.environ["TARVO_SOURCE_DIR"] + "/examples/press.media"
Known = ["Plain A4", "Gloss brochure", "Blue tabs", "Letterhead", "Recycled, punched", "Overhead", "Window envelope", "Labels",
         "Heavy cover", "Sequence of carbonless sets"]

# What a printer tells, and below it what becomes of each member.
OddMedia = """\
media-key: Odd
media-color: custom1
media-color: blue
media-type: labels
media-pre-printed: blank
media-order-count: 5
media-hole-count: 1
media-weight-metric: 0
media-front-coating: waxed
media-back-coating: none
media-top-margin: narrow
media-size: 21590 x 27940

media-key: Half
media-type: pre-cut-tabs
media-order-count: many
media-front-coating: none
"""
OddMembers = {
    "Odd": [("media-key", "Odd", ["Name: Odd"]), ("media-color", "custom1", ["Color: Custom1"]), ("media-color", "blue", "told already"),
            ("media-type", "labels", ["Type: Labels"]), ("media-pre-printed", "blank", "the type is known without it"),
            ("media-order-count", "5", "only pre-cut tabs and ordered sheets are counted"),
            ("media-hole-count", "1", "only 0, 2, 3 and 4 holes are known"), ("media-weight-metric", "0", "0 is no weight"),
            ("media-front-coating", "waxed", ["Coating, finish and grain: Coated on One Side"]),
            ("media-back-coating", "none", "uncoated counts only when both sides are"),
            ("media-top-margin", "narrow", "no attribute of a stock"),
            ("media-size.x-dimension", "21590", "no size has that width or that length"),
            ("media-size.y-dimension", "27940", "no size has that width or that length")],
    "Half": [("media-key", "Half", ["Name: Half"]), ("media-type", "pre-cut-tabs", ["Type: Precut Tabs (0)"]),
             ("media-order-count", "0", ["Type: Precut Tabs (0)"]), ("media-front-coating", "none", "uncoated counts only when both sides are")],
}


class FetchTest(LibraryTest):
    def printer(self, *arguments, media=Media):
        """The address of a printer that lives as long as the test."""
        words = [os.environ["TARVO_DEMO_PRINTER"], "--media", str(media), *arguments]
        process = subprocess.Popen(words, stdout=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return "ipp://" + process.stdout.readline().decode().strip()

    def fetch(self, *words, **settings):
        return self.stocks("fetch", *words, **settings)


class Fetch(FetchTest):
    def test_each_member_is_shown_beside_what_it_became(self):
        printer = self.printer()
        text = self.fetch(printer, "blue TABS").stdout.decode().splitlines()
        self.assertEqual(text[0], "Blue tabs")
        self.assertIn("  media-order-count: 5                      Type: Precut Tabs (5)", text)
        self.assertIn("  media-size.x-dimension: 22300             Size: A3 (297 × 420 mm)", text)
        self.assertIn("  media-color: blue                         Farbe: Blau", self.fetch(printer, language="de").stdout.decode().splitlines())
        self.assertEqual([medium["name"] for medium in json.loads(self.fetch(printer, "--json").stdout)["media"]], Known)

    def test_what_is_left_out_says_why(self):
        printer = self.printer(media=self.write("odd.media", OddMedia.encode()))
        media = json.loads(self.fetch(printer, "--json").stdout)["media"]
        for medium in media:
            told = [(each["name"], each["value"], each["leftOut"] or each["became"]) for each in medium["members"]]
            self.assertEqual(told, OddMembers[medium["name"]])
        self.assertEqual([medium["status"] for medium in media], ["invalid", "not-in-use"])
        self.assertIn("(left out: told already)", self.fetch(printer).stdout.decode())

    def test_nothing_is_english_for_a_german(self):
        media = OddMedia + "\nmedia-color: blue\n"
        result = self.fetch(self.printer(media=self.write("odd.media", media.encode())), "--save", language="de", status=3)
        text = result.stdout.decode()
        for english in ("left out", "(no name)", "added", *(why for told in OddMembers.values() for _, _, why in told if isinstance(why, str))):
            self.assertNotIn(english, text)
        self.assertIn("(ausgelassen: schon genannt)", text)
        self.assertEqual(text.splitlines()[-1], "2 hinzugefügt, 0 ersetzt, 0 schon vorhanden")

    def test_chosen_media_are_saved_and_come_again_only_when_they_differ(self):
        printer = self.printer()
        result = self.fetch(printer, "plain a4", "Nobody", "--save", status=3)
        self.assertEqual(self.messages(result), [f'{printer}: the printer reports no medium "Nobody"'])
        self.assertEqual(result.stdout.splitlines()[-1], b"1 added, 0 replaced, 0 there already")
        saved = self.papers()
        self.assertEqual([(paper["name"], paper["stock"]["Weight"]) for paper in saved], [("Plain A4", 80)])
        self.stocks("add", "labels", "--color", "Blue")
        result = self.fetch(printer, "--save", "--json", status=3)
        self.assertEqual(json.loads(result.stdout)["saved"], {"added": 8, "replaced": 0, "present": 1})
        self.assertEqual(self.messages(result), [f'{printer}: the library has another paper "Labels"'])
        self.fetch(printer, "Labels", "--save", "--replace")
        self.assertEqual(self.papers()[0], saved[0])
        self.assertEqual([paper["stock"]["Color"] for paper in self.papers() if paper["name"] == "labels"], [1])

    def test_what_cannot_be_saved_is_named_and_shown(self):
        printer = self.printer(media=self.write("names.media", f"media-color: blue\n\nmedia-key: {'x' * 256}\n\nmedia-key: Good\n".encode()))
        result = self.fetch(printer, "--save", status=3)
        self.assertEqual(self.messages(result), [f"{printer}: not saved: a medium has no name", f"{printer}: not saved: a medium has too long a name"])
        self.assertTrue(result.stdout.startswith(b"(no name)\n"))
        self.assertEqual([paper["name"] for paper in self.papers()], ["Good"])
        self.library.write_bytes(b"")
        self.library.unlink()
        self.library.mkdir()
        self.assertEqual(self.messages(self.fetch(printer, "Good", "--save", status=1)), [f"cannot read {self.library}: Is a directory"])

    def test_a_printer_that_gives_none_is_named_with_the_reason(self):
        causes = {"refuse": "cannot connect: Connection refused", "html": "what the printer answered is not IPP",
                  "401": "the printer answered 401 Unauthorized", "cut": "the answer is cut short",
                  "not-found": "the printer reports no media: client-error-not-found",
                  "million": "the printer reports more than 50000 media", "silent": "the printer took too long"}
        for misbehaviour, cause in causes.items():
            with self.subTest(misbehaviour):
                printer = self.printer("--misbehave", misbehaviour)
                result = self.fetch(printer, "--save", status=1)
                self.assertEqual((result.stdout, result.stderr.decode()), (b"", f"tarvo-ticket: {printer}: {cause}\n"))
        printer = self.printer("--repeat", "0")
        result = self.fetch(printer, "--json")
        self.assertEqual((json.loads(result.stdout), self.messages(result)), ({"media": []}, [f"{printer}: the printer reports no media"]))
        self.assertFalse(self.library.exists())

    def test_progress_is_shown_on_a_terminal_alone(self):
        printer = self.printer("--misbehave", "silent")
        reader, terminal = pty.openpty()
        process = subprocess.Popen([Program, "stocks", "fetch", printer], stderr=terminal)
        shown = b""
        while b", 2 s" not in shown:
            shown += os.read(reader, 1000)
        process.kill()
        process.wait()
        self.assertEqual(shown.split(b"\r")[0], b"asking " + printer.removeprefix("ipp://").encode())
        for end in (reader, terminal):
            os.close(end)

    def test_thousands_are_shown_and_a_reader_may_go(self):
        printer = self.printer("--repeat", "2000")
        self.assertEqual(len(json.loads(self.fetch(printer, "--json").stdout)["media"]), 20000)
        pipe = subprocess.Popen([Program, "stocks", "fetch", printer], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        pipe.stdout.read(10)
        pipe.stdout.close()
        self.assertEqual(pipe.stderr.read(), b"tarvo-ticket: standard output: cannot write: Broken pipe\n")
        pipe.stderr.close()
        self.assertEqual(pipe.wait(60), 1)

    def test_wrong_use(self):
        for words in ((), ("press.local",), ("socket://press.local",), ("ipp://",), ("ipp:///queue",), ("ipp://h", "--replace")):
            with self.subTest(words):
                self.fetch(*words, status=2)


if __name__ == "__main__":
    unittest.main()
