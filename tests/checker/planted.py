"""Faults planted into golden outputs: one thing altered, and what the checker must say of it."""

from dataclasses import dataclass

BLOCK, SHADED = "bloque-patio/tipo-13", "bloque-escalera-patios-laterales/tipo-15"
GLAZED, SMALL = "bloque-patio/tipo-13-acristalado", "casa-una-planta/tipo-01-pequena"
WINGS = "bloque-xpala/tipo-22"

WALL = '"P01_E01_Bajo_A_ME01"'
WINDOW = '"P01_E01_Bajo_A_ME01_V1"'
COURT = '"P01_E01_Bajo_A_MP05_VMed1"'
SPACES_B = ("P01_E02_Bajo_B", "P02_E02_Repetida_B", "P03_E02_Última_B")
SPACES_A = ("P01_E01_Bajo_A", "P02_E01_Repetida_A", "P03_E01_Última_A")
ALL = None  # for a search in the whole text


def latin(text):
    """As the files hold it."""
    return text.encode("cp1252").decode("latin-1")


def command(text, name):
    lines = text[text.index(latin(name) + " = "):].split("\n")
    end = next(n for n, line in enumerate(lines) if line.strip() == "..")
    return "\n".join(lines[:end + 1]) + "\n"


def put(name, old, new):
    """Replaces the first `old` of a command, which must have it."""
    def alter(text, template):
        del template
        whole = text if name is ALL else command(text, name)
        assert latin(old) in whole, f"nothing to alter: {old}"
        return text.replace(whole, whole.replace(latin(old), latin(new), 1), 1)
    return alter


def drop(name):
    def alter(text, template):
        del template
        return text.replace(command(text, name), "", 1)
    return alter


def twice(name):
    def alter(text, template):
        del template
        return text.replace(command(text, name), command(text, name) * 2, 1)
    return alter


def swap(first, second):
    def alter(text, template):
        del template
        a, b = command(text, first), command(text, second)
        return text.replace(a, "\0", 1).replace(b, a, 1).replace("\0", b, 1)
    return alter


def from_template(name, behind):
    """Puts a command of the template behind another one."""
    def alter(text, template):
        before = command(text, behind)
        return text.replace(before, before + command(template, name), 1)
    return alter


def header_again(name, kind, before):
    """Gives lines that have lost their header a header."""
    def alter(text, template):
        del template
        assert latin(before) in text, f"nothing to alter: {before}"
        return text.replace(latin(before), latin(f'{before}"{name}" = {kind}\n'), 1)
    return alter


def outline(name, *points):
    def alter(text, template):
        del template
        lines = [f"V{n} = ( {x:f} , {y:f} )" for n, (x, y) in enumerate(points, 1)]
        header = latin(f'"{name}" = POLYGON')
        return text.replace(command(text, f'"{name}"'), "\n".join([header, *lines, "..", ""]), 1)
    return alter


@dataclass(frozen=True)
class Plant:
    why: str
    sample: str
    alter: callable
    faults: tuple  # (kind, place) of every fault that must be reported, and no other


A_POINTS = ((0, 0), (22 / 6, 0), (22 / 3, 0), (11, 0), (11, 8.5), (8, 8.5), (8, 11), (0, 11),
            (0, 22 / 3), (0, 22 / 6))
# The courtyard's corner cut out of the wrong end of the dwelling: same box, same area.
MIRRORED = ((3, 0), (22 / 3, 0), (9, 0), (11, 0), (11, 11), (8, 11), (0, 11), (0, 4), (0, 2.5),
            (3, 2.5))

PLANTS = (
    Plant("a vertex beside its wall", BLOCK,
          put('"Polígono_A"', "V2 = ( 3.666667 , 0.0", "V2 = ( 3.666667 , 0.5"),
          (("outline", '"Polígono_A"'),)),
    Plant("a vertex moved along its facade", BLOCK,
          put('"Polígono_A"', "V2 = ( 3.66", "V2 = ( 3.96"),
          tuple(("wall", f'"{space}_ME0{n}"') for space in SPACES_A for n in (1, 2))),
    Plant("a vertex in the middle of a wing moved along its facade", WINGS,
          put('"Polígono_B"', "V2 = ( 22.3", "V2 = ( 22.1"),
          tuple(("wall", f'"{space}_ME02"') for space in SPACES_B)),
    Plant("a block deeper than its area allows", BLOCK,
          outline("Polígono_Bloque", (0, 0), (22, 0), (22, 22.5), (0, 22.5)),
          (("outline", '"Polígono_Bloque"'),)),
    Plant("a dwelling that reaches less far into the middle", BLOCK,
          put('"Polígono_A"', "V5 = ( 11.000000 , 8.5", "V5 = ( 11.000000 , 8.0"),
          (("outline", '"Polígono_A"'),)),
    Plant("a dwelling with a corner less", BLOCK,
          outline("Polígono_A", *A_POINTS[:4], (11, 8), (8, 8), *A_POINTS[6:]),
          (("outline", '"Polígono_A"'),)),
    Plant("a vertex that is no point", BLOCK, put('"Polígono_A"', "( 3.666667 ,", "( 3.6.6 ,"),
          (("outline", '"Polígono_A"'),)),
    Plant("a vertex beside a wall that another dwelling's space holds", BLOCK,
          put('"Polígono_D"', "V1 = ( 0.000000 , 11.0", "V1 = ( 0.500000 , 11.0"),
          (("outline", '"Polígono_D"'),)),
    Plant("a vertex left out", BLOCK, outline("Polígono_A", *A_POINTS[1:]),
          (("outline", '"Polígono_A"'),)),
    Plant("an outline that runs clockwise", BLOCK, outline("Polígono_A", *A_POINTS[::-1]),
          (("outline", '"Polígono_A"'),)),
    Plant("a vertex without its number", BLOCK, put('"Polígono_A"', "V3 = ", "V4 = "),
          (("name", '"Polígono_A"'), ("outline", '"Polígono_A"'))),
    Plant("a dwelling over the courtyard that leaves a gap at the corner", BLOCK,
          outline("Polígono_A", *MIRRORED),
          (("tiling", '"Polígono_A"'), ("tiling", '"Polígono_Bloque"'),
           ("tiling", '"Polígono_Patio"'), ("tiling", '"Polígono_Patio"'))),
    Plant("a wall that is not closed", BLOCK, put(WALL, "\n..", "\n"), (("closing", WALL),)),
    Plant("a window that is not closed", BLOCK, put(WINDOW, "\n..", "\n"), (("closing", WINDOW),)),
    Plant("the last command is not closed", BLOCK, put('"P03_E04_Última_D_CU01"', "\n..", "\n"),
          (("closing", '"P03_E04_Última_D_CU01"'),)),
    Plant("a wall that is closed twice", BLOCK, put(WALL, "\n..", "\n..\n.."),
          (("closing", "line 608"),)),
    Plant("lines without a header", BLOCK, put(ALL, f"{WALL} = EXTERIOR-WALL\n", ""),
          (("closing", "line 604"), ("copy", WALL), ("order", WINDOW))),
    Plant("lines without a header that are not closed", SHADED,
          put(ALL, "   TRANSMITTANCE = 0.00\n   ..\n\n\n", "   TRANSMITTANCE = 0.00\n\n\n"),
          (("closing", "line 364"), ("closing", '"Sombra002"'))),
    Plant("lines without a header at the end", BLOCK,
          put('"P03_E04_Última_D_CU01"', "\n..\n", "\n..\n   X = 0.0\n"),
          (("closing", "line 2447"),)),
    Plant("a line lost of a shade that the typology does without", SHADED,
          put(ALL, "   AZIMUTH = 270.0\n", ""),
          (("closing", "line 364"), ("closing", '"Sombra002"'))),
    Plant("the header of a shade that the typology does without", SHADED,
          header_again("Sombra002", "BUILDING-SHADE",
                       "$ Patio del oeste; la tipología da el lugar y el ancho\n"),
          (("closing", '"Sombra002"'),)),
    Plant("a command twice", BLOCK, twice('"Grava"'), (("name", '"Grava"'),)),
    Plant("a keyword twice", BLOCK, put(WINDOW, "  X = ", "  X = 0.687500 \n  X = "),
          (("name", WINDOW),)),
    Plant("a line of the template lost", BLOCK,
          put('"Parámetros_del_edificio"', "   TERRAIN = URBAN\n", ""),
          (("copy", '"Parámetros_del_edificio"'),)),
    Plant("a wall on an edge that the outline does not have", BLOCK,
          put(WALL, "EDGE-1", "EDGE-11"), (("copy", WALL), ("wall", WALL))),
    Plant("a slab as a ceiling", BLOCK, put('"P01_E01_Bajo_A_SU01"', "BOTTOM", "TOP"),
          (("copy", '"P01_E01_Bajo_A_SU01"'), ("wall", '"P01_E01_Bajo_A_SU01"'))),
    Plant("a wall beside a space that does not exist", BLOCK,
          put('"P01_E01_Bajo_A_PV04"', "E02_Bajo_B", "E09_Bajo_B"),
          tuple((kind, '"P01_E01_Bajo_A_PV04"') for kind in ("copy", "reference", "wall"))),
    Plant("a wall lost", BLOCK, drop('"P01_E01_Bajo_A_PV04"'),
          (("copy", '"P01_E01_Bajo_A_PV04"'),)),
    Plant("an inner wall that has become an outside one", BLOCK,
          put(ALL, 'Bajo_A_PV04" = INTERIOR-WALL', 'Bajo_A_PV04" = EXTERIOR-WALL'),
          (("copy", '"P01_E01_Bajo_A_PV04"'),)),
    Plant("a command of nobody's", BLOCK,
          put(ALL, f"{WALL} = ", f'"Nadie" = MATERIAL\n   ..\n{WALL} = '), (("copy", '"Nadie"'),)),
    Plant("a line that is no keyword", BLOCK, put(WALL, "   LOCATION", "LOCATION\n   LOCATION"),
          (("copy", WALL),)),
    Plant("two commands in another order", BLOCK, swap('"Grava"', '"Mortero_cemento"'),
          (("copy", '"Grava"'),)),
    Plant("an outline lost", BLOCK, drop('"Polígono_Patio"'),
          (("copy", '"Polígono_Patio"'), ("outline", "POLYGON"),
           *(("reference", f'"{floor}"') for floor in ("P01", "P02", "P03")))),
    Plant("a window before its wall", BLOCK, swap(WALL, WINDOW),
          (("copy", WINDOW), ("order", WINDOW))),
    Plant("walls outside of any space", SMALL, drop('"P01_E01_Salón_Dormitorios"'),
          (("copy", '"P01_E01_Salón_Dormitorios"'),
           ("reference", '"P01_E01_Salón_Dormitorios_TB01"'),
           *(("order", f'"P01_E01_Salón_Dormitorios_{name}"') for name in (
               "ME01", "ME01_V1", "ME02", "ME02_V1", "ME03", "ME04", "ME04_V1", "TB01", "SU01",
               "CU01")))),
    Plant("the wrong construction", BLOCK,
          put(WALL, '"Muro_Fachada_Aislado"', '"Medianera_Ladrillo"'), (("construction", WALL),)),
    Plant("no construction", BLOCK, put(WALL, '  CONSTRUCTION = "Muro_Fachada_Aislado" \n', ""),
          (("construction", WALL),)),
    Plant("the template's construction beside the typology's", BLOCK,
          put(WALL, "   LOCATION", '   CONSTRUCTION = "Medianera_Ladrillo"\n   LOCATION'),
          (("name", WALL),)),
    Plant("a construction that is not right after the header", BLOCK,
          put(WALL, '  CONSTRUCTION = "Muro_Fachada_Aislado" \n   LOCATION = EDGE-1\n',
              '   LOCATION = EDGE-1\n  CONSTRUCTION = "Muro_Fachada_Aislado" \n'),
          (("construction", WALL),)),
    Plant("a window a bay too wide", BLOCK, put(WINDOW, "WIDTH = 2.291667", "WIDTH = 5.958333"),
          (("window", WINDOW),)),
    Plant("a window beside the middle of its bay", BLOCK,
          put(WINDOW, "X = 0.687500", "X = 0.787500"), (("window", WINDOW),)),
    Plant("a window below the floor", BLOCK, put(WINDOW, "Y = 0.9", "Y = -0.9"),
          (("window", WINDOW),)),
    Plant("a width that is no number", BLOCK, put(WINDOW, "WIDTH = 2.291667", "WIDTH = nan"),
          (("window", WINDOW),)),
    Plant("a window without its width", BLOCK, put(WINDOW, "  WIDTH = 2.291667 \n", ""),
          (("window", WINDOW),)),
    Plant("too little glass", BLOCK,
          put(WINDOW, "X = 0.687500 \n  Y = 0.900000 \n  WIDTH = 2.291667",
              "X = 0.688000 \n  Y = 0.900000 \n  WIDTH = 2.290667"), (("glazing", WINDOW),)),
    Plant("the right glass in a higher window", BLOCK,
          put(WINDOW, "X = 0.687500 \n  Y = 0.900000 \n  WIDTH = 2.291667 \n  HEIGHT = 1.200000",
              "X = 1.145833 \n  Y = 0.500000 \n  WIDTH = 1.375000 \n  HEIGHT = 2.000000"),
          (("window", WINDOW),)),
    Plant("less glass than the whole bay where more is asked for", GLAZED,
          put('"P01_E03_Bajo_C_ME05_V1"', "Y = 0.000000 \n  WIDTH = 3.666667 \n  HEIGHT = 3.0",
              "Y = 0.050000 \n  WIDTH = 3.666667 \n  HEIGHT = 2.9"),
          (("glazing", '"P01_E03_Bajo_C_ME05_V1"'),)),
    Plant("another glass", BLOCK, put(WINDOW, "Vidrio_Doble_4-12-4", "Vidrio_Simple_6"),
          (("window", WINDOW),)),
    Plant("a window without its frame", BLOCK, put(WINDOW, '"Marco_PVC" = ', '$ '),
          (("window", WINDOW),)),
    Plant("the template's overhang", BLOCK, put(WINDOW, "  X = ", "   SETBACK = 0.20\n  X = "),
          (("window", WINDOW),)),
    Plant("a street window lost", BLOCK, drop(WINDOW), (("count", "south, street"),)),
    Plant("a courtyard window lost", BLOCK, drop(COURT), (("count", "north, courtyard"),)),
    Plant("a window on a side of 0 %", SMALL,
          from_template('"P01_E01_Salón_Dormitorios_ME03_V1"', '"P01_E01_Salón_Dormitorios_ME03"'),
          (("count", "north, street"),)),
    Plant("a storey height that is no number", BLOCK,
          put('"P01"', "SPACE-HEIGHT = 2.800000", "SPACE-HEIGHT = alta"), (("number", '"P01"'),)),
    Plant("another storey height", BLOCK, put('"P01"', "SPACE-HEIGHT = 2.8", "SPACE-HEIGHT = 3.0"),
          (("number", '"P01"'),)),
    Plant("a storey too many", BLOCK, put('"P02"', "MULTIPLIER = 2", "MULTIPLIER = 3"),
          (("number", "storeys"),)),
    Plant("a ground floor that repeats", BLOCK, put('"P01"', "MULTIPLIER = 1", "MULTIPLIER = 2"),
          (("number", '"P01"'),)),
    Plant("a space that repeats", BLOCK,
          put('"P02_E01_Repetida_A"', "MULTIPLIER = 1", "MULTIPLIER = 2"),
          (("number", '"P02_E01_Repetida_A"'),)),
    Plant("other air changes", BLOCK, put('"P01_E01_Bajo_A"', "HR = 0.63", "HR = 0.60"),
          (("number", '"P01_E01_Bajo_A"'),)),
    Plant("a building turned away", BLOCK, put(ALL, "AZIMUTH = 0.0", "AZIMUTH = 9.0"),
          (("number", '"Parámetros_del_edificio"'),)),
    Plant("another class of building", BLOCK, put(ALL, "TIPOLOGIA = 6", "TIPOLOGIA = 5"),
          (("number", '"Parámetros_del_edificio"'),)),
    Plant("no solar position", BLOCK, put(ALL, "\nSOLAR-POSITION ", "\n$ "),
          (("parameters", '"Parámetros_del_edificio"'),)),
    Plant("a shade in another place", SHADED, put('"Sombra001"', "Y = 7.5", "Y = 0.0"),
          (("number", '"Sombra001"'),)),
    Plant("a schedule as in the template", BLOCK,
          put(ALL, "VALUES = ( " + "6.349206, " * 8 + "1 )", "VALUES = ( " + "4, " * 8 + "1 )"),
          (("schedule", '"HD_Ventilación_noche_verano"'),)),
    Plant("a lost line of the typology", BLOCK, put(ALL, "\n   ATICO = NO", ""),
          (("typology", "end of the file"),)),
    Plant("no typology at all", BLOCK,
          lambda text, template: text[:text.index("$ Cuatro plantas de")],
          (("typology", "end of the file"),)),
)
