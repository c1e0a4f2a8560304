"""A user of the desktop program: finds what is on the screen, clicks, types, takes pictures. The
walks in this folder use it; each is started as WALK DISC PICTURES SCREEN.

Controls are found through the accessibility interface by their names for a screen reader, as listed
in docs/accessibility.md. Every action goes through the window system, as x11.py tells. The walk stops
with an error at the first failed check."""

import importlib
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from fnmatch import fnmatchcase

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

desk = importlib.import_module(os.environ.get("WALK_SCREEN", "x11"))
disc, pictures, screen = sys.argv[1:4]
scale = float(os.environ["WALK_SCALE"])
asked_scale = float(os.environ.get("WALK_ASKED_SCALE", scale))  # if the screen had more room
user = tempfile.TemporaryDirectory()
documents = os.path.join(user.name, "documents")
configuration = os.path.join(user.name, "config")
os.mkdir(documents)
os.mkdir(configuration)
with open(os.path.join(configuration, "user-dirs.dirs"), "w", encoding="utf-8") as folders:
    folders.write(f'XDG_DOCUMENTS_DIR="{documents}"\n')
environment = dict(
    os.environ,
    XDG_DATA_HOME=user.name,
    XDG_CONFIG_HOME=configuration,
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
    QT_ACCESSIBILITY="1",
)
process = None


def use_scale(value):
    """From now on windows are enlarged by this factor."""
    global scale
    scale = desk.scale = value


def fail(what):
    shot(f"failed-{os.path.basename(sys.argv[0])}")
    sys.exit(f"walk: {what}")


def expect(holds, what):
    if not holds:
        fail(f"not so: {what}")
    print(f"   {what}", flush=True)


def expect_soon(holds, what):
    """As expect, but waits until it holds."""
    wait(holds, what)
    print(f"   {what}", flush=True)


def wait(get, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = get()
        if found:
            return found
        time.sleep(0.05)
    fail(f"timeout while waiting for {what}")


def shot(name):
    time.sleep(0.3)
    desk.save_picture(os.path.join(pictures, f"{screen}-{name}.png"))


def start(program="sparrowfield"):
    global process
    process = desk.start(os.path.join(disc, program), cwd=disc, env=environment)
    wait_for_keyboard()


def is_ours(pid):
    """Whether the process, the program or one that it started, uses this walk's folder."""
    try:
        with open(f"/proc/{pid}/environ", "rb") as its:
            return f"XDG_DATA_HOME={user.name}".encode() in its.read().split(b"\0")
    except OSError:
        return False


def end_of_walk():
    if process and process.poll() is None:
        process.kill()


def wait_for_end():
    """Waits until the program has ended by itself; returns its exit status."""
    wait(lambda: process.poll() is not None, "the program's end")
    return process.returncode


def kill():
    process.send_signal(signal.SIGKILL)
    process.wait()


def windows():
    applications = [
        found for found in children(Atspi.get_desktop(0)) if is_ours(found.get_process_id())
    ]
    return [window for found in applications for window in children(found) if showing(window)]


def children(node):
    node.clear_cache()
    return [c for c in (node.get_child_at_index(i) for i in range(node.get_child_count())) if c]


def search(node, test):
    for child in children(node):
        if test(child):
            return child
        found = search(child, test)
        if found:
            return found
    return None


class Told:
    """A form on the page on accessibility: its role and title, and for each control its position in
    the Tab order (or 0), role and name."""

    def __init__(self, role, title):
        self.role, self.title, self.controls = role, title, {}

    def read(self, row):
        tab, name, role, title = (cell.strip() for cell in row.strip().strip("|").split("|"))
        self.controls[name.strip("`")] = (int(tab or 0), role, title)


def read_page():
    forms, form = {}, None
    with open(
        os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../docs/accessibility.md"),
        encoding="utf-8",
    ) as page:
        for line in page:
            if line.startswith("## "):
                form = re.match(r"## `(\w+)`", line)
            elif form and (
                window := re.match(r'An? (dialog|frame|alert) named (after the map|"(.+?)")', line)
            ):
                forms[form[1]] = Told(window[1], window[3] or "*")
            elif form and line.startswith("| ") and "`" in line:
                forms[form[1]].read(line)
    return forms


told = read_page()


def name_of(node):
    """What a screen reader says: the name of the control's label, or its own."""
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return relation.get_target(0).get_name()
    return node.get_name()


def is_that(node, role, name):
    return node.get_role_name() == role and fnmatchcase(name_of(node).strip(), name)


def window_of(form):
    """The form's window, if it is open."""
    this = told[form]
    others = [other.title for other in told.values() if other.title != "*"]
    for window in windows():
        if is_that(window, this.role, this.title) and (
            this.title != "*" or window.get_name().strip() not in others
        ):
            return window
    return None


def control(form, name, missing_is_fine=False):
    """The control of this name on this form."""
    _, role, title = told[form].controls[name]

    def get():
        window = window_of(form)
        return window and search(window, lambda node: showing(node) and is_that(node, role, title))

    return get() if missing_is_fine else wait(get, f"{form}.{name}")


def is_open(form):
    return window_of(form) is not None


def takes_keys(window):
    return window.get_state_set().contains(Atspi.StateType.ACTIVE)


def is_active(form):
    """Whether the form's window is open and gets the keys."""
    window = window_of(form)
    return window is not None and takes_keys(window)


def wait_for_keyboard():
    """Waits for an active window: between two windows, keys would be lost."""
    wait(lambda: any(map(takes_keys, windows())), "a window of the program to be active")


def text_of(form, name):
    node = control(form, name)
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def letters_width(form, name):
    """How far the sixth letter of a text is from the first."""
    text = control(form, name)
    first, sixth = (
        Atspi.Text.get_character_extents(text, i, Atspi.CoordType.WINDOW).x for i in (0, 5)
    )
    return sixth - first


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def click_at(x, y):
    desk.point_at(x, y)
    desk.press()
    desk.release()
    time.sleep(0.25)


def click(node, x=None):
    left, top, width, height = desk.box_of(node)
    click_at(left + (width / 2 if x is None else scale * x), top + height / 2)


def rest_on(node, x):
    """Rests the mouse on it until its tool tip is up."""
    left, top, _, height = desk.box_of(node)
    desk.point_at(left + scale * x, top + height / 2)
    time.sleep(1.2)


def item(form, tree, name):
    """The visible node of a tree with this text."""

    def get():
        return search(control(form, tree), lambda node: node.get_name() == name and showing(node))

    return wait(get, f"the node {name}")


def click_item(form, tree, name):
    click(item(form, tree, name), x=12)


def message_is_up():
    return any(window.get_name() == "Sparrowfield" and takes_keys(window) for window in windows())


def printed(pattern, picture):
    """The text that has been printed, without a printer, to the one file in the documents whose name
    matches. Takes a picture of its first page."""
    wait(message_is_up, "the message that names the file")
    keys("Return")
    wait(lambda: not message_is_up(), "the message to close")
    (file,) = [name for name in os.listdir(documents) if fnmatchcase(name, pattern)]
    file = os.path.join(documents, file)
    first = os.path.join(pictures, f"{screen}-{picture}")
    subprocess.run(["pdftoppm", "-png", "-r", "60", "-singlefile", file, first], check=True)
    return subprocess.run(
        ["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True
    ).stdout


def keys(*names):
    wait_for_keyboard()
    desk.press_keys(*names)
    time.sleep(0.25)


def type_text(text):
    wait_for_keyboard()
    desk.type_text(text)
    time.sleep(0.25)
