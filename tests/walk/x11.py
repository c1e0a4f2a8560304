"""What the walks do on an X11 screen: pointer, keys, pictures, and what the window manager knows of a
window. A walk elsewhere has a module with the same functions; person.py imports it by the name in
the environment variable WALK_SCREEN.

Places are in pixels of the screen."""

import os
import subprocess

from gi.repository import Atspi

scale = float(os.environ["WALK_SCALE"])
TELLS_HINTS = True  # whether there are is_in_task_bar and lets_user


def run(*command):
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


def said_by(*command):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True).stdout


def start(program, **options):
    """Starts the program; the options are those of subprocess.Popen."""
    return subprocess.Popen([program], **options)


def box_of(node):
    """Left, top, width and height of a control that is shown."""
    box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return tuple(round(scale * edge) for edge in (box.x, box.y, box.width, box.height))


def point_at(x, y):
    run("xdotool", "mousemove", "--sync", int(x), int(y))


def press():
    run("xdotool", "mousedown", 1)


def release():
    run("xdotool", "mouseup", 1)


def turn_wheel_up():
    run("xdotool", "click", 4)


def press_keys(*names):
    run("xdotool", "key", "--clearmodifiers", *names)


def type_text(text):
    run("xdotool", "type", "--delay", 8, text)


def save_picture(file, box=None):
    """Saves a picture of the screen or of a part of it, without the pointer. The name of the file
    tells the format, PNG or PPM with 8 bits for a colour."""
    part = ("-crop", "{2}x{3}+{0}+{1}".format(*box), "+repage") if box else ()
    run("import", "-window", "root", *part, "-depth", 8, file)


def active_window():
    """The X window that gets the keys, 0 if there is none."""
    return int(said_by("xdotool", "getactivewindow") or 0)


def is_above(window, owner):
    """Whether the window has to stay above its owner."""
    return f"{owner:#x}" in said_by("xprop", "-id", window, "WM_TRANSIENT_FOR")


def is_in_task_bar(window):
    return "_NET_WM_STATE_SKIP_TASKBAR" not in said_by("xprop", "-id", window, "_NET_WM_STATE")


def lets_user(window, action):
    """Whether the window manager offers the user this: RESIZE, MINIMIZE, MAXIMIZE_VERT, CLOSE."""
    return f"ACTION_{action}" in said_by("xprop", "-id", window, "_NET_WM_ALLOWED_ACTIONS")
