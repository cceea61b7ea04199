#include "fuzz/support/RuleInput.h"

#include <string>

#include "tests/model_check/ModelTables.h"

namespace customstyle_fuzz {

using namespace customstyle_test::model;

namespace {

constexpr const char* kPrefixes[] = {"", "", "geometry.", "labels.", "labels.text.", "all.", "wall.", ".", "a.b."};
constexpr const char* kWords[] = {"all",        "labels", "geometry", "stroke", "fill",
                                  "topsurface", "icon",   "text",     "",       "Fill"};
constexpr const char* kNumbers[] = {"0", "7", "254", "255", "256", "00099", "1000000000000", "", "-1", "3px"};
constexpr const char* kLevels[] = {"4", "5", "12", "13", "20", "21", "3", "22", "x", ""};
constexpr const char* kColours[] = {"#112233", "#aabbccdd", "#00000000", "#FFFFFFFF", "#gg00zz1"};

// Half of the time a type that some table treats on its own, or one of two pairs of companions.
int featureType(FuzzInput& input) {
    constexpr int kFrequent[] = {0, 4, 45, 46, 53, 71, 72, 13, 28, 25, 26};
    return input.below(2) == 0 ? input.oneOf(kFrequent) : static_cast<int>(input.below(73));
}

Value text(const std::string& text) {
    return {text, "null"};
}

Rule ruleFrom(FuzzInput& input) {
    Rule rule;
    const auto type = static_cast<std::size_t>(featureType(input));
    const std::string prefix = input.oneOf(kPrefixes);
    rule.frame = {{"featureType", text(kNames[type])}, {"elementType", text(prefix + input.oneOf(kWords))}};
    const std::size_t stylers = input.byte();
    rule.stylers.emplace();
    if (stylers & 1) rule.stylers->emplace_back("color", text(input.oneOf(kColours)));
    if (stylers & 2) rule.stylers->emplace_back("visibility", text(stylers & 4 ? "on" : "off"));
    if (stylers & 8) rule.stylers->emplace_back("weight", text(input.oneOf(kNumbers)));
    if (stylers & 16) rule.stylers->emplace_back("fontsize", text(input.oneOf(kNumbers)));
    if (stylers & 32) rule.stylers->emplace_back("level", text(input.oneOf(kLevels)));
    if (stylers & 64) rule.stylers->emplace_back("color", text("#010203"));  // a repeated member, or a late one
    return rule;
}

using Apply = std::function<void(const Rule&)>;

void applyToLevels(int firstType, std::size_t types, const Apply& apply) {
    for (std::size_t i = 0; i < types; ++i) {
        for (int level = 4; level <= 21; ++level) {
            const auto type = (static_cast<std::size_t>(firstType) + i) % 73;
            apply({{{"featureType", text(kNames[type])}, {"elementType", text("fill")}},
                   Members{{"color", text("#040506")}, {"level", text(std::to_string(level))}}});
        }
    }
}

}  // namespace

std::vector<std::vector<int>> styleIdsFrom(FuzzInput& input) {
    std::vector<std::vector<int>> ids(72);
    for (auto& ofType : ids) {
        for (std::size_t count = input.below(4); count > 0; --count)
            ofType.push_back(static_cast<int>(input.below(24)) - 2);
    }
    return ids;
}

void rulesFrom(FuzzInput& input, Slots slots, const Apply& apply) {
    for (int rules = 0; rules < 200 && !input.isEmpty(); ++rules) {
        const std::size_t action = input.below(64);
        if (action == 63 && slots == Slots::MayRunOut && input.below(8) == 0) {
            const int first = featureType(input);
            applyToLevels(first, input.below(73), apply);
        }
        if (action < 63) apply(ruleFrom(input));
    }
}

std::string mappingText(const std::vector<std::vector<int>>& styleIds) {
    std::string json;
    for (std::size_t type = 0; type < styleIds.size(); ++type) {
        json += (type == 0 ? "{\"" : ",\"") + kNames[type] + "\":[";
        for (const int id : styleIds[type]) json += std::to_string(id) + ",";
        if (json.back() == ',') json.pop_back();
        json += "]";
    }
    return json + "}";
}

}  // namespace customstyle_fuzz
