"""The table file of a template: which surfaces the generation rewrites, and how they lie."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Surface:
    name: str  # with its quotes
    azimuth: float  # degrees clockwise from north, of the normal that points outside
    tilt: float  # degrees: 0 faces up, 90 is a wall, 180 faces down
    kind: int  # 1 and above are windows

    @property
    def is_window(self):
        return self.kind >= 1

    @property
    def is_inner(self):
        """Whether a window belongs to a courtyard and not to the street."""
        return "Med" in self.name


def read_table(text):
    """The surfaces in the order of the file: two title lines, the counts, two lines each."""
    lines = text.split("\n")
    surfaces, zones = map(int, lines[2].split())
    if len([line for line in lines if line.strip()]) != 3 + 2 * (surfaces + zones):
        raise ValueError(f"the table announces {surfaces} surfaces and {zones} zones,"
                         " but has another number of lines")
    found = []
    for name, data in zip(lines[3:3 + 2 * surfaces:2], lines[4:4 + 2 * surfaces:2]):
        columns = data.split()
        if len(columns) != 10:
            raise ValueError(f"the table gives {name} {len(columns)} numbers instead of 10")
        found.append(Surface(name.strip(), float(columns[5]), float(columns[6]), int(columns[7])))
    return found
