#include "tests/properties/Words.h"

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

namespace customstyle_test::properties {
namespace {

constexpr std::size_t kOthers = 18;

std::size_t classOf(const std::string& number) {
    const int level = std::stoi(number);
    return level < 4 || level > 21 ? kOthers : static_cast<std::size_t>(level - 4);
}

void addRange(std::set<std::size_t>& levels, const std::string& range) {
    const std::size_t dash = range.find('-');
    const std::size_t first = range == "other" ? kOthers : classOf(range.substr(0, dash));
    const std::size_t last = dash == std::string::npos ? first : classOf(range.substr(dash + 1));
    for (std::size_t level = first; level <= last; ++level) levels.insert(level);
}

}  // namespace

std::string Words::textAfter(const std::string& before, const std::string& after) const {
    const std::size_t begin = m_text.find(before);
    const std::size_t end = begin == std::string::npos ? begin : m_text.find(after, begin + before.size());
    return end == std::string::npos ? "" : m_text.substr(begin + before.size(), end - begin - before.size());
}

std::vector<std::string> Words::namesAfter(const std::string& before, const std::string& after) const {
    std::vector<std::string> names;
    std::istringstream list(textAfter(before, after));
    for (std::string name; std::getline(list >> std::ws, name, ',');) names.push_back(name);
    return names;
}

std::vector<std::string> Words::quoted() const {
    static const std::regex quotes("\"([^\"]*)\"");
    std::vector<std::string> texts;
    for (std::sregex_iterator each(m_text.begin(), m_text.end(), quotes), end; each != end; ++each) {
        texts.push_back((*each)[1]);
    }
    return texts;
}

std::set<std::size_t> Words::levelsAfter(const std::string& before) const {
    static const std::regex phrase(R"(^(all levels|levels? ((\d+(-\d+)?|other)(, (\d+(-\d+)?|other))*)))");
    std::set<std::size_t> levels;
    const std::size_t begin = m_text.find(before);
    const std::string rest = begin == std::string::npos ? "" : m_text.substr(begin + before.size());
    std::smatch match;
    if (!std::regex_search(rest, match, phrase)) return levels;
    std::istringstream list(match[2].matched ? match[2].str() : "4-21, other");
    for (std::string range; std::getline(list >> std::ws, range, ',');) addRange(levels, range);
    return levels;
}

std::uint64_t Words::numberAfter(const std::string& before) const {
    const std::size_t begin = m_text.find(before);
    return begin == std::string::npos ? 0 : std::strtoull(m_text.c_str() + begin + before.size(), nullptr, 10);
}

std::uint64_t Words::numberBefore(const std::string& after) const {
    const std::string text = m_text.substr(0, m_text.find(after));
    return std::strtoull(text.substr(text.find_last_of(' ') + 1).c_str(), nullptr, 10);
}

std::optional<std::uint64_t> Words::color() const {
    static const std::regex color("#(..)(..)(..) alpha (..)");
    std::optional<std::uint64_t> packed;
    for (std::sregex_iterator each(m_text.begin(), m_text.end(), color), end; each != end; ++each) {
        packed = 0;
        for (std::size_t i = 0; i < 4; ++i) *packed |= std::stoull((*each)[i + 1], nullptr, 16) << 8 * i;
    }
    return packed;
}

}  // namespace customstyle_test::properties
