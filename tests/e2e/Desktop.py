"""Drives a program as its user does, over the accessibility bus: unmodified programs, by what their
widgets are called."""

import os
import subprocess
import time
import unittest
from pathlib import Path

import pyatspi

Never = 60  # seconds, after which it will not come any more
Folder = Path(os.environ.get("CUPSD_FOLDER", "/nonexistent"))
Tab = "Fake Features"
Pdf = b"""%PDF-1.4
1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj
2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj
3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]>>endobj
trailer<</Root 1 0 R>>
"""


def wait_for(what, condition):
    """The first result of the condition that is something."""
    end = time.monotonic() + Never
    while time.monotonic() < end:
        try:
            if found := condition():
                return found
        except Exception:  # a widget may go while it is looked at
            pass
        time.sleep(0.05)
    raise AssertionError(f"there is no {what}")


def widgets(widget):
    yield widget
    for child in widget:
        if child is not None:
            yield from widgets(child)


def find(program, role, name):
    """A widget that is seen, of a program by its name on the bus."""
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == program:
            for widget in widgets(application):
                if widget.getRoleName() == role and widget.name == name and widget.getState().contains(pyatspi.STATE_SHOWING):
                    return widget
    return None


def jobs():
    return sorted((Folder / "jobs").glob("*.options"), key=lambda path: int(path.stem))


class DesktopTest(unittest.TestCase):
    def start(self, *words, **settings):
        program = subprocess.Popen(words, stderr=subprocess.DEVNULL, **settings)

        def end():
            program.kill()
            program.wait()
        self.addCleanup(end)
        return program

    def window(self, title):
        """The number of a window by its title."""
        search = ["xdotool", "search", "--onlyvisible", "--name", title]
        return wait_for(f"window {title}", lambda: subprocess.run(search, capture_output=True, check=False).stdout.split()[0])

    def press_key(self, window, key):
        """Sends a key to a window by its title; there is no window manager to give it the focus."""
        number = self.window(window)
        subprocess.run(["xdotool", "windowfocus", "--sync", number], check=True)
        subprocess.run(["xdotool", "key", key], check=True)

    def show_tab(self, program, name):
        tab = wait_for(f"tab {name}", lambda: find(program, "page tab", name))
        tab.parent.querySelection().selectChild(tab.getIndexInParent())
        return tab

    def press(self, program, name):
        wait_for(f"button {name}", lambda: find(program, "push button", name)).queryAction().doAction(0)

    def printed(self, before):
        """The options of the job that comes after those."""
        return wait_for("job", lambda: jobs()[len(before):])[0].read_text()
