#include "tools/minify/Reach.h"

#include "customstyle/StoredRecords.h"
#include "tools/study/Probe.h"
#include "tools/study/StyleKey.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/StyleFields.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::StoredRecords;

// The number after the fields of each type says that it has a style at all.
constexpr int kNumbersPerType = static_cast<int>(kStyleFieldCount) + 1;

void addFields(Reach& reach, int featureType, const tagCustomStyle& record) {
    const int first = featureType * kNumbersPerType;
    reach.insert(first + static_cast<int>(kStyleFieldCount));
    for (std::size_t i = 0; i < kStyleFieldCount; ++i) {
        const StyleField& field = styleFields()[i];
        const bool isWritten = field.applies == nullptr ? valueOf(field, record) != 0 : appliesIn(field, record);
        if (isWritten) reach.insert(first + static_cast<int>(i));
    }
}

constexpr const char* kPaths[] = {"all",      "fill",     "icon",       "labels",     "stroke",       "all.fill",
                                  "all.icon", "geometry", "all.stroke", "topsurface", "all.geometry", "all.topsurface"};

std::vector<int> typesReachedFromType(int featureType) {
    std::vector<MinimalStyler> each;
    for (const Styler& styler : stylers()) each.push_back({std::string(styler.name), std::string(styler.example)});
    std::vector<MinimalRule> rules;
    const std::string& name = featureTypeNames()[static_cast<std::size_t>(featureType)];
    for (const char* path : kPaths) rules.push_back({name, path, {}, each});
    const auto store = storeOf("{}", textOf(rules));
    std::vector<int> types{featureType};
    for (const auto& [key, slot] : store->m_keyStyleMaps) types.push_back(parsedKey(key).featureType);
    return types;
}

std::vector<std::vector<int>> typesReachedFromAll() {
    std::vector<std::vector<int>> reached;
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type)
        reached.push_back(typesReachedFromType(type));
    return reached;
}

Reach reachOf(const MinimalRule& rule) {
    const AloneOutcome outcome = outcomeAlone(textOf(rule));
    Reach reach;
    for (const auto& [key, slot] : outcome.store->m_keyStyleMaps) {
        for (const auto& entry : StoredRecords(*slot)) addFields(reach, parsedKey(key).featureType, *entry.record);
    }
    // The grid's background and every icon belong to no record.
    if (outcome.store->m_gridColorSet != 0) reach.insert(-1);
    if (outcome.store->m_allIconsHidden != 0) reach.insert(-2);
    return reach;
}

}  // namespace

std::span<const char* const> elementPaths() {
    return kPaths;
}

const Reach& ReachProbe::of(const std::string& featureType, const std::string& elementType,
                            const MinimalStyler& styler) {
    const std::string name = featureType + '\n' + elementType + '\n' + styler.name + '\n' +
                             (isOfKind(styler.name, StylerKind::Visibility) ? styler.value : std::string());
    const auto known = m_known.find(name);
    if (known != m_known.end()) return known->second;
    return m_known.emplace(name, reachOf({featureType, elementType, {}, {styler}})).first->second;
}

const std::vector<int>& typesReachedFrom(const std::string& featureType) {
    static const std::vector<std::vector<int>> reached = typesReachedFromAll();
    static const std::vector<int> none;
    const int type = catalogue().GetFeatureTypeId(featureType);
    return type == -1 ? none : reached[static_cast<std::size_t>(type)];
}

}  // namespace customstyle_tool
