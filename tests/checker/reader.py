"""Reads a building description as a reader of the language would.

A command is a header `"name" = TYPE`, keyword lines and a line `..`. `$` starts a comment line.
Text is decoded as Latin-1, byte for byte, so that nothing is lost between reading and comparing.
"""

import re
from dataclasses import dataclass, field

from faults import Fault

HEADER = re.compile(r'\s*("[^"]*") = ([A-Z][A-Z-]*)\s*$')
KEYWORD = re.compile(r"\s*([A-Z][A-Z0-9/-]*)\s*=\s*([^=]*?)\s*$")


@dataclass
class Line:
    number: int
    text: str
    key: str = ""  # empty for a line that holds something else than one keyword
    value: str = ""


@dataclass
class Command:
    name: str  # with its quotes
    type: str
    number: int  # of its header line
    lines: list = field(default_factory=list)

    def values(self, key):
        return [line.value for line in self.lines if line.key == key]

    def value(self, key):
        """The first value of `key`, or None."""
        return next(iter(self.values(key)), None)

    def pairs(self):
        return [(line.key, line.value) for line in self.lines if line.key]

    def inserted(self):
        """Lines that are not one keyword each: a frame, a shade or a place written in one."""
        return [line for line in self.lines if not line.key]

    def one_line(self):
        return squeezed(" ".join([f"{self.name} = {self.type}", *(x.text for x in self.lines)]))


@dataclass
class Description:
    commands: list = field(default_factory=list)
    loose: list = field(default_factory=list)  # lists of lines outside of any command
    faults: list = field(default_factory=list)

    def of(self, *types):
        return [command for command in self.commands if command.type in types]

    def named(self):
        return {command.name: command for command in self.commands}


def squeezed(text):
    """Every run of blanks, tabs and line ends as one blank."""
    return " ".join(text.split())


def quoted(name):
    return name if name.startswith('"') else f'"{name}"'


def read(text):
    found = Description()
    command, loose = None, []
    for number, line in enumerate(text.split("\n"), 1):
        header = HEADER.match(line)
        if header:
            if command:
                found.faults.append(unclosed(command, f"before line {number}"))
            if loose:
                found.faults.append(Fault("closing", f"line {loose[0].number}",
                                          f"loose lines not closed before line {number}"))
                loose = []
            command = Command(header[1], header[2], number)
            found.commands.append(command)
        elif line.strip() == "..":
            if not command and not loose:
                found.faults.append(Fault("closing", f"line {number}", "'..' closes nothing"))
            elif not command:
                found.loose.append(loose)
            command, loose = None, []
        elif line.strip() and not line.lstrip().startswith("$"):
            keyword = KEYWORD.match(line)
            read_line = Line(number, line, *(keyword.groups() if keyword else ()))
            (command.lines if command else loose).append(read_line)
    if command:
        found.faults.append(unclosed(command, "at the end"))
    if loose:
        found.faults.append(Fault("closing", f"line {loose[0].number}", "loose lines at the end"))
    return found


def unclosed(command, where):
    return Fault("closing", command.name, f"{command.type} of line {command.number} has no"
                                          f" '..' {where}")
