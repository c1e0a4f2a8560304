#!/usr/bin/env python3
"""Checks the includes of src/ against docs/architecture.md, src/README.md and src/CMakeLists.txt:
there are no cycles of files or folders; a folder includes only folders of lower levels; it links
exactly the libraries that it includes; Qt, SQLite and the operating system are used only where they
are allowed.

    includes.py SOURCE_FOLDER
"""

import os
import re
import sys

root = os.path.join(sys.argv[1], "src")
faults = []

# What a folder may include besides the project and the standard library: prefixes of names.
MAY_INCLUDE = {
    "desktop": ("Q", "unistd.h"),
    "desktop/peers": ("Q", "xcb/"),
    "setup/window": ("Q",),
    "platform/posix": ("sqlite3.h", "sys/", "unistd.h", "fcntl.h", "pwd.h", "stdlib.h"),
    "setup": ("unistd.h", "sys/", "fcntl.h", "CLI/"),
    "kit": ("CLI/",),
    "kit/answers": ("nlohmann/",),
    "drive": ("nlohmann/", "CLI/"),
}
STANDARD = re.compile(r"[a-z_0-9]+$")  # <vector>, <cstdint>: no dot, slash or capital letter


def levels():
    """The level of each folder, from the table in src/README.md; "beside" is above all levels."""
    found = {}
    with open(os.path.join(root, "README.md"), encoding="utf-8") as page:
        for row in page:
            if match := re.match(r"\| (\d|beside) \| `([a-z/]+)/`", row):
                found[match[2]] = 99 if match[1] == "beside" else int(match[1])
    return found


def sources():
    for folder, _, names in os.walk(root):
        for name in sorted(names):
            if name.endswith((".h", ".cpp")):
                yield os.path.relpath(os.path.join(folder, name), root)


def includes_of(file):
    with open(os.path.join(root, file), encoding="utf-8") as text:
        for number, line in enumerate(text, 1):
            if match := re.match(r'\s*#\s*include\s*(["<])([^">]+)[">]', line):
                yield number, match[1] == '"', match[2]


def circle(graph):
    """The nodes of a cycle in the graph, in order, or nothing."""
    done, road = set(), []

    def follow(node):
        if node in road:
            return road[road.index(node) :] + [node]
        if node in done:
            return None
        road.append(node)
        for other in sorted(graph.get(node, ())):
            if found := follow(other):
                return found
        done.add(road.pop())
        return None

    for start in sorted(graph):
        if found := follow(start):
            return found
    return None


def links():
    """The libraries of src/CMakeLists.txt: for each folder, those of its LINKS and of its USES."""
    with open(os.path.join(root, "CMakeLists.txt"), encoding="utf-8") as page:
        calls = re.findall(
            r"^ *sparrowfield_library\(([a-z/]+)([^)]*)\)", page.read(), re.MULTILINE
        )
    folder_of = {folder.replace("/", "_"): folder for folder, _ in calls}
    for folder, arguments in calls:
        shown, _, hidden = arguments.partition("USES")
        yield folder, *(
            {folder_of[word] for word in part.split() if word in folder_of}
            for part in (shown, hidden)
        )


level = levels()
files, folders = {}, {}
shown, hidden = {}, {}  # includes of each folder's headers, and of its sources
for file in sources():
    folder = os.path.dirname(file)
    if folder.split("/")[0] not in level:
        faults.append(f"src/{folder} isn't in the table of src/README.md")
        continue
    for number, ours, name in includes_of(file):
        place = f"src/{file}:{number}"
        if not ours:
            if not STANDARD.match(name) and not name.startswith(MAY_INCLUDE.get(folder, ("\0",))):
                faults.append(f"{place}: <{name}> has no business in {folder}/")
            continue
        if not os.path.exists(os.path.join(root, name)):
            faults.append(f"{place}: there is no src/{name}")
            continue
        files.setdefault(file, set()).add(name)
        other = os.path.dirname(name)
        if other == folder:
            continue
        # A program's main is above all libraries, even that of its own folder.
        isMain = os.path.basename(file) == "main.cpp"
        folders.setdefault(f"{folder}/main" if isMain else folder, set()).add(other)
        if not isMain:
            (shown if file.endswith(".h") else hidden).setdefault(folder, set()).add(other)
        mine, its = level[folder.split("/")[0]], level[other.split("/")[0]]
        if folder.split("/")[0] != other.split("/")[0] and its >= mine and mine != 99:
            faults.append(
                f"{place}: {folder}/ stands on level {mine} and may not include {other}/ on level {its}"
            )

for what, graph in (("files", files), ("folders", folders)):
    if found := circle(graph):
        faults.append(f"a circle of {what}: " + " > ".join(found))
for folder, public, private in links():
    for what, linked, needed in (
        ("LINKS", public, shown.get(folder, set())),
        ("USES", private, hidden.get(folder, set()) - shown.get(folder, set())),
    ):
        for other in sorted(linked ^ needed):
            need = "its sources don't need" if other in linked else "doesn't name"
            faults.append(f"src/CMakeLists.txt: {what} of {folder}: {need} {other}")
for file in sources():
    if not file.startswith("platform/posix/sqlite_") and any(
        name == "sqlite3.h" or name == "platform/posix/sqlite_database.h"
        for _, _, name in includes_of(file)
    ):
        faults.append(f"src/{file}: SQLite belongs in platform/posix/sqlite_*")

if not files:
    faults.append(f"no sources under {root}")
print(
    "\n".join(faults)
    or f"{len(files)} files include {sum(map(len, files.values()))} of ours, in no circle"
)
sys.exit(bool(faults))
