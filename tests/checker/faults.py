"""What the checker has to say."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Fault:
    kind: str  # one word: what sort of thing is wrong
    place: str  # the command or the side of the building where it is
    text: str

    def __str__(self):
        """Texts are held byte for byte; people read them as the Windows-1252 that they are."""
        line = f"{self.kind}: {self.place}: {self.text}"
        return line.encode("latin-1", "replace").decode("cp1252", "replace")
