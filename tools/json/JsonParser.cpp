#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "tools/json/JsonDiagnosis.h"
#include "tools/json/JsonScalars.h"
#include "tools/json/JsonTree.h"
#include "tools/json/LineIndex.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kNestingLimit = 1000;
constexpr std::size_t kMostErrors = 100;
constexpr std::size_t kShortestTextWithByteOrderMark = 5;

using Index = std::uint32_t;  // the index of a node

struct Word {
    std::string_view text;
    JsonKind kind;
};

constexpr Word kWords[] = {{"null", JsonKind::Null}, {"false", JsonKind::False}, {"true", JsonKind::True}};

// Where the next value belongs. The name is empty in lists.
struct Slot {
    Index parent;
    Index position;
    TextRange name;
};

// Each read function starts at a byte that is not blank and ends after what it has read. It returns false when it
// cannot read, and the reason is in m_error.
class Parser {
public:
    explicit Parser(std::string_view text);

    std::variant<JsonDocument, JsonError> run();

    /// After an error, continues with the next element of the outermost list.
    JsonReading runToTheEnd();

private:
    bool readValue(const Slot& slot);
    bool readWord(const Slot& slot);
    bool readNumber(const Slot& slot);
    bool readText(const Slot& slot);
    bool readContainer(const Slot& slot, JsonKind kind);
    bool readElements(Index container, bool named, char closing);
    bool readElement(Index container, Index position, bool named);
    bool readMember(Slot slot);
    bool readComma(JsonFault trailing, char closing);
    bool readQuoted();

    Index add(const Slot& slot, JsonKind kind, TextRange range);
    bool addScalar(const Slot& slot, JsonKind kind, TextRange range);
    bool isAt(char byte) const { return m_at < m_text.size() && m_text[m_at] == byte; }
    void skipBlanks() { m_at = behindBlanks(m_text, m_at); }
    void skipByteOrderMark();
    StuckPlace place() const { return {m_text, m_text.size() < m_tree->text.size(), m_at, m_openBracket, m_lastToken}; }
    bool fail(const JsonError& error);
    bool goOn(Index container, std::size_t nodes, std::size_t next);
    bool isBeginOfElement(std::size_t at) const;

    bool m_isTolerant = false;
    std::vector<JsonError> m_errors;
    std::shared_ptr<JsonTree> m_tree;
    std::string_view m_text;  // ends before the first NUL
    std::size_t m_at = 0;
    std::size_t m_depth = 0;
    std::optional<std::size_t> m_openBracket;
    TextRange m_lastToken{};
    std::string m_decoded;  // its memory is reused
    JsonError m_error{};
};

Parser::Parser(std::string_view text) : m_tree(std::make_shared<JsonTree>()), m_text(text.substr(0, text.find('\0'))) {
    m_tree->text = text;
}

std::variant<JsonDocument, JsonError> Parser::run() {
    if (m_tree->text.size() > std::numeric_limits<std::uint32_t>::max()) return JsonError{JsonFault::TooLarge, 0};
    skipByteOrderMark();
    skipBlanks();
    if (!readValue({0, 0, {m_at, m_at}})) return m_error;
    return JsonDocument(std::move(m_tree));
}

JsonReading Parser::runToTheEnd() {
    m_isTolerant = true;
    auto result = run();
    if (const JsonError* error = std::get_if<JsonError>(&result)) m_errors.push_back(*error);
    JsonReading reading{{}, std::move(m_errors)};
    if (JsonDocument* document = std::get_if<JsonDocument>(&result)) reading.document = std::move(*document);
    return reading;
}

// Whether an object without a name before it starts here. The bracket of the outermost list is before it, so that the
// way back ends.
bool Parser::isBeginOfElement(std::size_t at) const {
    if (m_text[at] != '{') return false;
    while (isBlank(m_text[at - 1])) --at;
    return std::string_view("[,}").find(m_text[at - 1]) != std::string_view::npos;
}

// Forgets the element that cannot be read, and finds one that starts at `next` or after it.
bool Parser::goOn(Index container, std::size_t nodes, std::size_t next) {
    const bool isOutermost = container == 0 && m_tree->nodes.front().kind == JsonKind::Array;
    if (!m_isTolerant || !isOutermost || m_errors.size() >= kMostErrors) return false;
    m_errors.push_back(m_error);
    m_tree->nodes.erase(m_tree->nodes.begin() + static_cast<std::ptrdiff_t>(nodes), m_tree->nodes.end());
    m_depth = 1;
    m_openBracket = m_tree->nodes.front().begin;
    m_at = std::min(std::max(next, m_error.offset), m_text.size());
    while (m_at < m_text.size() && !isBeginOfElement(m_at)) ++m_at;
    return true;
}

void Parser::skipByteOrderMark() {
    if (m_text.size() >= kShortestTextWithByteOrderMark && m_text.starts_with(kByteOrderMark)) {
        m_at = kByteOrderMark.size();
    }
}

bool Parser::readValue(const Slot& slot) {
    const char first = m_at < m_text.size() ? m_text[m_at] : '\0';
    if (first == '"') return readText(slot);
    if (first == '[') return readContainer(slot, JsonKind::Array);
    if (first == '{') return readContainer(slot, JsonKind::Object);
    if (first == '-' || isDigit(first)) return readNumber(slot);
    return readWord(slot);
}

bool Parser::readWord(const Slot& slot) {
    for (const auto& [word, kind] : kWords) {
        if (m_text.substr(m_at).starts_with(word)) return addScalar(slot, kind, {m_at, m_at + word.size()});
    }
    return fail(whyNoValue(place()));
}

bool Parser::readNumber(const Slot& slot) {
    const std::size_t length = numberLength(m_text.substr(m_at));
    if (length == 0) return fail(whyNoValue(place()));
    return addScalar(slot, JsonKind::Number, {m_at, m_at + length});
}

bool Parser::readText(const Slot& slot) {
    const std::size_t begin = m_at;
    return readQuoted() && addScalar(slot, JsonKind::String, {begin, m_at});
}

bool Parser::readQuoted() {
    const std::size_t inside = m_at + 1;
    const std::size_t quote = closingQuote(m_text, inside);
    if (quote == std::string_view::npos) return fail(whyNoClosingQuote(place()));
    if (const auto error = decodeText(m_text.substr(inside, quote - inside), m_decoded)) {
        return fail({error->fault, inside + error->offset});
    }
    m_lastToken = {m_at, quote + 1};
    m_at = quote + 1;
    return true;
}

bool Parser::readContainer(const Slot& slot, JsonKind kind) {
    if (m_depth == kNestingLimit) return fail({JsonFault::TooDeep, m_at});
    const std::size_t begin = m_at;
    const std::optional<std::size_t> outerBracket = std::exchange(m_openBracket, begin);
    const Index container = add(slot, kind, {begin, begin});
    ++m_depth;
    if (!readElements(container, kind == JsonKind::Object, kind == JsonKind::Object ? '}' : ']')) return false;
    --m_depth;
    m_openBracket = outerBracket;
    m_lastToken = {begin, m_at};
    JsonNode& node = m_tree->nodes[container];
    node.end = static_cast<Index>(m_at);
    node.behind = static_cast<Index>(m_tree->nodes.size());
    return true;
}

bool Parser::readElements(Index container, bool named, char closing) {
    const JsonFault trailing = named ? JsonFault::TrailingCommaInObject : JsonFault::TrailingCommaInArray;
    ++m_at;
    skipBlanks();
    bool isFirst = true;
    for (Index position = 0; !isAt(closing); ++position) {
        const std::size_t nodes = m_tree->nodes.size();
        const bool hasComma = isFirst || readComma(trailing, closing);
        const std::size_t next = hasComma ? m_at + 1 : m_at;  // after the start of what cannot be read
        isFirst = !hasComma || !readElement(container, position, named);
        if (!isFirst) {
            skipBlanks();
            continue;
        }
        if (!goOn(container, nodes, next)) return false;
        if (m_at == m_text.size()) return true;
        --position;
    }
    ++m_at;
    return true;
}

bool Parser::readElement(Index container, Index position, bool named) {
    const Slot slot{container, position, {m_at, m_at}};
    return named ? readMember(slot) : readValue(slot);
}

bool Parser::readMember(Slot slot) {
    if (!isAt('"')) return fail(whyNoName(place()));
    if (!readQuoted()) return false;
    slot.name.end = m_at;
    skipBlanks();
    if (!isAt(':')) return fail(whyNoColon(place()));
    ++m_at;
    skipBlanks();
    return readValue(slot);
}

bool Parser::readComma(JsonFault trailing, char closing) {
    if (!isAt(',')) return fail(whyNoComma(place()));
    const std::size_t comma = m_at++;
    skipBlanks();
    return !isAt(closing) || fail({trailing, comma});
}

Index Parser::add(const Slot& slot, JsonKind kind, TextRange range) {
    const auto index = static_cast<Index>(m_tree->nodes.size());
    const auto offset = [](std::size_t byte) { return static_cast<std::uint32_t>(byte); };
    m_tree->nodes.push_back({.begin = offset(range.begin),
                             .end = offset(range.end),
                             .nameBegin = offset(slot.name.begin),
                             .nameEnd = offset(slot.name.end),
                             .parent = slot.parent,
                             .position = slot.position,
                             .behind = index + 1,
                             .kind = kind});
    return index;
}

bool Parser::addScalar(const Slot& slot, JsonKind kind, TextRange range) {
    add(slot, kind, range);
    m_lastToken = range;
    m_at = range.end;
    return true;
}

bool Parser::fail(const JsonError& error) {
    m_error = error;
    return false;
}

}  // namespace

std::variant<JsonDocument, JsonError> parseJson(std::string_view text) {
    return Parser(text).run();
}

JsonReading readJson(std::string_view text) {
    return Parser(text).runToTheEnd();
}

}  // namespace customstyle_tool
