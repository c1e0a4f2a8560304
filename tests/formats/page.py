#!/usr/bin/env python3
"""Runs the commands of a page and compares their output with the output on the page:
page.py PAGE FOLDER_OF_PROGRAMS DISC."""

import os
import re
import subprocess
import sys
import tempfile

page, programs, disc = (os.path.abspath(word) for word in sys.argv[1:4])
with open(page, encoding="utf-8") as text:
    blocks = re.findall(r"^```(\S+) ?(.*?)\n(.*?)^```$", text.read(), re.MULTILINE | re.DOTALL)

environment = dict(os.environ, PATH=programs + ":" + os.environ["PATH"], DISC=disc)
said, runs, compared = "", 0, 0
with tempfile.TemporaryDirectory() as folder:
    environment["XDG_DATA_HOME"] = os.path.join(folder, "user")
    for kind, name, content in blocks:
        if kind == "file":
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(content)
        elif kind in ("sh", "sh-fails"):
            done = subprocess.run(
                ["bash", "-e", "-o", "pipefail", "-c", content],
                cwd=folder,
                env=environment,
                text=True,
                stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT,
            )
            said = done.stdout
            runs += 1
            if (done.returncode != 0) != (kind == "sh-fails"):
                sys.exit(f"status {done.returncode} of:\n{content}{said}")
        elif kind == "output":
            compared += 1
            if said != content:
                sys.exit(f"the page says:\n{content}but it is:\n{said}")
if not (runs and compared):
    sys.exit("nothing to run on the page")
print(f"{runs} commands ran, {compared} answers as the page says")
