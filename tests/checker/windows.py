"""Windows: as many as the facade has bays, each in its bay, with the glazing asked for."""

import re
from collections import Counter

from building import side_of
from commands import REWRITTEN
from faults import Fault
from plan import SIDES, STOREY
from reader import squeezed

AREA = 1e-4  # relative
DECIMAL = 1e-6  # m, the last decimal written
HEIGHT = 1.2  # m, of a window that its bay does not force higher

# The typology gives a window these; of its other own keywords none comes from the template.
GIVEN = {"GLASS-TYPE", "X", "Y", "WIDTH", "HEIGHT"}
WINDOW_KEYWORD = re.compile(REWRITTEN["WINDOW"])


def check_windows(building):
    output = building.commands
    typology = building.typology
    parts = [part for part in (typology.frame(), typology.shade()) if part]
    found, names = Counter(), {}
    for surface in building.table:
        if not surface.is_window:
            continue
        side = side_of(surface)
        if side is None:
            yield Fault("window", surface.name, f"azimuth {surface.azimuth:g} is no side's")
            continue
        names.setdefault((surface.is_inner, side), []).append(surface.name)
        command = output.get(surface.name)
        if command is None:
            continue
        found[surface.is_inner, side] += 1
        if asked(typology, surface.is_inner, side) > 0:
            wrong = wrong_in(command, building, surface.is_inner, side, parts)
            if wrong:
                kind, text = wrong
                yield Fault(kind, surface.name, text)
    for inner in (False, True):
        for side in range(4):
            yield from check_count(building, inner, side, found, names)


def asked(typology, inner, side):
    return (typology.courtyard if inner else typology.street)[side]


def check_count(building, inner, side, found, names):
    bays = building.plan.bays(inner, side)
    percentage = asked(building.typology, inner, side)
    expected = bays.count if percentage > 0 else 0
    count = found[inner, side]
    if count != expected:
        where = f"{SIDES[side]}, {'courtyard' if inner else 'street'}"
        odd = [name for name in names.get((inner, side), [])
               if (name in building.commands) != (percentage > 0)]
        yield Fault("count", where, f"{count} windows for {expected} bays with {percentage:g} %"
                                    f" of glass; {', '.join(odd[:3]) or 'template'}")


def wrong_in(command, building, inner, side, parts):
    """The first thing wrong, as kind and text; None when all is right."""
    typology, bay = building.typology, building.plan.bays(inner, side)
    if command.value("GLASS-TYPE") != typology.glass:
        return "window", f"GLASS-TYPE is {command.value('GLASS-TYPE')} and not {typology.glass}"
    if [squeezed(line.text) for line in command.inserted()] != parts:
        return "window", "frame and shade are not the typology's, each on a line"
    old = [key for key, _ in command.pairs() if WINDOW_KEYWORD.fullmatch(key) and key not in GIVEN]
    if old:
        return "window", f"{old[0]} of the template is still there"
    try:
        place = [float(command.value(key)) for key in ("X", "Y", "WIDTH", "HEIGHT")]
    except (TypeError, ValueError):
        return "window", "X, Y, WIDTH or HEIGHT is missing or no number"
    area = asked(typology, inner, side) * bay.area / 100
    return (outside(*place, bay) or wrong_size(*place[2:], bay, area)
            or beside_the_middle(*place, bay))


def place(bay):
    """How far a place may be off, m: coordinates are 32-bit reals."""
    return 1e-4 + 1e-6 * bay.width


def outside(x, y, width, height, bay):
    if not (x >= 0 and x + width <= bay.width + place(bay)):
        return "window", f"spans {x:f} to {x + width:f} m of a bay {bay.width:f} m wide"
    if not (y >= 0 and y + height <= STOREY + place(bay)):
        return "window", f"spans {y:f} to {y + height:f} m of a bay {STOREY} m high"
    return None


def wrong_size(width, height, bay, area):
    """The area asked for, with the usual height; higher once it fills its bay from side to side,
    and with less area once it fills the whole bay."""
    glass = width * height
    rounding = DECIMAL * (width + height)
    if area > bay.area * (1 + AREA):
        if not glass < area or abs(glass - bay.area) > AREA * bay.area + rounding:
            return "glazing", f"{glass:f} m2 where the whole bay, {bay.area:f} m2, is asked for"
    elif not abs(glass - area) <= AREA * area + rounding:
        return "glazing", f"{glass:f} m2 instead of {area:f} m2"
    if abs(height - HEIGHT) > place(bay) and (
            height < HEIGHT or bay.width - width > place(bay)):
        return "window", f"is {height:f} m high, though it would fit with {HEIGHT} m"
    return None


def beside_the_middle(x, y, width, height, bay):
    if max(abs(2 * x + width - bay.width), abs(2 * y + height - STOREY)) > 2 * place(bay):
        return "window", "does not stand in the middle of its bay"
    return None
