#include "tools/import/WantedLooks.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

std::string valueText(const RulePart& part, std::uint64_t value) {
    if (part.styler == "visibility") return "off";
    if (part.styler != "color") return std::to_string(value);
    const unsigned int alpha = alphaOf(value);
    return alpha == 0xff ? rgbText(value) : fmt::format("{}{:02x}", rgbText(value), alpha);
}

// The look that most levels have.
std::optional<DrawnLook> usualLook(const WantedLooks& looks) {
    std::map<DrawnLook, std::size_t> counts;
    for (const auto& look : looks.at) {
        if (look) ++counts[*look];
    }
    const auto usual = std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
    return usual == counts.end() ? std::nullopt : std::optional(usual->first);
}

class RuleWriter {
public:
    // A rule for each element that has a value.
    void write(int featureType, const DrawnLook& look, const std::string& level) {
        const auto parts = ruleParts();
        for (std::size_t first = 0; first < parts.size();) {
            std::size_t end = first;
            std::string stylers;
            for (; end < parts.size() && parts[end].element == parts[first].element; ++end) {
                if (look[end]) addMember(stylers, parts[end].styler, valueText(parts[end], *look[end]));
            }
            if (!stylers.empty()) addRule(featureType, parts[first].element, stylers, level);
            first = end;
        }
    }

    std::string text() const { return "[\n" + m_rules + (m_rules.empty() ? "]\n" : "\n]\n"); }

private:
    static void addMember(std::string& members, std::string_view name, const std::string& value) {
        members += fmt::format(R"({}"{}": "{}")", members.empty() ? "" : ", ", name, value);
    }

    void addRule(int featureType, std::string_view element, std::string stylers, const std::string& level) {
        if (!level.empty()) addMember(stylers, "level", level);
        m_rules +=
            fmt::format(R"({}  {{"featureType": "{}", "elementType": "{}", "stylers": {{{}}}}})",
                        m_rules.empty() ? "" : ",\n", catalogue().GetFeatureTypeName(featureType), element, stylers);
    }

    std::string m_rules;
};

}  // namespace

std::string rulesText(const WantedTypes& types) {
    RuleWriter writer;
    std::map<int, DrawnLook> usual;
    for (const auto& [featureType, looks] : types) {
        const auto& other = looks.at[kOtherLevels];
        if (const auto chosen = other ? other : usualLook(looks)) usual[featureType] = *chosen;
    }
    for (const auto& [featureType, looks] : types) {
        for (std::size_t levelClass = 0; levelClass < kOtherLevels; ++levelClass) {
            const auto& look = looks.at[levelClass];
            if (!look || *look == usual[featureType]) continue;
            writer.write(featureType, *look, std::to_string(levelOfClass(levelClass)));
        }
    }
    for (const auto& [featureType, look] : usual) writer.write(featureType, look, "");
    return writer.text();
}

}  // namespace customstyle_tool
