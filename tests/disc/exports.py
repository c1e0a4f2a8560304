"""Reads the exports of the Bibles that the disc is made from, in a way of its own."""

import html
import re

left_out = re.compile(r"<(note|title|rdg|speaker)\b.*?</\1>", re.S)
outside = re.compile(r'<div sID="[^"]*" type="(?:glossary|introduction|front)"/>.*', re.S)


def read_all(path):
    """{(book, chapter, verse): letters and marks without blanks}, the books named as on the disc."""
    verses = {}
    for entry in path.read_text("utf-8").split("$$$")[1:]:
        key, text = entry.split("\n", 1)
        found = re.fullmatch(r"(.*) (\d+):(\d+)", key)
        if not found or "0" in found.groups()[1:]:
            continue
        words = html.unescape(re.sub(r"<[^>]*>", "", left_out.sub("", outside.sub("", text))))
        words = re.sub(r"\\\+?[a-z]+\*? ?", "", words)  # left over from the text's own source
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
    """The verses of these books from the export of a module in a folder, divided as on the disc."""
    verses = read_all(next(folder.glob(module + "*.imp")))
    verses = {place: text for place, text in verses.items() if place[0] in books}
    if module == "engWEB2015eb":  # The end of Romans stands in 14:23 there.
        verses["Romans", 14, 23], end = verses["Romans", 14, 23].split("Nowtohim")
        verses["Romans", 16, 25], end = ("Nowtohim" + end).split("butnowisrevealed")
        verses["Romans", 16, 26], end = ("butnowisrevealed" + end).split("totheonly")
        verses["Romans", 16, 27] = "totheonly" + end
    return verses
