#include <string_view>

#include "customstyle/CustomConfig.h"
#include "customstyle/json/MemberText.h"
#include "customstyle/model/Messages.h"
#include "customstyle/model/RecordWalk.h"
#include "customstyle/styling/DispatchTable.h"

namespace _orvik_framework {
namespace {

// Hidden geometry and text are drawn in full transparency; only icons have a flag of their own.
constexpr std::uint64_t kTransparent = 0;

constexpr Steps kTextAndGeom{Step::TextOfType, Step::GeometryOfType};
constexpr Steps kWholeType{Step::TextOfType, Step::GeometryOfType, Step::IconOfType};
constexpr Steps kBothTypes{Step::TextOfType,          Step::GeometryOfType,  Step::IconOfType,
                           Step::GeometryOfCompanion, Step::TextOfCompanion, Step::IconOfCompanion};
constexpr Steps kIconsTexts{Step::IconOfType, Step::TextOfType, Step::TextOfOtherCompanion, Step::IconOfCompanion};
constexpr Steps kOwnIcon{Step::IconOfType};
constexpr Steps kLabelIcon{Step::IconOfCompanion};
constexpr Steps kEveryIcon{Step::EveryIcon};

// The steps of "off". "on" takes only the icon steps: hiding overwrote the colours, and they are stored nowhere else.
// clang-format off
constexpr DispatchRow kVisibilityRows[] = {
    // element       Land          Geometry      Labels        Grid          Wildcard
    {u"all",        {kWholeType,   kBothTypes,   kBothTypes,   kWholeType,   kWholeType}},
    {u"labels",     {kNothing,     kIconsTexts,  kIconsTexts,  kNothing,     kNothing}},
    {u"geometry",   {kTextAndGeom, kTextAndGeom, kTextAndGeom, kTextAndGeom, kTextAndGeom}},
    {u"stroke",     {kTextAndGeom, kTextAndGeom, kLabelTexts,  kTextAndGeom, kTextAndGeom}},
    {u"fill",       {kTextAndGeom, kTextAndGeom, kLabelTexts,  kTextAndGeom, kTextAndGeom}},
    {u"topsurface", {kTextAndGeom, kTextAndGeom, kLabelTexts,  kTextAndGeom, kTextAndGeom}},
    {u"icon",       {kOwnIcon,     kOwnIcon,     kLabelIcon,   kOwnIcon,     kEveryIcon}},
};
// clang-format on

bool namesIcon(const CVString& elementType) {
    return isWord(elementType, u"all") || isWord(elementType, u"labels") || isWord(elementType, u"icon");
}

}  // namespace

void CustomConfig::SetCustomVisibilityStyle(int featureType, CVString elementType, const cJSON* stylers,
                                            int includesLabels, stFeatureTypeStyleRecorder* recorders, int ruleIndex,
                                            int allLevels, int level) {
    const char* text = findText(stylers, "visibility");
    if (text == nullptr) return CustomMapPrintLog(messages::kStylersAbsent);
    const std::string_view visibility = text;
    const int hide = visibility == "off";
    if (hide == 0 && visibility != "on") return CustomMapPrintLog(messages::kVisibilityIllegal);
    if (recorders != nullptr) recorders[ruleIndex] = {featureType, elementType, 1};

    const DispatchRow* row = findRow(kVisibilityRows, elementType);
    if (row == nullptr) {
        if (hide != 0) CustomMapPrintLog(messages::kElementUnknown);
        return;
    }
    runSteps(*this, *row, featureType, includesLabels, [&](Target target, int type) {
        if (target == Target::EveryIcon) m_allIconsHidden = 1;  // "on" as well: nothing ever shows the icons again
        if (target == Target::Icon) SetCustomIconInvisible(type, elementType, hide, allLevels, level);
        if (hide == 0) return;
        if (target == Target::Text) SetFontColorStyle(type, elementType, kTransparent, allLevels, level);
        if (target == Target::Geometry) SetTypeColor(type, elementType, kTransparent, allLevels, level);
    });
}

void CustomConfig::SetCustomIconInvisible(int featureType, const CVString& elementType, int hide, int allLevels,
                                          int level) {
    const bool hasIcon = namesIcon(elementType);
    walkRecords(*this, {featureType, allLevels, level}, [&](tagCustomStyle& record) {
        if (hasIcon) record.m_iconHidden = hide;
        return true;  // even without an icon the record counts as customised from now on
    });
}

}  // namespace _orvik_framework
