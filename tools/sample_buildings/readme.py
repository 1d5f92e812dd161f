"""samples/README.md: what the buildings are and how their templates are written."""

from . import plan
from .building import ROLES
from .text import number

INTRO = """# Sample buildings

Complete inputs for all 23 typology numbers: eight building families, a folder each. Every
building here is invented; none of the numbers comes from a real project or catalogue.

Everything in this folder, this page included, is written by `tools/make_samples` (Python 3,
standard library). It comes from one description a family, so that a template, its table and its
plan agree. To change a sample, change the description and run the tool again.

A folder `X` holds a template `X.bdl` with its table `X.tbl` and the defaults library, and typology
files `tipo-NN.tip` that make it one building. The manual shows how to
[generate one](../docs/manual/primer-edificio.md), the [plan of each
number](../docs/manual/tipologia.md#los-23-edificios) and what a [template and its
table](../docs/manual/plantillas.md) hold; `scripts/demo X` shows what became of a sample.
"""

CONVENTIONS = """## How these templates are written

What every template must hold is in the [manual](../docs/manual/plantillas.md); these choices are
those of the samples.

- **Order.** Schedules stand behind `BUILD-PARAMETERS`, because their values are adapted to the air
  changes only from there on.
- **Outlines.** They run counter-clockwise. `LOCATION = EDGE-n` is the side of the space's outline
  that goes from vertex n to the next; `TOP` and `BOTTOM` are its ceiling and floor.
- **Walls.** Every edge of every outline is a surface of its own, so the thirds of a façade are
  separate walls. A wall between two spaces is written once, in the space with the lower number,
  and `NEXT-TO` names the other one. A house has its inner partitions as one surface with an `AREA`.
- **Windows.** One in every outside wall of every storey, less than 3.0 m high. Their numbers per
  side, over all storeys of the template, are those of the first table. The ends of the stair of
  `bloque-hilera` count as courtyard walls.
- **Names.** `P02_E03_Repetida_C_ME05_V1` is storey 2, space 3 (dwelling C), outside wall on edge 5,
  its window. The letters of a surface are in the table below; `V1` and `VMed1` are windows.
- **Storeys.** Blocks have three: ground, repeated, top. The repeated one says `MULTIPLIER = 1.0`:
  any text but `1` marks the storey that takes the number of storeys less two, and in a block of
  three, where it is kept as it stands, `1.0` is still one storey. `MULTIPLIER` is the last keyword
  of a `FLOOR`, since the rewriting of one may end there.
- **Party walls.** The east and west sides of `casa-adosada` are party walls with a window in each.
  A house between neighbours asks for 0 % on those sides and the windows go; a house at the end of
  its row, or one that stands free, gives them a share and names an outside wall as `MEDIANERA`.
- **Shades.** `Sombra001` (east) and `Sombra002` (west) of `bloque-escalera-patios-laterales` are
  the neighbours' walls that close the side courtyards. Of the one that is not used only the header
  goes, so its keyword lines and its `..` stay.
"""

ROLE_WORDS = {
    "fachada": "façade, street side",
    "patio": "courtyard wall, end of the stair in `bloque-hilera`",
    "medianera": "party wall of a house",
    "partición": "wall between dwellings", "escalera": "wall to the stair",
    "tabiques": "inner partitions of a house", "suelo": "floor on the ground",
    "forjado": "slab between storeys", "cubierta": "flat roof"}
SIZE_WORDS = {"A": "AREA-PLANTA", "Ap": "AREA-PATIO", "Ae": "AREA-ESCALERA",
              "L": "LONGITUD-FACHADA", "Pp": "PROFUNDIDAD-PATIO", "Pe": "PROFUNDIDAD-ESCALERA"}


def readme(buildings, typologies):
    out = INTRO.splitlines() + ["", "## The buildings", ""]
    out += overview(buildings)
    for building in buildings:
        out += [""] + family_section(building, typologies[building.family.folder])
    out += [""] + CONVENTIONS.splitlines() + [""] + kinds(buildings)
    return out


def row(*cells):
    return "| " + " | ".join(map(str, cells)) + " |"


def table(heading, rows):
    return [row(*heading), "|" + "---|" * len(heading), *(row(*cells) for cells in rows)]


def overview(buildings):
    """Windows are counted over the storeys that a template holds."""
    return table(
        ("folder", "typologies", "building", "storeys in the template", "surfaces",
         "windows S, E, N, W", "courtyard windows S, E, N, W"),
        [(f"[{b.family.folder}](#{b.family.folder})", ", ".join(map(str, b.family.types)),
          b.family.english, len(b.floors), len(b.surfaces()) + len(b.windows()),
          ", ".join(map(str, b.family.street_bays)),
          ", ".join(map(str, b.family.courtyard_bays)) if any(b.family.courtyard_bays) else "-")
         for b in buildings])


def family_section(building, typologies):
    family = building.family
    size = ", ".join(f"{SIZE_WORDS[key]} {value:g}" for key, value in family.size.items())
    rows = []
    for t in typologies:
        drawn = family.plan(**{**family.size, **t.size})
        rows.append((
            f"`{t.file}`", t.storeys, number(t.height or 3.0, 2),
            f"{number(drawn.length, 2)} x {number(drawn.depth, 2)}",
            number(plan.area(drawn.homes[0]), 1), f"{t.turned or 0:g}°",
            shares(t.street), shares(t.inner) if t.inner else "-", parts(t)))
    return [f"### {family.folder}", "",
            f"{family.english.capitalize()}. The template's own size: {size}.", "",
            *table(("typology file", "storeys", "storey height m", "length x depth m",
                    "dwelling m²", "turned", "glazing S, E, N, W %", "courtyard S, E, N, W %",
                    "also has"), rows)]


def shares(values):
    return ", ".join(f"{value:g}" for value in values)


def parts(typology):
    words = [word for word, there in (("frame", typology.frame), ("shade", typology.shade),
                                      ("solar position", typology.place),
                                      ("air changes", typology.air is not None)) if there]
    return ", ".join(words) or "-"


def kinds(buildings):
    """What the table file says of each sort of surface, with the families that differ."""
    rows = []
    for role, words in ROLE_WORDS.items():
        found = {}
        for building in buildings:
            for surface in building.surfaces():
                if surface.role == role:
                    found.setdefault((surface.kind, surface.tilt), []).append(
                        building.family.folder)
        usual = max(found, key=lambda key: len(set(found[key])))
        notes = "; ".join(f"kind {kind}, tilt {tilt} in {', '.join(dict.fromkeys(where))}"
                          for (kind, tilt), where in found.items() if (kind, tilt) != usual)
        rows.append((f"`{ROLES[role][1]}`", words, f"`{ROLES[role][0]}`", *usual, notes or "-"))
    rows.append(("`V1`, `VMed1`", "window", "`WINDOW`", 1, 90, "-"))
    return table(("letters", "surface", "command", "kind", "tilt", "but"), rows)
