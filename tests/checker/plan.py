"""What the plan of each family must be, drawn from the typology's numbers.

Lengths in m, x along the main facade, y across the block. Nothing here looks at how the
generation computes: shapes are given by the box round them and their area, facades by the
pieces that they are divided into.
"""

from dataclasses import dataclass

SOUTH, EAST, NORTH, WEST = range(4)
SIDES = ("south", "east", "north", "west")
AZIMUTHS = {180: SOUTH, 90: EAST, 0: NORTH, 270: WEST}
STOREY = 3.0  # m, height of a bay


@dataclass(frozen=True)
class Shape:
    """Of one outline."""
    box: tuple  # x0, y0, x1, y1
    area: float
    vertices: int


@dataclass(frozen=True)
class Bays:
    """Windows of one side, over all storeys of the template."""
    count: int
    width: float

    @property
    def area(self):
        return self.width * STOREY


@dataclass(frozen=True)
class Plan:
    length: float
    depth: float
    shapes: tuple  # block, dwellings, core; in the order of the POLYGONs
    street: tuple  # Bays of the south, east, north and west
    courtyard: tuple
    courts: tuple = ()  # boxes of the block that no outline covers
    is_winged: bool = False  # leaves corners of its block open; its bays are no wall pieces

    def bays(self, inner, side):
        return (self.courtyard if inner else self.street)[side]

    @property
    def tolerance(self):
        """m; coordinates are 32-bit reals."""
        return 1e-4 + 1e-6 * max(self.length, self.depth)


def box_area(box):
    x0, y0, x1, y1 = box
    return (x1 - x0) * (y1 - y0)


def sides(counts, along, across):
    """Bays of the four sides: `along` is the width in the south and north."""
    return tuple(Bays(count, width) for count, width in zip(counts, (along, across) * 2))


NO_COURTYARD = sides((0, 0, 0, 0), 0.0, 0.0)


def rectangle(box):
    return Shape(box, box_area(box), 4)


def house(storeys):
    def draw(A, L, **_):
        D = A / L
        return Plan(L, D, (rectangle((0, 0, L, D)),), sides((storeys,) * 4, L, D), NO_COURTYARD)
    return draw


def row(A, L, Ae, **_):
    """Four strips side by side, the stair at their east end."""
    D = A / L
    end = (A - Ae) / D  # of the dwellings, where the stair begins
    w = end / 4
    strips = [rectangle((i * w, 0, (i + 1) * w, D)) for i in range(4)]
    shapes = (rectangle((0, 0, L, D)), *strips, rectangle((end, 0, L, D)))
    return Plan(L, D, shapes, sides((12, 3, 12, 3), w, D), sides((3, 0, 3, 0), L - end, 0.0))


def quarters(L, D, hole, dwellings, street, courtyard, courts=()):
    """Four quarters of a block round a centred hole; `hole` is its length and depth."""
    h, v = L / 2, D / 2
    x, y = (L - hole[0]) / 2, (D - hole[1]) / 2
    boxes = ((0, 0, h, v), (h, 0, L, v), (h, v, L, D), (0, v, h, D))
    centre = (x, y, L - x, D - y)
    shapes = (rectangle((0, 0, L, D)), *(Shape(box, dwellings / 4, 10) for box in boxes),
              Shape(centre, box_area(centre), 8))
    return Plan(L, D, shapes, street, courtyard, courts)


def central_courtyard(A, L, Ap, Pp, **_):
    D = (A + Ap) / L
    lp = Ap / Pp
    return quarters(L, D, (lp, Pp), A, sides((18,) * 4, L / 6, D / 6),
                    sides((6,) * 4, lp / 2, Pp / 2))


def central_stair(A, L, Ae, Pe, **_):
    D = A / L
    return quarters(L, D, (Ae / Pe, Pe), A - Ae, sides((18,) * 4, L / 6, D / 6), NO_COURTYARD)


def courtyards_in_front_and_back(A, L, Ap, Pp, Ae, Pe):
    D = (A + Ap) / L
    lp = Ap / Pp / 2  # each of the two
    x0, x1 = (L - lp) / 2, (L + lp) / 2
    return quarters(L, D, (Ae / Pe, Pe), A - Ae, sides((6, 18, 6, 18), x0, D / 6),
                    sides((6,) * 4, lp / 2, Pp), ((x0, 0, x1, Pp), (x0, D - Pp, x1, D)))


def courtyards_in_the_sides(A, L, Ap, Pp, Ae, Pe):
    D = (A + Ap) / L
    lp = Ap / Pp / 2
    y0, y1 = (D - Pp) / 2, (D + Pp) / 2
    return quarters(L, D, (Ae / Pe, Pe), A - Ae, sides((18, 6, 18, 6), L / 6, y0),
                    sides((6,) * 4, lp, Pp / 2), ((0, y0, lp, y1), (L - lp, y0, L, y1)))


def wings(A, L, Ae, Pe, **_):
    """Four wings of the same area turn round the core like the sails of a windmill. Those in the
    front and back are `across` wide, those at the sides reach from the core to the facade."""
    le = Ae / Pe
    one = (A - Ae) / 4  # area of a wing
    reach = (L - le) / 2
    thick = one / reach
    across = thick * le / Pe
    depth = one / across  # of the front and back wings
    D = 2 * depth + Pe
    x0, x1, y0, y1 = reach, L - reach, depth, depth + Pe  # the core
    boxes = ((x0, 0, x0 + across, y0), (x1, y0, L, y0 + thick), (x1 - across, y1, x1, D),
             (0, y1 - thick, x0, y1))
    shapes = (rectangle((0, 0, L, D)), *(Shape(box, one, 10) for box in boxes),
              Shape((x0, y0, x1, y1), Ae, 8))
    return Plan(L, D, shapes, sides((18,) * 4, L / 6, D / 6), NO_COURTYARD, is_winged=True)


FAMILIES = (
    ((1,), house(1)),
    (range(2, 10), house(2)),
    ((10, 11, 12), row),
    ((13, 16, 19), central_courtyard),
    ((14, 17, 20), courtyards_in_front_and_back),
    ((15, 18, 21), courtyards_in_the_sides),
    ((22,), wings),
    ((23,), central_stair),
)
SIZES = {"A": "AREA-PLANTA", "L": "LONGITUD-FACHADA", "Ap": "AREA-PATIO",
         "Pp": "PROFUNDIDAD-PATIO", "Ae": "AREA-ESCALERA", "Pe": "PROFUNDIDAD-ESCALERA"}


def plan_of(typology):
    for types, draw in FAMILIES:
        if typology.number in types:
            return draw(**{name: typology.real(key) for name, key in SIZES.items()})
    raise ValueError(f"no plan is known for typology {typology.number}")
