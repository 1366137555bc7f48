"""Documents that somebody made to hurt, on the command line: a ticket, or a reason with file and line."""

import os
import plistlib
import re
import unittest
from pathlib import Path

from Program import ProgramTest

Folder = Path(os.environ["TARVO_SOURCE_DIR"]) / "tests/tpif/hostile"
WithoutLine = {"empty.xml", "a-binary-property-list.xml"}  # there is none to name


class HostileDocuments(ProgramTest):
    def test_are_read_or_refused_with_file_and_line(self):
        read = 0
        for document in sorted(Folder.iterdir()):
            with self.subTest(document.name):
                result = self.run_program("import", str(document))
                check = self.run_program("check", str(document))
                if result.returncode == 0:
                    message = rb"tarvo-ticket: [^\n]+: no document to import: the root element is \"[^\n]*\n"
                    self.assertRegex(result.stderr, b"^(" + message + b")?$")
                    plistlib.loads(result.stdout)
                    read += 1
                    continue
                self.assertEqual((result.returncode, result.stdout, check.returncode), (1, b"", 1))
                line = "" if document.name in WithoutLine else r"\d+: "
                for refused in (result, check):
                    self.assertRegex(refused.stderr.decode(),
                                     f"^tarvo-ticket: {re.escape(str(document))}: ?{line}[^\n]+\n$")
        self.assertGreater(read, 20)


if __name__ == "__main__":
    unittest.main()
