"""Materials, constructions, glass, frames and schedules that every template carries.

Plausible values for ordinary Spanish dwellings, none of them taken from a catalogue.
"""

from .text import command, listed, number, quoted

# name: conductivity W/(m K), density kg/m3, specific heat J/(kg K), vapour factor
MATERIALS = {
    "Ladrillo_perforado": (0.60, 1150, 1000, 10),
    "Ladrillo_hueco": (0.44, 1000, 1000, 10),
    "Mortero_cemento": (1.00, 1900, 1000, 10),
    "Enlucido_yeso": (0.40, 900, 1000, 6),
    "Placa_yeso_laminado": (0.25, 825, 1000, 4),
    "Lana_mineral": (0.036, 40, 1000, 1),
    "Poliestireno_expandido": (0.037, 20, 1450, 40),
    "Poliestireno_extruido": (0.034, 35, 1450, 100),
    "Hormigón_armado": (2.30, 2400, 1000, 80),
    "Hormigón_de_áridos_ligeros": (0.33, 900, 1000, 8),
    "Forjado_cerámico": (0.94, 1110, 1000, 10),
    "Lámina_impermeable": (0.23, 1100, 1000, 50000),
    "Baldosa_cerámica": (1.30, 2300, 840, 30),
    "Tarima_de_madera": (0.18, 600, 1600, 20),
    "Grava": (2.00, 1700, 1000, 50),
}

# name: resistance m2 K/W
AIR_GAPS = {"Cámara_de_aire_vertical": 0.18, "Cámara_de_aire_ventilada": 0.09}

OUTSIDE_FILMS = {"wall": 0.17, "roof": 0.14, "ground": 0.17, "inside": 0.26}  # m2 K/W, both faces

# name: (films, absorptance, layers from outside to inside with their thickness in m)
CONSTRUCTIONS = {
    "Muro_Fachada_Aislado": ("wall", 0.60, (
        ("Ladrillo_perforado", 0.115), ("Mortero_cemento", 0.015), ("Lana_mineral", 0.060),
        ("Ladrillo_hueco", 0.070), ("Enlucido_yeso", 0.015))),
    "Muro_Fachada_Antiguo": ("wall", 0.70, (
        ("Ladrillo_perforado", 0.115), ("Cámara_de_aire_vertical", 0), ("Ladrillo_hueco", 0.040),
        ("Enlucido_yeso", 0.015))),
    "Fachada ventilada de cerámica": ("wall", 0.40, (
        ("Baldosa_cerámica", 0.020), ("Cámara_de_aire_ventilada", 0), ("Lana_mineral", 0.100),
        ("Ladrillo_perforado", 0.115), ("Enlucido_yeso", 0.015))),
    "Medianera_Ladrillo": ("wall", 0.60, (
        ("Ladrillo_hueco", 0.070), ("Lana_mineral", 0.040), ("Ladrillo_hueco", 0.070),
        ("Enlucido_yeso", 0.015))),
    "Partición_Cerámica": ("inside", 0.60, (
        ("Enlucido_yeso", 0.015), ("Ladrillo_hueco", 0.070), ("Enlucido_yeso", 0.015))),
    "Partición_Acústica": ("inside", 0.60, (
        ("Placa_yeso_laminado", 0.026), ("Lana_mineral", 0.050), ("Ladrillo_perforado", 0.115),
        ("Enlucido_yeso", 0.015))),
    "Solera_Aislada": ("ground", 0.60, (
        ("Grava", 0.150), ("Hormigón_armado", 0.150), ("Poliestireno_extruido", 0.060),
        ("Mortero_cemento", 0.050), ("Baldosa_cerámica", 0.010))),
    "Solera_Antigua": ("ground", 0.60, (
        ("Grava", 0.150), ("Hormigón_armado", 0.100), ("Mortero_cemento", 0.040),
        ("Baldosa_cerámica", 0.020))),
    "Forjado_Entre_Plantas": ("inside", 0.60, (
        ("Enlucido_yeso", 0.015), ("Forjado_cerámico", 0.250), ("Poliestireno_expandido", 0.020),
        ("Mortero_cemento", 0.040), ("Baldosa_cerámica", 0.010))),
    "Forjado_Con_Tarima": ("inside", 0.60, (
        ("Enlucido_yeso", 0.015), ("Forjado_cerámico", 0.250), ("Lana_mineral", 0.020),
        ("Tarima_de_madera", 0.015))),
    "Cubierta_Plana_Aislada": ("roof", 0.60, (
        ("Grava", 0.050), ("Poliestireno_extruido", 0.100), ("Lámina_impermeable", 0.005),
        ("Hormigón_de_áridos_ligeros", 0.080), ("Forjado_cerámico", 0.250),
        ("Enlucido_yeso", 0.015))),
    "Cubierta_Plana_Antigua": ("roof", 0.75, (
        ("Baldosa_cerámica", 0.020), ("Mortero_cemento", 0.040), ("Lámina_impermeable", 0.005),
        ("Hormigón_de_áridos_ligeros", 0.080), ("Forjado_cerámico", 0.250),
        ("Enlucido_yeso", 0.015))),
}

# name: conductance W/(m2 K), solar factor
GLASS = {
    "Vidrio_Simple_6": (5.70, 0.85),
    "Vidrio_Doble_4-12-4": (2.80, 0.76),
    "Vidrio_Bajo_Emisivo_4-16-4": (1.30, 0.60),
    "Vidrio de control solar 6-16-6": (1.10, 0.35),
}

# name: width m, conductance W/(m2 K), absorptance
FRAMES = {
    "Carpintería_de_aluminio": (0.08, 4.00, 0.70),
    "Carpintería_de_madera": (0.10, 2.00, 0.55),
}

GLASS_OF_TEMPLATE = "Vidrio_Doble_4-12-4"
FRAME_OF_TEMPLATE = "Carpintería_de_aluminio"

# name: (kind, the hours' values, the last one lasting until midnight)
DAYS = {
    "HD_Ocupación_laborable": ("FRACTION", [1, 1, 1, 1, 1, 1, 1, 0.25, 0.25, 0.25, 0.25, 0.25,
                                            0.25, 0.25, 0.25, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5,
                                            0.5, 1]),
    "HD_Ocupación_festivo": ("FRACTION", [1]),
    "HD_Equipos": ("FRACTION", [0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.3, 0.3, 0.3, 0.3, 0.3, 0.3,
                                0.3, 0.3, 0.3, 0.3, 0.3, 0.5, 1, 1, 1, 1, 0.5]),
    "HD_Consigna_calefacción": ("TEMPERATURE", [17, 17, 17, 17, 17, 17, 17, 20]),
    "HD_Consigna_refrigeración": ("TEMPERATURE", [27, 27, 27, 27, 27, 27, 27, 30, 30, 30, 30, 30,
                                                  30, 30, 30, 25, 25, 25, 25, 25, 25, 25, 25,
                                                  27]),
    "HD_Persianas_verano": ("FRACTION", [0.5]),
    "HD_Persianas_invierno": ("FRACTION", [1]),
    "HD_Ventilación_diaria": ("FRACTION", [1]),
    # Four air changes from midnight to eight; the rest of the day the dwelling's own rate.
    "HD_Ventilación_noche_verano": ("FRACTION", [4, 4, 4, 4, 4, 4, 4, 4, 1]),
}

# name: the days of a week (Monday to Friday, Saturday, Sunday)
WEEKS = {
    "HS_Ocupación": ("HD_Ocupación_laborable", "HD_Ocupación_festivo", "HD_Ocupación_festivo"),
    "HS_Equipos": ("HD_Equipos",) * 3,
    "HS_Consigna_calefacción": ("HD_Consigna_calefacción",) * 3,
    "HS_Consigna_refrigeración": ("HD_Consigna_refrigeración",) * 3,
    "HS_Persianas_verano": ("HD_Persianas_verano",) * 3,
    "HS_Persianas_invierno": ("HD_Persianas_invierno",) * 3,
    "HS_Ventilación_invierno": ("HD_Ventilación_diaria",) * 3,
    "HS_Ventilación_verano": ("HD_Ventilación_noche_verano",) * 3,
}

ALL_YEAR = ((12, 31),)
BY_SEASON = ((5, 31), (9, 30), (12, 31))  # month and day in which each week's turn ends

# name: (turns, weeks)
YEARS = {
    "HA_Ocupación": (ALL_YEAR, ("HS_Ocupación",)),
    "HA_Equipos": (ALL_YEAR, ("HS_Equipos",)),
    "HA_Consigna_calefacción": (ALL_YEAR, ("HS_Consigna_calefacción",)),
    "HA_Consigna_refrigeración": (ALL_YEAR, ("HS_Consigna_refrigeración",)),
    "HA_Persianas": (BY_SEASON, ("HS_Persianas_invierno", "HS_Persianas_verano",
                                 "HS_Persianas_invierno")),
    "HA_Ventilación": (BY_SEASON, ("HS_Ventilación_invierno", "HS_Ventilación_verano",
                                   "HS_Ventilación_invierno")),
}


def transmittance(construction):
    """W/(m2 K), films included."""
    films, _, layers = CONSTRUCTIONS[construction]
    resistance = OUTSIDE_FILMS[films]
    for material, thickness in layers:
        resistance += AIR_GAPS.get(material) or thickness / MATERIALS[material][0]
    return 1 / resistance


def window_transmittance(glass, frame):
    """Glass over 80 % of the opening, frame over the rest."""
    return 0.8 * GLASS[glass][0] + 0.2 * FRAMES[frame][1]


def materials():
    out = []
    for name, (conductivity, density, heat, vapour) in MATERIALS.items():
        out += command(name, "MATERIAL", [
            ("TYPE", "PROPERTIES"), ("CONDUCTIVITY", number(conductivity, 3)),
            ("DENSITY", str(density)), ("SPECIFIC-HEAT", str(heat)),
            ("VAPOUR-DIFFUSIVITY-FACTOR", str(vapour))])
    for name, resistance in AIR_GAPS.items():
        out += command(name, "MATERIAL", [
            ("TYPE", "RESISTANCE"), ("RESISTANCE", number(resistance, 3))])
    return out


def constructions():
    out = []
    for name, (_, absorptance, layers) in CONSTRUCTIONS.items():
        pile = "Capas " + name
        out += command(pile, "LAYERS", [
            ("MATERIAL", listed(quoted(material) for material, _ in layers)),
            ("THICKNESS", listed(number(thickness, 3) for _, thickness in layers))])
        out += command(name, "CONSTRUCTION", [
            ("TYPE", "LAYERS"), ("LAYERS", quoted(pile)), ("ABSORPTANCE", number(absorptance, 2)),
            ("U-VALUE", number(transmittance(name), 3))])
    return out


def glass_and_frames():
    out = []
    for name, (conductance, factor) in GLASS.items():
        out += command(name, "GLASS-TYPE", [
            ("TYPE", "SHADING-COEF"), ("GLASS-CONDUCTANCE", number(conductance, 2)),
            ("SHADING-COEF", number(factor / 0.87, 3)), ("SOLAR-FACTOR", number(factor, 2))])
    for name, (width, conductance, absorptance) in FRAMES.items():
        out += command(name, "NAME-FRAME", [
            ("FRAME-WIDTH", number(width, 2)), ("FRAME-CONDUCT", number(conductance, 2)),
            ("FRAME-ABS", number(absorptance, 2))])
    return out


def schedules():
    out = []
    for name, (kind, values) in DAYS.items():
        out += command(name, "DAY-SCHEDULE", [
            ("TYPE", kind), ("VALUES", listed(format(value, "g") for value in values))])
    for name, days in WEEKS.items():
        out += command(name, "WEEK-SCHEDULE", [
            ("DAYS", "( MON-FRI, SAT, SUN )"), ("DAY-SCHEDULES", listed(map(quoted, days)))])
    for name, (turns, weeks) in YEARS.items():
        out += command(name, "YEAR-SCHEDULE", [
            ("MONTH", listed(str(month) for month, _ in turns)),
            ("DAY", listed(str(day) for _, day in turns)),
            ("WEEK-SCHEDULES", listed(map(quoted, weeks)))])
    return out
