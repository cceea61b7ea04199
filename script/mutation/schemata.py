"""All faults of a source in one text: which of them is planted is chosen when the program runs.

A fault within a statement gives a second form of the statement, beside the first:

    if (int planted_ = ::planted::among(17, 18); planted_ == 0) {
        the statement, with the faults of the statements in it
    } else {
        if (planted_ == 17) { the statement with fault 17 }
        if (planted_ == 18) { the statement with fault 18 }
    }

A fault in a declaration changes the block around it. Outside of functions there are no statements: cells of tables are
chosen there. What has no place, such as a type, needs a build of its own.
"""
import bisect
import re
from dataclasses import dataclass, field

from clang.cindex import CursorKind, Index, TypeKind

from tables import Declaration, changed_cells, value_begin

HEADER = "planted.h"
NAMESPACES = {CursorKind.NAMESPACE, CursorKind.TRANSLATION_UNIT}
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
        self.declarations = []  # outside of functions, with a value
        self.declared = {}  # {fault: the one of them in which it is}
        self.checks = []  # (begin, end) of what the compiler has to compute: assertions, and functions that it can call
        self.unchecked = False  # then it computes none of that
        unit = Index.create().parse(str(path), args=compiler_arguments)
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == str(path):
                self._collect(cursor, self.root)

    def _collect(self, cursor, around):
        children = list(cursor.get_children())
        if around is self.root:
            self._collect_declaration(cursor)
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

    def _collect_declaration(self, cursor):
        """Not a static member within its class: it needs its value there. Nor a variable in a header: somewhere the
        compiler has to know it."""
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        if cursor.kind in (CursorKind.STATIC_ASSERT, CursorKind.FUNCTION_DECL) and self._is_here(cursor):
            self.checks.append((begin, end))
        if cursor.kind == CursorKind.FIELD_DECL or \
                cursor.kind == CursorKind.VAR_DECL and cursor.lexical_parent.kind in NAMESPACES and \
                self.path.suffix == ".cpp":
            value = value_begin(self.text, begin, end)
            if value is not None and self._is_here(cursor):
                self.declarations.append(Declaration(cursor.spelling, begin, end, value, is_of_class(cursor)))

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
            return self._place_in_cells(fault, begin, end, replacement)
        changed = self.text[statement.begin:begin] + replacement + self.text[end:statement.end]
        statement.faults.append((fault, changed))
        return True

    def _place_in_cells(self, fault, begin, end, replacement):
        for declaration in self.declarations:
            if declaration.holds(begin, end):
                changed = self.text[declaration.value:begin] + replacement + self.text[end:declaration.end]
                cells = changed_cells(self.text, declaration.value, declaration.end, changed)
                # A lambda in a table has statements of its own.
                if not cells or any(first < inner.end and inner.begin < last
                                    for first, last, _ in cells for inner in self.root.inner):
                    return False
                for first, last, cell in cells:
                    declaration.cells.setdefault((first, last), []).append((fault, cell))
                self.declared[fault] = declaration
                return True
        return False

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
        if statement is self.root:
            for declaration in self.declarations:
                pieces += self._pieces_of(declaration)
            if self.unchecked:
                pieces += self._pieces_of_checks()
        text, at = "", statement.begin
        for begin, end, piece in sorted(pieces, key=lambda each: each[:2]):
            text += self.text[at:begin] + piece
            at = end
        return text + self.text[at:statement.end]

    def _pieces_of(self, declaration):
        """What is put into a declaration; its first line gets a mark, so that the compiler's messages about the whole
        of it can be told apart."""
        pieces, numbers = [], []
        for (begin, end), faults in declaration.cells.items():
            numbered = [(self.number_of(fault), changed) for fault, changed in faults if fault not in self.left_out]
            numbers += [number for number, _ in numbered]
            if numbered:
                chosen = "".join(planted(number, f"::planted::among({number}, {number}) ? ({changed}\n) : ")
                                 for number, changed in numbered)
                pieces.append((begin, end, f"({chosen}({self._sound_from(begin)}{self.text[begin:end]}\n))"
                                           f"{self._sound_from(end)}"))
        if numbers:
            early = "[[gnu::init_priority(200)]]" if declaration.is_early else ""
            pieces.append((declaration.begin, declaration.begin, planted(f"all-{numbers[0]}", early)))
            constant = re.compile(r"[^={]*?\bconstexpr\b").match(self.text, declaration.begin, declaration.value)
            if constant:
                pieces.append((constant.end() - len("constexpr"), constant.end(), "const"))
        return pieces

    def _pieces_of_checks(self):
        """Assertions become nothing; functions that use what has choices are no longer constexpr."""
        names = "|".join(declaration.name for declaration in self.declarations if declaration.cells)
        for begin, end in self.checks:
            if self.text.startswith("static_assert", begin):
                yield begin, end, "static_assert(true)"
            elif self.text.startswith("constexpr ", begin) and re.search(rf"\b(?:{names})\b", self.text[begin:end]):
                yield begin, begin + len("constexpr"), "inline"


def is_of_class(cursor):
    """Whether a variable outside of classes is an object, or an array of objects."""
    kind = cursor.type.get_canonical()
    while kind.kind in (TypeKind.CONSTANTARRAY, TypeKind.INCOMPLETEARRAY):
        kind = kind.element_type.get_canonical()
    return cursor.kind == CursorKind.VAR_DECL and kind.kind == TypeKind.RECORD


def planted(number, text):
    return f'\n#line 1 "planted-{number}"\n{text}\n'
