#!/usr/bin/python3
"""Makes index.html of the pictures of a walk, in order, with a sentence for each:
album.py PICTURE_FOLDER SCREEN... Fails if a picture is missing or has no sentence."""

import html
import os
import sys

SENTENCES = {
    "a-start": "The start-up screen, with the choices that make sense where the program runs.",
    "a-video": "The welcome video with its player.",
    "1-catalogue": "The catalogue of the studies in this folder.",
    "2-study": "A study was chosen: its description, and its lessons.",
    "3-welcome": "The welcome dialog, once before the first lesson.",
    "4-lesson": "The first page of a lesson: the passages beside the question, room for an answer.",
    "5-answer": "The publisher's answer, after one's own.",
    "6-page": "Another page, reached by the scroll bar.",
    "6-larger": "The same page with larger letters, by Ctrl and plus.",
    "6-larger-answer": "The publisher's answer with larger letters.",
    "6-printed": "The lesson on paper, with the user's answers and lines to write on.",
    "6-printed-all": "The same with the publisher's answers.",
    "7-passage": "A passage chosen from the list, in its exact top line.",
    "8-done": "What has been answered of a lesson, as its tool tip.",
    "8-menu": "A menu of the lesson screen.",
    "9-part-two": "Part Two of the same lesson.",
    "0-start": "The start-up screen again, in the next run.",
    "b-getting-started": "Getting Started, from the catalogue.",
    "b-welcome": "The welcome dialog, from the catalogue.",
    "b-about": "The About box, from the catalogue.",
    "b-final-exam": "The Final Exam, from the catalogue.",
    "b-video": "The welcome video, from the catalogue.",
    "c-getting-started": "Getting Started, from the lesson.",
    "c-welcome": "The welcome dialog, from the lesson.",
    "c-about": "The About box, from the lesson.",
    "c-final-exam": "The Final Exam, from the lesson.",
    "d-reader": "The Bible reader, as it comes up.",
    "d-typed-over": "A reference typed over the one before; the tree shows its book.",
    "d-missing": "A chapter that the book doesn't have.",
    "d-note": "Psalm 23 with a note.",
    "d-printed": "The note on paper.",
    "d-printed-book": "All notes on the book on paper.",
    "d-book": "The whole book of Jude.",
    "d-translation": "Psalm 23 in the other translation; the note is the same.",
    "e-map1": "The Biblical World of the Patriarchs.",
    "e-map2": "The Exodus Route and Conquest of Canaan.",
    "e-map3": "The Twelve Tribes of Israel.",
    "e-map4": "The Divided Kingdoms of Israel and Judah.",
    "e-map5": "Palestine in the Time of Christ.",
    "e-map6": "Old Testament Jerusalem.",
    "e-map7": "New Testament Jerusalem.",
    "e-map8": "The Ministry of Jesus.",
    "e-map9": "The Missionary Journeys of Paul.",
    "e-dragged": "The same map, dragged by hand.",
    "e-corner": "Its far corner, reached by the arrow keys.",
}
OF_SETUP = {
    "f-setup": 'Setup, opened by "Install to Disk".',
    "f-installed": "The disc is installed.",
    "f-copy": "The installed copy, started from there.",
    "f-repair": "Setup again: the copy can be repaired or removed.",
    "f-question": "The question before it is removed.",
    "f-removed": "It is gone; answers and notes are still there.",
}

folder, screens = sys.argv[1], sys.argv[2:]
# A walk on an enlarged screen takes pictures of only some windows; the page leaves them out.
found = {name for name in os.listdir(folder) if name.endswith(".png") and "@" not in name}
if any("-f-" in name for name in found):  # a package has no Setup
    SENTENCES.update(OF_SETUP)
told = {f"{screen}-{name}.png" for screen in screens for name in SENTENCES}
if found != told:
    sys.exit(
        "walk: "
        + "; ".join(
            [f"{name} is missing" for name in sorted(told - found)]
            + [f"nothing is told of {name}" for name in sorted(found - told)]
        )
    )
with open(os.path.join(folder, "index.html"), "w", encoding="utf-8") as page:
    page.write(
        '<!DOCTYPE html>\n<html lang="en"><meta charset="utf-8"><title>A walk through Sparrowfield</title>\n'
        "<style>body { font: 17px/1.5 serif; margin: 2em auto; max-width: 66em; color: #022d7b; background: #eff4fc }"
        " figure { margin: 2em 0 } img { max-width: 100%; border: 1px solid #adc1dc }</style>\n"
        "<h1>A walk through Sparrowfield</h1>\n"
    )
    for name, sentence in SENTENCES.items():
        page.write(f"<h2>{html.escape(sentence)}</h2>\n<figure>")
        for screen in screens:
            page.write(
                f'<a href="{screen}-{name}.png"><img src="{screen}-{name}.png" loading="lazy" '
                f'alt="{html.escape(sentence)} ({screen})" title="{screen}"></a>\n'
            )
        page.write("</figure>\n")
print(f"{len(found)} pictures: {os.path.join(folder, 'index.html')}")
