"""All faults of a source in one text: which of them is planted is chosen when the program runs.

A fault within a statement gives a second form of the statement, beside the first:

    if (int planted_ = ::planted::among(17, 18); planted_ == 0) {
        the statement, with the faults of the statements in it
    } else {
        if (planted_ == 17) { the statement with fault 17 }
        if (planted_ == 18) { the statement with fault 18 }
    }

A fault in a declaration changes the block around it. What is outside of functions has no statements: such faults have no
place, and need a build of their own.
"""
import bisect
import re
from dataclasses import dataclass, field

from clang.cindex import CursorKind, Index

HEADER = "planted.h"
DECLARING = {CursorKind.DECL_STMT, CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT, CursorKind.NULL_STMT}


@dataclass
class Statement:
    """A statement, with its semicolon, or a block with its braces; places are bytes of the source."""
    begin: int
    end: int
    in_lambda: bool = False
    inner: list = field(default_factory=list)  # statements within this one
    faults: list = field(default_factory=list)  # (fault, the statement with it)
    returns: list = field(default_factory=list)  # (place of a statement in this block, fault, what is put before it)

    def holds(self, begin, end):
        return self.begin <= begin and end <= self.end


class Source:
    """A source as bytes, one character each, so that the compiler's places are those of the text."""

    def __init__(self, path, compiler_arguments):
        self.path = path
        self.text = path.read_bytes().decode("latin-1")
        self.line_begins = [0] + [match.end() for match in re.finditer("\n", self.text)]
        self.root = Statement(0, len(self.text))
        self.starts = {}  # where the statements of blocks begin, declarations too, with their block
        unit = Index.create().parse(str(path), args=compiler_arguments)
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == str(path):
                self._collect(cursor, self.root)

    def _collect(self, cursor, around):
        children = list(cursor.get_children())
        in_block = cursor.kind == CursorKind.COMPOUND_STMT
        labelled = cursor.kind in (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT)
        for child in children:
            owner = around
            is_block = child.kind == CursorKind.COMPOUND_STMT
            begin, end = child.extent.start.offset, child.extent.end.offset
            if in_block:
                self.starts[begin] = around
            if not is_block:
                end = self._with_semicolon(end)
            is_statement = in_block or labelled and child == children[-1]
            if (is_block or is_statement and child.kind not in DECLARING) and self._is_here(child) and \
                    begin < end and around.holds(begin, end):
                owner = Statement(begin, end, around.in_lambda or cursor.kind == CursorKind.LAMBDA_EXPR)
                around.inner.append(owner)
            self._collect(child, owner)

    def _is_here(self, cursor):
        file = cursor.extent.start.file
        return file is not None and file.name == str(self.path)

    def _with_semicolon(self, end):
        match = re.compile(r"\s*;").match(self.text, end)
        return match.end() if match else end

    def place(self, fault):
        """Puts a fault where it can be chosen at run time; False when there is no such place."""
        begin, end, replacement = self._change(fault)
        if fault.kind == "early return":
            statement = self.starts.get(begin)
            if statement is None:
                return False
            if not statement.in_lambda:
                statement.returns.append((begin, fault, replacement))
                return True
            # As the first of its returns it would decide what a lambda returns.
        else:
            statement = self._smallest(self.root, begin, end)
        if statement is self.root:
            return False
        changed = self.text[statement.begin:begin] + replacement + self.text[end:statement.end]
        statement.faults.append((fault, changed))
        return True

    def _change(self, fault):
        """The stretch of the source that a fault changes, without what stays the same around it."""
        first = self.line_begins[fault.line]
        old, new = (text.encode().decode("latin-1") for text in (fault.old, fault.new))
        if fault.kind == "early return":
            indent = len(old) - len(old.lstrip())
            return first + indent, first + indent, new[:len(new) - len(old)].strip()
        same = 0
        while same < min(len(old), len(new)) and old[same] == new[same]:
            same += 1
        after = 0
        while after < min(len(old), len(new)) - same and old[-1 - after] == new[-1 - after]:
            after += 1
        return first + same, first + len(old) - after, new[same:len(new) - after]

    def _smallest(self, statement, begin, end):
        for inner in statement.inner:
            if inner.holds(begin, end):
                return self._smallest(inner, begin, end)
        return statement

    def write(self, number_of, left_out):
        """The source, as bytes, with its faults but for some. The numbers of a statement's faults must follow each other:
        number_of(fault) gives them in the order of its first calls, in which nothing is left out."""
        self.number_of, self.left_out = number_of, left_out
        return f'#include "{HEADER}"\n{self._sound_from(0)}{self._form(self.root)}'.encode("latin-1")

    def _sound_from(self, place):
        """Tells the compiler where what follows stands in the source without faults."""
        return f'\n#line {bisect.bisect(self.line_begins, place)} "{self.path}"\n'

    def _form(self, statement):
        sound = self._with_inner(statement)
        numbered = [(self.number_of(fault), changed) for fault, changed in statement.faults
                    if fault not in self.left_out]
        if not numbered:
            return sound
        first, last = numbered[0][0], numbered[-1][0]
        # The sound form is the first one, so that it decides what a lambda returns. The variable is not const: constants
        # are computed by the compiler where they can be.
        return (f"{{ if (int planted_ = ::planted::among({first}, {last}); planted_ == 0) {{"
                f"{self._sound_from(statement.begin)}{sound}\n}} else {{\n"
                + "".join(f"if (planted_ == {number}) {{{planted(number, changed)}}}\n" for number, changed in numbered)
                + f"}} }}{self._sound_from(statement.end)}")

    def _with_inner(self, statement):
        pieces = [(inner.begin, inner.end, self._form(inner)) for inner in statement.inner]
        for begin, fault, answer in statement.returns:
            if fault not in self.left_out:
                number = self.number_of(fault)
                pieces.append((begin, begin, f"if (::planted::among({number}, {number})) {{{planted(number, answer)}}}"
                                             f"{self._sound_from(begin)}"))
        text, at = "", statement.begin
        for begin, end, piece in sorted(pieces, key=lambda each: each[:2]):
            text += self.text[at:begin] + piece
            at = end
        return text + self.text[at:statement.end]


def planted(number, text):
    return f'\n#line 1 "planted-{number}"\n{text}\n'
