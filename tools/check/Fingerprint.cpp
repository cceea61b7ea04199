#include "tools/check/Fingerprint.h"

#include <fmt/format.h>

#include <string_view>

#include "tools/support/Hash.h"

namespace customstyle_tool {
namespace {

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
