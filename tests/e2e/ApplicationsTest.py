"""Print dialogs of applications that know nothing of us: our tab is there, and our ticket travels."""

import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

from Desktop import DesktopTest, Pdf, Tab, jobs, options_of_next_job, open_print_dialog, press, show_tab

Program = os.environ["TARVO_TICKET"]


class Applications(DesktopTest):
    def check(self, name, suffix, contents, dialog=None, **variables):
        """Prints a document with the program of that name and looks what the driver is given. The
        dialog may be another program's."""
        with tempfile.NamedTemporaryFile(prefix="page", suffix=suffix) as document:
            document.write(contents)
            document.flush()
            before = jobs()
            self.start(name, document.name, env={**os.environ, **variables})
            open_print_dialog(Path(document.name).stem, dialog or name)
            show_tab(dialog or name, Tab)
            press(dialog or name, "Print")
            options = options_of_next_job(before)
        ticket = subprocess.run([Program, "from-job", options], capture_output=True, check=True).stdout
        self.assertEqual(plistlib.loads(ticket), {})

    def test_gedit(self):
        self.check("gedit", ".txt", b"A page\n")

    def test_a_line_in_the_toolkits_settings_turns_it_on(self):
        line = f"[Settings]\ngtk-modules={os.environ['GTK_MODULES']}\n"
        for variable in ("XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"):  # of a user, of a machine
            with self.subTest(variable), tempfile.TemporaryDirectory() as folder:
                settings = Path(folder) / "gtk-3.0/settings.ini"
                settings.parent.mkdir()
                settings.write_text(line)
                self.check("gedit", ".txt", b"A page\n", GTK_MODULES="", **{variable: folder})

    def test_evince(self):
        self.check("evince", ".pdf", Pdf)

    def test_a_confined_application_through_the_portal(self):
        self.check("gedit", ".txt", b"A page\n", dialog="xdg-desktop-portal-gtk", GTK_USE_PORTAL="1")


if __name__ == "__main__":
    unittest.main()
