"""Runs tarvo-ticket as a process, on tickets in a folder of the test's own."""

import json
import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

Program = os.environ["TARVO_TICKET"]
Folder = Path(Program).parent  # of the program, its manual page and its completion
Header = b'<?xml version="1.0" encoding="UTF-8"?>\n'

Options = "com.tarvo.print.TPIFOptions"
Whole = {Options: {"TPIFOptionAll": True}}
Resolution = {"com.tarvo.print.Resolution": 2}
FrontCover = {"com.tarvo.print.SpecialPages.FrontCover": {}}


def Ticket(*parts):
    """A ticket file with the entries of all parts."""
    return plistlib.dumps({key: value for part in parts for key, value in part.items()})


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, contents):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(contents)
        return path

    def run_program(self, *words, program=Program, **settings):
        """What the program did, run in the test's folder."""
        source = None if "input" in settings else subprocess.DEVNULL
        environment = {**os.environ, "LANGUAGE": "en"}
        settings = {"stdin": source, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "env": environment, **settings}
        return subprocess.run([program, *words], cwd=self.folder, timeout=120, **settings)

    def run_bounded(self, *words):
        """What the program did, which had no more than 64 MiB of memory; a sanitizer's has."""
        output, errors = self.folder / "output", self.folder / "errors"
        with output.open("wb") as out, errors.open("wb") as err:
            process = subprocess.Popen([Program, *words], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=out, stderr=err)
            _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        if b"__asan_init" not in Path(Program).read_bytes():
            self.assertLess(usage.ru_maxrss, 64 * 1024)
        return subprocess.CompletedProcess(words, process.returncode, output.read_bytes(), errors.read_bytes())

    def export(self, *words, **settings):
        return self.run_program("export", *words, **settings)

    def messages(self, result):
        """The program's own lines of standard error, without its name."""
        lines = result.stderr.decode().splitlines()
        return [line.removeprefix("tarvo-ticket: ") for line in lines if line.startswith("tarvo-ticket: ")]

    def files(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*"))


class LibraryTest(ProgramTest):
    """With a home of the test's own."""

    def setUp(self):
        super().setUp()
        self.home = {"XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_DATA_HOME": str(self.folder / "data"),
                     "XDG_DATA_DIRS": str(self.folder / "machine")}
        self.library = self.folder / "config/tarvo/com.tarvo.print.stocklibrary"

    def run_program(self, *words, language="en", **settings):
        return super().run_program(*words, env={**os.environ, **self.home, "LANGUAGE": language}, **settings)

    def stocks(self, *words, status=0, **settings):
        result = self.run_program("stocks", *words, **settings)
        self.assertEqual(result.returncode, status, result.stderr)
        return result

    def papers(self):
        return json.loads(self.stocks("list", "--json").stdout)["papers"]
