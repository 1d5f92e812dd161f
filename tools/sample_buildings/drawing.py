"""The plan of a sample building as a small SVG drawing, north at the top."""

from . import plan
from .text import number

WIDE, HIGH = 560.0, 400.0  # the most that a block may take, in drawing units
MARGIN_LEFT, MARGIN_TOP, MARGIN_RIGHT, MARGIN_BOTTOM = 84.0, 40.0, 96.0, 74.0
OPEN_AIR, STAIR = "#e9f3dd", "#dddddd"
HOME_COLOURS = ("#f6e3c5", "#d9e8d2", "#d5e2f0", "#efd8de")
STYLE = """
  text { font: 13px sans-serif; fill: #333; text-anchor: middle; }
  .small { font-size: 11px; fill: #555; }
  .space { stroke: none; }
  .partition { stroke: #777; stroke-width: 1.6; }
  .outside { stroke: #333; stroke-width: 4; stroke-linecap: square; }
  .party { stroke: #a0522d; stroke-width: 4; stroke-dasharray: 9 4; }
  .window { stroke: #fff; stroke-width: 2.4; }
  .piece { fill: #c0392b; }
  .shade { stroke: #777; stroke-width: 3; stroke-dasharray: 2 4; }
  .measure { stroke: #555; stroke-width: 1; fill: none; }
"""


class Canvas:
    def __init__(self, drawn, shift=0.0):
        self.scale = min(WIDE / drawn.length, HIGH / drawn.depth)
        self.drawn = drawn
        self.lines = []

    def at(self, point):
        x, y = point
        return (MARGIN_LEFT + x * self.scale, MARGIN_TOP + (self.drawn.depth - y) * self.scale)

    def line(self, edge, style):
        (x0, y0), (x1, y1) = map(self.at, edge)
        self.lines.append(f'<line class="{style}" x1="{number(x0, 1)}" y1="{number(y0, 1)}"'
                          f' x2="{number(x1, 1)}" y2="{number(y1, 1)}"/>')

    def area(self, outline, fill):
        points = " ".join(f"{number(x, 1)},{number(y, 1)}" for x, y in map(self.at, outline))
        self.lines.append(f'<polygon class="space" fill="{fill}" points="{points}"/>')

    def dot(self, point):
        x, y = self.at(point)
        self.lines.append(f'<circle class="piece" cx="{number(x, 1)}" cy="{number(y, 1)}"'
                          ' r="2.6"/>')

    def text(self, x, y, words, extra=""):
        self.lines.append(f'<text x="{number(x, 1)}" y="{number(y, 1)}"{extra}>{words}</text>')

    def label(self, point, *rows):
        x, y = self.at(point)
        for index, row in enumerate(rows):
            small = ' class="small"' if index else ""
            self.text(x, y + 5 + 15 * (index - (len(rows) - 1) / 2), row, small)


def svg(building):
    family, drawn = building.family, building.plan
    canvas = Canvas(drawn)
    floor = building.floors[0]
    if has_notches(family):
        canvas.area(drawn.block, OPEN_AIR)
    for index, home in enumerate(drawn.homes):
        canvas.area(home, HOME_COLOURS[index])
    if drawn.core:
        canvas.area(drawn.core, OPEN_AIR if family.core == "patio" else STAIR)
    walls(canvas, floor)
    if family.shades:
        low, high = (drawn.depth - family.size["Pp"]) / 2, (drawn.depth + family.size["Pp"]) / 2
        for x in (0, drawn.length):
            canvas.line(((x, low), (x, high)), "shade")
    labels(canvas, building)
    measures(canvas)
    north(canvas)
    width = MARGIN_LEFT + drawn.length * canvas.scale + MARGIN_RIGHT
    height = MARGIN_TOP + drawn.depth * canvas.scale + MARGIN_BOTTOM
    return [f'<svg xmlns="http://www.w3.org/2000/svg" width="{number(width, 0)}"'
            f' height="{number(height, 0)}" viewBox="0 0 {number(width, 0)} {number(height, 0)}">',
            f"<title>{family.folder}</title>", f"<style>{STYLE}</style>",
            '<rect width="100%" height="100%" fill="#fff"/>', *canvas.lines, "</svg>"]


def has_notches(family):
    """Courtyards cut into the facades, beside those that stand in the middle."""
    return family.core == "escalera" and "Ap" in family.size


def walls(canvas, floor):
    """Partitions first, so that the walls of the outside lie on top of them."""
    pieces = [(surface, place_of(surface, space)) for space in floor.spaces
              for surface in space.surfaces if surface.place.startswith("EDGE")]
    for surface, edge in pieces:
        if surface.neighbour:
            canvas.line(edge, "partition")
    for surface, edge in pieces:
        if not surface.neighbour:
            canvas.line(edge, "party" if surface.role == "medianera" else "outside")
    for surface, edge in pieces:
        if surface.window:
            canvas.line(part_of(edge, surface.window.x, surface.window.width), "window")
    for surface, edge in pieces:
        if not surface.neighbour:
            canvas.dot(edge[0])
            canvas.dot(edge[1])


def place_of(surface, space):
    return plan.edges(space.outline)[int(surface.place.split("-")[1]) - 1]


def part_of(edge, start, length):
    (x0, y0), (x1, y1) = edge
    whole = plan.length_of(edge)

    def along(distance):
        share = distance / whole
        return (x0 + (x1 - x0) * share, y0 + (y1 - y0) * share)

    return (along(start), along(start + length))


def centre(outline):
    """Centroid of the enclosed area."""
    cx = cy = 0.0
    for (x0, y0), (x1, y1) in plan.edges(outline):
        cross = x0 * y1 - x1 * y0
        cx += (x0 + x1) * cross
        cy += (y0 + y1) * cross
    return (cx / (6 * plan.area(outline)), cy / (6 * plan.area(outline)))


def labels(canvas, building):
    family, drawn = building.family, building.plan
    for letter, home in zip("ABCD", drawn.homes):
        size = f"{number(plan.area(home), 1)} m²"
        if family.core:
            canvas.label(centre(home), letter, size)
        else:
            canvas.label(centre(home), " / ".join(f.title for f in building.floors).replace(
                "_", " y "), size)
    if drawn.core:
        word = "courtyard" if family.core == "patio" else "stair"
        canvas.label(centre(drawn.core), word, f"{number(plan.area(drawn.core), 1)} m²")
    if has_notches(family):
        depth, length = family.size["Pp"], family.size["Ap"] / (2 * family.size["Pp"])
        across = drawn.length / 2, drawn.depth / 2
        spots = ([(length / 2, across[1]), (drawn.length - length / 2, across[1])]
                 if family.shades else
                 [(across[0], depth / 2), (across[0], drawn.depth - depth / 2)])
        for spot in spots:
            canvas.label(spot, "courtyard")


def measures(canvas):
    """Length below, depth on the left, the other lengths as a line of text."""
    drawn = canvas.drawn
    x0, y0 = canvas.at((0, 0))
    x1, y1 = canvas.at((drawn.length, drawn.depth))
    low, left = y0 + 24, x0 - 26
    canvas.lines.append(
        f'<path class="measure" d="M{number(x0, 1)} {number(low, 1)}H{number(x1, 1)}'
        f'M{number(x0, 1)} {number(low - 5, 1)}v10M{number(x1, 1)} {number(low - 5, 1)}v10'
        f'M{number(left, 1)} {number(y0, 1)}V{number(y1, 1)}'
        f'M{number(left - 5, 1)} {number(y0, 1)}h10M{number(left - 5, 1)} {number(y1, 1)}h10"/>')
    names = list(drawn.marks)
    canvas.text((x0 + x1) / 2, low + 17, f"{names[0]} = {number(drawn.length, 2)} m")
    middle = (y0 + y1) / 2
    canvas.text(left - 10, middle, f"{names[1]} = {number(drawn.depth, 2)} m",
                f' transform="rotate(-90 {number(left - 10, 1)} {number(middle, 1)})"')
    rest = ", ".join(f"{name} {number(drawn.marks[name], 2)}" for name in names[2:])
    if rest:
        canvas.text((x0 + x1) / 2, low + 37, rest, ' class="small"')


def north(canvas):
    x = MARGIN_LEFT + canvas.drawn.length * canvas.scale + 52
    canvas.lines.append(f'<path d="M{number(x, 1)} 34l9 34l-9 -8l-9 8z" fill="#333"/>')
    canvas.text(x, 28, "N")
