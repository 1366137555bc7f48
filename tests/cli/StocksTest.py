"""The group "stocks": the user's library of named papers; and the watermarks."""

import json
import os
import plistlib
import resource
import signal
import subprocess
import unittest

from Program import LibraryTest, Program

Prefix = "com.tarvo.print.StockLibrary."
JobStock = "com.tarvo.print.JobLevelStock"
Cover = "com.tarvo.print.SpecialPages.FrontCover"


class StocksTest(LibraryTest):
    def stored(self, key):
        return plistlib.loads(self.library.read_bytes())[Prefix + key]

    def put_library(self, path, papers, **values):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(plistlib.dumps({Prefix + "StockList": papers, **{Prefix + key: value for key, value in values.items()}}))


def Paper(name, **stock):
    return {"Stock": {"CustomName": name, **stock}, Prefix + "NameKey": name}


class Stocks(StocksTest):
    def test_papers_are_added_by_what_they_are(self):
        self.stocks("add", "Blue cover", "--size", "a4", "--color", "Blue", "--type", "standard", "--weight", "160", "--comment", "für Umschläge")
        self.stocks("add", "Foil", "--size", "210.5x297", "--color", "Red", "--type", "Transparency")
        stocks = [paper["stock"] for paper in self.papers()]
        self.assertEqual(stocks[0], {"Size": 4, "Type": 1, "Color": 2, "Weight": 160, "CustomName": "Blue cover", "CustomComment": "für Umschläge"})
        self.assertEqual(stocks[1], {"Size": 75, "Width": 21050, "Length": 29700, "Type": 2, "Color": 6, "CustomName": "Foil"})
        self.assertEqual(self.stocks("list").stdout.decode().splitlines()[0:3:2], ["Blue cover", "  Size: A4 (210 × 297 mm)"])
        self.stocks("use", "Foil")
        german = self.stocks("list", language="de").stdout.decode()
        for line in ("  Farbe: Blau", "  Kommentar: für Umschläge", "Foil (in Gebrauch)"):
            self.assertIn(line, german.splitlines())

    def test_what_only_printers_have_words_for_is_named_in_theirs(self):
        odd = {"Size": 4, "Color": 15, "Type": 24, "SidesCoated": 2, "kCoatingType": 5}
        self.put_library(self.library, {"1": Paper("Odd", **odd), "2": Paper("Set", Type=6, Modulus=3), "3": Paper("New", Color=99)})
        lines = self.stocks("list").stdout.decode().splitlines()
        for line in ("Odd (not offered in the menus)", "  Color: Custom1", "  Type: TabStock", "  Type: Ordered Sequence (3)", "  Color: 99",
                     "  Coating, finish and grain: Matte, Coated on One Side"):
            self.assertIn(line, lines)

    def test_a_name_that_is_there_is_replaced_on_demand_alone(self):
        self.stocks("add", "Plain", "--size", "A3")
        uuid = self.papers()[0]["uuid"]
        result = self.stocks("add", "pLAIN", "--size", "A4", status=1)
        self.assertEqual(self.messages(result), ['the library has a paper "pLAIN" already; --replace replaces it'])
        self.assertEqual(self.papers()[0]["stock"]["Size"], 5)
        self.stocks("add", "pLAIN", "--size", "A4", "--replace")
        self.assertEqual([(paper["uuid"], paper["name"], paper["stock"]["Size"]) for paper in self.papers()], [(uuid, "Plain", 4)])

    def test_a_paper_is_taken_from_a_job_and_found_in_it_again(self):
        stock = {"Size": 4, "Color": 3, "Type": 7, "CustomType": "Vellum"}
        job = self.write("job.plist", plistlib.dumps({JobStock: stock, Cover: {"Stock": {"Size": 3}}}))
        self.stocks("add", "Vellum", "--from", "job.plist", "--weight", "75")
        paper = self.papers()[0]
        self.assertEqual(paper["stock"], {**stock, "Weight": 75, "CustomName": "Vellum"})
        result = self.stocks("match", "job.plist", status=3)
        self.assertEqual(result.stdout, b"job: -\nfront cover: -\n")
        self.assertEqual(self.messages(result), ["job.plist: job: the stock is not in the library", "job.plist: front-cover: the stock is not in the library"])
        job.write_bytes(plistlib.dumps({JobStock: paper["stock"], Cover: {"Stock": {}}}))
        with job.open("rb") as ticket:
            found = json.loads(self.stocks("match", "-", "--json", stdin=ticket).stdout)["stocks"]
        self.assertEqual([(each["place"], each["paper"]["uuid"]) for each in found], [("job", paper["uuid"])])
        self.assertIn("Auftrag: Vellum (", self.stocks("match", "job.plist", language="de").stdout.decode())
        self.write("empty.plist", plistlib.dumps({}))
        self.assertEqual(self.messages(self.stocks("add", "x", "--from", "empty.plist", status=1)), ["empty.plist: the job has no stock of its own"])

    def test_papers_are_used_and_removed_by_name_or_uuid(self):
        for name in ("A", "B", "C"):
            self.stocks("add", name)
        a, b, c = [paper["uuid"] for paper in self.papers()]
        self.stocks("use", "a", c)
        self.assertEqual(self.stored("StockMenuList"), [c, a])
        self.assertEqual([paper["status"] for paper in self.papers()], ["in-use", "not-in-use", "in-use"])
        result = self.stocks("remove", "D", c, status=3)
        self.assertEqual(self.messages(result), ['the library has no paper "D"'])
        self.assertEqual(self.stored("StockMenuList"), [a])
        before = self.library.stat().st_ino
        self.stocks("remove", "D", status=1)
        self.assertEqual(self.library.stat().st_ino, before)
        self.put_library(self.library, {"1": Paper("A"), "2": Paper("a")})
        self.assertEqual(self.messages(self.stocks("remove", "A", status=1)), ['several papers are called "A": 1, 2'])

    def test_papers_move_to_another_library(self):
        self.put_library(self.folder / "lib.plist", {"U": Paper("Blue", Color=2), "V": Paper("Red", Color=9)})
        self.stocks("add", "Red", "--color", "Green")
        result = self.stocks("import", "lib.plist", status=3)
        self.assertEqual(result.stdout, b"1 added, 0 replaced, 0 there already\n")
        self.assertEqual(self.messages(result), ['lib.plist: the library has another paper "Red"'])
        red = self.papers()[0]["uuid"]
        self.assertEqual(self.stocks("import", "--replace", "lib.plist").stdout, b"0 added, 1 replaced, 1 there already\n")
        self.assertEqual({paper["uuid"]: paper["stock"]["Color"] for paper in self.papers()}, {red: 9, "U": 2})
        self.stocks("use", "Blue")
        exported = self.stocks("export").stdout
        self.stocks("export", "blue", "-o", "one.plist")
        self.assertEqual(plistlib.loads((self.folder / "one.plist").read_bytes()),
                         {Prefix + "StockList": {"U": {"EntryStatus": 0, **Paper("Blue", Color=2), Prefix + "UUID": "U"}}})
        self.library.unlink()
        self.stocks("import", "-", input=exported)
        self.assertEqual(self.stocks("export").stdout, exported)
        self.assertEqual(self.messages(self.stocks("export", "nobody", "-o", "none.plist", status=1)), ['the library has no paper "nobody"'])
        self.assertFalse((self.folder / "none.plist").exists())

    def test_papers_are_the_same_by_name_and_stock(self):
        self.put_library(self.folder / "lib.plist", {"U": Paper("Two", Size=4), "V": Paper("Three", Size=4), "W": Paper("two", Size=5)})
        result = self.stocks("import", "--replace", "lib.plist", status=3)
        self.assertEqual(result.stdout, b"2 added, 0 replaced, 0 there already\n")
        self.assertEqual(self.messages(result), ['lib.plist: the library has another paper "two" by now'])
        for entry in ({}, {Prefix + "NameKey": "Inner"}):
            self.put_library(self.library, {"1": {**Paper("Two", Size=63), **entry}})
            self.assertEqual([paper["status"] for paper in self.papers()], ["invalid"])
            self.stocks("add", "two", "--size", "A3", status=1)
            self.stocks("add", "two", "--size", "A4", "--replace")
            self.assertEqual([paper["status"] for paper in self.papers()], ["not-in-use"])
            self.stocks("remove", "TWO", "two")

    def test_what_is_no_paper_is_left_out_and_named(self):
        odd = {"A": "text", "B": {"Stock": {}}, "C": Paper("x" * 256), "D": Paper("good", Size=18), "\x9b2J": 1}
        self.put_library(self.folder / "odd.plist", odd)
        result = self.stocks("import", "odd.plist", status=3)
        self.assertEqual(self.messages(result), ['odd.plist: "A" is no paper', 'odd.plist: "B" has no name',
                                                 'odd.plist: "C" has too long a name', 'odd.plist: "?2J" is no paper'])
        self.assertEqual([(paper["name"], paper["status"]) for paper in self.papers()], [("good", "invalid")])
        for name, contents, message in (("none.plist", plistlib.dumps({}), "none.plist: no stock library"),
                                        ("cut.plist", b"<plist><dict>\n<key>", "cut.plist:2: ")):
            self.write(name, contents)
            messages = self.messages(self.stocks("import", "odd.plist", name, status=1))
            self.assertTrue(messages[-1].startswith(message), messages)

    def test_a_library_that_is_broken_is_named_and_kept(self):
        self.put_library(self.library, {})
        self.library.write_bytes(b"<plist>\n<dict><key>a</key></dict></plist>")
        place = f"cannot read {self.library}:2: "
        self.assertTrue(self.messages(self.stocks("list", status=1))[0].startswith(place))
        message = self.messages(self.stocks("add", "New", status=3))[0]
        self.assertTrue(message.startswith(place) and message.endswith(f"it is kept as {self.library}.unreadable"), message)
        self.assertEqual([paper["name"] for paper in self.papers()], ["New"])

    def test_a_library_that_cannot_be_written_stays(self):
        self.put_library(self.folder / "elsewhere", {"1": Paper("A")})
        self.library.parent.mkdir(parents=True)
        self.library.symlink_to(self.folder / "elsewhere")
        for words in (("list",), ("add", "B"), ("remove", "A"), ("use", "A")):
            with self.subTest(words):
                messages = self.messages(self.stocks(*words, status=1))
                self.assertEqual(messages[0], f"cannot read {self.library}: Too many levels of symbolic links")
        self.assertEqual(list(plistlib.loads((self.folder / "elsewhere").read_bytes())[Prefix + "StockList"]), ["1"])

    def test_a_full_disk_leaves_the_library_as_it_was(self):
        def fill_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (100, 100))

        self.put_library(self.library, {"1": Paper("A")})
        before = self.library.read_bytes()
        result = self.stocks("add", "B", status=1, preexec_fn=fill_disk)
        self.assertEqual(self.messages(result), [f"cannot write {self.library}: File too large"])
        self.assertEqual(self.library.read_bytes(), before)

    def test_a_folder_that_cannot_be_made_is_named(self):
        self.write("config", b"")
        self.assertEqual(self.papers(), [])
        self.assertEqual(self.messages(self.stocks("add", "B", status=1)), [f"cannot make {self.library.parent}: Not a directory"])

    def test_looking_makes_no_file_and_changing_keeps_what_the_site_gives(self):
        self.put_library(self.folder / "machine/Tarvo/TarvoFeatures.plist", {"S": Paper("Site's")}, StockMenuList=["S"])
        self.assertEqual([paper["name"] for paper in self.papers()], ["Site's"])
        self.stocks("export")
        self.assertFalse(self.library.exists())
        self.stocks("add", "Own")
        self.assertEqual([paper["name"] for paper in self.papers()], ["Site's", "Own"])
        self.assertEqual(self.stored("StockMenuList"), ["S"])

    def test_many_at_once_lose_nothing(self):
        environment = {**os.environ, **self.home}
        running = [subprocess.Popen([Program, "stocks", "add", f"paper {number}"], env=environment) for number in range(40)]
        self.assertEqual([process.wait(120) for process in running], [0] * 40)
        self.assertEqual(len(self.papers()), 40)

    def test_wrong_use(self):
        self.assertIn("is not plain text", self.messages(self.stocks("add", "P", "--comment", "a\x01b", status=2))[0])
        for words in (("add",), ("add", "a", "b"), ("add", ""), ("add", "x" * 256), ("add", "a\x07"), ("add", b"\xff"),
                      ("add", "a", "--size", "A5"), ("add", "a", "--size", "0x297"), ("add", "a", "--size", "210x1e3"),
                      ("add", "a", "--color", "Custom1"), ("add", "a", "--type", "8"), ("add", "a", "--weight", "59"),
                      ("add", "a", "--weight", "75g"), ("remove",), ("use",), ("match",), ("match", "a", "b"), ("import",),
                      ("list", "a")):
            with self.subTest(words):
                self.stocks(*words, status=2)
        self.assertEqual(self.files(), [])


class Watermarks(StocksTest):
    def test_those_of_the_site_are_shown(self):
        path = self.folder / "machine/Tarvo/com.tarvo.printing.watermarks.plist"
        self.assertEqual(self.run_program("watermarks", "list").stdout, b"")
        path.parent.mkdir(parents=True)
        path.write_bytes(plistlib.dumps({"WatermarkListEntries": ["Draft", "Gone"], "Draft": {}}))
        result = self.run_program("watermarks", "list")
        self.assertEqual((result.returncode, result.stdout), (3, b"Draft\nGone\n"))
        self.assertEqual(self.messages(result), ['the watermark "Gone" is in the list, but not stored'])
        shown = json.loads(self.run_program("watermarks", "list", "--json").stdout)["watermarks"]
        self.assertEqual([(each["name"], each["watermark"] is None) for each in shown], [("Draft", False), ("Gone", True)])
        path.write_bytes(b"no list")
        self.assertEqual(self.run_program("watermarks", "list").returncode, 1)


if __name__ == "__main__":
    unittest.main()
