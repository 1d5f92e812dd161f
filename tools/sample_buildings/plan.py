"""Plan outlines of each family, in the order in which a template lists its POLYGONs.

Lengths in m, x along the main facade, y across the block, origin at its south-west corner.
Outlines run counter-clockwise, so the outside of an edge is on its right hand.
"""

import math
from dataclasses import dataclass

SOUTH, EAST, NORTH, WEST = range(4)
SIDE_NAMES = ("sur", "este", "norte", "oeste")


@dataclass(frozen=True)
class Plan:
    length: float  # of the main facade
    depth: float  # of the block
    block: list  # outline of the whole block
    homes: list  # an outline a dwelling
    core: list = None  # stair-well or courtyard, None in a house


def area(outline):
    total = 0.0
    for (x0, y0), (x1, y1) in edges(outline):
        total += x0 * y1 - x1 * y0
    return total / 2


def edges(outline):
    return list(zip(outline, outline[1:] + outline[:1]))


def length_of(edge):
    (x0, y0), (x1, y1) = edge
    return math.hypot(x1 - x0, y1 - y0)


def azimuth_of(edge):
    """Degrees clockwise from north (+y) of the normal that leaves the outline."""
    (x0, y0), (x1, y1) = edge
    return round(math.degrees(math.atan2(y1 - y0, x0 - x1))) % 360


def side_of(edge):
    return {180: SOUTH, 90: EAST, 0: NORTH, 270: WEST}[azimuth_of(edge)]


def same_wall(edge, other):
    """Two spaces share a wall when each runs along it in its own direction."""
    return all(math.isclose(a, b, abs_tol=1e-6)
               for p, q in zip(edge, reversed(other)) for a, b in zip(p, q))


def rectangle(x0, y0, x1, y1):
    return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]


def ring(x0, y0, x1, y1):
    """A central rectangle with a vertex in the middle of each side, as the quarters meet it."""
    xm, ym = (x0 + x1) / 2, (y0 + y1) / 2
    return [(x0, y0), (xm, y0), (x1, y0), (x1, ym), (x1, y1), (xm, y1), (x0, y1), (x0, ym)]


def house(A, L):
    D = A / L
    block = rectangle(0, 0, L, D)
    return Plan(L, D, block, [block])


def row_block(A, L, Ae):
    D = A / L
    le = Ae / D
    w = (L - le) * 0.25
    homes = [rectangle(i * w, 0, i * w + w, D) for i in range(4)]
    return Plan(L, D, rectangle(0, 0, L, D), homes, rectangle(L - le, 0, L, D))


def ring_block(L, D, dF, dH):
    """Four quarters round a hole; the outer sides are cut at their thirds."""
    h, v = L / 2, D / 2
    return [
        [(0, 0), (L / 6, 0), (L / 3, 0), (h, 0), (h, dF), (dH, dF), (dH, v), (0, v),
         (0, D / 3), (0, D / 6)],
        [(h, 0), (2 * L / 3, 0), (5 * L / 6, 0), (L, 0), (L, D / 6), (L, D / 3), (L, v),
         (L - dH, v), (L - dH, dF), (h, dF)],
        [(L - dH, v), (L, v), (L, 2 * D / 3), (L, 5 * D / 6), (L, D), (5 * L / 6, D),
         (2 * L / 3, D), (h, D), (h, D - dF), (L - dH, D - dF)],
        [(0, v), (dH, v), (dH, D - dF), (h, D - dF), (h, D), (L / 3, D), (L / 6, D), (0, D),
         (0, 5 * D / 6), (0, 2 * D / 3)],
    ]


def courtyard_block(A, L, Ap, Pp):
    D = (A + Ap) / L
    dF, dH = (D - Pp) / 2, (L - Ap / Pp) / 2
    return Plan(L, D, rectangle(0, 0, L, D), ring_block(L, D, dF, dH),
                ring(dH, dF, L - dH, D - dF))


def central_stair_block(A, L, Ae, Pe):
    D = A / L
    dF, dH = (D - Pe) / 2, (L - Ae / Pe) / 2
    return Plan(L, D, rectangle(0, 0, L, D), ring_block(L, D, dF, dH),
                ring(dH, dF, L - dH, D - dF))


def front_courtyards_block(A, L, Ap, Pp, Ae, Pe):
    """Central stair; a courtyard cut into the middle of the front and of the back facade."""
    D = (A + Ap) / L
    dE, dPE, lp = (D - Pe) / 2, (L - Ae / Pe) / 2, Ap / (2 * Pp)
    h, v, p, q = L / 2, D / 2, (L - lp) / 2, (L + lp) / 2
    homes = [
        [(0, 0), (p, 0), (p, Pp), (h, Pp), (h, dE), (dPE, dE), (dPE, v), (0, v), (0, D / 3),
         (0, D / 6)],
        [(h, Pp), (q, Pp), (q, 0), (L, 0), (L, D / 6), (L, D / 3), (L, v), (L - dPE, v),
         (L - dPE, dE), (h, dE)],
        [(L - dPE, v), (L, v), (L, 2 * D / 3), (L, 5 * D / 6), (L, D), (q, D), (q, D - Pp),
         (h, D - Pp), (h, D - dE), (L - dPE, D - dE)],
        [(0, v), (dPE, v), (dPE, D - dE), (h, D - dE), (h, D - Pp), (p, D - Pp), (p, D), (0, D),
         (0, 5 * D / 6), (0, 2 * D / 3)],
    ]
    return Plan(L, D, rectangle(0, 0, L, D), homes, ring(dPE, dE, L - dPE, D - dE))


def side_courtyards_block(A, L, Ap, Pp, Ae, Pe):
    """Central stair; a courtyard cut into the middle of each side wall."""
    D = (A + Ap) / L
    dE, dPE, lp = (D - Pe) / 2, (L - Ae / Pe) / 2, Ap / (2 * Pp)
    h, v, p, q = L / 2, D / 2, (D - Pp) / 2, (D + Pp) / 2
    homes = [
        [(0, 0), (L / 6, 0), (L / 3, 0), (h, 0), (h, dE), (dPE, dE), (dPE, v), (lp, v), (lp, p),
         (0, p)],
        [(h, 0), (2 * L / 3, 0), (5 * L / 6, 0), (L, 0), (L, p), (L - lp, p), (L - lp, v),
         (L - dPE, v), (L - dPE, dE), (h, dE)],
        [(L - dPE, v), (L - lp, v), (L - lp, q), (L, q), (L, D), (5 * L / 6, D), (2 * L / 3, D),
         (h, D), (h, D - dE), (L - dPE, D - dE)],
        [(lp, v), (dPE, v), (dPE, D - dE), (h, D - dE), (h, D), (L / 3, D), (L / 6, D), (0, D),
         (0, q), (lp, q)],
    ]
    return Plan(L, D, rectangle(0, 0, L, D), homes, ring(dPE, dE, L - dPE, D - dE))


def winged_block(A, L, Ae, Pe):
    """Four wings turn like a windmill round the stair core.

    They meet edge to edge when b is longer than the core is deep; the samples keep to that.
    """
    le = Ae / Pe
    a = (L - le) / 2
    b = (A - Ae) / (4 * a)
    xp = le / Pe * b
    c = L - a - xp
    d = (A - Ae) / (4 * xp)
    Db = 2 * d + Pe
    e = Db - d - b
    homes = [
        [(a + xp / 2, 0), (a + xp, 0), (a + xp, d / 2), (a + xp, d), (a + le, d), (a + le / 2, d),
         (a, d), (a, e), (a, e / 2), (a, 0)],
        [(a + xp, d), (L - c / 2, d), (L, d), (L, d + b / 2), (L, d + b), (L - a / 2, d + b),
         (L - a, d + b), (L - a, Db - d), (L - a, d + Pe / 2), (L - a, d)],
        [(a + le, Db - d), (L - a, d + b), (L - a, Db - e / 2), (L - a, Db), (c + xp / 2, Db),
         (c, Db), (c, Db - d / 2), (c, Db - d), (a, Db - d), (a + le / 2, Db - d)],
        [(a, e), (a, d), (a, d + Pe / 2), (a, d + Pe), (c, d + Pe), (c / 2, d + Pe), (0, d + Pe),
         (0, e + b / 2), (0, e), (a / 2, e)],
    ]
    core = [(a + le / 2, d), (a + le, d), (a + le, d + Pe / 2), (a + le, d + Pe),
            (a + le / 2, d + Pe), (a, d + Pe), (a, d + Pe / 2), (a, d)]
    return Plan(L, Db, rectangle(0, 0, L, Db), homes, core)
