#include "customstyle/CustomConfig.h"
#include "customstyle/json/MemberText.h"
#include "customstyle/model/Messages.h"
#include "customstyle/model/RecordWalk.h"
#include "customstyle/styling/DispatchTable.h"
#include "customstyle/styling/RecordFields.h"

namespace _orvik_framework {
namespace {

constexpr Steps kGridColor{Step::GridColor};

// A type's "all" colours its texts only, and the land has no stroke.
// clang-format off
constexpr DispatchRow kColorRows[] = {
    // element       Land          Geometry      Labels        Grid          Wildcard
    {u"all",        {kOwnGeometry, kLabelTexts,  kLabelTexts,  kGridColor,   kOwnGeometry}},
    {u"labels",     {kOwnGeometry, kLabelTexts,  kLabelTexts,  kOwnGeometry, kOwnGeometry}},
    {u"geometry",   {kOwnGeometry, kOwnGeometry, kOwnGeometry, kOwnGeometry, kOwnGeometry}},
    {u"stroke",     {kNothing,     kOwnGeometry, kLabelTexts,  kGridColor,   kOwnGeometry}},
    {u"fill",       {kOwnGeometry, kOwnGeometry, kLabelTexts,  kGridColor,   kOwnGeometry}},
    {u"topsurface", {kOwnGeometry, kOwnGeometry, kLabelTexts,  kGridColor,   kOwnGeometry}},
};
// clang-format on

constexpr ColorFields kWholeGeometry{kFillColor, kBorderColor, kTopSurfaceColor};
constexpr ColorFields kGeometryStroke{kBorderColor};
constexpr ColorFields kGeometryFill{kFillColor};
constexpr ColorFields kTopSurface{kTopSurfaceColor};
constexpr ElementFields<ColorField> kGeometryColors[] = {
    {u"all", kWholeGeometry},     {u"geometry", kWholeGeometry}, {u"labels", kWholeGeometry},
    {u"stroke", kGeometryStroke}, {u"fill", kGeometryFill},      {u"topsurface", kTopSurface},
};

constexpr ColorFields kWholeText{kTextFillColor, kTextStrokeColor};
constexpr ColorFields kTextStroke{kTextStrokeColor};
constexpr ColorFields kTextFill{kTextFillColor};
constexpr ElementFields<ColorField> kTextColors[] = {
    {u"all", kWholeText},     {u"geometry", kWholeText}, {u"labels", kWholeText},
    {u"stroke", kTextStroke}, {u"fill", kTextFill},
};

}  // namespace

void CustomConfig::SetCustomColorStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                                       stFeatureTypeStyleRecorder* /*unused*/, int allLevels, int level) {
    const char* text = findText(stylers, "color");
    if (text == nullptr) return CustomMapPrintLog(messages::kStylersAbsent);
    const DispatchRow* row = findRow(kColorRows, elementType);
    if (row == nullptr) return CustomMapPrintLog(messages::kElementUnknown);

    const std::uint64_t color = static_cast<std::uint32_t>(CalculateColorValue(text, featureType));
    runSteps(*this, *row, featureType, includesLabels, [&](Target target, int type) {
        if (target == Target::Geometry) SetTypeColor(type, elementType, color, allLevels, level);
        if (target == Target::Text) SetFontColorStyle(type, elementType, color, allLevels, level);
        if (target == Target::GridColor) SetGridColorStyle(color);
    });
}

void CustomConfig::SetTypeColor(int featureType, const CVString& elementType, std::uint64_t color, int allLevels,
                                int level) {
    const auto fields = fieldsOf(kGeometryColors, elementType);
    walkRecords(*this, {featureType, allLevels, level},
                [&](tagCustomStyle& record) { return writeFields(record, fields, color); });
}

void CustomConfig::SetFontColorStyle(int featureType, CVString elementType, std::uint64_t color, int allLevels,
                                     int level) {
    const auto fields = fieldsOf(kTextColors, elementType);
    walkRecords(*this, {featureType, allLevels, level},
                [&](tagCustomStyle& record) { return writeFields(record, fields, color); });
}

void CustomConfig::SetGridColorStyle(std::uint64_t color) {
    m_gridColor = color;
    m_gridColorSet = 1;
}

}  // namespace _orvik_framework
