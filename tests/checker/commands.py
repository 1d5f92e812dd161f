"""Commands as such: closed once, names unique, references kept, the template copied."""

import re
from collections import Counter

from building import SURFACES, WALLS
from faults import Fault
from reader import quoted

# keyword: type of the command that its value names
REFERENCES = {
    "POLYGON": "POLYGON", "VOID-POLYGON": "POLYGON", "CONSTRUCTION": "CONSTRUCTION",
    "LAYERS": "LAYERS", "MATERIAL": "MATERIAL", "GLASS-TYPE": "GLASS-TYPE", "NEXT-TO": "SPACE",
    "PREVIOUS": "FLOOR", "SPACE-CONDITIONS": "SPACE-CONDITIONS", "DEFAULT-FRAME": "NAME-FRAME",
    "DAY-SCHEDULES": "DAY-SCHEDULE", "WEEK-SCHEDULES": "WEEK-SCHEDULE",
    "AIR-CHANGE-SCHEDULE": "YEAR-SCHEDULE", "SHADING-SCHEDULE": "YEAR-SCHEDULE",
    "PEOPLE-SCHEDULE": "YEAR-SCHEDULE", "EQUIPMENT-SCHEDULE": "YEAR-SCHEDULE",
    "HEAT-TEMP-SCHEDULE": "YEAR-SCHEDULE", "COOL-TEMP-SCHEDULE": "YEAR-SCHEDULE",
}

# By type, the keywords that the generation replaces, takes out or puts in; all others are copied
REWRITTEN = {
    "POLYGON": r"V\d+",
    "BUILD-PARAMETERS": "AZIMUTH|TIPOLOGIA",
    "BUILDING-SHADE": "X|Y|WIDTH",
    "FLOOR": "FLOOR-HEIGHT|SPACE-HEIGHT|MULTIPLIER",
    "SPACE": "HEIGHT|MULTIPLIER|AIR-CHANGES/HR",
    "DAY-SCHEDULE": "VALUES",
    "WINDOW": "GLASS-TYPE|INF-COEF|SETBACK|OVERHANG-(A|B|W|D|ANGLE)|(LEFT|RIGHT)-FIN-(A|B|H|D)"
              "|FRAME-(WIDTH|CONDUCT|ABS)|POSITION-LAMAS"
              "|LAMAS-(WIDTH|DISTANCE|ANGLE|TRANSMISIVITY|REFLECTIVITY)|COEFF|WIDTH|HEIGHT|X|Y",
    **{wall: "CONSTRUCTION" for wall in WALLS},
}
WITH_INSERTED_LINES = ("WINDOW", "BUILD-PARAMETERS")

# typology number: the shade that it does without, of which all but the header stays
UNUSED_SHADE = {15: '"Sombra002"', 18: '"Sombra001"'}


def check_commands(building):
    yield from building.output.faults
    yield from check_names(building.output)
    yield from check_references(building.output)
    yield from check_copies(building)
    yield from check_loose_lines(building)
    yield from check_order(building)


def check_names(output):
    for name, count in Counter(c.name for c in output.commands).items():
        if count > 1:
            yield Fault("name", name, f"{count} commands have this name")
    for command in output.commands:
        for key, count in Counter(key for key, _ in command.pairs()).items():
            if count > 1:
                yield Fault("name", command.name, f"{key} is given {count} times")


def check_references(output):
    names = {(c.type, c.name) for c in output.commands}
    for command in output.commands:
        for key, value in command.pairs():
            kind = REFERENCES.get(key)
            if kind is None:
                continue
            for name in re.findall(r'"[^"]*"', value) or [quoted(value)]:
                if (kind, name) not in names:
                    yield Fault("reference", command.name, f"{key} names {name}: no such {kind}")


def check_copies(building):
    """All commands of the template, in its order, each with the lines that nothing rewrites."""
    output = building.commands
    unused = UNUSED_SHADE.get(building.typology.number)
    for command in building.lost():
        if command.type != "WINDOW" and command.name != unused:  # windows have their own count
            yield Fault("copy", command.name, f"{command.type} of the template is missing")
    known = building.originals
    order = [c.name for c in building.template.commands if c.name in output]
    kept = [c.name for c in building.output.commands if c.name in known]
    if len(kept) == len(order) and kept != order:
        first = next(b for a, b in zip(order, kept) if a != b)
        yield Fault("copy", first, "does not stand where the template has it")
    for command in building.output.commands:
        original = known.get(command.name)
        if original is None:
            yield Fault("copy", command.name, f"{command.type} is not in the template")
        elif original.type != command.type:
            yield Fault("copy", command.name, f"{original.type} has become {command.type}")
        elif copied(original) != copied(command):
            yield Fault("copy", command.name, "lines of the template are lost or changed")
        if command.type not in WITH_INSERTED_LINES:
            for line in command.inserted():
                yield Fault("copy", command.name, f"line {line.number} is no keyword: {line.text}")


def copied(command):
    rewritten = re.compile(REWRITTEN.get(command.type, "(?!)"))
    return [(key, value) for key, value in command.pairs() if not rewritten.fullmatch(key)]


def check_loose_lines(building):
    """Only an unused shade leaves lines without a header: its own."""
    name = UNUSED_SHADE.get(building.typology.number)
    shade = building.originals.get(name)
    expected = [shade.pairs()] if shade else []
    found = [[(line.key, line.value) for line in block] for block in building.output.loose]
    for block, pairs in zip(building.output.loose, found):
        if pairs not in expected:
            yield Fault("closing", f"line {block[0].number}", "lines without a header")
    for pairs in expected:
        if pairs not in found:
            yield Fault("closing", name, "the lines of the unused shade are not there as they were")


def check_order(building):
    """Surfaces stand in a SPACE of a FLOOR, windows in an outside wall; the table has them all."""
    for surface in building.surfaces:
        if not surface.floor or not surface.space:
            yield Fault("order", surface.command.name, "stands in no SPACE of a FLOOR")
        elif surface.command.type == "WINDOW" and (
                not surface.wall or surface.wall.type != "EXTERIOR-WALL"):
            yield Fault("order", surface.command.name, "stands in no EXTERIOR-WALL")
    in_template = [c.name for c in building.template.of(*SURFACES)]
    in_table = [surface.name for surface in building.table]
    if in_template != in_table:
        odd = sorted(set(in_template) ^ set(in_table)) or ["another order"]
        yield Fault("order", odd[0], "template and table do not list the same surfaces")
