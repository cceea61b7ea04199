#include "tools/customstyle/UnifiedDiff.h"

#include <fmt/format.h>

#include <dtl/dtl.hpp>
#include <sstream>
#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr char kNoLineEnd[] = "\n\\ No newline at end of file";

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) lines.back() += kNoLineEnd;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

const char* colorOf(const std::string& line) {
    if (line.starts_with("@@")) return "\033[36m";
    if (line.starts_with('-')) return "\033[31m";
    return line.starts_with('+') ? "\033[32m" : nullptr;
}

std::string inColor(const std::string& text) {
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        const char* const color = colorOf(line);
        result += color == nullptr ? line + "\n" : fmt::format("{}{}\033[0m\n", color, line);
    }
    return result;
}

// A path as patch reads it: in quotes and escaped as in C where its characters could have an effect.
std::string headOf(const std::string& path) {
    if (escapedText(path) == path && path.find_first_of("\"\\") == std::string::npos) return path;
    std::string quoted;
    for (const char byte : path) {
        const auto value = static_cast<unsigned char>(byte);
        const bool isPlain = value >= ' ' && value <= '~' && byte != '"' && byte != '\\';
        quoted += isPlain ? std::string(1, byte) : fmt::format("\\{:03o}", value);
    }
    return fmt::format("\"{}\"", quoted);
}

}  // namespace

std::string unifiedDiff(const std::string& path, std::string_view before, std::string_view after, bool colored) {
    if (before == after) return {};
    dtl::Diff<std::string> diff(linesOf(before), linesOf(after));
    diff.onHuge();
    diff.compose();
    diff.composeUnifiedHunks();
    std::ostringstream hunks;
    diff.printUnifiedFormat(hunks);
    return fmt::format("--- {}\n+++ {}\n{}", headOf(path), headOf(path), colored ? inColor(hunks.str()) : hunks.str());
}

}  // namespace customstyle_tool
