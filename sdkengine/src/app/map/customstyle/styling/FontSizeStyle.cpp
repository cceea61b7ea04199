#include <algorithm>
#include <cstdlib>

#include "customstyle/CustomConfig.h"
#include "customstyle/json/MemberText.h"
#include "customstyle/model/Messages.h"
#include "customstyle/model/RecordWalk.h"
#include "customstyle/styling/DispatchTable.h"
#include "customstyle/styling/RecordFields.h"

namespace _orvik_framework {
namespace {

constexpr unsigned long kLargestSize = 255;

// Only labels have a size, and rules that reach no label end before the table.
// clang-format off
constexpr DispatchRow kFontSizeRows[] = {
    // element   Land      Geometry  Labels       Grid      Wildcard
    {u"all",    {kNothing, kNothing, kLabelTexts, kNothing, kNothing}},
    {u"labels", {kNothing, kNothing, kLabelTexts, kNothing, kNothing}},
    {u"stroke", {kNothing, kNothing, kLabelTexts, kNothing, kNothing}},
    {u"fill",   {kNothing, kNothing, kLabelTexts, kNothing, kNothing}},
};
// clang-format on

constexpr SizeFields kSize{kFontSize};
constexpr ElementFields<SizeField> kFontSizes[] = {
    {u"all", kSize}, {u"labels", kSize}, {u"fill", kSize}, {u"stroke", kSize}};

}  // namespace

void CustomConfig::SetCustomFontSizeStyle(int featureType, CVString elementType, const cJSON* stylers,
                                          int includesLabels, stFeatureTypeStyleRecorder* /*unused*/, int allLevels,
                                          int level) {
    const char* text = findText(stylers, "fontsize");
    if (text == nullptr) return CustomMapPrintLog(messages::kFontSizeAbsent);
    if (IsValueAllDigit(text) == 0) return CustomMapPrintLog(messages::kFontSizeNotDigits);
    if (IsFeatureTypeIncludeLabels(featureType) == 0) return CustomMapPrintLog(messages::kFontSizeNeedsLabelType);
    if (includesLabels == 0) return CustomMapPrintLog(messages::fontSizeNeedsLabels(elementType));
    const DispatchRow* row = findRow(kFontSizeRows, elementType);
    if (row == nullptr) return CustomMapPrintLog(messages::elementUnknownToFontSize(elementType));

    const auto size = static_cast<unsigned char>(std::min(std::strtoul(text, nullptr, 10), kLargestSize));
    runSteps(*this, *row, featureType, includesLabels,
             [&](Target /*text*/, int type) { setFontSizeStyle(type, elementType, size, allLevels, level); });
}

void CustomConfig::setFontSizeStyle(int featureType, const CVString& elementType, unsigned char size, int allLevels,
                                    int level) {
    const auto fields = fieldsOf(kFontSizes, elementType);
    walkRecords(*this, {featureType, allLevels, level}, [&](tagCustomStyle& record) {
        if (fields.empty()) CustomMapPrintLog(messages::kElementUnknownToFontSizeWriter);
        return writeFields<std::uint8_t>(record, fields, size);
    });
}

}  // namespace _orvik_framework
