#!/usr/bin/env python3
"""Reads both Bibles of a disc chapter by chapter in the Bible reader, and compares each verse with
the exports from which the disc was made: read_bibles.py DRIVER DISC EXPORTS."""

import html
import json
import pathlib
import re
import subprocess
import sys
import tempfile

import exports

driver, disc, folder = sys.argv[1:4]
modules = ["engKJV2006eb", "engWEB2015eb"]  # in the order of the list of translations
heading = re.compile(
    r'<a name=chapter(\d+)><p><b><font face="Arial" color=darkblue>Chapter (\d+)</font></b><p>\r\n'
)


def do(*words):
    print(*(json.dumps(word) for word in words), file=process.stdin, flush=True)
    answer = json.loads(process.stdout.readline())
    if "error" in answer:
        sys.exit(f"{words}: {answer['error']}")
    return answer


def read_page(book, chapter):
    """{(book, chapter, verse): its text without blanks} of the page that is shown."""
    page = do("page", "frmBible.Text1")["html"]
    headings = heading.findall(page)
    if headings != [(str(chapter), str(chapter))]:
        sys.exit(f"{book} {chapter}: headings {headings}")
    verses = re.findall(
        r"<sup>(\d+)</sup>&nbsp;(.*?)(?=<sup>|</body>)", heading.split(page)[-1], re.S
    )
    return [
        ((book, chapter, int(verse)), re.sub(r"\s|<p>", "", html.unescape(text)))
        for verse, text in verses
    ]


# The run writes thousands of settings and notes, which needn't wait for a disk.
memory = pathlib.Path("/dev/shm")
with tempfile.TemporaryDirectory(dir=memory if memory.is_dir() else None) as user:
    process = subprocess.Popen(
        [driver, "--app", disc, "--data", disc, "--user", user],
        stdin=subprocess.PIPE,
        stdout=subprocess.PIPE,
        text=True,
    )
    do("click", "frmSplash.lblRunFromCD")
    do("click", "frmContents.mnuBibleReader")
    nodes = do("tree", "frmBible.TreeView1")["nodes"]
    books = {node["key"]: node["text"] for node in nodes if not node["parent"]}
    chapters = [node for node in nodes if node["parent"]]
    if (len(books), len(chapters)) != (66, 1189):
        sys.exit(f"{len(books)} books and {len(chapters)} chapters in the tree")
    for translation, module in enumerate(modules):
        do("choose", "frmBible.cboVersion", str(translation))
        found = []
        for node in chapters:
            do("node", "frmBible.TreeView1", node["key"])
            found += read_page(books[node["parent"]], int(node["text"].removeprefix("Chapter ")))
        wanted = exports.read(pathlib.Path(folder), module, set(books.values()))
        wrong = set(found) ^ set(wanted.items())
        if wrong or len(found) != len(wanted):
            sys.exit(
                f"{module}: {len(found)} verses for {len(wanted)}; not in both: {sorted(wrong)[:4]}"
            )
        print(
            f"{module}: {len(chapters)} chapters, {len(found)} verses, each on its page as in the export"
        )
    if do("messages")["messages"]:
        sys.exit("a message came")
    process.stdin.close()
    sys.exit(process.wait())
