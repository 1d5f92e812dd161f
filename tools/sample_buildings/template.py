"""The template building description and its table file, written from a `Building`."""

from . import library
from .building import GROUND, ROLES, STOREY
from .text import command, comment, listed, number, quoted, section

HEIGHT = STOREY  # m, of the template; a typology brings its own
AIR_CHANGES = 0.60  # 1/h


def template(building):
    """In the order in which the generation walks it: what it draws anew comes first, and the
    schedules come after the building parameters, because only from there on their values are
    adapted to the air changes."""
    family = building.family
    out = header(building)
    out += section("Materiales") + library.materials()
    out += section("Capas y cerramientos") + library.constructions()
    out += section("Vidrios y marcos") + library.glass_and_frames()
    if family.shades:
        out += section("Muros vecinos que cierran los patios laterales") + shades()
    out += section("Contornos de la planta") + polygons(building)
    out += section("Parámetros del edificio") + parameters()
    out += section("Horarios") + library.schedules()
    out += section("Condiciones de los espacios") + conditions()
    for floor in building.floors:
        out += section(f"Planta {floor.name}: {floor.title}") + storey(building, floor)
    return out


def header(building):
    family, drawn = building.family, building.plan
    party = ["Los lados este y oeste son medianeras. Sus huecos sólo quedan cuando la",
             "tipología les da acristalamiento: extremos de hilera, pareadas y exentas."]
    types = ", ".join(map(str, family.types))
    return comment(
        "*" * 68,
        family.title,
        f"Plantilla para las tipologías {types}",
        "",
        f"Medidas de la plantilla: fachada principal de {number(drawn.length, 2)} m al sur,"
        f" fondo de {number(drawn.depth, 2)} m.",
        "Ejes: x a lo largo de la fachada principal, y hacia el fondo.",
        "Contornos en sentido contrario a las agujas del reloj; EDGE-n es el lado",
        "que va del vértice n al siguiente.",
        *(party if family.party_sides else []),
        "Edificio inventado como ejemplo.",
        "*" * 68)


def shades():
    # X, Y and WIDTH are written by the generation, so the template leaves them out.
    out = []
    for name, side, azimuth in (("Sombra001", "este", 90), ("Sombra002", "oeste", 270)):
        out += comment(f"Patio del {side}; la tipología da el lugar y el ancho")
        out += command(name, "BUILDING-SHADE", [
            ("Z", number(0, 2)), ("HEIGHT", number(6 * STOREY, 2)),
            ("AZIMUTH", number(azimuth, 1)), ("TILT", number(90, 1)),
            ("TRANSMITTANCE", number(0, 2))])
    return out


def polygons(building):
    out = []
    for name, outline in building.polygons:
        out += command(name, "POLYGON", [
            (f"V{k}", f"( {number(x, 3)}, {number(y, 3)} )")
            for k, (x, y) in enumerate(outline, 1)])
    return out


def parameters():
    # The generation adds AZIMUTH, TIPOLOGIA and the solar position after the header.
    return command("Parámetros_del_edificio", "BUILD-PARAMETERS", [
        ("BUILDING-USE", "DWELLING"), ("TERRAIN", "URBAN"), ("GROUND-REFLECTANCE", "0.20"),
        ("DEFAULT-FRAME", quoted(library.FRAME_OF_TEMPLATE)), ("SHADING-DETAIL", "YES")])


def conditions():
    habitable = [
        ("TYPE", "CONDITIONED"), ("PEOPLE-SCHEDULE", quoted("HA_Ocupación")),
        ("PEOPLE-HEAT-GAIN", "4.15"), ("EQUIPMENT-SCHEDULE", quoted("HA_Equipos")),
        ("EQUIPMENT-W/AREA", "4.40"), ("HEAT-TEMP-SCHEDULE", quoted("HA_Consigna_calefacción")),
        ("COOL-TEMP-SCHEDULE", quoted("HA_Consigna_refrigeración"))]
    return (command("Condiciones_Residencial", "SPACE-CONDITIONS", habitable)
            + command("Condiciones_No_Habitable", "SPACE-CONDITIONS", [("TYPE", "UNCONDITIONED")]))


def storey(building, floor):
    family = building.family
    out = []
    if floor.multiplier == "1.0":
        out += comment("El multiplicador se escribe 1.0 para distinguir la planta que se repite")
    keywords = [("POLYGON", quoted(family.block_name))]
    if family.core == "patio":
        keywords.append(("VOID-POLYGON", quoted(family.core_polygon)))
    if floor.below:
        keywords.append(("PREVIOUS", quoted(floor.below.name)))
    # MULTIPLIER stands last: the rewriting of a FLOOR may end with it.
    out += command(floor.name, "FLOOR", keywords + [
        ("FLOOR-HEIGHT", number(HEIGHT, 2)), ("SPACE-HEIGHT", number(HEIGHT, 2)),
        ("MULTIPLIER", floor.multiplier)])
    for space in floor.spaces:
        state = "Residencial" if space.habitable else "No_Habitable"
        out += command(space.name, "SPACE", [
            ("POLYGON", quoted(space.polygon)),
            ("SPACE-CONDITIONS", quoted(f"Condiciones_{state}")),
            ("HEIGHT", number(HEIGHT, 2)), ("MULTIPLIER", floor.multiplier),
            ("AIR-CHANGES/HR", number(AIR_CHANGES, 2)),
            ("AIR-CHANGE-SCHEDULE", quoted("HA_Ventilación"))])
        for surface in space.surfaces:
            out += surface_command(surface)
            if surface.window:
                out += window_command(surface.window)
    return out


def surface_command(surface):
    kind, _, construction = ROLES[surface.role]
    keywords = [("CONSTRUCTION", quoted(construction))]
    if surface.neighbour:
        keywords.append(("NEXT-TO", quoted(surface.neighbour.name)))
    if surface.place:
        keywords.append(("LOCATION", surface.place))
    else:
        keywords.append(("AREA", number(surface.gross, 2)))
    if surface.polygon:
        keywords.append(("POLYGON", quoted(surface.polygon)))
    if surface.role == "suelo":
        keywords.append(("GROUND-DEPTH", number(0, 2)))
    return command(surface.name, kind, keywords)


def window_command(window):
    frame = library.FRAMES[library.FRAME_OF_TEMPLATE]
    keywords = [
        ("GLASS-TYPE", quoted(library.GLASS_OF_TEMPLATE)), ("INF-COEF", "27.00"),
        ("X", number(window.x, 2)), ("Y", number(window.y, 2)),
        ("WIDTH", number(window.width, 2)), ("HEIGHT", number(window.height, 2)),
        ("SETBACK", "0.20"), ("FRAME-WIDTH", number(frame[0], 2)),
        ("FRAME-CONDUCT", number(frame[1], 2)), ("FRAME-ABS", number(frame[2], 2)),
        ("OVERHANG-A", "0.10"), ("OVERHANG-B", "0.15"),
        ("OVERHANG-W", number(window.width + 0.2, 2)),
        ("OVERHANG-D", "0.60" if window.side == 0 else "0.00"), ("OVERHANG-ANGLE", "90.00"),
        ("LEFT-FIN-A", "0.10"), ("LEFT-FIN-B", "0.10"),
        ("LEFT-FIN-H", number(window.height, 2)),
        ("LEFT-FIN-D", "0.30" if window.side in (1, 3) else "0.00"),
        ("RIGHT-FIN-A", "0.10"), ("RIGHT-FIN-B", "0.10"),
        ("RIGHT-FIN-H", number(window.height, 2)),
        ("RIGHT-FIN-D", "0.30" if window.side in (1, 3) else "0.00")]
    if window.side == 3 and window.wall.role != "patio":
        keywords += [("POSITION-LAMAS", "VERTICAL"), ("LAMAS-WIDTH", "0.08"),
                     ("LAMAS-DISTANCE", "0.08"), ("LAMAS-ANGLE", "45.00"),
                     ("LAMAS-TRANSMISIVITY", "0.00"), ("LAMAS-REFLECTIVITY", "0.50")]
    keywords += [("COEFF", listed(["1.00"] * 4)), ("SHADING-SCHEDULE", quoted("HA_Persianas"))]
    return command(window.name, "WINDOW", keywords)


def table(building):
    """Two title lines, the counts, then two lines a surface and two lines a zone.

    Surface columns: area without its window m2, perimeter m, U W/(m2 K), length m, height m,
    azimuth, tilt, kind, zone, zone on the other side. Zone columns: number, flag, area m2,
    inner gains W/m2.
    """
    rows = []
    for space in building.spaces():
        for surface in space.surfaces:
            rows.append((surface.name, surface_row(surface, space)))
            if surface.window:
                rows.append((surface.window.name, window_row(surface.window, space)))
    zones = [(space.name, f"{space.number} {int(space.habitable)} {number(space.area, 3)}"
                          f" {number(4.4 if space.habitable else 0, 2)}")
             for space in building.spaces()]
    out = [f"Superficies y zonas de {building.family.folder}: {building.family.title}",
           "Área, perímetro, U, largo, alto, azimut, inclinación, clase, zona y zona contigua",
           f"{len(rows)} {len(zones)}"]
    for name, data in rows + zones:
        out += [quoted(name), data]
    return out


def surface_row(surface, space):
    u = library.transmittance(ROLES[surface.role][2])
    beyond = GROUND if surface.role == "suelo" else 0
    if surface.neighbour:
        beyond = surface.neighbour.number
    return table_row(surface.net, surface.perimeter, u, surface.length, surface.height,
                     surface.azimuth, surface.tilt, surface.kind, space.number, beyond)


def window_row(window, space):
    u = library.window_transmittance(library.GLASS_OF_TEMPLATE, library.FRAME_OF_TEMPLATE)
    return table_row(window.width * window.height, 2 * (window.width + window.height), u,
                     window.width, window.height, window.wall.azimuth, 90, 1, space.number, 0)


def table_row(area, perimeter, u, length, height, azimuth, tilt, kind, zone, beyond):
    reals = " ".join(number(value, 3) for value in (
        area, perimeter, u, length, height, azimuth, tilt))
    return f"{reals} {kind} {zone} {beyond}"
