#include "tools/vocabulary/Stylers.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

constexpr Styler kStylers[] = {
    {"color", StylerKind::Color, "#3366cc",
     "A colour: # and two hexadecimal digits each for red, green and blue, and optionally for alpha"},
    {"visibility", StylerKind::Visibility, "off", "off hides; on brings back icons, never colours"},
    {"weight", StylerKind::Size, "3", "A thickness from 0 to 255, as a string of digits"},
    {"fontsize", StylerKind::Size, "12", "The size of the letters from 0 to 255, as a string of digits"},
};

std::vector<std::string> members() {
    std::vector<std::string> names;
    for (const Styler& styler : kStylers) names.emplace_back(styler.name);
    names.emplace_back(kLevelMember);
    return names;
}

}  // namespace

std::span<const Styler> stylers() {
    return kStylers;
}

const Styler* stylerNamed(std::string_view name) {
    const auto* const found = std::ranges::find(kStylers, name, &Styler::name);
    return found == std::end(kStylers) ? nullptr : found;
}

bool isOfKind(std::string_view name, StylerKind kind) {
    const Styler* const styler = stylerNamed(name);
    return styler != nullptr && styler->kind == kind;
}

std::span<const std::string> stylerMembers() {
    static const std::vector<std::string> names = members();
    return names;
}

std::span<const std::string> stylerNames() {
    return stylerMembers().first(std::size(kStylers));
}

}  // namespace customstyle_tool
