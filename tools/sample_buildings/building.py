"""From a family's description to the spaces, surfaces and windows of its template.

Everything that two files must agree on is computed here once: names, areas, azimuths, tilts,
references, window places.
"""

from dataclasses import dataclass, field

from . import plan

STOREY = 3.0  # m, floor to floor

# role: (type, letters in the name, construction in the template)
ROLES = {
    "fachada": ("EXTERIOR-WALL", "ME", "Muro_Fachada_Aislado"),
    "patio": ("EXTERIOR-WALL", "MP", "Muro_Fachada_Aislado"),
    "medianera": ("EXTERIOR-WALL", "MD", "Medianera_Ladrillo"),
    "partición": ("INTERIOR-WALL", "PV", "Partición_Acústica"),
    "escalera": ("INTERIOR-WALL", "PE", "Partición_Acústica"),
    "tabiques": ("INTERIOR-WALL", "TB", "Partición_Cerámica"),
    "suelo": ("UNDERGROUND-WALL", "SU", "Solera_Aislada"),
    "forjado": ("INTERIOR-WALL", "FI", "Forjado_Entre_Plantas"),
    "cubierta": ("ROOF", "CU", "Cubierta_Plana_Aislada"),
}
WITH_WINDOW = ("fachada", "patio", "medianera")
GROUND = -1  # in the table's pair of zone numbers; 0 is the outside air


@dataclass
class Window:
    name: str
    wall: "Surface"
    x: float
    y: float
    width: float
    height: float
    side: int


@dataclass
class Surface:
    name: str
    role: str
    kind: int  # eighth column of the table
    tilt: int
    azimuth: int
    length: float
    height: float
    place: str  # where on the space: EDGE-n, TOP, BOTTOM, or "" inside it
    neighbour: "Space" = None
    polygon: str = ""  # of a horizontal surface
    gross: float = 0.0  # m2, its window included
    perimeter: float = 0.0
    window: Window = None

    @property
    def net(self):
        return self.gross - (self.window.width * self.window.height if self.window else 0)


@dataclass
class Space:
    number: int
    name: str
    polygon: str
    outline: list
    habitable: bool
    surfaces: list = field(default_factory=list)

    @property
    def area(self):
        return plan.area(self.outline)


@dataclass
class Floor:
    name: str
    title: str
    multiplier: str
    below: "Floor"
    spaces: list


@dataclass
class Building:
    family: object  # families.Family
    plan: plan.Plan
    polygons: list  # (name, outline) in the order of the template
    floors: list

    def spaces(self):
        return [space for floor in self.floors for space in floor.spaces]

    def surfaces(self):
        return [surface for space in self.spaces() for surface in space.surfaces]

    def windows(self):
        return [surface.window for surface in self.surfaces() if surface.window]


def build(family):
    drawn = family.plan(**family.size)
    polygons = [(family.block_name, drawn.block)]
    if family.core:
        polygons += [(f"Polígono_{letter}", home) for letter, home in zip("ABCD", drawn.homes)]
        polygons.append((family.core_polygon, drawn.core))
    building = Building(family, drawn, polygons, [])
    for storey, (name, title, multiplier) in enumerate(family.storeys):
        below = building.floors[-1] if building.floors else None
        floor = Floor(name, title, multiplier, below, [])
        building.floors.append(floor)
        add_spaces(building, floor, len(building.spaces()))
        top = storey == len(family.storeys) - 1
        for index, space in enumerate(floor.spaces):
            add_walls(building, floor, space)
            add_horizontals(family, space, below.spaces[index] if below else None, top)
    check_windows(building)
    return building


def add_spaces(building, floor, already):
    family, drawn = building.family, building.plan
    rows = [(polygon, outline, True) for polygon, outline in building.polygons[1:5]]
    if not family.core:
        rows = [(polygon, outline, True) for polygon, outline in building.polygons]
    if family.core == "escalera":
        rows.append((family.core_polygon, drawn.core, False))
    for index, (polygon, outline, habitable) in enumerate(rows, 1):
        use = family.space_name(floor, index, habitable)
        name = f"{floor.name}_E{index:02d}_{use}"
        floor.spaces.append(Space(already + index, name, polygon, outline, habitable))


def add_walls(building, floor, space):
    """A surface for every edge of the outline; a wall shared by two spaces goes to the first."""
    family = building.family
    for index, edge in enumerate(plan.edges(space.outline), 1):
        other = next((s for s in floor.spaces if s is not space
                      and any(plan.same_wall(edge, e) for e in plan.edges(s.outline))), None)
        if other and other.number < space.number:
            continue
        if other:
            role = "partición" if other.habitable and space.habitable else "escalera"
            kind = family.partitions_between if role == "partición" else -4
        else:
            role = family.outside_role(building.plan, edge, space.habitable)
            kind = {"fachada": 0, "patio": -3, "medianera": -2}[role]
        length = plan.length_of(edge)
        wall = Surface(f"{space.name}_{ROLES[role][1]}{index:02d}", role, kind, 90,
                       plan.azimuth_of(edge), length, STOREY, f"EDGE-{index}", other,
                       gross=length * STOREY, perimeter=2 * (length + STOREY))
        space.surfaces.append(wall)
        if role in WITH_WINDOW:
            wall.window = window_in(family, floor, wall, plan.side_of(edge))


def window_in(family, floor, wall, side):
    """One window in the middle of the wall, a door to the garden or terrace in the south."""
    inner = wall.role == "patio"
    share = 0.35 if inner else (0.42, 0.28, 0.24, 0.28)[side]
    garden = side == plan.SOUTH and not inner and floor.below is None and family.garden_doors
    height = 2.10 if garden else 1.10 if inner else 1.30 if side == plan.SOUTH else 1.20
    width = round(min(max(share * wall.length, 0.60), 2.40), 2)
    suffix = "VMed1" if inner else "V1"
    return Window(f"{wall.name}_{suffix}", wall, (wall.length - width) / 2,
                  0.0 if garden else 0.95, width, height, side)


def add_horizontals(family, space, below, top):
    if space.habitable and family.inner_partitions:
        length = round(family.inner_partitions * space.area, 1)
        space.surfaces.append(Surface(
            f"{space.name}_TB01", "tabiques", -4, 90, 0, length, STOREY, "", space,
            gross=length * STOREY, perimeter=2 * (length + STOREY)))
    if below is None:
        space.surfaces.append(horizontal(space, "suelo", family.ground_kind, 180))
    elif not family.slab_faces_up:
        space.surfaces.append(horizontal(space, "forjado", -5, 180, below))
    else:
        below.surfaces.append(horizontal(below, "forjado", -2, 0, space))
    if top:
        space.surfaces.append(horizontal(space, "cubierta", family.roof_kind, 0))


def horizontal(space, role, kind, tilt, neighbour=None):
    xs, ys = [x for x, _ in space.outline], [y for _, y in space.outline]
    return Surface(f"{space.name}_{ROLES[role][1]}01", role, kind, tilt, 0, max(xs) - min(xs),
                   max(ys) - min(ys), "TOP" if tilt == 0 else "BOTTOM", neighbour, space.polygon,
                   space.area, sum(map(plan.length_of, plan.edges(space.outline))))


def check_windows(building):
    """The template must hold as many windows as the plan has bays, side by side."""
    family = building.family
    for inner, bays in ((False, family.street_bays), (True, family.courtyard_bays)):
        found = [0, 0, 0, 0]
        for window in building.windows():
            if ("Med" in window.name) == inner:
                found[window.side] += 1
        if tuple(found) != bays:
            raise SystemExit(f"{family.folder}: {found} windows, {bays} bays")

