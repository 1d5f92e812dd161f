"""The families of sample buildings: what differs from one to the next, as data."""

from dataclasses import dataclass

from . import plan


def nowhere(drawn, edge, habitable):
    return False


def ends_of_stair(drawn, edge, habitable):
    return not habitable and plan.side_of(edge) in (plan.SOUTH, plan.NORTH)


def off_the_rectangle(drawn, edge, habitable):
    (x0, y0), (x1, y1) = edge
    return not ((x0 == x1 and x0 in (0, drawn.length)) or (y0 == y1 and y0 in (0, drawn.depth)))


@dataclass(frozen=True)
class Family:
    folder: str  # and the base name of its files
    title: str
    english: str
    types: tuple  # typology numbers that it serves
    plan: callable
    size: dict  # of the template, arguments of `plan`
    storeys: tuple  # (name, title, multiplier)
    street_bays: tuple  # windows a side on all storeys: south, east, north, west
    courtyard_bays: tuple = (0, 0, 0, 0)
    core: str = ""  # "escalera" is a space, "patio" is open to the sky, "" in a house
    core_polygon: str = ""
    block_name: str = "Polígono_Bloque"
    is_inner: callable = nowhere  # whether an outside wall counts as one of a courtyard
    partitions_between: int = -4  # kind of the walls between dwellings
    slab_faces_up: bool = False  # a slab is the ceiling of the storey below it, kind -2
    ground_kind: int = -3
    roof_kind: int = -1
    party_sides: bool = False  # the east and west sides touch the neighbours
    inner_partitions: float = 0.0  # m of partition a m2 of floor, houses only
    garden_doors: bool = False
    shades: bool = False  # the two walls that close the side courtyards
    non_habitable: tuple = ("Garaje", "Trastero")

    def space_name(self, floor, index, habitable):
        if not habitable:
            return "Núcleo_Escalera"
        if not self.core:
            return floor.title
        return f"{floor.title}_{'ABCD'[index - 1]}"

    def outside_role(self, drawn, edge, habitable):
        """What an edge is that no other space shares."""
        if self.party_sides and plan.side_of(edge) in (plan.EAST, plan.WEST):
            return "medianera"
        return "patio" if self.is_inner(drawn, edge, habitable) else "fachada"


# "1.0" and not "1" marks the storey that repeats: of three storeys it stands once, of more it
# takes the number of storeys between the ground floor and the top.
THREE = (("P01", "Bajo", "1"), ("P02", "Repetida", "1.0"), ("P03", "Última", "1"))
ALL_18, NONE = (18, 18, 18, 18), (0, 0, 0, 0)

FAMILIES = (
    Family("casa-una-planta", "Casa de una planta, exenta", "detached house of one storey", (1,),
           plan.house, {"A": 110.0, "L": 11.0}, (("P01", "Salón_Dormitorios", "1"),),
           (1, 1, 1, 1), block_name="Polígono_Planta", ground_kind=0, inner_partitions=0.30,
           garden_doors=True),
    Family("casa-adosada", "Casa adosada de dos plantas", "terraced house of two storeys",
           tuple(range(2, 10)), plan.house, {"A": 54.0, "L": 6.0},
           (("P01", "Salón", "1"), ("P02", "Dormitorios", "1")), (2, 2, 2, 2),
           block_name="Polígono_Planta", party_sides=True, inner_partitions=0.35,
           garden_doors=True),
    Family("bloque-hilera", "Bloque de cuatro en hilera con escalera en el extremo",
           "row of four dwellings with a full-depth stair at the east end", (10, 11, 12),
           plan.row_block, {"A": 363.0, "L": 33.0, "Ae": 33.0}, THREE, (12, 3, 12, 3),
           (3, 0, 3, 0), "escalera", "Polígono_Escalera", is_inner=ends_of_stair,
           partitions_between=-2, slab_faces_up=True,
           non_habitable=("Núcleo_Escalera", "Trastero")),
    Family("bloque-patio", "Bloque con patio central", "block round a central courtyard",
           (13, 16, 19), plan.courtyard_block,
           {"A": 454.0, "L": 22.0, "Ap": 30.0, "Pp": 5.0}, THREE, ALL_18, (6, 6, 6, 6), "patio",
           "Polígono_Patio", is_inner=off_the_rectangle),
    Family("bloque-escalera-patios", "Bloque con escalera central y patios en las fachadas",
           "block with a central stair and a courtyard in the front and in the back",
           (14, 17, 20), plan.front_courtyards_block,
           {"A": 488.0, "L": 24.0, "Ap": 40.0, "Pp": 4.0, "Ae": 25.0, "Pe": 5.0}, THREE,
           (6, 18, 6, 18), (6, 6, 6, 6), "escalera", "Polígono_Escalera",
           is_inner=off_the_rectangle, non_habitable=("Núcleo_Escalera", "Trastero")),
    Family("bloque-escalera-patios-laterales",
           "Bloque con escalera central y patios en los costados",
           "block with a central stair and a courtyard in each side", (15, 18, 21),
           plan.side_courtyards_block,
           {"A": 480.0, "L": 26.0, "Ap": 40.0, "Pp": 5.0, "Ae": 20.0, "Pe": 4.0}, THREE,
           (18, 6, 18, 6), (6, 6, 6, 6), "escalera", "Polígono_Escalera",
           is_inner=off_the_rectangle, shades=True,
           non_habitable=("Núcleo_Escalera", "Trastero")),
    Family("bloque-xpala", "Bloque de cuatro alas en torno a la escalera",
           "four wings round a stair core", (22,), plan.winged_block,
           {"A": 343.0, "L": 26.0, "Ae": 23.0, "Pe": 4.6}, THREE, ALL_18, NONE, "escalera",
           "Polígono_Escalera", roof_kind=0, non_habitable=("Núcleo_Escalera", "Trastero")),
    Family("bloque-escalera-central", "Bloque con escalera central", "block round a central stair",
           (23,), plan.central_stair_block,
           {"A": 400.0, "L": 20.0, "Ae": 20.0, "Pe": 4.0}, THREE, ALL_18, NONE, "escalera",
           "Polígono_Escalera", ground_kind=0, non_habitable=("Núcleo_Escalera", "Trastero")),
)
