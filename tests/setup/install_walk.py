#!/usr/bin/env python3
"""Installs, repairs and removes the disc as a user does: install_walk.py DISC."""

import os
import pathlib
import pty
import signal
import subprocess
import sys
import tempfile
import time

disc = pathlib.Path(sys.argv[1]).resolve()


def expect(found, wanted, about):
    if found != wanted:
        sys.exit(f"{about}: {found!r} instead of {wanted!r}")


def files(folder):
    return {str(file.relative_to(folder)): file for file in folder.rglob("*") if file.is_file()}


def expect_whole(copy, about):
    there, wanted = files(copy), files(disc)
    wanted["sparrowfield.exe"] = wanted.pop("sparrowfield")
    wanted = {name: file for name, file in wanted.items() if not file.name.startswith(".new-")}
    expect(sorted(there), sorted([*wanted, ".installed-files"]), f"the files, {about}")
    for name, file in wanted.items():
        if there[name].read_bytes() != file.read_bytes():
            sys.exit(f"{name} differs, {about}")
        expect(
            os.access(there[name], os.X_OK),
            os.access(file, os.X_OK),
            f"whether {name} is a program, {about}",
        )


def await_true(condition, about, seconds=60):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            sys.exit(f"in vain: {about}")
        time.sleep(0.05)


def drive(driver, user, *lines):
    """Opens a lesson without a screen, runs the lines there, and returns all answers."""
    road = [
        "click frmSplash.lblEnter",
        "click frmSplash.lblRunFromCD",
        "node frmContents.TreeView1 mount-1.dat:1",
        "click frmWelcome.Command1",
    ]
    done = subprocess.run(
        [driver, "--user", user],
        input="\n".join([*road, *lines]),
        capture_output=True,
        text=True,
        cwd=driver.parent,
        timeout=60,
    )
    return done.stdout


with tempfile.TemporaryDirectory(prefix="sparrowfield walk ") as data:
    data = pathlib.Path(data).resolve()
    environment = {
        name: value
        for name, value in os.environ.items()
        if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")
    }
    environment["XDG_DATA_HOME"] = str(data)
    windowed = {**environment, "QT_QPA_PLATFORM": "offscreen"}
    user = data / "sparrowfield"
    programs = user / "drive_c/Program Files"
    copy = programs / "Sparrowfield House/Sparrowfield Interactive Software"
    entry = data / "applications/sparrowfield.desktop"

    def setup(*words, program=disc / "Setup.exe", given=environment):
        done = subprocess.run(
            [program, *words], capture_output=True, text=True, env=given, cwd=data
        )
        return done.returncode, done.stdout, done.stderr

    status, out, _ = setup("--help")
    expect((status, "--uninstall" in out), (0, True), "--help")
    for words in ([], ["--console"], ["--frob"], ["--install", "--uninstall"], ["disc"], [""]):
        status, out, errors = setup(*words)
        expect((status, out, "--uninstall" in errors), (2, "", True), f"the status of {words}")
    expect(sorted(data.iterdir()), [], "what was made without being asked")

    notes = programs / "Sparrowfield Interactive Software/notes"
    notes.mkdir(parents=True)
    (notes / "John3.dat").write_text("note")

    status, out, errors = setup("--console", "--install")
    expect((status, errors), (0, ""), "the installation")
    expect_whole(copy, "after the installation")
    text = entry.read_text()
    expect(
        f'\nExec="{copy}/sparrowfield.exe"\nPath={copy}\n' in text, True, f"the menu entry {text!r}"
    )
    for icon in (disc / "icons").glob("sparrowfield-*.png"):
        size = icon.stem.removeprefix("sparrowfield-")
        expect(
            (data / f"icons/hicolor/{size}x{size}/apps/sparrowfield.png").read_bytes(),
            icon.read_bytes(),
            f"the icon of size {size}",
        )

    (copy / "biblekjv.idx").write_text("damaged")
    (copy / "kjv/kjv1").unlink()
    status, out, errors = setup("--install")
    expect((status, errors, "Repairing" in out), (0, "", True), "the repair")
    expect_whole(copy, "after the repair")

    # A signal in the middle of a repair, on a terminal that shows the progress.
    (copy / "kjv/kjv1").write_text("older")
    mine, its = pty.openpty()
    process = subprocess.Popen(
        [disc / "Setup.exe", "--install"],
        stdin=its,
        stdout=its,
        stderr=its,
        env=environment,
        start_new_session=True,
    )
    os.close(its)
    seen = b""
    while b"files," not in seen:
        seen += os.read(mine, 4096)
    process.send_signal(signal.SIGINT)
    while True:
        try:
            part = os.read(mine, 4096)
        except OSError:
            break
        if not part:
            break
        seen += part
    if process.wait() != -signal.SIGINT or b"%" not in seen:
        sys.exit(f"a cancelled repair: {process.returncode}, {seen!r}")
    if b"nothing was changed" in seen:  # otherwise it ended before the signal
        expect((copy / "kjv/kjv1").read_text(), "older", "a file after the cancel")
    expect(
        [file.name for file in copy.parent.iterdir()],
        [copy.name],
        "what lies beside the copy after a cancel",
    )

    # The window: with --install it begins at once, and a signal closes it.
    process = subprocess.Popen([disc / "Setup.exe", "--install"], env=windowed)
    await_true(
        lambda: (copy / "kjv/kjv1").read_bytes() == (disc / "kjv/kjv1").read_bytes(),
        "the repair from the window",
    )
    await_true(
        lambda: [file.name for file in copy.parent.iterdir()] == [copy.name],
        "the end of the repair from the window",
    )
    time.sleep(0.5)
    process.send_signal(signal.SIGTERM)
    if (status := process.wait(timeout=60)) not in (0, -signal.SIGTERM):
        sys.exit(f"the status of the window: {status}")
    expect_whole(copy, "after the repair from the window")

    # The installed program, started as from the menu.
    process = subprocess.Popen([copy / "sparrowfield.exe"], cwd=copy, env=windowed)
    time.sleep(2)
    expect(process.poll(), None, "the status of the installed program after two seconds")
    status, _, errors = setup("--console", "--uninstall")
    expect((status, "running" in errors), (1, True), "removing a program that runs")
    process.terminate()
    process.wait(timeout=60)
    drive(
        copy / "sparrowfield-drive",
        user,
        'type frmMain.Text3 "my answer"',
        "click frmMain.Command1",
    )

    # The copy can't repair, but it can remove itself.
    status, _, errors = setup("--console", "--install", program=copy / "Setup.exe")
    expect(
        (status, "start Setup.exe on the disc" in errors),
        (1, True),
        "an installation from the copy",
    )
    status, out, errors = setup("--console", "--uninstall", program=copy / "Setup.exe")
    expect((status, errors), (0, ""), "the removal")
    expect(
        (copy.parent.exists(), entry.exists()),
        (False, False),
        "copy and menu entry after the removal",
    )
    expect(list(data.glob("icons/hicolor/**/sparrowfield.*")), [], "icons after the removal")
    expect((notes / "John3.dat").read_text(), "note", "the note after the removal")
    answer = drive(
        disc / "sparrowfield-drive",
        user,
        "get frmMain.Text3.Text",
        "click frmMain.Command2",
        "get frmMain.Text3.Text",
    )
    expect("my answer" in answer, True, f"the answer after the removal, read as {answer}")
    expect(setup("--uninstall")[0], 0, "the status of a second removal")
print("Installed, repaired, cancelled, started and removed.")
