#!/usr/bin/env python3
"""Compares the Bible files of a disc with the exports that they were made from, by its own parser.

    check_bibles.py DISC EXPORTS

Every word of every verse must be there in order. Blanks are ignored, because the exports lack some
where notes were removed. The numbers of books, chapters and verses are known.
"""

import html
import pathlib
import re
import sys

import exports

disc, folder = map(pathlib.Path, sys.argv[1:3])
# Checked by hand; "¶" where a paragraph begins.
samples = {
    "kjv": {
        "Genesis 1:1": "¶In the beginning God created the heaven and the earth.",
        "Exodus 6:3": "And I appeared unto Abraham, unto Isaac, and unto Jacob, by the name of God Almighty, but by my name JEHOVAH "
        "was I not known to them.",
        "1 Samuel 3:10": "And the LORD came, and stood, and called as at other times, Samuel, Samuel. Then Samuel answered, Speak; "
        "for thy servant heareth.",
        "Psalms 23:1": "¶The LORD is my shepherd; I shall not want.",
        "Psalms 119:176": "I have gone astray like a lost sheep; seek thy servant; for I do not forget thy commandments.",
        "Daniel 5:25": "¶And this is the writing that was written, MENE, MENE, TEKEL, UPHARSIN.",
        "John 3:16": "¶For God so loved the world, that he gave his only begotten Son, that whosoever believeth in him should not "
        "perish, but have everlasting life.",
        "Acts 8:37": "And Philip said, If thou believest with all thine heart, thou mayest. And he answered and said, I believe "
        "that Jesus Christ is the Son of God.",
        "1 John 2:23": "Whosoever denieth the Son, the same hath not the Father: [but] he that acknowledgeth the Son hath the "
        "Father also.",
        "3 John 1:14": "But I trust I shall shortly see thee, and we shall speak face to face. Peace be to thee. Our friends salute "
        "thee. Greet the friends by name.",
        "Revelation 22:21": "The grace of our Lord Jesus Christ be with you all. Amen.",
    },
    "nasb": {
        "Genesis 1:1": "¶In the beginning, God created the heavens and the earth.",
        "Genesis 2:4": "¶This is the history of the generations of the heavens and of the earth when they were created, in the day "
        "that Yahweh God made the earth and the heavens.",
        "Psalms 3:2": "Many there are who say of my soul, “There is no help for him in God.” Selah.",
        "Song of Solomon 1:4": "Take me away with you. Let’s hurry. The king has brought me into his rooms. We will be glad and "
        "rejoice in you. We will praise your love more than wine! They are right to love you.",
        "Luke 12:6": "¶“Aren’t five sparrows sold for two assaria coins? Not one of them is forgotten by God.",
        "John 3:16": "For God so loved the world, that he gave his only born Son, that whoever believes in him should not perish, "
        "but have eternal life.",
        "Romans 14:23": "But he who doubts is condemned if he eats, because it isn’t of faith; and whatever is not of faith is sin.",
        "Romans 16:25": "¶Now to him who is able to establish you according to my Good News and the preaching of Jesus Christ, "
        "according to the revelation of the mystery which has been kept secret through long ages,",
        "Romans 16:27": "to the only wise God, through Jesus Christ, to whom be the glory forever! Amen.",
        "Revelation 22:21": "¶The grace of the Lord Jesus Christ be with all the saints. Amen.",
    },
}


def read_disc(name):
    """{(book, chapter, verse): (starts a paragraph, text)}, and the index."""
    index = [
        line.split("|") for line in (disc / f"bible{name}.idx").read_text("cp1252").splitlines()
    ]
    verses = {}
    for number, (book, _) in enumerate(index, 1):
        text = (disc / name / f"{name}{number}").read_bytes().decode("cp1252")
        for record in text.split("\r\n", 1)[1].removesuffix("\r\n\r\n").split("\r\n\r\n"):
            first, *more = record.split("\r\n")
            if any(len(line) > 71 or not line.startswith(" ") for line in more) or len(first) > 71:
                sys.exit(f"{name}: {book}: not wrapped: {record}")
            bare = first.removeprefix("¶")
            verses[book, int(bare[:3]), int(bare[4:7])] = (
                bare != first,
                html.unescape(bare[8:] + "".join(more)),
            )
    return index, verses


def check(name, module, verse_count):
    index, verses = read_disc(name)
    figures = len(index), sum(int(chapters) for _, chapters in index), len(verses)
    if figures != (66, 1189, verse_count):
        sys.exit(f"{name}: {figures} books, chapters and verses")
    about = (disc / f"bible{name}.about").read_text("cp1252")
    if not re.fullmatch(
        r"This is the (King James Version|World English Bible)[^\n]{1,170}\n", about
    ):
        sys.exit(f"{name}: what it tells of itself: {about!r}")
    source = exports.read(folder, module, {book for book, _ in index})
    if source.keys() != verses.keys():
        sys.exit(f"{name}: only in one of both: {sorted(source.keys() ^ verses.keys())[:9]}")
    for place, (_, text) in verses.items():
        if text.replace(" ", "") != source[place]:
            sys.exit(f"{name}: {place}: {text}")
        if re.search(r"  |^ | $| [,.;:?!]|[a-z,;:”][A-Z“]|[<\\\\]", text):
            sys.exit(f"{name}: {place}: blanks are wrong in: {text}")
    for reference, text in samples[name].items():
        book, chapter, verse = re.fullmatch(r"(.*) (\d+):(\d+)", reference).groups()
        begins, found = verses[book, int(chapter), int(verse)]
        if ("¶" if begins else "") + found != text:
            sys.exit(f"{name}: {reference}: {found}")
    print(
        f"{name}: {figures[0]} books, {figures[1]} chapters, {figures[2]} verses, all as in the export"
    )


check("kjv", "engKJV2006eb", 31102)
check("nasb", "engWEB2015eb", 31098)
