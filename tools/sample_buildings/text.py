"""How the lines of a building description are written."""


def number(value, decimals):
    """Fixed decimals; a zero never carries a sign."""
    text = f"{value:.{decimals}f}"
    return text[1:] if float(text) == 0 and text.startswith("-") else text


def quoted(name):
    return f'"{name}"'


def listed(items):
    return "( " + ", ".join(items) + " )"


def comment(*lines):
    return ["$ " + line if line else "$" for line in lines]


def section(title):
    rule = "$ " + "*" * 68
    return ["", rule, "$ " + title, rule, ""]


def command(name, kind, keywords):
    """A command with its keyword lines, closed; `keywords` are pairs, texts ready to write."""
    return [f"{quoted(name)} = {kind}",
            *(f"   {key} = {value}" for key, value in keywords), "   ..", ""]


def encoded(lines):
    """The bytes of a file of the chain: Windows-1252, LF."""
    return "".join(line + "\n" for line in lines).encode("cp1252")
