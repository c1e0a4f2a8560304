"""Measures pictures of the screen: the contrast of text, and changes by the focus."""

import os

from person import desk


def picture_of(folder, x, y, width, height):
    """A part of the screen as a binary PPM picture."""
    file = os.path.join(folder, "grab.ppm")
    desk.save_picture(file, (x, y, width, height))
    with open(file, "rb") as picture:
        return picture.read()


def grab(folder, x, y, width, height):
    """A part of the screen as rows of (red, green, blue)."""
    magic, size, depth, body = picture_of(folder, x, y, width, height).split(b"\n", 3)
    assert magic == b"P6" and depth == b"255"
    width, height = map(int, size.split())
    return [
        [tuple(body[at : at + 3]) for at in range(3 * width * row, 3 * width * (row + 1), 3)]
        for row in range(height)
    ]


def luminance(colour):
    """Relative luminance, 0 to 1, as the Web Content Accessibility Guidelines 2.1 define it."""
    parts = [value / 255 for value in colour]
    red, green, blue = (
        part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4 for part in parts
    )
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(one, other):
    """1 to 21, by the same guidelines."""
    dark, light = sorted((luminance(one), luminance(other)))
    return (light + 0.05) / (dark + 0.05)


def contrast_of_text(rows):
    """The contrast between the letters in a picture and their background, or None if there is no
    text. In each row the most frequent colour is compared with the colour farthest from it. The
    best row counts, because letters have soft edges and not every row crosses a stem."""
    best = None
    for row in rows:
        ground = max(set(row), key=row.count)
        found = max(contrast(ground, colour) for colour in set(row))
        if found > 1.1 and (best is None or found > best):
            best = found
    return best
