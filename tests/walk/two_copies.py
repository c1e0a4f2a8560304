"""Two copies of the program on one user's folder, and a restore at the same time:
two_copies.py DRIVER KIT DISC.

Whatever one copy does with a page, an untouched box of the other copy doesn't change it. Typed text
is replaced only by text typed later in the same place."""

import json
import os
import subprocess
import sys
import tempfile

driver, kit, disc = sys.argv[1:4]
lesson = "mount-1.dat:1"


class Copy:
    """A run of the program, in the first lesson."""

    def __init__(self, user):
        self.process = subprocess.Popen(
            [driver, "--app", disc, "--data", disc, "--user", user],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )
        self.do("press", "frmSplash", "32")
        self.do("setting", "Parameters", "showhelp", "false")
        self.do("node", "frmContents.TreeView1", lesson)

    def do(self, *words):
        self.process.stdin.write(
            " ".join(
                [words[0]]
                + [json.dumps(word) if " " in word or not word else word for word in words[1:]]
            )
            + "\n"
        )
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        if "error" in answer:
            sys.exit(f"two_copies: {words}: {answer['error']}")
        return answer

    def page(self, number):
        self.do("scroll", "frmMain.ctlScrollbar", str(number))

    def leave(self):
        self.do("focus", "frmMain.Text1")

    def make(self, text):
        self.do("focus", "frmMain.Text3")
        self.do("select", "frmMain.Text3", "0", "100000")
        self.do("press", "frmMain.Text3", "46")
        if text:
            self.do("type", "frmMain.Text3", text)

    def shown(self):
        return self.do("get", "frmMain.Text3.Text")["value"]

    def stored(self, page):
        for entry in self.do("settings")["settings"]:
            if (entry["section"], entry["key"]) == (lesson, f"Page{page}"):
                return entry["value"]
        return None

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def expect(found, wanted, what):
    if found != wanted:
        sys.exit(f"two_copies: {what}: {found!r}, not {wanted!r}")


def untouched_boxes(one, other):
    expect(one.shown(), "", "a new page")
    other.make("of the other")
    other.leave()
    one.leave()
    expect(one.stored(1), "of the other", "an untouched empty box")
    one.page(2), one.page(1)
    expect(one.shown(), "of the other", "the box when it is filled again")
    other.make("changed by the other")
    other.leave()
    one.leave()
    expect(one.stored(1), "changed by the other", "an untouched box")
    one.page(2), one.page(1)
    other.do("click", "frmMain.mnuEditDeleteLesson")
    one.leave()
    expect(one.stored(1), None, "an untouched box of a lesson that the other copy has deleted")
    one.make("mine")
    one.leave()
    expect(one.stored(1), "mine", "a changed one")


def deleted_and_written_again(one, user):
    for leave in (
        lambda: one.do("click", "frmMain.Command1"),
        lambda: one.do("click", "frmMain.mnuFileSave"),
        one.leave,
    ):
        one.page(1)
        one.make("the same words")
        one.leave()
        one.do("click", "frmMain.mnuEditDeleteLesson")
        expect(one.shown(), "", "the box of a deleted answer")
        one.do("type", "frmMain.Text3", "the same words")
        leave()
        expect(one.stored(1), "the same words", "what was written again")
    one.page(1)
    one.do("click", "frmMain.mnuEditDeleteLesson")
    backups = sorted(
        (name for name in os.listdir(user) if name.startswith("before-delete-")),
        key=lambda name: int(name.split("-")[2].split(".")[0]),
    )
    said = subprocess.run(
        [kit, "answers", "restore", os.path.join(user, backups[-1]), "--user", user],
        capture_output=True,
        text=True,
    )
    expect(said.returncode, 0, f"the restore of {backups[-1]}: {said.stdout}{said.stderr}")
    one.leave()
    expect(
        one.stored(1),
        "the same words",
        "what a restore brought back beside an open program with an untouched box",
    )


def typing(one, other):
    """Stores by the timer before and after an undo; the other copy sees the result."""
    for undone_before in (False, True):
        one.page(1)
        one.make("a")
        one.leave()
        one.do("focus", "frmMain.Text3")
        one.do("type", "frmMain.Text3", "b")
        if not undone_before:
            one.do("tick", "frmMain.tmrStore")
            expect(other.stored(1), "ab", "what the timer stored")
        one.do("press", "frmMain.Text3", "8")
        one.leave()
        expect(other.stored(1), "a", "what was undone")
    one.do("focus", "frmMain.Text3")
    one.do("type", "frmMain.Text3", "b")
    one.do("tick", "frmMain.tmrStore")
    one.process.kill()
    one.process.wait()
    expect(other.stored(1), "ab", "after a kill")


with tempfile.TemporaryDirectory() as folder:
    copies = Copy(folder), Copy(folder)
    untouched_boxes(*copies)
    deleted_and_written_again(copies[0], folder)
    typing(*copies)
    copies[1].end()
print("two copies: every word is where it belongs")
