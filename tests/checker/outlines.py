"""The outlines: each has the shape that the typology gives it, together they tile the block."""

from building import edges
from faults import Fault
from plan import box_area


def check_outlines(building):
    """Each one first; how they lie together is only asked when each is right by itself."""
    faults = list(check_each(building)) or list(check_together(building))
    return faults, {fault.place for fault in faults}


def check_each(building):
    plan = building.plan
    if len(building.outlines) != len(plan.shapes):
        yield Fault("outline", "POLYGON", f"{len(building.outlines)} outlines,"
                                          f" the plan has {len(plan.shapes)}")
        return
    for (name, outline), shape in zip(building.outlines.items(), plan.shapes):
        text = wrong_in(outline, shape, plan)
        if text:
            yield Fault("outline", name, text)


def wrong_in(outline, shape, plan):
    if outline is None:
        return "its lines are not V1, V2, ... with two numbers each"
    if len(outline) != shape.vertices:
        return f"{len(outline)} vertices, the plan has {shape.vertices}"
    for number, ((x0, y0), (x1, y1)) in enumerate(edges(outline), 1):
        if min(abs(x0 - x1), abs(y0 - y1)) > plan.tolerance:
            return f"edge {number} runs neither along nor across the facade"
    box = covered_box(outline, plan.tolerance) if plan.is_winged else box_round(outline)
    if any(abs(a - b) > plan.tolerance for a, b in zip(box, shape.box)):
        return f"lies in {rounded(box)}, the plan says {rounded(shape.box)}"
    area = signed_area(outline)
    if area <= 0:
        return "does not run counter-clockwise"
    if abs(area - shape.area) > area_tolerance(plan):
        return f"has {area:.4f} m2, the plan says {shape.area:.4f}"
    return ""


def check_together(building):
    """Dwellings, core and open courtyards cover each place of the block once. The corners
    between the wings of a winged block stay open."""
    plan = building.plan
    if len(plan.shapes) == 1:
        return
    block, *parts = building.outlines.items()
    courts = [(f"courtyard {n}", box_outline(box)) for n, box in enumerate(plan.courts, 1)]
    shared, gap = {}, 0.0
    for cell in cells([block, *parts, *courts], plan.tolerance):
        x, y = (cell[0] + cell[2]) / 2, (cell[1] + cell[3]) / 2
        owners = [name for name, outline in parts + courts if turns(outline, x, y)]
        inside = turns(block[1], x, y) != 0
        if len(owners) > 1 or (owners and not inside):
            key = tuple(owners) if inside else (*owners, "the outside")
            shared[key] = shared.get(key, 0.0) + box_area(cell)
        elif inside and not owners:
            gap += box_area(cell)
    for names, area in shared.items():
        yield Fault("tiling", names[0], f"shares {area:.4f} m2 with {', '.join(names[1:])}")
    if not plan.is_winged and gap > area_tolerance(plan):
        yield Fault("tiling", block[0], f"{gap:.4f} m2 of the block belong to no outline")
    yield from check_core(building)


def check_core(building):
    """Along each edge of the stair or courtyard lies one of a dwelling, or the block ends."""
    (_, block), *homes, (name, core) = building.outlines.items()
    tolerance = building.plan.tolerance
    others = [(b, a) for _, home in homes for a, b in edges(home)]
    for number, edge in enumerate(edges(core), 1):
        if not (any(same_edge(edge, other, tolerance) for other in others)
                or any(lies_on(edge, side, tolerance) for side in edges(block))):
            yield Fault("tiling", name, f"edge {number} is no edge of a dwelling")


def lies_on(edge, side, tolerance):
    """Whether an edge is a part of a line along or across the facade."""
    (x0, y0), (x1, y1) = side
    return all(min(x0, x1) - tolerance <= x <= max(x0, x1) + tolerance
               and min(y0, y1) - tolerance <= y <= max(y0, y1) + tolerance for x, y in edge)


def same_edge(edge, other, tolerance):
    return all(abs(a - b) <= tolerance for p, q in zip(edge, other) for a, b in zip(p, q))


def signed_area(outline):
    return sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in edges(outline)) / 2


def area_tolerance(plan):
    return plan.tolerance * (plan.length + plan.depth)


def box_round(points):
    xs, ys = zip(*points)
    return (min(xs), min(ys), max(xs), max(ys))


def covered_box(outline, tolerance):
    """Without the spurs of an outline that doubles back along an edge."""
    corners = [corner for x0, y0, x1, y1 in cells([("", outline)], tolerance)
               if turns(outline, (x0 + x1) / 2, (y0 + y1) / 2)
               for corner in ((x0, y0), (x1, y1))]
    return box_round(corners or [(0.0, 0.0)])


def box_outline(box):
    x0, y0, x1, y1 = box
    return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]


def cells(outlines, tolerance):
    """The rectangles into which all vertices cut the plan; slivers of rounding left out."""
    points = [point for _, outline in outlines for point in outline]
    xs, ys = (lines(sorted(values), tolerance) for values in zip(*points))
    for x0, x1 in zip(xs, xs[1:]):
        for y0, y1 in zip(ys, ys[1:]):
            yield (x0, y0, x1, y1)


def lines(values, tolerance):
    kept = []
    for value in values:
        if not kept or value - kept[-1] > 2 * tolerance:
            kept.append(value)
    return kept


def turns(outline, x, y):
    """How often the outline runs round a point: 0 outside of it."""
    count = 0
    for (x0, y0), (x1, y1) in edges(outline):
        if (y0 > y) != (y1 > y) and x0 + (y - y0) * (x1 - x0) / (y1 - y0) > x:
            count += 1 if y1 > y0 else -1
    return count


def rounded(box):
    return "({:.3f}, {:.3f}) to ({:.3f}, {:.3f})".format(*box)
