"""Random valid typologies of each family: every number and name that a typology file may hold."""

from dataclasses import dataclass

from plan import SIZES
from reader import read
from typology import CONSTRUCTIONS

LEAST = 0.3  # m, that is kept between the parts of a plan, so that its walls are walls


@dataclass(frozen=True)
class Family:
    types: tuple
    sizes: callable  # of a random generator; None when the draw makes no building
    courtyard: tuple = (False,) * 4  # whether it has windows to the south, east, north, west


def draw(rng, low, high):
    """Between two limits, without them; one in four close to one of them."""
    margin = (high - low) * 1e-3
    ends = (low + margin, high - margin)
    if rng.random() < 0.25:
        ends = rng.choice(((ends[0], low + 20 * margin), (high - 20 * margin, ends[1])))
    return inside(rng, rng.uniform(*ends), low, high)


def area(rng, low, high):
    """Small buildings as often as large ones."""
    return inside(rng, low * (high / low) ** rng.uniform(0.001, 0.999), low, high)


def inside(rng, value, low, high):
    """With few decimals, and so far from the limits that a 32-bit real does not touch them."""
    gap = min(1e-3, (high - low) / 10)
    for decimals in (rng.choice((1, 2, 3)), 3, 5):
        if low + gap < round(value, decimals) < high - gap:
            return round(value, decimals)
    return min(max(value, low + gap), high - gap)


def house(rng):
    A = area(rng, 30, 1000)
    return {"A": A, "L": draw(rng, 3, A / 3)}


def row(rng):
    A = area(rng, 126, 4000)
    if not A - 120 > 6:
        return None
    L, Ae = draw(rng, 14, A / 3), draw(rng, 6, A - 120)
    le = Ae * L / A
    fits = L > 14 and 6 < Ae < A - 120 and min(le, (L - le) / 4) > LEAST
    return {"A": A, "L": L, "Ae": Ae} if fits else None


def hole(rng, A, least):
    """Area and depth of a courtyard or stair."""
    size = draw(rng, 4, min(A - 120, max(A / 4, 5))) if A > 124.5 else 0.0
    if size <= 4:
        return None
    depth = draw(rng, least, size / least)
    return (size, depth) if least < depth < size / least else None


def central(rng, low, with_courtyard):
    A = area(rng, low, 4000)
    found = hole(rng, A, 2)
    if not found:
        return None
    L = draw(rng, 6, A / 6)
    size, depth = found
    D = (A + size) / L if with_courtyard else A / L
    if not (6 < L < A / 6) or min(D - depth, L - size / depth) <= LEAST:
        return None
    names = ("Ap", "Pp") if with_courtyard else ("Ae", "Pe")
    return {"A": A, "L": L, **dict(zip(names, found))}


def stair_and_courtyards(rng, in_front):
    A = area(rng, 124, 4000)
    court, stair = hole(rng, A, 2), hole(rng, A, 2)
    if not court or not stair:
        return None
    L = draw(rng, 6, A / 6)
    (Ap, Pp), (Ae, Pe) = court, stair
    D, lp = (A + Ap) / L, Ap / Pp / 2
    dE, dPE = (D - Pe) / 2, (L - Ae / Pe) / 2
    room = (dE - Pp, L - lp, dPE) if in_front else (dE, D - Pp, L / 2 - lp, dPE - lp)
    if not (6 < L < A / 6) or min(room) <= LEAST:
        return None
    return {"A": A, "L": L, "Ap": Ap, "Pp": Pp, "Ae": Ae, "Pe": Pe}


def wings(rng):
    A = area(rng, 125, 4000)
    found = hole(rng, A, 3)
    if not found or A < 126 or found[0] <= 6:
        return None
    (Ae, Pe), L = found, draw(rng, 9, A / 9)
    le = Ae / Pe
    a = (L - le) / 2
    if a <= 2:
        return None
    b = (A - Ae) / 4 / a
    xp = le / Pe * b
    d = (A - Ae) / 4 / xp
    c, e = L - a - xp, d + Pe - b
    fits = 9 < L < A / 9 and min(le, a, b, xp, c, d, e) > 2.01
    return {"A": A, "L": L, "Ae": Ae, "Pe": Pe} if fits else None


ALL_ROUND = (True,) * 4
FAMILIES = {  # by the folder of the sample that serves it
    "casa-una-planta": Family((1,), house),
    "casa-adosada": Family(tuple(range(2, 10)), house),
    "bloque-hilera": Family((10, 11, 12), row, (True, False, True, False)),
    "bloque-patio": Family((13, 16, 19), lambda rng: central(rng, 124, True),
                           ALL_ROUND),
    "bloque-escalera-patios": Family(
        (14, 17, 20), lambda rng: stair_and_courtyards(rng, True), ALL_ROUND),
    "bloque-escalera-patios-laterales": Family(
        (15, 18, 21), lambda rng: stair_and_courtyards(rng, False), ALL_ROUND),
    "bloque-xpala": Family((22,), wings),
    "bloque-escalera-central": Family((23,), lambda rng: central(rng, 120, False)),
}
FRAME = (("FRAME-WIDTH", 0.05, 0.2), ("FRAME-CONDUCT", 1, 6), ("FRAME-ABS", 0.1, 0.9))
SHADE = (("SETBACK", 0, 0.4), ("OVERHANG-W", 1, 4), ("OVERHANG-D", 0, 1.5))
PLACE = (("LATITUDE", 28, 44), ("LONGITUDE", -15, 4), ("ALTITUDE", 0, 1500))


def storeys(rng, number):
    return 1 if number == 1 else 2 if number < 10 else rng.randint(3, 6)


def typology_file(rng, family, number, template, flawless=False):
    """The text of a typology file of that number, with names of the template. `flawless`: names
    nothing that is not there, and has no glazing that cannot be built."""
    glazing = possible_percentages if flawless else percentages
    names, sizes = read(template), None
    while sizes is None:
        sizes = family.sizes(rng)
    rows = [("TIPO", number), ("NUMERO-PLANTAS", storeys(rng, number))]
    rows += [(SIZES[name], format(size, ".9g")) for name, size in sizes.items()]
    rows.append(("PORCENTAJE-FACHADA", glazing(rng)))
    # Different ones, so that one taken for another shows.
    constructions = rng.sample([c.name for c in names.of("CONSTRUCTION")], len(CONSTRUCTIONS))
    rows += [(key, written(rng, name)) for key, name in zip(CONSTRUCTIONS, constructions)]
    rows.append(("VENTANA-VIDRIO", written(rng, rng.choice([
        glass.name for glass in names.of("GLASS-TYPE")]))))
    optional = [("ALTURA-PLANTA", round(rng.uniform(2.2, 4.5), 2)),
                ("PORCENTAJE-PATIO", glazing(rng, family.courtyard)),
                ("ORIENTACION", round(rng.uniform(-180, 360), rng.choice((0, 1, 3)))),
                ("AIR-CHANGES/HR", rng.choice((0, 1, round(rng.uniform(0.1, 4), 2)))),
                ("CUBIERTA", "PLANA"), ("ATICO", "NO"), ("SOTANO", "NO")]
    rows += [row for row in optional if rng.random() < 0.7]
    parts = []
    for key, kind, keywords in (("VENTANA-MARCO", "NAME-FRAME", FRAME),
                                ("VENTANA-SOMBRA", "VENTANA-SOMBRA", SHADE)):
        if rng.random() < 0.6:
            name, command = part(rng, kind, keywords)
            rows.append((key, name))
            # Named but not there: no fault.
            parts += command if flawless or rng.random() < 0.9 else []
    if rng.random() < 0.6:
        parts += numbers(rng, '"Lugar"', "SOLAR-POSITION", PLACE)
    rng.shuffle(rows)
    assign = rng.choice(("   {} = {}", "\t{}\t=\t{}", "  {} =   {}"))
    main = ['"Al azar" = VIVIENDA', *(assign.format(*row) for row in rows), "   ..", ""]
    return "\n".join(["$ Al azar", "", *(parts + main if rng.random() < 0.4 else main + parts)])


def percentages(rng, _sides=None):
    """From none to more than fits."""
    one = (lambda: 0, lambda: 100, lambda: round(rng.uniform(5, 60), rng.choice((0, 1, 3))),
           lambda: round(rng.uniform(5, 60), 1), lambda: round(rng.uniform(0.5, 200), 2))
    return "( " + ", ".join(format(rng.choice(one)(), "g") for _ in range(4)) + " )"


def possible_percentages(rng, sides=(True,) * 4):
    one = (lambda: 0, lambda: 100, lambda: round(rng.uniform(5, 60), rng.choice((0, 1, 3))))
    values = (rng.choice(one)() if side else 0 for side in sides)
    return "( " + ", ".join(format(value, "g") for value in values) + " )"


def written(rng, name):
    """A name without blanks may go without its quotes."""
    return name if " " in name or rng.random() < 0.5 else name.strip('"')


def part(rng, kind, keywords):
    """A frame or shade and how the dwelling names it: as the command, or by its long name. These
    keep their quotes, which are how the command is found."""
    name = f'"{kind.capitalize()} {rng.randint(1, 99)}"'
    command = numbers(rng, name, kind, keywords)
    if rng.random() < 0.3:
        long_name = f'"De nombre largo, {kind.lower()}"'
        command.insert(1, f"   LONG-NAME = {long_name}")
        return long_name, command
    return name, command


def numbers(rng, name, kind, keywords):
    lines = [f"   {key} = {rng.uniform(low, high):.2f}" for key, low, high in keywords]
    return [f"{name} = {kind}", *lines, "   ..", ""]
