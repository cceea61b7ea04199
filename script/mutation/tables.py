"""Faults in variables and members outside of functions: in a table, a cell is chosen when the program runs.

    constexpr Row kRows[] = {{"land", 1}};
    const Row kRows[] = {{(::planted::among(7, 7) ? "lxnd" : "land"), (::planted::among(8, 8) ? 2 : 1)}};

The compiler no longer knows such a variable. Where it must know it, the faults need a build of their own.
"""
import re
from dataclasses import dataclass, field

TOKEN = re.compile(r'R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:[^"\\\n]|\\.)*"|\b\d[\w\'.]*|\'(?:[^\'\\\n]|\\.)+\'|//[^\n]*|/\*.*?\*/|.',
                   re.DOTALL)
BLANK = r"(?:\s|//[^\n]*\n|/\*.*?\*/)*"
BEFORE_VALUE = re.compile(rf"{BLANK}(?:\.\w+\s*=)?{BLANK}", re.DOTALL)


@dataclass
class Declaration:
    """A variable or a member with its value; places are bytes of the source."""
    name: str
    begin: int
    end: int
    value: int  # where that begins
    is_early: bool  # can be made before what other sources compute from it as the program starts
    cells: dict = field(default_factory=dict)  # (begin, end): [(fault, the cell with it)]

    def holds(self, begin, end):
        return self.value <= begin and end <= self.end

    def faults(self):
        return {fault for cell in self.cells.values() for fault, _ in cell}


def value_begin(text, begin, end):
    """Where the value of a variable begins: after the =, or at the brace."""
    depth = 0
    for match in TOKEN.finditer(text, begin, end):
        if match.group() in ("(", "["):
            depth += 1
        elif match.group() in (")", "]"):
            depth -= 1
        elif depth == 0 and match.group() in ("=", "{"):
            return match.end() if match.group() == "=" else match.start()
    return None


def changed_cells(text, begin, end, changed):
    """[(begin, end, the cell as it is in a changed text)], or None where the cells do not answer each other."""
    if text[begin:end] == changed:
        return []
    begin, skipped = BEFORE_VALUE.match(text, begin, end).end(), BEFORE_VALUE.match(changed).end()
    changed = changed[skipped:]
    if not text.startswith("{", begin) or not changed.startswith("{"):
        return [(begin, end, changed)]
    cells, others = cells_of(text, begin, end), cells_of(changed, 0, len(changed))
    if len(cells) != len(others):
        return None
    found = []
    for cell, (first, last) in zip(cells, others):
        below = changed_cells(text, *cell, changed[first:last])
        if below is None:
            return None
        found += below
    return found


def cells_of(text, begin, end):
    """[(begin, end)] of what stands between the commas of a list in braces."""
    depth, at, cells = 0, begin + 1, []
    for match in TOKEN.finditer(text, begin, end):
        depth += (match.group() in ("{", "(", "[")) - (match.group() in ("}", ")", "]"))
        if depth == 0 or depth == 1 and match.group() == ",":
            cells.append((at, match.start()))
            at = match.end()
        if depth == 0:
            break
    return cells
