#!/usr/bin/env python3
"""Adds the menu entry of the source tree from folders with unusual names:
add_entry.py SOURCE_FOLDER. The entry must be quoted as by Setup."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

packaging = pathlib.Path(sys.argv[1]) / "packaging"

# The name of the folder, in Exec (None: a shell starts the program) and in Path.
ROWS = [
    (b"Program Files", b"Program Files", b"Program Files"),
    (b'a"b', rb'a\\"b', b'a"b'),
    (b"it's &x", b"it's &x", b"it's &x"),
    (b"$HOME `id`", rb"\\$HOME \\`id\\`", b"$HOME `id`"),
    (rb"a\b", rb"a\\\\b", rb"a\\b"),
    (b"100%f", None, b"100%f"),
    (b"a=b", None, b"a=b"),
    (b"a\nName x\tb\rc", rb"a\nName x\tb\rc", rb"a\nName x\tb\rc"),
    ("\u00e9t\u00fcde".encode(), "\u00e9t\u00fcde".encode(), "\u00e9t\u00fcde".encode()),
]

with tempfile.TemporaryDirectory() as folder:
    base = os.path.realpath(folder).encode()
    for name, in_exec, in_path in [*ROWS, (b"\xe9", None, None)]:
        root = os.path.join(base, name)
        os.makedirs(os.path.join(root, b"packaging"))
        for file in (b"add_entry.sh", b"sparrowfield.desktop"):
            shutil.copy(
                os.path.join(os.fsencode(packaging), file), os.path.join(root, b"packaging")
            )
        os.makedirs(os.path.join(root, b"build/disc"))
        open(os.path.join(root, b"build/disc/sparrowfield"), "w").close()
        home = os.path.join(base, b"home")
        shutil.rmtree(home, ignore_errors=True)
        done = subprocess.run(
            [os.path.join(root, b"packaging/add_entry.sh")],
            env={**os.environb, b"XDG_DATA_HOME": home},
            capture_output=True,
        )
        entry = pathlib.Path(os.fsdecode(home)) / "applications" / "sparrowfield.desktop"
        if in_path is None:
            if done.returncode != 1 or b"isn't UTF-8" not in done.stderr or entry.exists():
                sys.exit(f"a path that isn't UTF-8: {done}")
            continue
        lines = entry.read_bytes().split(b"\n")
        program = (
            b'"%s/%s/build/disc/sparrowfield"' % (base, in_exec)
            if in_exec
            else b'sh -c "exec ./sparrowfield"'
        )
        for wanted in (
            b"Exec=" + program,
            b"Path=%s/%s/build/disc" % (base, in_path),
            b"Name=Sparrowfield Interactive Bible Study",
        ):
            if wanted not in lines:
                sys.exit(f"{name!r}: {wanted!r} isn't in {lines!r}")
