"""What an installation puts into a system, and that it works from there."""

import os
import plistlib
import re
import shutil
import subprocess
import unittest
from pathlib import Path

from Desktop import DesktopTest, Pdf, jobs, open_print_dialog, options_of_next_job, press, show_tab

Source = Path(os.environ["TARVO_SOURCE_DIR"])
Binaries = Path(os.environ["TARVO_BINARY_DIR"])
Root = Binaries / "tests/e2e/installed"

Files = r"""
bin/tarvo-print
bin/tarvo-ticket
lib/([^/]+/)?gtk-3.0/modules/libtarvo-print-module.so
lib/([^/]+/)?tarvo/TarvoFeatures.plugin/Contents/Info.plist
lib/([^/]+/)?tarvo/TarvoFeatures.plugin/Contents/Linux/TarvoFeatures.so
lib/([^/]+/)?tarvo/TarvoFeatures.plugin/Contents/Resources/.+
lib/([^/]+/)?tarvo/tarvo-printhost.so
share/bash-completion/completions/tarvo-ticket
share/doc/tarvo-print-features/(changelog|copyright)
share/man/man1/tarvo-(print|ticket).1
share/ppd/tarvo/Tarvo[A-Za-z0-9]+.ppd
""".split()


class Installed(DesktopTest):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(Root, ignore_errors=True)
        subprocess.run(["cmake", "--install", Binaries, "--prefix", "/usr"], check=True,
                       env={**os.environ, "DESTDIR": str(Root)}, stdout=subprocess.DEVNULL)
        cls.usr = Root / "usr"
        cls.document = Root.with_name("page.pdf")
        cls.document.write_bytes(Pdf)

    def run_program(self, *words):
        return subprocess.run([self.usr / "bin/tarvo-ticket", *words], capture_output=True, text=True, check=True).stdout

    def test_everything_is_where_debian_expects_it(self):
        files = [str(file.relative_to(self.usr)) for file in Root.rglob("*") if file.is_file()]
        for pattern in Files:
            self.assertTrue([file for file in files if re.fullmatch(pattern, file)], pattern)
        self.assertEqual([file for file in files if not any(re.fullmatch(pattern, file) for pattern in Files)], [])

    def test_the_program_finds_its_texts(self):
        self.assertIn("Booklet, folded and stapled", self.run_program("show", Source / "examples/booklet-with-covers.plist"))

    def test_the_print_dialog_has_the_features(self):
        before = jobs()
        program = self.start(self.usr / "bin/tarvo-print", self.document, env={**os.environ, "GTK_MODULES": ""})
        show_tab("tarvo-print", "Tarvo Features")
        press("tarvo-print", "Print")
        ticket = plistlib.loads(self.run_program("from-job", options_of_next_job(before)).encode())
        self.assertEqual((program.wait(60), ticket["com.tarvo.print.EmitTPIF"]), (0, 1))

    def test_another_program_finds_the_module_by_its_name(self):
        self.start("evince", self.document, env={**os.environ, "GTK_PATH": str(next(self.usr.rglob("gtk-3.0")))})
        open_print_dialog("page", "evince")
        show_tab("evince", "Tarvo Features")


if __name__ == "__main__":
    unittest.main()
