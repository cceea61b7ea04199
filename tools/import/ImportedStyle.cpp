#include "tools/import/ImportedStyle.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/import/LegendFeatures.h"
#include "tools/import/MapLayer.h"
#include "tools/import/WantedLooks.h"
#include "tools/study/Answers.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

constexpr int kLevelAbove = kHighestLevel + 1;
constexpr int kLevelBelow = kLowestLevel - 1;
constexpr std::size_t kFillPart = 0;

std::string typeName(int featureType) {
    return catalogue().GetFeatureTypeName(featureType);
}

// Whether a legend layer's features are drawn at a level at all.
bool isCovered(const LegendLayer& layer, int level, int zoomOffset) {
    return level >= std::max(layer.firstLevel.value_or(zoomOffset), zoomOffset) &&
           level <= layer.lastLevel.value_or(24);
}

class Importer {
public:
    Importer(const MapJson& mapStyle, const Legend& legend, const Mapping& mapping, int zoomOffset)
        : m_layers(layersOf(mapStyle)), m_legend(legend), m_mapping(mapping), m_zoomOffset(zoomOffset) {}

    ImportedStyle make() {
        readBackgrounds();
        for (const LegendLayer& layer : m_legend.layers) readLayer(layer);
        noteLayers();
        std::string text = rulesText(m_wanted);
        compare(*storeOf(m_mapping.text(), text));
        return {std::move(text), std::move(m_losses)};
    }

private:
    // --- what the map style says ---

    // The last background is the land's; one below it is the grid's.
    void readBackgrounds() {
        std::vector<MapLayer*> backgrounds;
        for (MapLayer& layer : m_layers) {
            if (layer.type == "background") backgrounds.push_back(&layer);
        }
        if (backgrounds.empty()) return;
        readBackground(*backgrounds.back(), "land");
        if (backgrounds.size() > 1) readBackground(*backgrounds[backgrounds.size() - 2], "grid");
    }

    void readBackground(MapLayer& layer, const char* type) {
        const int featureType = catalogue().GetFeatureTypeId(type);
        layer.isUsed = true;
        for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
            const int level = levelClass == kOtherLevels ? kLevelAbove : levelOfClass(levelClass);
            const Feature nothing;
            DrawnLook look{};
            look[kFillPart] =
                colorOf(layer, "background-color", "background-opacity", {nothing, zoomOf(level), m_losses});
            m_wanted[featureType].at[levelClass] = look;
        }
    }

    double zoomOf(int level) const { return level - m_zoomOffset; }

    void readLayer(const LegendLayer& layer) {
        const std::vector<Feature> features = withStyleIds(
            featuresOf(layer), layer, layer.ids.empty() ? m_mapping.questionIdsOf(layer.featureType) : layer.ids);
        if (features.empty()) return m_losses.add(ImportLoss::LegendFilter, typeName(layer.featureType));
        const std::vector<MapLayer*> candidates = candidatesFor(layer);
        for (std::size_t levelClass = 0; levelClass < kOtherLevels; ++levelClass) {
            const int level = levelOfClass(levelClass);
            if (isCovered(layer, level, m_zoomOffset))
                want(layer, levelClass, lookAt(layer, features, candidates, level));
        }
        readOtherLevels(layer, features, candidates);
    }

    std::vector<MapLayer*> candidatesFor(const LegendLayer& layer) {
        std::vector<MapLayer*> candidates;
        for (MapLayer& each : m_layers) {
            const bool isOfType = each.featureType.empty() || each.featureType == typeName(layer.featureType);
            if (each.type != "background" && each.sourceLayer == layer.sourceLayer && isOfType)
                candidates.push_back(&each);
        }
        return candidates;
    }

    // All other levels have one style.
    void readOtherLevels(const LegendLayer& layer, const std::vector<Feature>& features,
                         const std::vector<MapLayer*>& candidates) {
        const bool hasAbove = isCovered(layer, kLevelAbove, m_zoomOffset);
        const bool hasBelow = isCovered(layer, kLevelBelow, m_zoomOffset);
        if (!hasAbove && !hasBelow) return;
        const DrawnLook look = lookAt(layer, features, candidates, hasAbove ? kLevelAbove : kLevelBelow);
        if (hasAbove && hasBelow && lookAt(layer, features, candidates, kLevelBelow) != look) {
            m_losses.add(ImportLoss::NotKept, typeName(layer.featureType) + " below level 4");
        }
        want(layer, kOtherLevels, look);
    }

    // The look that most features have.
    DrawnLook lookAt(const LegendLayer& layer, const std::vector<Feature>& features,
                     const std::vector<MapLayer*>& candidates, int level) {
        std::map<DrawnLook, std::size_t> counts;
        for (const Feature& feature : features) {
            ++counts[drawnLook(layer, candidates, level, {feature, zoomOf(level), m_losses})];
        }
        if (counts.size() > 1) m_losses.add(ImportLoss::FeaturesDiffer, typeName(layer.featureType));
        return std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; })->first;
    }

    void want(const LegendLayer& layer, std::size_t levelClass, const DrawnLook& look) {
        std::optional<DrawnLook>& wanted = m_wanted[layer.featureType].at[levelClass];
        if (!wanted) wanted.emplace();
        for (std::size_t part = 0; part < look.size(); ++part) {
            std::optional<std::uint64_t>& known = (*wanted)[part];
            if (known && look[part] && known != look[part]) {
                m_losses.add(ImportLoss::ShapesDiffer, typeName(layer.featureType));
            } else if (!known) {
                known = look[part];
            }
        }
    }

    void noteLayers() {
        for (const MapLayer& layer : m_layers) {
            if (layer.isUsed) {
                findWithoutCounterpart(layer, m_losses);
            } else {
                m_losses.add(ImportLoss::LayerUnused, layer.id);
            }
        }
    }

    // --- the effect of the rules ---

    void compare(const CustomConfig& config) {
        for (const auto& [featureType, looks] : m_wanted) {
            std::array<LevelSet, kRulePartCount> others{};
            for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
                if (looks.at[levelClass]) findOthers(config, featureType, levelClass, *looks.at[levelClass], others);
            }
            for (std::size_t part = 0; part < others.size(); ++part) {
                if (others[part].none()) continue;
                m_losses.add(ImportLoss::NotKept, typeName(featureType) + " " + std::string(ruleParts()[part].field) +
                                                      " at " + levelsPhrase(others[part]));
            }
        }
    }

    void findOthers(const CustomConfig& config, int featureType, std::size_t levelClass, const DrawnLook& look,
                    std::array<LevelSet, kRulePartCount>& others) const {
        const int level = levelOfClass(levelClass);
        for (const unsigned int id : m_mapping.questionIdsOf(featureType)) {
            const Answer answer = ask(config, id, level);
            for (std::size_t part = 0; part < look.size(); ++part) {
                if (look[part] && !isAnswered(config, featureType, level, answer, part, *look[part])) {
                    others[part].set(levelClass);
                }
            }
        }
    }

    static bool isAnswered(const CustomConfig& config, int featureType, int level, const Answer& answer,
                           std::size_t part, std::uint64_t wanted) {
        const std::string_view field = ruleParts()[part].field;
        if (field == "icon") return answer.iconHidden;
        if (featureType == _orvik_framework::EMAPCUSTOMSTYLE_GRID) return gridColor(config, level) == wanted;
        return fieldIn(answer, fieldIndex(field)) == wanted;
    }

    std::vector<MapLayer> m_layers;
    const Legend& m_legend;
    const Mapping& m_mapping;
    int m_zoomOffset;
    WantedTypes m_wanted;
    ImportLosses m_losses;
};

}  // namespace

ImportedStyle importedStyle(const MapJson& mapStyle, const Legend& legend, const Mapping& mapping, int zoomOffset) {
    return Importer(mapStyle, legend, mapping, zoomOffset).make();
}

}  // namespace customstyle_tool
