"""The commands that take numbers and texts of the typology file, and that file at the end."""

from commands import UNUSED_SHADE
from faults import Fault
from reader import squeezed

NUMBER = 2e-6  # six decimals of a 32-bit real, relative for large ones

# last typology number of each class, class
CLASSES = ((1, 1), (3, 2), (6, 3), (9, 4), (12, 5), (21, 6), (22, 7), (23, 8))

# The list that the typology's air changes replace: four an hour through the night.
NIGHT_AIR = "( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"


def check_rewritten(building):
    if not building.tail_is_whole:
        yield Fault("typology", "end of the file", "does not hold the typology file unchanged")
    yield from check_floors(building)
    yield from check_spaces(building)
    yield from check_parameters(building)
    yield from check_shades(building)
    yield from check_schedules(building)


def differs(text, number):
    try:
        return not abs(float(text) - number) <= NUMBER * max(1.0, abs(number))
    except (TypeError, ValueError):
        return True


def check_numbers(command, expected):
    for key, number in expected.items():
        text = command.value(key)
        if differs(text, number):
            yield Fault("number", command.name, f"{key} is {text}, the typology gives {number:f}")


def check_floors(building):
    height = building.typology.height
    template = building.originals
    floors = building.output.of("FLOOR")
    for floor in floors:
        yield from check_numbers(floor, {"FLOOR-HEIGHT": height, "SPACE-HEIGHT": height})
        original = template.get(floor.name)
        if original and original.value("MULTIPLIER") == "1" != floor.value("MULTIPLIER"):
            yield Fault("number", floor.name, "a storey that stands once has become"
                                              f" {floor.value('MULTIPLIER')}")
            return
    total = sum(float(floor.value("MULTIPLIER") or 0) for floor in floors)
    if total != building.typology.storeys:
        yield Fault("number", "storeys", f"the MULTIPLIERs make {total:g} storeys,"
                                         f" the typology has {building.typology.storeys}")


def check_spaces(building):
    for space in building.output.of("SPACE"):
        yield from check_numbers(space, {"HEIGHT": building.typology.height, "MULTIPLIER": 1,
                                         "AIR-CHANGES/HR": building.typology.air_changes})


def check_parameters(building):
    typology = building.typology
    for command in building.output.of("BUILD-PARAMETERS"):
        kind = next(kind for last, kind in CLASSES if typology.number <= last)
        yield from check_numbers(command, {"AZIMUTH": typology.turned, "TIPOLOGIA": kind})
        found = [squeezed(line.text) for line in command.inserted()]
        if found != [place for place in [typology.place()] if place]:
            yield Fault("parameters", command.name, "the solar position is not the typology's")


def check_shades(building):
    """The neighbours' walls beside the courtyards in the sides of a block."""
    if not building.plan.courts:
        return
    L, D = building.plan.length, building.plan.depth
    depth = building.typology.real("PROFUNDIDAD-PATIO")
    places = {'"Sombra001"': {"X": L, "Y": (D - depth) / 2, "WIDTH": depth},
              '"Sombra002"': {"Y": (D + depth) / 2, "WIDTH": depth}}
    for shade in building.output.of("BUILDING-SHADE"):
        if shade.name != UNUSED_SHADE.get(building.typology.number):
            yield from check_numbers(shade, places.get(shade.name, {}))


def check_schedules(building):
    air = building.typology.air_changes
    template = building.originals
    for schedule in building.output.of("DAY-SCHEDULE"):
        original = template.get(schedule.name)
        if original is None:
            continue
        expected, found = original.value("VALUES"), schedule.value("VALUES")
        if expected != NIGHT_AIR or air <= 0:
            right = found == expected
        else:
            numbers = (found or "").strip("() ").split(",")
            right = (len(numbers) == 9 and not differs(numbers[8], 1)
                     and not any(differs(number, 4 / air) for number in numbers[:8]))
        if not right:
            yield Fault("schedule", schedule.name, f"VALUES = {found}, the template has {expected}"
                                                   f" and the typology {air:g} air changes")
