#include "bench/support/MapFiles.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "bench/support/Random.h"
#include "customstyle/FeatureTypeTable.h"

namespace customstyle_bench {
namespace {

using namespace _orvik_framework;

constexpr int kMappedTypes = EMAPCUSTOMSTYLE_ALL;

const std::vector<std::string>& typeNames() {
    static const std::vector<std::string> names = [] {
        const CustomConfig catalogue;
        std::vector<std::string> all;
        for (int type = 0; type < kMappedTypes; ++type) all.push_back(catalogue.GetFeatureTypeName(type));
        return all;
    }();
    return names;
}

struct RuleShape {
    const char* element;
    const char* styler;
    const char* secondStyler;  // null for none
};

// What styles are made of; what is common stands here more than once.
constexpr RuleShape kRuleShapes[] = {
    {"geometry.fill", "color", nullptr},
    {"geometry.fill", "color", nullptr},
    {"geometry.fill", "color", "weight"},
    {"geometry.stroke", "color", nullptr},
    {"geometry.stroke", "color", "weight"},
    {"geometry", "color", nullptr},
    {"geometry.topsurface", "color", nullptr},
    {"all", "color", nullptr},
    {"labels.text.fill", "color", nullptr},
    {"labels.text.fill", "color", "fontsize"},
    {"labels.text.stroke", "color", nullptr},
    {"geometry.fill", "weight", nullptr},
    {"labels.text.fill", "weight", nullptr},
    {"labels", "fontsize", nullptr},
    {"all", "visibility", nullptr},
    {"labels", "visibility", nullptr},
    {"labels.icon", "visibility", nullptr},
};

// Twelve of the levels: all of them would give more style keys than a store has slots.
constexpr std::size_t kLowestRuleLevel = 9;
constexpr std::size_t kRuleLevels = 12;

std::string colorText(Random& random) {
    char text[16];
    const bool hasAlpha = random.below(8) == 0;
    std::snprintf(text, sizeof text, hasAlpha ? "#%08zx" : "#%06zx", random.below(hasAlpha ? 1ULL << 32 : 1ULL << 24));
    return text;
}

std::string valueText(const std::string& styler, Random& random) {
    if (styler == "color") return colorText(random);
    if (styler == "visibility") return random.below(4) == 0 ? "on" : "off";
    if (styler == "weight") return std::to_string(random.below(12));
    return std::to_string(10 + random.below(30));
}

std::string memberText(const std::string& name, const std::string& value) {
    return '"' + name + "\": \"" + value + '"';
}

std::string ruleText(Random& random) {
    const RuleShape& shape = kRuleShapes[random.below(std::size(kRuleShapes))];
    std::size_t type = random.below(typeNames().size());
    if (!kFeatureTypes[type].carriesLabels) type = EMAPCUSTOMSTYLE_HIGHWAY;
    std::string stylers = memberText(shape.styler, valueText(shape.styler, random));
    if (shape.secondStyler != nullptr) {
        stylers += ", " + memberText(shape.secondStyler, valueText(shape.secondStyler, random));
    }
    if (random.below(3) == 0) {
        stylers += ", " + memberText("level", std::to_string(kLowestRuleLevel + random.below(kRuleLevels)));
    }
    return "  {" + memberText("featureType", typeNames()[type]) + ", " + memberText("elementType", shape.element) +
           ", \"stylers\": {" + stylers + "}}";
}

std::string arrayText(const std::vector<unsigned int>& ids) {
    std::string text;
    for (const unsigned int id : ids) text += (text.empty() ? "[" : ", ") + std::to_string(id);
    return text + "]";
}

}  // namespace

Mapping::Mapping(std::size_t idCount) : m_idsOfTypes(kMappedTypes) {
    const std::size_t idsPerType = idCount / kMappedTypes;
    const std::size_t typesWithOneMore = idCount % kMappedTypes;
    m_blockSize = (idsPerType + idsPerType / 3) / 100 * 100 + 100;
    for (std::size_t type = 0; type < kMappedTypes; ++type) {
        const std::size_t size = idsPerType + (type < typesWithOneMore ? 1 : 0);
        for (std::size_t i = 1; i <= size; ++i) {
            m_idsOfTypes[type].push_back(static_cast<unsigned int>(type * m_blockSize + i));
        }
    }
    for (const EMAPCUSTOMSTYLE parentType : kParentFeatureTypes) {
        const auto parent = static_cast<std::size_t>(parentType);
        for (std::size_t other : {parent + 1, parent + 2}) {
            m_idsOfTypes[parent].push_back(m_idsOfTypes[other].front());
        }
    }
}

std::vector<unsigned int> Mapping::ids() const {
    std::set<unsigned int> all;
    for (const auto& ids : m_idsOfTypes) all.insert(ids.begin(), ids.end());
    return {all.begin(), all.end()};
}

std::vector<unsigned int> Mapping::unmappedIds() const {
    const std::vector<unsigned int> mapped = ids();
    std::vector<unsigned int> gaps;
    for (unsigned int id = 1; id < mapped.back(); ++id) {
        if (!std::ranges::binary_search(mapped, id)) gaps.push_back(id);
    }
    return gaps;
}

std::string Mapping::text() const {
    std::string text;
    for (std::size_t type = 0; type < kMappedTypes; ++type) {
        text += (text.empty() ? "{\n  \"" : ",\n  \"") + typeNames()[type] + "\": " + arrayText(m_idsOfTypes[type]);
    }
    return text + "\n}\n";
}

std::string styleText(std::size_t ruleCount) {
    Random random(ruleCount);
    std::string text = "[\n";
    for (std::size_t rule = 0; rule < ruleCount; ++rule) {
        text += ruleText(random);
        text += rule + 1 < ruleCount ? ",\n" : "\n";
    }
    return text + "]\n";
}

}  // namespace customstyle_bench
