#!/usr/bin/env python3
"""Reads a level file as level-format.md describes it; run with a file, prints its size, heights and players."""
import re
import sys
import xml.etree.ElementTree as ET

MODELS = "Terminator Hayden Hunter Rat Dire Walker Marine".split()
TEAMS = "Blue Green Red Personal".split()
FORMS = {int: r"[+-]?[0-9]+", float: r"[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?"}


def values(text, kinds, defaults):
    """The numbers of a text; one that is missing or malformed is its default."""
    words = (text or "").split() + [""] * len(kinds)
    return [kind(word) if re.fullmatch(FORMS[kind], word) else default
            for word, kind, default in zip(words, kinds, defaults)]


def name_of(code, names):
    return names[code] if 0 <= code < len(names) else names[0]


def read_level(path):
    data = open(path, "rb").read()
    try:
        text = data.decode("utf-8")
    except UnicodeDecodeError:
        text = data.decode("latin-1")
    group = ET.fromstring(text)[0]
    terrain, surroundings = group.find("MeshNode"), group.find("BackgroundNode")
    dimension, density, random = (values(terrain.get(name), [int], [0])[0]
                                  for name in ("dimension", "density", "randomGeography"))
    points = (dimension * density) ** 2
    heights = [0.0] * points if random == 1 else values(terrain.text, [float] * points, [0.0] * points)
    players = [(player.get("name", "Player"), *values(player.text, [int, int, float, int, int], [0, 0, 0.5, 0, -2]))
               for player in group.find("CharSetNode").findall("CharacterNode")]
    return {"dimension": dimension, "density": density, "heights": heights, "players": players,
            "surroundings": values(surroundings.text, [float] * 10 + [int] * 9 + [float, int], [0] * 21)}


if __name__ == "__main__":
    level = read_level(sys.argv[1])
    side = level["dimension"] * level["density"]
    print(f"{side} x {side} points on {level['dimension']} map units")
    for row in range(side):
        print(*("%.6g" % height for height in level["heights"][row * side:(row + 1) * side]))
    for name, model, wait, weapon, team, cell in level["players"]:
        print(f"{name}: {name_of(model, MODELS)}, {name_of(team, TEAMS)}, weapon {weapon:.6g}, waits {wait}, cell {cell}")
