#!/usr/bin/python3
"""A second start. With the same folders it raises the running copy, whatever form that shows, and
ends. From another directory, or while the running copy hangs, both run."""

import os
import signal
import subprocess
import sys
import tempfile
import time

import person
from person import *  # noqa: F403

started = []


def start_again(directory=disc):
    started.append(
        subprocess.Popen([os.path.join(disc, "sparrowfield")], cwd=directory, env=environment)
    )
    return started[-1]


def active_window():
    """The caption and the process of the window that has the keyboard focus."""
    found = subprocess.run(
        ["xdotool", "getactivewindow", "getwindowname", "getwindowpid"],
        capture_output=True,
        text=True,
    )
    name, _, pid = found.stdout.strip().rpartition("\n")
    return name, int(pid or 0)


def is_active(process, title):
    name, pid = active_window()
    return pid == process.pid and name.strip() == title


def expect_raised(title, where):
    begin = time.monotonic()
    status = start_again().wait(10)
    seconds = time.monotonic() - begin
    expect(status == 0, f"a second start ends, after {seconds:.1f} s")
    wait(lambda: is_active(person.process, title), f"{title} in front again", 5)
    expect(True, f"the copy that ran comes up {where}")


def walk():
    start()
    first = person.process
    # The window has no title bar, but it has a name.
    expect_raised("Sparrowfield Interactive Bible Study", "with its start-up screen")
    keys("Return")
    wait(lambda: is_open("frmContents"), "the catalogue")
    catalogue = active_window()[0].strip()
    desk.run("xdotool", "getactivewindow", "windowminimize")
    wait(lambda: not is_active(first, catalogue), "the catalogue minimised")
    expect_raised(catalogue, "when it is minimised")
    keys("alt+h", "a")
    wait(lambda: is_open("frmAbout"), "frmAbout")
    about = active_window()[0].strip()

    with tempfile.TemporaryDirectory() as elsewhere:
        second = start_again(elsewhere)
        wait(lambda: active_window()[1] == second.pid, "the copy in another directory")
        expect(first.poll() is None, "from another directory both run")
        expect_raised(about, "from under another copy")
        second.kill()
        second.wait()

    keys("Escape")
    wait(lambda: not is_open("frmAbout"), "frmAbout to close")
    tree = control("frmContents", "TreeView1")
    click(search(tree, lambda node: showing(node) and ":" in node.get_name()), x=12)
    click(
        wait(
            lambda: search(
                tree, lambda node: node.get_name().startswith("Lesson 1:") and showing(node)
            ),
            "lesson 1",
        ),
        x=12,
    )
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_open("frmWelcome"), "frmWelcome")
    desk.run(
        "xdotool",
        "search",
        "--onlyvisible",
        "--pid",
        first.pid,
        "--name",
        f"^{catalogue}$",
        "windowminimize",
    )
    wait(lambda: not is_active(first, "Welcome"), "all minimised")
    expect_raised("Welcome", "with the modal window that waits for an answer")

    first.send_signal(signal.SIGSTOP)
    begin = time.monotonic()
    second = start_again()
    wait(lambda: active_window()[1] == second.pid, "a copy of its own")
    expect(
        second.poll() is None,
        f"beside a copy that hangs another runs, after {time.monotonic() - begin:.1f} s",
    )
    second.kill()
    second.wait()
    first.send_signal(signal.SIGCONT)
    first.kill()
    first.wait()
    start()
    expect(True, "after a crash the next start runs")


try:
    walk()
finally:
    for each in started:
        if each.poll() is None:
            each.kill()
    person.end_of_walk()
