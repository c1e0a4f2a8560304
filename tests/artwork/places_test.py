#!/usr/bin/env python3
"""Checks the tables of the maps against independently known distances and bearings, and the drawn
maps against the limits of the viewer and the disc: places_test.py SOURCE_FOLDER."""

import math
import pathlib
import struct
import sys

source = pathlib.Path(sys.argv[1])
tables = source / "artwork" / "maps"
faults = []


def rows(name):
    for number, line in enumerate((tables / name).read_text(encoding="utf-8").splitlines(), 1):
        if line.strip() and not line.startswith("#"):
            yield f"{name}, line {number}", [field.strip() for field in line.split("|")]


places = {fields[0]: (float(fields[1]), float(fields[2])) for _, fields in rows("places.txt")}
maps_of = {fields[0]: fields[4] for _, fields in rows("places.txt")}


def distance_and_bearing(start, end):
    """Great-circle distance in km, and the initial bearing in degrees clockwise from north."""
    (a, b), (c, d) = (map(math.radians, places[name]) for name in (start, end))
    haversine = math.sin((c - a) / 2) ** 2 + math.cos(a) * math.cos(c) * math.sin((d - b) / 2) ** 2
    bearing = math.atan2(
        math.sin(d - b) * math.cos(c),
        math.cos(a) * math.sin(c) - math.sin(a) * math.cos(c) * math.cos(d - b),
    )
    return 2 * 6371 * math.asin(math.sqrt(haversine)), math.degrees(bearing) % 360


def check(condition, fault):
    if not condition:
        faults.append(fault)


# Distances from handbooks in km, their tolerances, and approximate bearings.
KNOWN = [
    ("Jerusalem", "Bethlehem", 8.5, 0.6, 200),
    ("Jerusalem", "Hebron", 30.5, 1.5, 203),
    ("Jerusalem", "Jericho", 22.5, 1.5, 62),
    ("Jerusalem", "Joppa", 55, 2, 304),
    ("Jerusalem", "Damascus", 218, 4, 27),
    ("Dan", "Beersheba", 235, 5, 199),
    ("Jerusalem", "Nazareth", 103, 3, 3),
    ("Nazareth", "Capernaum", 33, 2, 52),
    ("Tyre", "Sidon", 36, 2, 27),
    ("Jerusalem", "Ezion-geber", 249, 5, 186),
    ("Jerusalem/9", "Rome", 2305, 25, 307),
    ("Athens", "Rome", 1052, 15, 294),
    ("Athens", "Corinth", 75, 3, 264),
    ("Ephesus", "Athens", 318, 8, 272),
    ("Antioch", "Tarsus/9", 139, 5, 305),
    ("Babylon", "Ur", 237, 6, 137),
    ("Babylon", "Nineveh", 440, 12, 345),
    ("Haran", "Carchemish", 91, 5, 268),
    ("Memphis", "On", 31.5, 2, 9),
    ("Kadesh-barnea", "Beersheba", 77, 4, 31),
    # Within Jerusalem, between sites whose position is certain.
    ("Gihon Spring", "Pool of Siloam", 0.385, 0.05, 198),
    ("Golgotha", "Golden Gate", 0.72, 0.04, 83),
    ("Golgotha", "Damascus Gate", 0.35, 0.03, 12),
    ("Golden Gate", "Gethsemane", 0.225, 0.04, 90),
    ("Gihon Spring", "En-rogel", 0.69, 0.05, 185),
]
for start, end, km, tolerance, bearing in KNOWN:
    real_km, real_bearing = distance_and_bearing(start, end)
    check(abs(real_km - km) <= tolerance, f"{start} to {end}: {real_km:.2f} km, not {km}")
    turned = abs((real_bearing - bearing + 180) % 360 - 180)
    check(turned <= 7, f"{start} to {end}: towards {real_bearing:.0f} degrees, not {bearing}")


def metres_from(spot, start, end):
    """Distance from a line segment; a city is small enough to be treated as flat."""
    east = 111320 * math.cos(math.radians(spot[0]))
    (x, y), (dx, dy) = (((b - start[1]) * east, (a - start[0]) * 110900) for a, b in (spot, end))
    share = max(0, min(1, (x * dx + y * dy) / ((dx * dx + dy * dy) or 1)))
    return math.hypot(x - share * dx, y - share * dy)


# In a city plan each gate is in a wall.
for number in (6, 7):
    walls = [
        [tuple(map(float, spot.split())) for spot in fields[2].split(";")]
        for _, fields in rows(f"map{number}.txt")
        if fields[0] == "line" and fields[1].startswith("wall")
    ]
    gates = [
        fields
        for _, fields in rows("places.txt")
        if fields[3] == "gate" and fields[4] == str(number)
    ]
    check(len(gates) >= 7, f"map{number} has {len(gates)} gates")
    for name, latitude, longitude, *_ in gates:
        spot = float(latitude), float(longitude)
        off = min(metres_from(spot, *side) for wall in walls for side in zip(wall, wall[1:]))
        check(off <= 12, f"{name} of map{number} stands {off:.0f} m from the walls")


def jpeg_size(data):
    at = 2
    while data[at] == 0xFF:
        marker, length = data[at + 1], struct.unpack(">H", data[at + 2 : at + 4])[0]
        if 0xC0 <= marker <= 0xCF and marker not in (0xC4, 0xC8, 0xCC):
            height, width = struct.unpack(">HH", data[at + 5 : at + 9])
            return width, height
        at += 2 + length
    raise ValueError("no frame header")


for number in range(1, 10):
    sheet = None
    for where, fields in rows(f"map{number}.txt"):
        if fields[0] == "sheet":
            sheet = fields
        for field in fields:
            for part in field.split(";"):
                if part.strip().startswith("@"):
                    check(part.strip()[1:] in places, f"{where}: no place {part.strip()}")
    west, south, east, north = map(float, sheet[2:6])
    here = [name for name, maps in maps_of.items() if str(number) in maps]
    check(len(here) >= 24, f"map{number} has {len(here)} places alone")
    for name in here:
        latitude, longitude = places[name]
        check(
            south < latitude < north and west < longitude < east, f"{name} lies outside map{number}"
        )
    data = (source / "data" / "disc" / f"map{number}.jpg").read_bytes()
    width, height = jpeg_size(data)
    check(1600 <= width <= 2600, f"map{number} is {width} pixels wide")
    check(len(data) <= 600_000, f"map{number} has {len(data)} bytes")
    check(width == int(sheet[1]), f"map{number} is older than its table")
    ratio = (north - south) / (east - west) / math.cos(math.radians((north + south) / 2))
    check(abs(height - width * ratio) < 2, f"map{number} isn't as high as its degrees")

print(*faults, sep="\n")
print(f"{len(KNOWN)} distances and {len(places)} places checked, {len(faults)} faults")
sys.exit(1 if faults else 0)
