"""A generated building beside what it was made from, and how its commands belong together."""

import re
from dataclasses import dataclass

import plan
from reader import Command, read
from table import read_table
from typology import Typology

WALLS = ("EXTERIOR-WALL", "ROOF", "INTERIOR-WALL", "UNDERGROUND-WALL")
SURFACES = (*WALLS, "WINDOW")
VERTEX = re.compile(r"\(\s*(\S+)\s*,\s*(\S+)\s*\)$")


@dataclass
class Placed:
    """A surface with what it stands in: a command stands in the last FLOOR, SPACE and wall
    before it."""
    command: Command
    floor: Command
    space: Command
    wall: Command  # of a window


class Building:
    def __init__(self, template, table, typology, output):
        self.typology = Typology(typology)
        self.plan = plan.plan_of(self.typology)
        self.table = read_table(table)
        self.template = read(template)
        self.body, self.tail_is_whole = split_tail(output, typology, self.template)
        self.output = read(self.body)
        self.commands, self.originals = self.output.named(), self.template.named()
        self.outlines = {c.name: vertices(c) for c in self.output.of("POLYGON")}
        self.surfaces = placed(self.output)

    def outline_of(self, space):
        return self.outlines.get(space.value("POLYGON"))

    def lost(self):
        """Commands of the template that the output does not have."""
        return [c for c in self.template.commands if c.name not in self.commands]


def split_tail(output, typology, template):
    """The output without the typology text at its end, and whether that text is whole.

    Without it the body ends behind the last command that the template also has.
    """
    if output.endswith(typology + "\n"):
        return output[:-len(typology) - 1], True
    known = {(c.name, c.type) for c in template.commands}
    lines = output.split("\n")
    end = 0
    for command in read(output).commands:
        if (command.name, command.type) in known:
            end = command.number + len(command.lines)
    while end < len(lines) and lines[end].strip() != "..":
        end += 1
    return "\n".join(lines[:end + 1]), False


def vertices(polygon):
    """Its points in the order of their lines; None when a line is no vertex."""
    points = []
    for number, (key, value) in enumerate(polygon.pairs(), 1):
        point = VERTEX.match(value)
        if key != f"V{number}" or not point:
            return None
        try:
            points.append(tuple(map(float, point.groups())))
        except ValueError:
            return None
    return points


def placed(description):
    found = []
    floor = space = wall = None
    for command in description.commands:
        if command.type == "FLOOR":
            floor, space, wall = command, None, None
        elif command.type == "SPACE":
            space, wall = command, None
        elif command.type in WALLS:
            wall = command
            found.append(Placed(command, floor, space, None))
        elif command.type == "WINDOW":
            found.append(Placed(command, floor, space, wall))
    return found


def edges(outline):
    return list(zip(outline, outline[1:] + outline[:1]))


def side_of(surface):
    """The side that a wall or window of the table faces, None when it faces none squarely."""
    return plan.AZIMUTHS.get(round(surface.azimuth, 1) % 360)
