"""Drives a program as its user does, over the accessibility bus: unmodified programs, by what their
widgets are called."""

import collections
import os
import subprocess
import time
import unittest
from pathlib import Path

import pyatspi

Never = 150  # seconds, after which it will not come any more
LongForADialog = 10
pyatspi.Atspi.set_timeout(Never * 1000, Never * 1000)  # a program that is busy answers late
Folder = Path(os.environ.get("CUPSD_FOLDER", "/nonexistent"))
Tab = "Fake Features"
Pdf = b"""%PDF-1.4
1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj
2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj
3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]>>endobj
trailer<</Root 1 0 R>>
"""


def wait_for(what, condition, patience=Never):
    """The first result of the condition that is something."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        try:
            if found := condition():
                return found
        except Exception:  # a widget may go while it is looked at
            pass
        time.sleep(0.05)
    raise AssertionError(f"there is no {what}; there are {windows()}")


def windows():
    """What is on the screen, for who has to find out why something is not."""
    programs = [program for program in pyatspi.Registry.getDesktop(0) if program is not None]
    for program in programs:
        program.clearCache()
    return [f"{program.name}: {window.getRoleName()} {window.name}" for program in programs for window in program if window is not None]


def shown(widget):
    """What is seen in a widget, from the outside inwards: what is in something unseen is not seen either."""
    waiting = collections.deque([widget])
    while waiting:
        for child in waiting.popleft():
            if child is not None and child.getState().contains(pyatspi.STATE_SHOWING):
                yield child
                waiting.append(child)


def find(program, role, name):
    """A widget that is seen, of a program by its name on the bus."""
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == program:
            application.clearCache()  # of what the bus has told before
            for widget in shown(application):
                if widget.name == name and widget.getRoleName() == role:
                    return widget
    return None


def find_labelled(program, text):
    """What a label belongs to, for a widget whose name is its value."""
    label = find(program, "label", text)
    return next(relation.getTarget(0) for relation in label.getRelationSet()
                if relation.getRelationType() == pyatspi.RELATION_LABEL_FOR)


def jobs():
    return sorted((Folder / "jobs").glob("*.options"), key=lambda path: int(path.stem))


def window_number(title):
    search = ["xdotool", "search", "--onlyvisible", "--name", title]
    return wait_for(f"window {title}", lambda: subprocess.run(search, capture_output=True, check=False).stdout.split()[0])


def press_key(window, key):
    """Sends a key to a window by its title; there is no window manager to give it the focus."""
    number = window_number(window)
    subprocess.run(["xdotool", "windowfocus", "--sync", number], check=True)
    subprocess.run(["xdotool", "key", key], check=True)


def open_print_dialog(window, program):
    """Presses the key for it, again if need be: a program that still loads its document does not listen. The
    dialog may be another program's."""
    def dialog():
        press_key(window, "ctrl+p")
        return wait_for("dialog", lambda: find(program, "dialog", "Print"), LongForADialog)
    return wait_for("print dialog", dialog)


def show_tab(program, name):
    tab = wait_for(f"tab {name}", lambda: find(program, "page tab", name))
    tab.parent.querySelection().selectChild(tab.getIndexInParent())
    return tab


def press(program, name, role="push button"):
    wait_for(f"{role} {name}", lambda: find(program, role, name)).queryAction().doAction(0)


def click(program, name, role="push button"):
    """Presses with the mouse, as a button that opens a modal dialog has to be: an action over the bus would
    wait for the dialog's end."""
    def find_ready():
        widget = find(program, role, name)
        return widget if widget.getState().contains(pyatspi.STATE_SENSITIVE) else None
    area = wait_for(f"{role} {name}", find_ready).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    middle = [str(area.x + area.width // 2), str(area.y + area.height // 2)]
    subprocess.run(["xdotool", "mousemove", *middle, "click", "1"], check=True)


def choose_item(program, name, item):
    """Chooses the item that begins so of the pop-up button of that name."""
    box = wait_for(f"pop-up button {name}", lambda: find(program, "combo box", name) or find_labelled(program, name))
    texts = [entry.name for entry in box[0]]
    box.querySelection().selectChild(next(place for place, text in enumerate(texts) if text.startswith(item)))


def choose_in_menu(program, submenu, item):
    """Chooses an item of a submenu of the menu that is open, as a screen reader does."""
    wait_for(f"submenu {submenu}", lambda: find(program, "menu", submenu)).queryAction().doAction(0)
    wait_for(f"item {item}", lambda: find_role_of(program, item)).queryAction().doAction(0)


def find_role_of(program, name):
    """An item of a menu, whatever its mark."""
    roles = ("menu item", "check menu item", "radio menu item")
    return next(filter(None, (find(program, role, name) for role in roles)), None)


def choose_file(program, title, path, button):
    """Gives the file chooser of that title a path, and presses its button."""
    press_key(title, "ctrl+l")
    chooser = wait_for("chooser", lambda: find(program, "file chooser", title))
    entry = wait_for("entry", lambda: next(widget for widget in shown(chooser) if widget.getRoleName() == "text"))
    entry.queryEditableText().setTextContents(str(path))
    click(program, button)


def options_of_next_job(before):
    """The options of the job that comes after those, as its driver is given them."""
    return wait_for("job", lambda: jobs()[len(before):])[0].read_text()


class DesktopTest(unittest.TestCase):
    def start(self, *words, **settings):
        program = subprocess.Popen(words, stderr=subprocess.DEVNULL, **settings)

        def end():
            program.kill()
            program.wait()
        self.addCleanup(end)
        return program
