"""Tickets that somebody made to hurt: an error or a document, soon, and never a crash."""

import os
import plistlib
import re
import resource
import unittest
from datetime import datetime
from pathlib import Path

from Program import Header, Options, ProgramTest, Whole

# Of the processor, which only a ticket that costs out of proportion takes; how fast the program is on
# such tickets is the bench's.
CpuSeconds = 60
Chosen = f"<key>{Options}</key><dict><key>TPIFOptionAll</key><true/></dict>"


def Document(text):
    return f"<plist><dict>{Chosen}{text}</dict></plist>".encode()


def Nested(levels):
    return Document("<key>com.tarvo.a</key>" + "<array>" * (levels - 1) + "</array>" * (levels - 1))


def Many(key):
    return Document("".join(f"<key>{key}{number}</key><true/>" for number in range(10**6)))


def Text(text):
    return Document(f"<key>com.tarvo.print.JobNotesMessage</key><string>{text}</string>")


def EveryKey(value):
    """Each key that the sources name has the value, at the root and in dictionaries there."""
    keys = {key for file in (Path(os.environ["TARVO_SOURCE_DIR"]) / "src").rglob("*Keys.h")
            for key in re.findall(r'"([\w.]+)"', file.read_text())}
    assert len(keys) > 50, keys
    inner = dict.fromkeys(keys, value)
    return [plistlib.dumps({**dict.fromkeys(keys, entry), **Whole})
            for entry in (value, inner, [value], [inner, value])]


# name, ticket, exit status, what standard error holds
Tickets = (
    ("a million keys of the system", lambda: Many("k"), 0, b""),
    ("a million keys of ours", lambda: Many("com.tarvo."), 0, b""),
    ("200 levels", lambda: Nested(200), 0, b""),
    ("201 levels", lambda: Nested(201), 1, b"deeper than 200"),
    ("a million levels", lambda: b"<plist>" + b"<array>" * 10**6, 1, b"deeper"),
    ("a text of 50 MB", lambda: Text("&amp;" * 10**7), 0, b""),
    ("a key of 25 MB, twice", lambda: Document(2 * f"<key>{'k' * 25 * 10**6}</key><true/>"), 1, b':1: key "kkk'),
    ("65 MiB", lambda: Text("x" * (65 * 2**20)), 1, b"larger than 64 MiB"),
    ("NUL", lambda: Text("a\0b"), 1, b":1: "),
    ("a control character", lambda: Text("\x01"), 1, b":1: "),
    ("an entity", lambda: b"<!DOCTYPE plist [<!ENTITY a 'bb'>]>" + Text("&a;"), 1, b":1: entities"),
    ("integer beyond 64 bits", lambda: Document(f"<key>a</key><integer>{'9' * 20}</integer>"), 1, b"bad integer"),
    ("names without end", lambda: Document("".join(f"<array a{number}=''/>" for number in range(10**6))), 1, b"attributes"),
    ("an array as the root", lambda: b"<plist><array/></plist>", 1, b"standard input:"),
)

# Few settings accept two of these.
Values = (True, -2**31, 2**62, 1e300, float("nan"), "", "1", "<&>\n", b"1", datetime(1, 1, 1), [], {})


class HostileTickets(ProgramTest):
    def test_end_soon_with_a_document_or_a_reason(self):
        for name, ticket, status, message in Tickets:
            with self.subTest(name):
                before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
                result = self.export("-", input=ticket())
                self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before, CpuSeconds)
                self.assertEqual(result.returncode, status, result.stderr[:500])
                self.assertEqual(result.stdout.startswith(Header), status == 0)
                self.assertIn(message, result.stderr)
                self.assertLess(len(result.stderr), 4096)

    def test_a_stock_of_many_entries_is_shown_soon(self):
        stock = plistlib.dumps({"com.tarvo.print.JobLevelStock": dict.fromkeys(map(str, range(300000)), 1)})
        before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        result = self.run_program("show", "--json", "-", input=stock)
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before, CpuSeconds)
        self.assertEqual((result.returncode, result.stderr), (0, b""))

    def test_wrong_types_everywhere_are_shown(self):
        for value in Values:
            for ticket in EveryKey(value):
                for words in ((), ("--json",)):
                    with self.subTest(value, words=words):
                        result = self.run_program("show", "--pages", "9", *words, "-", input=ticket)
                        self.assertEqual((result.returncode, result.stderr), (0, b""))

    def test_wrong_types_everywhere_still_give_a_document(self):
        for value in Values:
            for ticket in EveryKey(value):
                with self.subTest(value):
                    result = self.export("-", "--whole", input=ticket)
                    self.assertEqual(result.returncode, 0, result.stderr)
                    self.assertTrue(result.stdout.startswith(Header) and result.stdout.endswith(b"</tpif>"))


if __name__ == "__main__":
    unittest.main()
