"""Reads the exports from which the disc's Bibles are made, by its own parser."""

import html
import re

left_out = re.compile(r"<(note|title|rdg|speaker)\b.*?</\1>", re.S)
outside = re.compile(r'<div sID="[^"]*" type="(?:glossary|introduction|front)"/>.*', re.S)


def read_all(path):
    """{(book, chapter, verse): text without blanks}, with the book names of the disc."""
    verses = {}
    for entry in path.read_text("utf-8").split("$$$")[1:]:
        key, text = entry.split("\n", 1)
        found = re.fullmatch(r"(.*) (\d+):(\d+)", key)
        if not found or "0" in found.groups()[1:]:
            continue
        words = html.unescape(re.sub(r"<[^>]*>", "", left_out.sub("", outside.sub("", text))))
        words = re.sub(r"\\\+?[a-z]+\*? ?", "", words)  # leftover markup
        book = re.sub("^(I+) ", lambda roman: f"{len(roman[1])} ", found[1])
        words = re.sub(r"[\s¶]", "", words)
        if words:
            verses[
                "Revelation" if book.startswith("Revelation") else book,
                int(found[2]),
                int(found[3]),
            ] = words
    return verses


def read(folder, module, books):
    """The verses of these books in a module's export, with the verse division of the disc."""
    verses = read_all(next(folder.glob(module + "*.imp")))
    verses = {place: text for place, text in verses.items() if place[0] in books}
    if module == "engWEB2015eb":  # There the end of Romans is part of 14:23.
        verses["Romans", 14, 23], end = verses["Romans", 14, 23].split("Nowtohim")
        verses["Romans", 16, 25], end = ("Nowtohim" + end).split("butnowisrevealed")
        verses["Romans", 16, 26], end = ("butnowisrevealed" + end).split("totheonly")
        verses["Romans", 16, 27] = "totheonly" + end
    return verses
