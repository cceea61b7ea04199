#include "tools/build/Toml.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace customstyle_tool {
namespace {

constexpr std::size_t kDeepest = 1000;

// Follows brackets and dots without knowing what they mean. In a value it may count too many, never too few.
class DepthScan {
public:
    explicit DepthScan(std::string_view text) : m_text(text) {}

    /// Where it becomes too deep, if it does.
    std::optional<std::size_t> tooDeep() {
        while (m_at < m_text.size()) {
            if (skipsString() || skipsComment()) continue;
            take(m_text[m_at]);
            if (m_depth > kDeepest) return m_at;
            ++m_at;
        }
        return {};
    }

private:
    void take(char byte) {
        if (byte == '.') add(1);
        if (byte == '[' || byte == '{') {
            m_open.push_back(0);
            add(1);
        }
        if (byte == ']' || byte == '}') close();
        if (byte == ',' && !m_open.empty()) add(1 - m_open.back());  // the next element starts here
        if (byte == '\n' && m_open.empty()) m_depth = 0;
    }

    void add(std::ptrdiff_t levels) {
        if (!m_open.empty()) m_open.back() += levels;
        m_depth = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(m_depth) + levels);
    }

    void close() {
        if (m_open.empty()) return;
        add(-m_open.back());
        m_open.pop_back();
    }

    bool skipsComment() {
        if (m_text[m_at] != '#') return false;
        m_at = std::min(m_text.find('\n', m_at), m_text.size());
        return true;
    }

    bool skipsString() {
        const char quote = m_text[m_at];
        if (quote != '"' && quote != '\'') return false;
        const std::string triple(3, quote);
        const std::string_view end =
            m_text.substr(m_at).starts_with(triple) ? std::string_view(triple) : std::string_view(triple).substr(0, 1);
        m_at += end.size();
        while (m_at < m_text.size() && !m_text.substr(m_at).starts_with(end)) {
            if (end.size() == 1 && m_text[m_at] == '\n') return true;  // a fault that the parser reports
            m_at += quote == '"' && m_text[m_at] == '\\' ? 2 : 1;
        }
        m_at = std::min(m_at + end.size(), m_text.size());
        return true;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_depth = 0;
    std::vector<std::ptrdiff_t> m_open;  // by open bracket, the levels that it adds
};

// Turns the parser's description, where it was and what it found, into a message.
std::string problemOfToml(std::string_view description) {
    const std::size_t colon = description.find(": ");
    const std::string_view what = colon == std::string_view::npos ? description : description.substr(colon + 2);
    const bool isBareWord = what.find("determine value type") != std::string_view::npos;
    return fmt::format("is not TOML: {}{}", what, isBareWord ? "; strings need double quotes" : "");
}

}  // namespace

std::variant<toml::table, TomlProblem> readToml(const SourceFile& file) {
    if (const auto deep = DepthScan(file.text()).tooDeep()) {
        return TomlProblem{{*deep, *deep + 1}, "nested deeper than 1,000"};
    }
    try {
        return toml::parse(file.text(), file.path());
    } catch (const toml::parse_error& error) {
        return TomlProblem{rangeOf(file, error.source()), problemOfToml(error.description())};
    }
}

TextRange rangeOf(const SourceFile& file, const toml::source_region& region) {
    const auto offsetOf = [&](const toml::source_position& position) {
        return file.lines().offset(position.line, position.column);
    };
    const std::size_t begin = offsetOf(region.begin);
    return {begin, std::max(begin, region.end ? offsetOf(region.end) : begin)};
}

}  // namespace customstyle_tool
