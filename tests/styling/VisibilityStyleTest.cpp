// What a visibility rule reaches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/styling/DispatchCases.h"
#include "tests/styling/StoreChanges.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::stFeatureTypeStyleRecorder;
using testing::ElementsAre;

constexpr Outcome kNothing{""};
constexpr Outcome kNoRecords{"T empty"};
constexpr Outcome kEveryIcon{"every-icon"};
constexpr Outcome kInvalid{"", R"(warning, "elementType" is invalid.)"};

// ---- "off" ----------------------------------------------------------------------------------------------------------

constexpr Outcome kWhole{"T+ fill border top text-fill text-stroke icon=1"};
constexpr Outcome kBothWhole{
    "T+ fill border top text-fill text-stroke icon=1, L+ fill border top text-fill text-stroke icon=1"};
constexpr Outcome kLabels{"T+ text-fill text-stroke icon=1"};
constexpr Outcome kBothLabels{"T+ text-fill text-stroke icon=1, L+ text-fill text-stroke icon=1"};
constexpr Outcome kDrawing{"T+ fill border top text-fill text-stroke"};
constexpr Outcome kStroke{"T+ border text-stroke"};
constexpr Outcome kFill{"T+ fill text-fill"};
constexpr Outcome kTop{"T+ top"};
constexpr Outcome kTxStroke{"T+ text-stroke"};
constexpr Outcome kBothTxStrokes{"T+ text-stroke, L+ text-stroke"};
constexpr Outcome kTxFill{"T+ text-fill"};
constexpr Outcome kBothTxFills{"T+ text-fill, L+ text-fill"};
constexpr Outcome kUnmarked{"T-"};
constexpr Outcome kBothUnmarked{"T-, L-"};
constexpr Outcome kIcon{"T+ icon=1"};
constexpr Outcome kLabelIcon{"L+ icon=1"};

// clang-format off
constexpr ElementRow kOffRows[] = {
    //             land      geometry               labels                     grid      wildcard    outside
    //                       companion    alone     companion       alone
    {"all",        {kWhole,   kBothWhole,  kWhole,   kBothWhole,     kWhole,    kWhole,   kNoRecords, kNothing}},
    {"labels",     {kNothing, kBothLabels, kLabels,  kBothLabels,    kLabels,   kNothing, kNothing,   kNothing}},
    {"geometry",   {kDrawing, kDrawing,    kDrawing, kDrawing,       kDrawing,  kDrawing, kNoRecords, kNothing}},
    {"stroke",     {kStroke,  kStroke,     kStroke,  kBothTxStrokes, kTxStroke, kStroke,  kNoRecords, kNothing}},
    {"fill",       {kFill,    kFill,       kFill,    kBothTxFills,   kTxFill,   kFill,    kNoRecords, kNothing}},
    {"topsurface", {kTop,     kTop,        kTop,     kBothUnmarked,  kUnmarked, kTop,     kNoRecords, kNothing}},
    {"icon",       {kIcon,    kIcon,       kIcon,    kLabelIcon,     kIcon,     kIcon,    kEveryIcon, kNothing}},
    everywhere("text", kInvalid),
    everywhere("", kInvalid),
    everywhere("Fill", kInvalid),
};
// clang-format on

void setVisibility(CustomConfig& store, const DispatchCase& param, const char* stylers) {
    const auto& [element, outcome, audience, scope] = param;
    store.SetCustomVisibilityStyle(audience.featureType, element, parsed(stylers).get(), audience.includesLabels,
                                   nullptr, 0, scope.allLevels, scope.level);
}

class HidingDispatch : public testing::TestWithParam<DispatchCase> {};

TEST_P(HidingDispatch, ReachesWhatItsRowSays) {
    LogCapture log;
    const auto store = markedStore();
    setVisibility(*store, GetParam(), R"({"visibility":"off"})");
    EXPECT_EQ(changesIn(*store, 0, GetParam().scope.keySuffix), expectedChanges(GetParam()));
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(VisibilityStyle, HidingDispatch, testing::ValuesIn(dispatchCases(kOffRows)),
                         [](const auto& each) { return dispatchCaseName(each.param); });

// ---- "on" -----------------------------------------------------------------------------------------------------------

constexpr Outcome kShown{"T+ icon=0"};
constexpr Outcome kBothShown{"T+ icon=0, L+ icon=0"};
constexpr Outcome kLabelShown{"L+ icon=0"};

// clang-format off
constexpr ElementRow kOnRows[] = {
    //         land      geometry              labels                 grid      wildcard    outside
    //                   companion   alone     companion    alone
    {"all",    {kShown,   kBothShown, kShown,   kBothShown,  kShown,   kShown,   kNoRecords, kNothing}},
    {"labels", {kNothing, kBothShown, kShown,   kBothShown,  kShown,   kNothing, kNothing,   kNothing}},
    {"icon",   {kShown,   kShown,     kShown,   kLabelShown, kShown,   kShown,   kEveryIcon, kNothing}},
    everywhere("geometry", kNothing),
    everywhere("stroke", kNothing),
    everywhere("fill", kNothing),
    everywhere("topsurface", kNothing),
    everywhere("text", kNothing),
    everywhere("", kNothing),
    everywhere("Fill", kNothing),
};
// clang-format on

class ShowingDispatch : public testing::TestWithParam<DispatchCase> {};

TEST_P(ShowingDispatch, ReachesWhatItsRowSays) {
    const LogCapture silent;
    const auto store = markedStore();
    setVisibility(*store, GetParam(), R"({"visibility":"on"})");
    EXPECT_EQ(changesIn(*store, 0, GetParam().scope.keySuffix), expectedChanges(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(VisibilityStyle, ShowingDispatch, testing::ValuesIn(dispatchCases(kOnRows)),
                         [](const auto& each) { return dispatchCaseName(each.param); });

// ---- The value and the note -----------------------------------------------------------------------------------------

struct ValueCase {
    const char* name;
    const char* stylers;
    const char* line;
};

constexpr char kStylersLine[] = R"(ZRX Custom Map: warning, "stylers" is illegal or absent)";
constexpr char kVisibilityLine[] = R"(ZRX Custom Map: warning, "visibility" is illegal or absent)";

class RefusedVisibility : public testing::TestWithParam<ValueCase> {};

TEST_P(RefusedVisibility, IsLoggedBeforeTheElementIsLookedAtAndWritesNothing) {
    LogCapture log;
    const auto store = markedStore();
    stFeatureTypeStyleRecorder note{7, "before", 8};
    store->SetCustomVisibilityStyle(13, "unknown", parsed(GetParam().stylers).get(), 0, &note, 0, 1, 0);
    store->SetCustomVisibilityStyle(13, "all", parsed(GetParam().stylers).get(), 0, &note, 0, 1, 0);
    EXPECT_THAT(log.take(), ElementsAre(GetParam().line, GetParam().line));
    EXPECT_EQ(changesIn(*store, 0), "");
    EXPECT_EQ(note.m_featureType, 7);
    EXPECT_EQ(note.m_elementType.ToUtf8(), "before");
    EXPECT_EQ(note.m_recorded, 8);
}

const ValueCase kRefusedVisibilityCases[] = {
    {"Absent", "{}", kStylersLine},
    {"Boolean", R"({"visibility":false})", kStylersLine},
    {"Number", R"({"visibility":0})", kStylersLine},
    {"Null", R"({"visibility":null})", kStylersLine},
    {"Array", R"({"visibility":["off"]})", kStylersLine},
    {"OtherWord", R"({"visibility":"none"})", kVisibilityLine},
    {"Capitals", R"({"visibility":"OFF"})", kVisibilityLine},
    {"Capital", R"({"visibility":"On"})", kVisibilityLine},
    {"Empty", R"({"visibility":""})", kVisibilityLine},
    {"Blank", R"({"visibility":"off "})", kVisibilityLine},
    {"Longer", R"({"visibility":"once"})", kVisibilityLine},
};

INSTANTIATE_TEST_SUITE_P(VisibilityStyle, RefusedVisibility, testing::ValuesIn(kRefusedVisibilityCases), caseName);

struct NoteCase {
    const char* name;
    const char* value;
    int featureType;
    const char* element;
};

class VisibilityNote : public testing::TestWithParam<NoteCase> {};

TEST_P(VisibilityNote, IsFilledAtTheIndexOfTheRule) {
    LogCapture log;
    const auto& [name, value, featureType, element] = GetParam();
    const auto store = markedStore();
    stFeatureTypeStyleRecorder notes[3] = {{-3, "", 0}, {-3, "", 0}, {-3, "", 0}};
    store->SetCustomVisibilityStyle(featureType, element, parsed(value).get(), 0, notes, 1, 1, 0);
    log.take();
    EXPECT_EQ(notes[1].m_featureType, featureType);
    EXPECT_EQ(notes[1].m_elementType.ToUtf8(), element);
    EXPECT_EQ(notes[1].m_recorded, 1);
    EXPECT_EQ(notes[0].m_recorded + notes[2].m_recorded, 0);
    EXPECT_EQ(notes[0].m_featureType + notes[2].m_featureType, -6);
}

constexpr char kOff[] = R"({"visibility":"off"})";
constexpr char kOn[] = R"({"visibility":"on"})";

const NoteCase kVisibilityNoteCases[] = {
    {"OfHiding", kOff, 13, "all"},
    {"OfShowing", kOn, 13, "all"},
    {"OfShowingWithoutEffect", kOn, 13, "geometry"},
    {"OfAnUnknownElementOff", kOff, 13, "unknown"},
    {"OfAnUnknownElementOn", kOn, 13, "unknown"},
    {"OfNoElement", kOn, 13, ""},
    {"OfLabelsOnLand", kOff, 0, "labels"},
    {"OfLabelsOnTheGrid", kOff, 71, "labels"},
    {"OfLabelsOnTheWildcard", kOff, 72, "labels"},
    {"OfEveryIcon", kOn, 72, "icon"},
};

INSTANTIATE_TEST_SUITE_P(VisibilityStyle, VisibilityNote, testing::ValuesIn(kVisibilityNoteCases), caseName);

}  // namespace
}  // namespace customstyle_test
