#include "tools/export/LossFinding.h"

#include <algorithm>
#include <string_view>

#include "tools/export/FeatureLook.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
namespace {

bool isSet(const Answer& answer, std::string_view field) {
    return fieldIn(answer, fieldIndex(field)).has_value();
}

struct Situation {
    const LegendLayer& layer;
    const Answer& answer;
    int level;
    bool isRaised;

    bool isLabel() const { return isLabelKind(layer.kind); }
    bool isBuilding() const { return layer.kind == ShapeKind::Building; }
};

bool hasSize(const Situation& at) {
    if (at.isLabel()) return isSet(at.answer, "text stroke weight") || isSet(at.answer, "font size");
    return isSet(at.answer, "stroke weight") || (at.layer.kind == ShapeKind::Line && isSet(at.answer, "fill weight"));
}

bool hasTextWeight(const Situation& at) {
    return at.isLabel() && isSet(at.answer, "text fill weight");
}

bool hasWideHalo(const Situation& at) {
    if (!at.isLabel()) return false;
    const auto weight = fieldIn(at.answer, fieldIndex("text stroke weight"));
    return weight && static_cast<double>(*weight) > labelLook(at.layer, at.answer, at.level).haloWidth;
}

bool hasHiddenText(const Situation& at) {
    return at.isLabel() && !labelLook(at.layer, at.answer, at.level).hasText;
}

bool hasFlatRoof(const Situation& at) {
    return at.isBuilding() && !at.isRaised && isSet(at.answer, "top surface");
}

bool hasWalls(const Situation& at) {
    return at.isBuilding() && at.isRaised;
}

bool hasAreaWeight(const Situation& at) {
    return (at.layer.kind == ShapeKind::Area || at.isBuilding()) && isSet(at.answer, "fill weight");
}

struct Finder {
    LossCode code;
    bool (*isLost)(const Situation& at);
};

constexpr Finder kFinders[] = {
    {LossCode::Units, hasSize},
    {LossCode::TextWeight, hasTextWeight},
    {LossCode::HaloCapped, hasWideHalo},
    {LossCode::HiddenText, hasHiddenText},
    {LossCode::TopSurface, hasFlatRoof},
    {LossCode::UnlitWalls, hasWalls},
    {LossCode::AreaWeight, hasAreaWeight},
};

// The layers that a legend has for a type.
struct TypeLayers {
    bool hasShape = false;
    bool hasLabel = false;
};

TypeLayers layersOf(const Legend& legend, int featureType) {
    TypeLayers layers;
    for (const LegendLayer& layer : legend.layers) {
        if (layer.featureType == featureType) (isLabelKind(layer.kind) ? layers.hasLabel : layers.hasShape) = true;
    }
    return layers;
}

bool isVisibleIn(const Answer& answer, std::string_view field) {
    const auto value = fieldIn(answer, fieldIndex(field));
    return value && alphaOf(*value) != 0;
}

bool paintsShape(const Answer& answer) {
    return isVisibleIn(answer, "fill") || isVisibleIn(answer, "stroke") || isVisibleIn(answer, "top surface");
}

bool paintsText(const Answer& answer) {
    return isVisibleIn(answer, "text fill") || isVisibleIn(answer, "text stroke");
}

// Text of a type is in the records of its label type, too.
bool hasLabelElsewhere(const Legend& legend, int featureType) {
    const int companion = catalogue().UpdateFeatureTypeId(featureType);
    return companion != -1 && companion != featureType && layersOf(legend, companion).hasLabel;
}

class MissingLayers {
public:
    MissingLayers(const Legend& legend, int featureType, Losses& losses)
        : m_layers(layersOf(legend, featureType)),
          m_hasLabel(m_layers.hasLabel || hasLabelElsewhere(legend, featureType)),
          m_featureType(featureType),
          m_losses(losses) {}

    void look(const Answer& answer, std::size_t levelClass) {
        const bool isKnown = m_layers.hasShape || m_layers.hasLabel;
        if (!isKnown && (paintsShape(answer) || paintsText(answer))) add(LossCode::NotInLegend, levelClass);
        if (isKnown && !m_layers.hasShape && paintsShape(answer)) add(LossCode::NoShape, levelClass);
        if (isKnown && !m_hasLabel && paintsText(answer)) add(LossCode::NoLabels, levelClass);
    }

private:
    void add(LossCode code, std::size_t levelClass) { m_losses.add(code, m_featureType, levelClass); }

    TypeLayers m_layers;
    bool m_hasLabel;
    int m_featureType;
    Losses& m_losses;
};

// The backgrounds show these.
bool isBackground(int featureType) {
    return featureType == _orvik_framework::EMAPCUSTOMSTYLE_LAND ||
           featureType == _orvik_framework::EMAPCUSTOMSTYLE_GRID;
}

}  // namespace

void findLayerLosses(const LayerContext& context, bool isRaised, Losses& losses) {
    for (int level = context.zooms.firstLevel; level <= context.zooms.lastLevel; ++level) {
        for (const AnswerGroup& group : context.answers.at(level)) {
            const Situation at{context.layer, group.answer, level, isRaised};
            for (const Finder& finder : kFinders) {
                if (finder.isLost(at)) losses.add(finder.code, context.layer.featureType, classOfLevel(level));
            }
        }
    }
}

void findMissingLayers(const StyleStudy& study, const Legend& legend, Losses& losses) {
    for (int type = 0; type < _orvik_framework::EMAPCUSTOMSTYLE_ALL; ++type) {
        if (isBackground(type)) continue;
        MissingLayers missing(legend, type, losses);
        for (const unsigned int id : study.mapping().questionIdsOf(type)) {
            for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
                missing.look(ask(study.config(), id, levelOfClass(levelClass)), levelClass);
            }
        }
    }
}

}  // namespace customstyle_tool
