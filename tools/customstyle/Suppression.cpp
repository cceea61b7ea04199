#include "tools/customstyle/Suppression.h"

#include <fmt/format.h>

#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

#include "tools/vocabulary/RemarkMembers.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMark = "customstyle-ignore:";
constexpr std::size_t kFingerprintDigits = 16;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// The words after the mark, up to one that no comma follows.
void addCodes(std::vector<Silencing>& silencings, std::size_t rule, std::size_t offset, std::string_view text) {
    for (bool more = true; more;) {
        while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
        const std::size_t end = std::min(text.find_first_of(", \t\n\r.;"), text.size());
        if (end > 0) silencings.push_back({rule, std::string(text.substr(0, end)), offset});
        more = end < text.size() && text[end] == ',';
        text.remove_prefix(std::min(text.size(), end + 1));
    }
}

}  // namespace

std::optional<std::size_t> Baseline::read(const std::string& text) {
    std::istringstream lines(text);
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t first = line.find(' ');
        const std::size_t second = first == std::string::npos ? first : line.find(' ', first + 1);
        if (first != kFingerprintDigits || second == std::string::npos) return number;
        ++m_counts[{line.substr(second + 1), line.substr(0, first)}];
    }
    return {};
}

// Relative to the folder of the baseline, so that it can move with its styles.
std::string Baseline::nameOf(const std::string& file) const {
    std::error_code error;
    const fs::path folder = fs::absolute(m_path, error).parent_path();
    const fs::path relative =
        fs::absolute(file, error).lexically_normal().lexically_relative(folder.lexically_normal());
    return error || relative.empty() ? file : relative.generic_string();
}

void Baseline::add(const std::string& file, const std::string& fingerprint, std::string_view code) {
    const Entry entry{nameOf(file), fingerprint};
    ++m_counts[entry];
    m_codes[entry] = code;
}

bool Baseline::takes(const std::string& file, const std::string& fingerprint) {
    const auto known = m_counts.find({nameOf(file), fingerprint});
    if (known == m_counts.end() || known->second == 0) return false;
    --known->second;
    return true;
}

std::string Baseline::text() const {
    std::string text = "# Findings that customstyle check does not report again: fingerprint, code, file.\n";
    for (const auto& [entry, count] : m_counts) {
        const auto& [file, fingerprint] = entry;
        for (std::size_t i = 0; i < count; ++i) {
            text += fmt::format("{} {} {}\n", fingerprint, m_codes.at(entry), file);
        }
    }
    return text;
}

std::vector<Silencing> silencingsIn(const StyleSource& style) {
    std::vector<Silencing> silencings;
    for (std::size_t rule = 0; rule < style.rules().size(); ++rule) {
        for (const JsonValue member : style.rules()[rule].children()) {
            if (!member.isMember() || member.kind() != JsonKind::String || !isRemark(member.name())) continue;
            const std::string text = member.text();
            const std::size_t mark = text.find(kMark);
            if (mark == std::string::npos) continue;
            addCodes(silencings, rule, member.range().begin, std::string_view(text).substr(mark + kMark.size()));
        }
    }
    return silencings;
}

}  // namespace customstyle_tool
