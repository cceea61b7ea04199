"""What can be planted: changes of one line or of a few, made from the text alone."""
import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Fault:
    path: str
    function: str
    line: int
    old: str  # one line or several
    new: str
    kind: str

    def planted(self, source):
        lines = source.split("\n")
        lines[self.line:self.line + self.old.count("\n") + 1] = [self.new]
        return "\n".join(lines)

    def key(self):
        """How the list of equivalents knows it: not by its file, nor by what stands around it."""
        return self.function, shown_lines("-", self.old), shown_lines("+", self.new)

    def shown(self):
        return (f"{self.path}:{self.line + 1}: {self.kind} in {self.function}\n"
                f"{shown_lines('-', self.old)}\n{shown_lines('+', self.new)}")


def shown_lines(sign, text):
    return "\n".join(f"    {sign} {line.strip()}" for line in text.split("\n"))


# ---- What can be planted on a line -----------------------------------------------------------------------------------

LITERAL = re.compile(r'"(?:[^"\\]|\\.)*"')
TURNED = {"==": "!=", "!=": "==", "<=": "<", ">=": ">", "&&": "||", "||": "&&"}
DROPPED = re.compile(r"^\s*(?!return\b|using\b|const\b|constexpr\b|static\b|auto\b|\}|case\b|break\b|friend\b)"
                     r"(?!.*\b(?:const|auto)\b[^(]*=)[A-Za-z_*+(][^{}]*;\s*$")
DECLARED = re.compile(r"^\s*(?!return )(?:[\w:<>*&]+ )+[*&]?\w+\(")


def off_by_one(code):
    for match in re.finditer(r"(?<![\w.#'])(\d+)(?=[uUlL]*\b)(?!['.\dxX])", code):
        yield match.start(1), match.end(1), str(int(match.group(1)) + 1), "constant off by one"


def turned_condition(code):
    for match in re.finditer(r"==|!=|<=|>=|&&|\|\||(?<= )[<>](?= )", code):
        yield match.start(), match.end(), TURNED.get(match.group(), match.group() + "="), "condition turned"
    for match in re.finditer(r"\b(?:if|while) \((?!const |auto )", code):
        yield match.end(), len(code.rstrip()), f"!({inside(code, match.end())}){rest(code, match.end())}", "condition turned"
    for match in re.finditer(r"(?<![\w)\]])!(?=[\w(])", code):
        yield match.start(), match.end(), "", "condition turned"


def inside(code, begin):
    return code[begin:closing(code, begin)]


def rest(code, begin):
    return code[closing(code, begin):].rstrip()


def closing(code, begin):
    depth = 0
    for place in range(begin, len(code)):
        depth += (code[place] in "([{") - (code[place] in ")]}")
        if depth < 0:
            return place
    return len(code)


def dropped_statement(code):
    if code.count("(") != code.count(")") or DECLARED.match(code):
        return
    if DROPPED.match(code) and not re.match(r"^\s*\w[\w:<>*& ]* [\w\[\]]+(?: = [^;]*)?;\s*(//.*)?$", code):
        yield len(code) - len(code.lstrip()), len(code.rstrip()), ";", "statement dropped"
    if re.match(r"^\s*if \(.*\) (?:return|continue)\b.*;\s*$", code):
        yield len(code) - len(code.lstrip()), len(code.rstrip()), ";", "statement dropped"
    match = re.match(r"^(\s*)(m_\w+|record\.\w+|\*?\w+(?:\.\w+)?) [+|&]?= [^;]*;$", code)
    if match:
        yield len(match.group(1)), len(code), ";", "statement dropped"


def swapped_arguments(code):
    argument = r"([\w.:\[\]*]+)"
    for match in re.finditer(r"(?<=[({ ])" + argument + r", *" + argument + r"(?=[,)}])", code):
        if match.group(1) != match.group(2):
            yield match.start(1), match.end(2), f"{match.group(2)}, {match.group(1)}", "arguments swapped"


def nulled_pointer(code):
    for match in re.finditer(r"(?<![\w.>])[\w.]+\.get\(\)(?! *(?:->|\.|\[|\+))", code):
        yield match.start(), match.end(), "nullptr", "null pointer"


def altered_message(line):
    for match in LITERAL.finditer(line[:comment_begin(line)]):
        letters = [place for place in range(match.start() + 1, match.end() - 1) if line[place].isalpha()]
        if letters:
            place = letters[len(letters) // 2]
            yield place, place + 1, "x" if line[place] != "x" else "y", "text altered"


def without_literals(line):
    return LITERAL.sub(lambda match: '"' + " " * (len(match.group()) - 2) + '"', line)


def comment_begin(line):
    begin = without_literals(line).find("//")
    return len(line) if begin < 0 else begin


def without_texts(line):
    """The line with blanks for what stands in literals and comments, so that places stay the same."""
    return without_literals(line)[:comment_begin(line)].ljust(len(line))


def faults_of_line(line):
    code = without_texts(line)
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "template", "namespace", "/*", "*")):
        return
    for plant in (off_by_one, turned_condition, dropped_statement, swapped_arguments, nulled_pointer):
        for begin, end, text, kind in plant(code):
            yield begin, end, merged(line, code, begin, end, text), kind
    yield from altered_message(line)


def merged(line, code, begin, end, text):
    """Puts the literals of a replaced stretch back into its replacement."""
    for literal, blank in zip(LITERAL.findall(line[begin:end]), LITERAL.findall(code[begin:end])):
        text = text.replace(blank, literal, 1)
    return text


# ---- What can be planted over several lines, or by a name ------------------------------------------------------------

STATEMENT = re.compile(r"^( +)(?!return\b|using\b|const\b|constexpr\b|static\b|auto\b|case\b|break\b|continue\b|friend\b|"
                       r"else\b|for\b|while\b|default\b|public\b|private\b)[A-Za-z_*:][^{}]*;\s*$")
ROW = re.compile(r'^(\s*\{u?"[^"]+", *)(.*)$')
HEAD = re.compile(r"^(?:\[\[[^]]*\]\] )?(?! *(?:if|for|while|switch|return)\b)(?:[\w:]| {1,4}[\w:<>,&*]+ +(?=\w)).*\w\(")
# Names that are easily taken for each other.
CONFUSED = [("m_fillColor", "m_borderColor"), ("m_fillColorSet", "m_borderColorSet"), ("m_fillWeight", "m_borderWeight"),
            ("m_textFillColor", "m_textStrokeColor"), ("m_textFillColorSet", "m_textStrokeColorSet"),
            ("m_textFillWeight", "m_textStrokeWeight"), ("m_topSurfaceColor", "m_fillColor"),
            ("m_fontSizeSet", "m_textFillWeightSet"), ("m_iconHidden", "m_custom"), ("m_gridColorSet", "m_allIconsHidden"),
            ("m_styleEffectLevels", "m_keyStyleMaps"), ("m_typeStyleMaps", "m_levelStyleMaps"),
            ("ofType", "ofLevel"), ("storedKey", "queriedKey"), ("effectiveRecord", "customizedRecord"),
            ("SetTypeColor", "SetFontColorStyle"), ("SetTypeWeight", "SetFontWeightStyle"),
            ("kGeometryColors", "kTextColors"), ("kGeometryWeights", "kTextWeights"), ("kOwnGeometry", "kLabelTexts"),
            ("notOpened", "refused"), ("refused", "notJson"), ("kMappingFile", "kStyleFile"),
            ("IsStyleEffectAtGivenLevel", "IsStyleEffectAtAllLevel"), ("rbegin", "begin"), ("front", "back"),
            ("min", "max"), ("any_of", "all_of"), ("lower_bound", "upper_bound"), ("firstId", "lastId"),
            ("starts_with", "ends_with")]


def is_statement(line):
    code = without_texts(line)
    return bool(STATEMENT.match(code)) and code.count("(") == code.count(")") and not DECLARED.match(code) \
        and not re.match(r"^\s*[\w:<>*&]+ [*&]?\w+(?: = [^;]*)?;", code)


def swapped_statements(lines, at):
    if at + 1 < len(lines) and is_statement(lines[at]) and is_statement(lines[at + 1]) and \
            indent(lines[at]) == indent(lines[at + 1]):
        yield f"{lines[at]}\n{lines[at + 1]}", f"{lines[at + 1]}\n{lines[at]}", "statements swapped"


def early_return(lines, at):
    head = head_above(lines, at)
    code = without_texts(lines[at])
    begins = is_statement(lines[at]) or re.match(r"^ {4,}(?:if|for|while|return|const|auto)\b.*[;{]\s*$", code)
    if head is None or not begins or re.match(r" *return\b", code) or without_texts(lines[at - 1]).rstrip().endswith((",", "(", "&&", "||")):
        return
    answer = "return;" if re.match(r"^ *(?:\w+ )*void ", lines[head]) else "return {};"
    yield lines[at], f"{indent(lines[at])}{answer}\n{lines[at]}", "early return"


def next_row(lines, at):
    """The cells of the row below."""
    if at + 1 < len(lines):
        row, below = ROW.match(lines[at]), ROW.match(lines[at + 1])
        if row and below and row.group(2) != below.group(2):
            yield lines[at], row.group(1) + below.group(2), "cells of the next row"


def prefix_compared(lines, at):
    code = without_texts(lines[at])
    operand = r"[\w:.]+(?:\([^()]*(?:\([^()]*\)[^()]*)*\))?"
    for match in re.finditer(rf'({operand}) (==|!=) (?!\d|nullptr|-|EMAP|k[A-Z]|\'|[A-Z]\w+::)({operand}|"[^"]*")', code):
        begin, end = match.span()
        left = lines[at][match.start(1):match.end(1)]
        right = lines[at][match.start(3):match.end(3)]
        sign = "!" if match.group(2) == "!=" else ""
        yield lines[at], f"{lines[at][:begin]}{sign}{left}.starts_with({right}){lines[at][end:]}", "compared by prefix"


def confused_name(lines, at):
    code = without_texts(lines[at])
    for names in CONFUSED:
        for name, other in (names, names[::-1]):
            for match in re.finditer(rf"\b{name}\b", code):
                yield (lines[at], lines[at][:match.start()] + other + lines[at][match.end():], "another name")


def indent(line):
    return line[:len(line) - len(line.lstrip())]


def head_above(lines, at):
    """The line on which the head of the function around a line begins, or None."""
    if not lines[at].startswith(" "):
        return None
    for above in range(at - 1, -1, -1):
        line = lines[above]
        if line.startswith("}") or line.startswith("namespace"):
            return None
        if HEAD.match(without_texts(line)) and len(indent(line)) < len(indent(lines[at])) and not line.rstrip().endswith(";"):
            return above
    return None


def function_around(lines, at):
    head = head_above(lines, at)
    match = re.search(r"([\w:~]+|operator\S+)\(", lines[head]) if head is not None else None
    return match.group(1) if match else "the file"


def faults_of_place(lines, at):
    line = lines[at]
    for begin, end, text, kind in faults_of_line(line):
        yield line, line[:begin] + text + line[end:], kind
    if re.match(r"\s*(?:#|//|static_assert|template|namespace)", line):
        return
    for plant in (swapped_statements, early_return, next_row, prefix_compared, confused_name):
        yield from plant(lines, at)


def all_faults(root, areas, only=""):
    """What can be planted in the sources of some folders whose paths contain one of the given parts, file by file."""
    faults = []
    for path in sorted(path for area in areas for path in (root / area).rglob("*")):
        relative = str(path.relative_to(root))
        if path.suffix not in (".cpp", ".h") or not any(part in relative for part in only.split(",")):
            continue
        lines = path.read_text().split("\n")
        for number in range(len(lines)):
            faults += [Fault(relative, function_around(lines, number), number, old, new, kind)
                       for old, new, kind in faults_of_place(lines, number)]
    return list(dict.fromkeys(faults))
