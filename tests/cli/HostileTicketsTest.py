"""Tickets that somebody made to hurt: an error or a document, soon, and never a crash."""

import os
import plistlib
import re
import resource
import unittest
from datetime import datetime
from pathlib import Path

from Program import Header, Options, ProgramTest

# Of the processor, which only a ticket that costs out of proportion takes; how fast the program is on
# such tickets is the bench's.
CpuSeconds = 60
Chosen = f"<key>{Options}</key><dict><key>TPIFOptionAll</key><true/></dict>"


def Document(text):
    return f"<plist><dict>{Chosen}{text}</dict></plist>".encode()


def Nested(levels):
    """Values nested that deep, the root dictionary being the first."""
    return Document("<key>com.tarvo.a</key>" + "<array>" * (levels - 1) + "</array>" * (levels - 1))


def Many(key):
    return Document("".join(f"<key>{key}{number}</key><true/>" for number in range(10**6)))


def Text(text):
    return Document(f"<key>com.tarvo.print.JobNotesMessage</key><string>{text}</string>")


def Resolution(number):
    return Document(f"<key>com.tarvo.print.Resolution</key><integer>{number}</integer>")


def Declared(declarations):
    return f"<!DOCTYPE plist [{declarations}]>\n<plist><string>&a;</string></plist>".encode()


def EveryKey(value):
    """Each key that the sources name has the value, at the root and in dictionaries there."""
    keys = {key for file in (Path(os.environ["TARVO_SOURCE_DIR"]) / "src").rglob("*Keys.h")
            for key in re.findall(r'"([\w.]+)"', file.read_text())}
    assert len(keys) > 50, keys
    inner = {key: value for key in keys}
    return [plistlib.dumps({**{key: entry for key in keys}, Options: {"TPIFOptionAll": True}})
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
    ("a control character as a reference", lambda: Text("&#1;"), 1, b":1: "),
    ("bytes that are no text", lambda: Text("X").replace(b"X", b"\xff\xfe"), 1, b":1: "),
    ("entities in entities", lambda: Declared('<!ENTITY b "bb"><!ENTITY a "&b;&b;">'), 1, b":1: entities"),
    ("a file of the system", lambda: Declared('<!ENTITY a SYSTEM "/etc/passwd">'), 1, b":1: entities"),
    ("integer beyond 64 bits", lambda: Resolution("9" * 20), 1, b"bad integer"),
    ("integer beyond 32 bits", lambda: Resolution(2**32 + 2), 0, b""),
    ("an array as the root", lambda: b"<plist><array/></plist>", 1, b"standard input:"),
    ("a text as the root", lambda: b"<plist><string>a</string></plist>", 1, b"standard input:"),
)

# Few settings accept two of these.
Values = (True, -2**31, 2**62, 1e300, float("nan"), "", "1", "<&>\n", b"1", datetime(1, 1, 1), [], {})


class HostileTickets(ProgramTest):
    def timed_export(self, file):
        """The result, and the processor time that it took."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        with file.open("rb") as contents:
            result = self.export("-", stdin=contents)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return result, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime

    def test_end_soon_with_a_document_or_a_reason(self):
        for name, ticket, status, message in Tickets:
            with self.subTest(name):
                file = self.write("ticket.plist", ticket())
                result, seconds = self.timed_export(file)
                self.assertEqual(result.returncode, status, result.stderr[:500])
                self.assertEqual(result.stdout.startswith(Header), status == 0)
                self.assertIn(message, result.stderr)
                self.assertLess(len(result.stderr), 4096)
                self.assertLess(seconds, CpuSeconds)

    def test_wrong_types_everywhere_still_give_a_document(self):
        for value in Values:
            for ticket in EveryKey(value):
                with self.subTest(value):
                    result = self.export("-", "--whole", input=ticket)
                    self.assertEqual(result.returncode, 0, result.stderr)
                    self.assertTrue(result.stdout.startswith(Header))
                    self.assertTrue(result.stdout.endswith(b"</tpif>"))


if __name__ == "__main__":
    unittest.main()
