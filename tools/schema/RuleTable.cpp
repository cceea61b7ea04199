#include "tools/schema/RuleTable.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/study/ComponentGuard.h"
#include "tools/study/Probe.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

// Prefixes for a path that does not name labels, and for one that does.
constexpr const char* kPlainPrefix = "geometry.";
constexpr const char* kLabelsPrefix = "labels.";

std::vector<StylerValue> stylerValues() {
    std::vector<StylerValue> values;
    for (const Styler& styler : stylers()) {
        const std::string name(styler.name);
        if (styler.kind == StylerKind::Visibility) values.push_back({name, "on"});
        // A colour with alpha shows whether a type ignores it.
        values.push_back({name, styler.kind == StylerKind::Color ? "#12345678" : std::string(styler.example)});
    }
    return values;
}

StylerColumn columnOf(const std::string& type, const StylerValue& styler) {
    StylerColumn column{styler, {}};
    for (const char* word : elementWords()) {
        for (const bool namesLabels : {false, true}) {
            const std::string path = std::string(namesLabels ? kLabelsPrefix : kPlainPrefix) + word;
            if (worksAlone(type, path, styler.name, styler.value)) column.elements.push_back({word, namesLabels});
        }
    }
    return column;
}

TypeGroup groupOf(int featureType) {
    TypeGroup group;
    group.names.push_back(catalogue().GetFeatureTypeName(featureType));
    for (const StylerValue& styler : stylerValues()) {
        group.columns.push_back(columnOf(group.names.front(), styler));
    }
    group.ignoresAlpha = catalogue().CalculateColorValue("#12345678", featureType) ==
                         catalogue().CalculateColorValue("#123456", featureType);
    return group;
}

std::string alternatives(const std::vector<std::string>& words, const char* condition) {
    return words.empty() ? std::string() : fmt::format(R"(^{}(?:[^.]+\.)*(?:{})$)", condition, fmt::join(words, "|"));
}

}  // namespace

std::vector<TypeGroup> typeGroups() {
    const ComponentGuard guard;
    std::vector<TypeGroup> groups;
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        TypeGroup group = groupOf(type);
        const auto known = std::ranges::find_if(groups, [&](const TypeGroup& other) {
            return other.columns == group.columns && other.ignoresAlpha == group.ignoresAlpha;
        });
        if (known == groups.end()) {
            groups.push_back(std::move(group));
        } else {
            known->names.push_back(group.names.front());
        }
    }
    return groups;
}

std::string patternOf(const std::vector<ElementClass>& elements) {
    std::vector<std::string> always;
    std::vector<std::string> withLabels;
    std::vector<std::string> withoutLabels;
    for (const std::string word : elementWords()) {
        const bool plain = std::ranges::find(elements, ElementClass{word, false}) != elements.end();
        const bool labels = std::ranges::find(elements, ElementClass{word, true}) != elements.end();
        if (plain && labels) always.push_back(word);
        if (plain && !labels) withoutLabels.push_back(word);
        if (!plain && labels) withLabels.push_back(word);
    }
    std::vector<std::string> parts{alternatives(always, ""), alternatives(withLabels, R"((?=[\s\S]*(?:labels|all)))"),
                                   alternatives(withoutLabels, R"((?![\s\S]*(?:labels|all)))")};
    std::erase(parts, "");
    return fmt::format("{}", fmt::join(parts, "|"));
}

}  // namespace customstyle_tool
