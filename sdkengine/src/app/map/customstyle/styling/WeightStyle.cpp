#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/json/MemberText.h"
#include "customstyle/model/Messages.h"
#include "customstyle/model/RecordWalk.h"
#include "customstyle/styling/DispatchTable.h"
#include "customstyle/styling/RecordFields.h"

namespace _orvik_framework {
namespace {

constexpr Steps kWithLabels{Step::GeometryOfType, Step::TextOfCompanion};
constexpr Steps kLabelText{Step::TextOfCompanion};

// The weight of a type's labels is that of its companion; types without labels take every weight on their geometry.
// clang-format off
constexpr DispatchRow kWeightRows[] = {
    // element     Land          Geometry      Labels        Grid          Wildcard
    {u"all",      {kOwnGeometry, kWithLabels,  kWithLabels,  kOwnGeometry, kOwnGeometry}},
    {u"labels",   {kOwnGeometry, kWithLabels,  kWithLabels,  kOwnGeometry, kOwnGeometry}},
    {u"geometry", {kOwnGeometry, kOwnGeometry, kOwnGeometry, kOwnGeometry, kOwnGeometry}},
    {u"stroke",   {kOwnGeometry, kOwnGeometry, kLabelText,   kOwnGeometry, kOwnGeometry}},
    {u"fill",     {kOwnGeometry, kOwnGeometry, kLabelText,   kOwnGeometry, kOwnGeometry}},
};
// clang-format on

constexpr SizeFields kWeightsOfGeometry{kFillWeight, kBorderWeight};
constexpr SizeFields kWeightOfStroke{kBorderWeight};
constexpr SizeFields kWeightOfFill{kFillWeight};
constexpr ElementFields<SizeField> kGeometryWeights[] = {
    {u"all", kWeightsOfGeometry}, {u"geometry", kWeightsOfGeometry}, {u"labels", kWeightsOfGeometry},
    {u"stroke", kWeightOfStroke}, {u"fill", kWeightOfFill},
};

constexpr SizeFields kWeightsOfText{kTextFillWeight, kTextStrokeWeight};
constexpr SizeFields kWeightOfTextStroke{kTextStrokeWeight};
constexpr SizeFields kWeightOfTextFill{kTextFillWeight};
constexpr ElementFields<SizeField> kTextWeights[] = {
    {u"all", kWeightsOfText},         {u"geometry", kWeightsOfText}, {u"labels", kWeightsOfText},
    {u"stroke", kWeightOfTextStroke}, {u"fill", kWeightOfTextFill},
};

}  // namespace

void CustomConfig::SetCustomWeightStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                                        stFeatureTypeStyleRecorder* /*unused*/, int allLevels, int level) {
    if (applies(&FeatureTypeRow::hasFixedWeight, featureType)) return;
    const char* text = findText(stylers, "weight");
    if (text == nullptr) return CustomMapPrintLog(messages::kWeightAbsent);
    if (IsValueAllDigit(text) == 0) return CustomMapPrintLog(messages::kWeightNotDigits);
    const DispatchRow* row = findRow(kWeightRows, elementType);
    if (row == nullptr) return CustomMapPrintLog(messages::kElementUnknown);

    const int weight = CalculateWeightValue(text);
    runSteps(*this, *row, featureType, includesLabels, [&](Target target, int type) {
        if (target == Target::Geometry) SetTypeWeight(type, elementType, weight, allLevels, level);
        if (target == Target::Text) SetFontWeightStyle(type, elementType, weight, allLevels, level);
    });
}

void CustomConfig::SetTypeWeight(int featureType, const CVString& elementType, int weight, int allLevels, int level) {
    const auto fields = fieldsOf(kGeometryWeights, elementType);
    walkRecords(*this, {featureType, allLevels, level}, [&](tagCustomStyle& record) {
        if (fields.empty()) CustomMapPrintLog(messages::kElementUnknownToTypeWeight);
        return writeFields(record, fields, static_cast<std::uint8_t>(weight));
    });
}

void CustomConfig::SetFontWeightStyle(int featureType, const CVString& elementType, int weight, int allLevels,
                                      int level) {
    const auto fields = fieldsOf(kTextWeights, elementType);
    walkRecords(*this, {featureType, allLevels, level}, [&](tagCustomStyle& record) {
        if (fields.empty()) CustomMapPrintLog(messages::kElementUnknownToFontWeight);
        return writeFields(record, fields, static_cast<std::uint8_t>(weight));
    });
}

}  // namespace _orvik_framework
