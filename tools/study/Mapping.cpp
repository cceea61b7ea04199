#include "tools/study/Mapping.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/SingleRules.h"
#include "tools/study/StoreImage.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::kFeatureTypeCount;

constexpr int kFirstPairId = 100'000;

std::string mappingOfAllPairs() {
    return mappingText([](int featureType) {
        std::vector<int> ids{sharedStyleId(featureType, featureType)};
        for (int other = 0; other < _orvik_framework::EMAPCUSTOMSTYLE_ALL; ++other) {
            if (other != featureType) ids.push_back(sharedStyleId(featureType, other));
        }
        return ids;
    });
}

std::string textOfSpeakers(const Mapping& mapping) {
    std::set<int> kept;
    for (const Speaker& speaker : mapping.speakers()) {
        if (!speaker.types.empty()) kept.insert(static_cast<int>(speaker.styleId));
    }
    return mappingText([&](int featureType) {
        const std::vector<int>& all = mapping.idsOf(featureType);
        std::vector<int> ids;
        for (const int id : all) {
            // The first record of the land speaks for its background, even if no question finds it.
            if (kept.contains(id) || id == all.front()) ids.push_back(id);
        }
        return ids;
    });
}

std::vector<Speaker> speakersOf(const std::vector<std::vector<unsigned int>>& questionIds) {
    std::map<unsigned int, std::vector<int>> typesOf;
    for (int type = 0; type < kFeatureTypeCount; ++type) {
        for (const unsigned int styleId : questionIds[static_cast<std::size_t>(type)]) typesOf[styleId].push_back(type);
    }
    std::map<std::vector<int>, unsigned int> chosen;
    unsigned int unlisted = 0;
    for (const auto& [styleId, types] : typesOf) {
        chosen.try_emplace(types, styleId);
        if (unlisted == styleId) ++unlisted;
    }
    std::vector<Speaker> speakers;
    for (const auto& [types, styleId] : chosen) speakers.push_back({styleId, types});
    std::ranges::stable_sort(speakers, {}, [](const Speaker& each) { return each.types.size(); });
    speakers.push_back({unlisted, {}});
    return speakers;
}

// A store with one record of the land, to see whether the renderer can get an answer about a style id.
class LookupProbe {
public:
    LookupProbe() {
        m_record.m_custom = 1;
        m_config->m_keyStyleMaps.emplace("0", &slot());
        m_config->m_styleEffectLevels.emplace("0", 1);
    }
    ~LookupProbe() {
        slot().RemoveAll();  // the record is not the store's to free
    }
    LookupProbe(const LookupProbe&) = delete;
    LookupProbe& operator=(const LookupProbe&) = delete;

    bool finds(int styleId) {
        const ComponentGuard guard;
        slot().RemoveAll();
        slot()[reinterpret_cast<void*>(static_cast<std::intptr_t>(styleId))] = &m_record;
        _orvik_framework::tagCustomStyle ignored{};
        return m_config->GetStyleFromConfig(ignored, static_cast<unsigned int>(styleId), 0) == 0;
    }

private:
    _orvik_framework::CVMapPtrToPtr& slot() { return m_config->m_levelStyleMaps[0]; }

    std::unique_ptr<CustomConfig> m_config = std::make_unique<CustomConfig>();
    _orvik_framework::tagCustomStyle m_record{};
};

}  // namespace

int sharedStyleId(int left, int right) {
    return left == right ? static_cast<int>(defaultStyleId(left))
                         : kFirstPairId + std::min(left, right) * kFeatureTypeCount + std::max(left, right);
}

Mapping Mapping::everyMap() {
    static const Mapping mapping(Kind::EveryMap, mappingOfAllPairs());
    return mapping;
}

Mapping Mapping::standard() {
    static const Mapping mapping(Kind::Standard, defaultMapping());
    return mapping;
}

Mapping Mapping::given(std::string text) {
    return {Kind::Given, std::move(text)};
}

Mapping::Mapping(Kind kind, std::string text) {
    const ComponentGuard guard;
    Known known{kind,
                std::move(text),
                std::vector<std::vector<int>>(kFeatureTypeCount),
                std::vector<std::vector<unsigned int>>(kFeatureTypeCount),
                {}};
    CustomConfig config;
    config.ParseMappingConfig(componentTree(known.text).get());
    for (std::size_t type = 0; type < known.ids.size(); ++type) {
        forEachSlotRecord(config.m_typeStyleMaps[type], [&](int styleId, const auto&) {
            known.ids[type].push_back(styleId);
            if (canBeAskedFor(styleId)) known.questionIds[type].push_back(static_cast<unsigned int>(styleId));
        });
        std::ranges::sort(known.questionIds[type]);
    }
    known.speakers = speakersOf(known.questionIds);
    const auto shared = std::make_shared<Known>(std::move(known));
    m_known = shared;
    // Parsed now, not on first use: by then several threads may ask for them.
    shared->speakersTree = componentTree(speakersText());
    shared->tracedTree = componentTree(tracedText());
}

std::string_view Mapping::name() const {
    constexpr std::string_view kNames[] = {"every map", "one style id for each feature type", "the given mapping"};
    return kNames[static_cast<std::size_t>(kind())];
}

std::vector<unsigned int> Mapping::questionIds() const {
    std::set<unsigned int> all;
    for (const auto& ofType : m_known->questionIds) all.insert(ofType.begin(), ofType.end());
    return {all.begin(), all.end()};
}

std::vector<int> Mapping::typesOf(unsigned int styleId) const {
    std::vector<int> types;
    for (int type = 0; type < kFeatureTypeCount; ++type) {
        if (std::ranges::binary_search(questionIdsOf(type), styleId)) types.push_back(type);
    }
    return types;
}

std::string Mapping::speakersText() const {
    return textOfSpeakers(*this);
}

std::string Mapping::tracedText() const {
    return mappingText([&](int featureType) {
        return idsOf(featureType).empty() ? std::vector<int>()
                                          : std::vector{static_cast<int>(defaultStyleId(featureType))};
    });
}

bool canBeAskedFor(int styleId) {
    static LookupProbe probe;
    return probe.finds(styleId);
}

bool isAcceptedMapping(std::string_view text) {
    const Tree tree = componentTree(text);
    return tree != nullptr && CustomConfig().ParseMappingConfig(tree.get()) == 1;
}

}  // namespace customstyle_tool
