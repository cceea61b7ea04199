#include "tools/check/Fingerprint.h"

#include <fmt/format.h>

#include <cstdint>
#include <string_view>

namespace customstyle_tool {
namespace {

// 64 bits of FNV-1a, as Fowler, Noll and Vo describe it.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

std::string withoutBlanks(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') result += c;
    }
    return result;
}

}  // namespace

std::string fingerprintOf(const Finding& finding, const StyleSource* style) {
    std::string text(infoOf(finding.code).name);
    text += '\n';
    text += style != nullptr && finding.rule ? withoutBlanks(style->rules()[*finding.rule].source()) : finding.message;
    return fmt::format("{:016x}", hashOf(text));
}

}  // namespace customstyle_tool
