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

constexpr SizeFields kWholeGeometry{kFillWeight, kBorderWeight};
constexpr SizeFields kGeometryStroke{kBorderWeight};
constexpr SizeFields kGeometryFill{kFillWeight};
constexpr ElementFields<SizeField> kGeometryWeights[] = {
    {u"all", kWholeGeometry},     {u"geometry", kWholeGeometry}, {u"labels", kWholeGeometry},
    {u"stroke", kGeometryStroke}, {u"fill", kGeometryFill},
};

constexpr SizeFields kWholeText{kTextFillWeight, kTextStrokeWeight};
constexpr SizeFields kTextStroke{kTextStrokeWeight};
constexpr SizeFields kTextFill{kTextFillWeight};
constexpr ElementFields<SizeField> kTextWeights[] = {
    {u"all", kWholeText},     {u"geometry", kWholeText}, {u"labels", kWholeText},
    {u"stroke", kTextStroke}, {u"fill", kTextFill},
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
