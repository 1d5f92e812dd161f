"""Walls, roofs, floors and partitions: their constructions, and that they are the outlines'."""

import math
import re
from collections import Counter, defaultdict

from building import edges, side_of
from faults import Fault
from outlines import same_edge
from plan import SIDES

UP, DOWN, ASIDE = "up", "down", "aside"

# kind: the construction that a surface takes when it faces up, down, aside
CONSTRUCTIONS = {
    -5: ("PARTICION-INTERIOR-HORIZONTAL",) * 3,
    -4: ("PARTICION-INTERIOR-VERTICAL",) * 3,
    -2: ("PARTICION-INTERIOR-HORIZONTAL", "MEDIANERA", "MEDIANERA"),
    -1: ("CUBIERTAS",) * 3,
}
BY_FACE = ("CUBIERTAS", "SUELOS", "MUROS-FACHADA")  # all other kinds


def face(tilt):
    tilt %= 360
    if tilt < 60 or tilt > 300:
        return UP
    return DOWN if 150 < tilt < 210 else ASIDE


def check_constructions(building):
    """One CONSTRUCTION line a surface, right after the header, with the typology's text."""
    output = building.commands
    for surface in building.table:
        command = output.get(surface.name)
        if surface.is_window or command is None:
            continue
        keys = CONSTRUCTIONS.get(surface.kind, BY_FACE)
        key = keys[(UP, DOWN, ASIDE).index(face(surface.tilt))]
        expected, found = building.typology.constructions[key], command.values("CONSTRUCTION")
        if not found:
            yield Fault("construction", command.name, "no CONSTRUCTION line")
        elif len(found) > 1:
            continue  # said of every keyword that is given twice
        elif command.lines[0].key != "CONSTRUCTION" or (
                command.lines[0].number != command.number + 1):
            yield Fault("construction", command.name, "CONSTRUCTION is not right after the header")
        elif found[0] != expected:
            yield Fault("construction", command.name, f"{found[0]} instead of {expected}, {key}")


def check_walls(building, bad_outlines):
    """Each edge of each space is one wall, which faces as the table says; a wall with windows is
    as long as their bay. What is wrong in an outline itself has been said before."""
    table = {surface.name: surface for surface in building.table}
    covered = defaultdict(Counter)  # space: walls on each of its edges
    told = set()  # spaces with a fault in a wall
    for placed in building.surfaces:
        space, name = placed.space, placed.command.name
        outline = building.outline_of(space) if space else None
        beyond = building.commands.get(placed.command.value("NEXT-TO"))
        if not outline or name not in table or any(
                each.value("POLYGON") in bad_outlines for each in (space, beyond) if each):
            continue
        edge = re.fullmatch(r"EDGE-(\d+)", placed.command.value("LOCATION") or "")
        index = int(edge[1]) if edge else 0
        text = wrong_in(building, placed, table[name], outline, index)
        if text:
            told.add(space.name)
            yield Fault("wall", name, text)
        if index:
            covered[space.name][index] += 1
            covered_beyond(building, placed, outline, index, covered)
    yield from check_wall_lengths(building, bad_outlines)
    lost = any(command.type.endswith("WALL") for command in building.lost())
    if not (told or lost or bad_outlines):
        yield from check_cover(building, covered)


def wrong_in(building, placed, surface, outline, index):
    place = placed.command.value("LOCATION")
    expected = {"TOP": UP, "BOTTOM": DOWN}.get(place, ASIDE)
    if face(surface.tilt) != expected:
        return f"LOCATION = {place}, but its tilt in the table is {surface.tilt:g}"
    if not index:
        return ""
    if index > len(outline):
        return f"EDGE-{index} of an outline of {len(outline)} vertices"
    neighbour = placed.command.value("NEXT-TO")
    # Between two wings an edge may double back, and then faces the other way.
    if not (building.plan.is_winged and neighbour):
        drawn = azimuth(edges(outline)[index - 1])
        if abs((drawn - surface.azimuth + 180) % 360 - 180) > 0.1:
            return f"faces {drawn:.1f} degrees, the table says {surface.azimuth:g}"
    if neighbour and not edge_beyond(building, placed, outline, index):
        return f"{neighbour} has no edge along it"
    return ""


def azimuth(edge):
    """Degrees clockwise from north of the normal on the right hand of the edge."""
    (x0, y0), (x1, y1) = edge
    return math.degrees(math.atan2(y1 - y0, x0 - x1)) % 360


def edge_beyond(building, placed, outline, index):
    """Number of the edge that the space on the other side has along a wall; 0 when none."""
    other = building.commands.get(placed.command.value("NEXT-TO"))
    beyond = building.outline_of(other) if other else None
    if not beyond:
        return 0
    a, b = edges(outline)[index - 1]
    for number, edge in enumerate(edges(beyond), 1):
        if same_edge((b, a), edge, building.plan.tolerance):
            return number
    return 0


def covered_beyond(building, placed, outline, index, covered):
    if placed.command.value("NEXT-TO") and index <= len(outline):
        number = edge_beyond(building, placed, outline, index)
        if number:
            covered[placed.command.value("NEXT-TO")][number] += 1


def check_cover(building, covered):
    for space in building.output.of("SPACE"):
        outline = building.outline_of(space) or []
        for index in range(1, len(outline) + 1):
            count = covered[space.name][index]
            if count != 1:
                yield Fault("wall", space.name, f"{count} walls stand on its edge {index}")


def check_wall_lengths(building, bad_outlines):
    """A wall with windows is one bay. The wings of a winged block have two equal pieces a side."""
    windows = {surface.name: surface for surface in building.table if surface.is_window}
    wall, space, pieces = None, None, defaultdict(list)
    for command in building.template.commands:
        if command.type == "SPACE":
            space = command
        elif command.type == "EXTERIOR-WALL":
            wall = command
        elif command.name in windows:
            outline = building.outlines.get(space.value("POLYGON"))
            edge = re.fullmatch(r"EDGE-(\d+)", wall.value("LOCATION") or "")
            side = side_of(windows[command.name])
            if (not outline or not edge or int(edge[1]) > len(outline) or side is None
                    or space.value("POLYGON") in bad_outlines):
                continue
            length = math.dist(*edges(outline)[int(edge[1]) - 1])
            pieces[space.name, windows[command.name].is_inner, side].append((wall, length))
    for (_, inner, side), walls in pieces.items():
        expected, like = building.plan.bays(inner, side).width, f"a bay of the {SIDES[side]}"
        if building.plan.is_winged:
            expected, like = walls[0][1], "the other piece of its side"
        for wall, length in walls:
            if abs(length - expected) > building.plan.tolerance:
                yield Fault("wall", wall.name, f"is {length:.4f} m long, {like} {expected:.4f}")
