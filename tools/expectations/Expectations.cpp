#include "tools/expectations/Expectations.h"

#include <fmt/format.h>

#include <algorithm>
#include <variant>

#include "tools/json/LineIndex.h"
#include "tools/support/Numbers.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {
namespace {

constexpr std::string_view kBlanks = " \t\r";

struct Word {
    std::size_t offset;
    std::string_view text;
};

std::string typeHint(std::string_view word) {
    const auto meant = likelyFeatureType(word);
    return meant ? didYouMean(meant) : "; write a name like highway, or id and a number";
}

std::optional<int> featureTypeOf(std::string_view name) {
    const int type = catalogue().GetFeatureTypeId(std::string(name));
    if (type == -1 || type == _orvik_framework::EMAPCUSTOMSTYLE_ALL) return {};
    return type;
}

// "#rrggbb" and "#rrggbbaa"; packed, red is the lowest byte.
std::optional<std::uint64_t> colorIn(std::string_view text) {
    if (!text.starts_with('#') || (text.size() != 7 && text.size() != 9)) return {};
    std::uint64_t color = text.size() == 7 ? 0xFF000000 : 0;
    for (std::size_t at = 1; at < text.size(); at += 2) {
        const auto byte = numberIn<std::uint8_t>(text.substr(at, 2), 16);
        if (!byte) return {};
        color |= std::uint64_t{*byte} << (at - 1) / 2 * 8;
    }
    return color;
}

using ParsedLine = std::variant<Expectation, ExpectationProblem>;

// Reads the words of one line. Each function that reads a part of it returns whether that succeeded, and nothing is
// read after a problem.
class LineParser {
public:
    LineParser(std::vector<Word> words, const Mapping& mapping) : m_words(std::move(words)), m_mapping(mapping) {}

    ParsedLine parse() {
        m_result.offset = m_words.front().offset;
        const char* const first = m_words.front().text.data();
        m_result.text.assign(first, m_words.back().text.data() + m_words.back().text.size());
        const bool isGood = parseSubject() &&
                            parseNext("levels: all, or a list like 4-9,12", &LineParser::parseLevels) &&
                            parseNext("a field and its value, or none", &LineParser::parseWhat) && parseEnd();
        if (!isGood) return std::move(m_problem);
        return std::move(m_result);
    }

private:
    bool fail(const Word& word, std::string_view what) {
        m_problem = {word.offset, fmt::format("{}: {}", escapedText(inQuotes(word.text)), what)};
        return false;
    }

    bool parseNext(const char* what, bool (LineParser::*read)(const Word&)) {
        if (m_place < m_words.size()) return (this->*read)(m_words[m_place++]);
        m_problem = {m_words.back().offset + m_words.back().text.size(), fmt::format("missing {}", what)};
        return false;
    }

    bool parseEnd() {
        return m_place == m_words.size() ||
               fail(m_words[m_place], "nothing more is expected here; a comment starts with //");
    }

    bool parseSubject() {
        const Word& word = m_words[m_place++];
        if (word.text == "id") return parseNext("a style id", &LineParser::parseStyleId);
        m_result.featureType = featureTypeOf(word.text);
        return m_result.featureType || fail(word, "unknown feature type" + typeHint(word.text));
    }

    bool parseStyleId(const Word& word) {
        const auto styleId = numberIn<unsigned int>(word.text);
        m_result.styleId = styleId.value_or(0);
        return styleId || fail(word, "is not a style id; write a number from 0 to 4294967295");
    }

    bool parseLevels(const Word& word) {
        if (word.text == "all") m_result.levels.set();
        if (word.text == "all") return true;
        std::size_t offset = word.offset;
        for (const std::string& range : split(word.text, ',')) {
            if (!parseRange({offset, range})) return false;
            offset += range.size() + 1;
        }
        return true;
    }

    bool parseRange(const Word& word) {
        if (word.text == "other") {
            m_result.levels.set(kOtherLevels);
            return true;
        }
        const std::size_t dash = word.text.find('-');
        const auto first = numberIn<int>(word.text.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : numberIn<int>(word.text.substr(dash + 1));
        if (!first || !last || *first < kLowestLevel || *last > kHighestLevel || *first > *last) {
            return fail(word, "not a list of levels; write all, other, a level from 4 to 21, or a range like 4-9");
        }
        for (int level = *first; level <= *last; ++level) m_result.levels.set(classOfLevel(level));
        return true;
    }

    bool parseWhat(const Word& word) { return parseAspect(word) && (isBackground() || checkStyleIds()); }

    bool parseAspect(const Word& word) {
        if (word.text == "background") return parseBackground(word);
        if (word.text == "as-in") return parseNext("the path of a style", &LineParser::parseOtherStyle);
        if (word.text != "none" && word.text != "type") return parseField(word);
        m_result.aspect = Aspect::FeatureType;
        return word.text == "none" || parseNext("the feature type that answers", &LineParser::parseType);
    }

    // For a style id that the mapping does not list, only the icon can differ from what is expected: if every icon is
    // hidden.
    bool checkStyleIds() {
        if (m_result.featureType) {
            return !m_mapping.questionIdsOf(*m_result.featureType).empty() ||
                   fail(m_words.front(),
                        "the mapping lists no style id under this feature type, so nothing would be tested");
        }
        const bool isIcon = m_result.topic != nullptr && m_result.topic->topic == Topic::Icon;
        return isIcon || !m_mapping.typesOf(m_result.styleId).empty() ||
               fail(m_words[1], "the mapping does not list this style id, so nothing would be tested");
    }

    bool isBackground() const { return m_result.topic != nullptr && m_result.topic->isBackground(); }

    bool parseOtherStyle(const Word& word) {
        m_result.aspect = Aspect::AsIn;
        m_result.otherStyle = word.text;
        return true;
    }

    bool parseType(const Word& word) {
        const auto type = featureTypeOf(word.text);
        if (!type) return fail(word, "unknown feature type" + featureTypeHint(word.text));
        m_result.value = static_cast<std::uint64_t>(*type);
        return true;
    }

    bool parseBackground(const Word& word) {
        const bool isLand = m_result.featureType == _orvik_framework::EMAPCUSTOMSTYLE_LAND;
        const bool isGrid = m_result.featureType == _orvik_framework::EMAPCUSTOMSTYLE_GRID;
        if (!isLand && !isGrid) return fail(word, "only land and grid have one");
        m_result.topic = findTopic(isLand ? "land background" : "grid background");
        return parseNext("a colour or none", &LineParser::parseValue);
    }

    bool parseField(const Word& word) {
        m_result.topic = findTopic(word.text);
        if (m_result.topic == nullptr || isBackground()) {
            return fail(word, "unknown field" + didYouMean(nearestTopic(word.text)));
        }
        return m_result.topic->topic == Topic::Icon ? parseNext("hidden or shown", &LineParser::parseIcon)
                                                    : parseNext("a value or none", &LineParser::parseValue);
    }

    bool parseIcon(const Word& word) {
        m_result.value = word.text == "hidden" ? 1 : 0;
        return word.text == "hidden" || word.text == "shown" || fail(word, "an icon is hidden or shown");
    }

    bool parseValue(const Word& word) {
        if (word.text == "none") return true;
        return m_result.topic->isColor() ? parseColor(word) : parseSize(word);
    }

    bool parseColor(const Word& word) {
        m_result.value = colorIn(word.text);
        return m_result.value || fail(word, "is not a colour; write #rrggbb, #rrggbbaa or none");
    }

    bool parseSize(const Word& word) {
        m_result.value = numberIn<std::uint8_t>(word.text);
        return m_result.value || fail(word, "write a whole number from 0 to 255, or none");
    }

    std::vector<Word> m_words;
    const Mapping& m_mapping;
    std::size_t m_place = 0;
    Expectation m_result;
    ExpectationProblem m_problem{};
};

std::vector<Word> wordsOf(std::string_view line, std::size_t offset) {
    std::vector<Word> words;
    line = line.substr(0, line.find("//"));
    for (std::size_t begin = 0; (begin = line.find_first_not_of(kBlanks, begin)) != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(kBlanks, begin), line.size());
        words.push_back({offset + begin, line.substr(begin, end - begin)});
        begin = end;
    }
    if (!words.empty() && words.front().text.starts_with('#')) words.clear();
    return words;
}

}  // namespace

ExpectationFile parseExpectations(const SourceFile& file, const Mapping& mapping) {
    ExpectationFile result;
    const std::string_view text = file.text();
    for (std::size_t begin = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
         begin < text.size() && result.problems.size() < kMostProblems;) {
        const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
        auto words = wordsOf(text.substr(begin, end - begin), begin);
        begin = end + 1;
        if (words.empty()) continue;
        ParsedLine line = LineParser(std::move(words), mapping).parse();
        if (auto* const expectation = std::get_if<Expectation>(&line))
            result.expectations.push_back(std::move(*expectation));
        else
            result.problems.push_back(std::get<ExpectationProblem>(std::move(line)));
    }
    return result;
}

const char* expectationHelp() {
    return R"(An expectation is a line: a subject, levels, and what holds there.

  highway          12-15   fill        #ff0000
  id 1001          all     text-fill   #ff000080    // half transparent
  town             4,7-9   font-size   none
  restaurantlabel  4-21    icon        hidden
  land             all     background  #112233
  id 2504          10      none
  id 2503          other   type        education
  subway           all     as-in       day.json
  # a comment

Subject: a feature type (all style ids that the mapping lists under it), or id and a number.
Levels: all, or levels 4 to 21, ranges and "other" (all levels beyond), separated by commas without spaces.
What holds: fill, stroke, top-surface, text-fill, text-stroke with a colour #rrggbb or #rrggbbaa;
  fill-weight, stroke-weight, text-fill-weight, text-stroke-weight, font-size with a number 0 to 255;
  none instead of a value: this is not customised; none alone: there is no custom style at all;
  icon with hidden or shown; type with the feature type whose style is used;
  background with a colour or none, for land and grid;
  as-in with the path of another style: every answer is the same as there.)";
}

}  // namespace customstyle_tool
