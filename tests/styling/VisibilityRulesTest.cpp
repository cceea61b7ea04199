// Visibility rules one after another, and the writer of the icon flag.
#include <gtest/gtest.h>

#include "tests/styling/StoreChanges.h"
#include "tests/styling/WriterCases.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

// ---- Rules that a person would write --------------------------------------------------------------------------------

TEST(VisibilityStyle, HiddenLabelsAreTransparentTextsAndHiddenIconsOnBothTypes) {
    const auto store = loadedWith({rule("highway", "labels").visibility("off")});
    for (const int type : {13, 28}) {
        tagCustomStyle expected = baseRecord(firstStyleId(type));
        expected.m_iconHidden = 1;
        expected.m_textFillColorSet = expected.m_textStrokeColorSet = 1;
        expected.m_custom = 1;
        EXPECT_EQ(firstRecordAt(*store, std::to_string(type)), expected);
    }
}

TEST(VisibilityStyle, ShownLabelsHaveShownIconsAndKeepTheirTextColours) {
    const auto store = loadedWith(
        {rule("highway", "labels").color("#112233").visibility("off"), rule("highway", "labels").visibility("on")});
    for (const int type : {13, 28}) {
        tagCustomStyle expected = baseRecord(firstStyleId(type));
        expected.m_textFillColorSet = expected.m_textStrokeColorSet = 1;
        expected.m_custom = 1;
        EXPECT_EQ(firstRecordAt(*store, std::to_string(type)), expected);
    }
}

TEST(VisibilityStyle, AColourOfTheSameRuleIsOverwrittenByHiding) {
    const auto store = loadedWith({rule("green", "geometry.fill").color("#112233").visibility("off")});
    EXPECT_EQ(firstRecordAt(*store, "1").m_fillColor, 0U);
    EXPECT_EQ(firstRecordAt(*store, "1").m_fillColorSet, 1);
}

TEST(VisibilityStyle, HidingTheFillOfWaterHidesTheFillOfItsTextsToo) {
    const auto store = loadedWith({rule("water", "geometry.fill").visibility("off")});
    tagCustomStyle expected = baseRecord(firstStyleId(2));
    expected.m_fillColorSet = expected.m_textFillColorSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "2"), expected);
}

TEST(VisibilityStyle, ALabelIconIsThatOfTheCompanion) {
    const auto store = loadedWith({rule("highway", "icon").visibility("on"),  // highway itself: shown
                                   rule("highway", "labels.icon").visibility("off")});
    EXPECT_EQ(firstRecordAt(*store, "28").m_iconHidden, 1);
    EXPECT_EQ(firstRecordAt(*store, "13").m_iconHidden, 0);
}

TEST(VisibilityStyle, AnIconWithoutLabelsInItsPathIsThatOfTheTypeItself) {
    const auto store = loadedWith({rule("poilabel", "icon").visibility("off")});
    EXPECT_EQ(firstRecordAt(*store, "53").m_iconHidden, 1);
    EXPECT_EQ(store->m_usedLevelSlots, 1);
}

TEST(VisibilityStyle, ShowingTheIconsOfAllHidesEveryIcon) {
    const auto store = loadedWith({rule("all", "labels.icon").visibility("on")});
    EXPECT_EQ(store->m_allIconsHidden, 1);
    EXPECT_EQ(store->m_usedLevelSlots, 0);
}

TEST(VisibilityStyle, NothingShowsEveryIconAgain) {
    const auto store = loadedWith({rule("all", "icon").visibility("off"), rule("all", "icon").visibility("on"),
                                   rule("all", "all").visibility("on")});
    EXPECT_EQ(store->m_allIconsHidden, 1);
}

TEST(VisibilityStyle, LabelsOfLandGridAndAllReachNothing) {
    const LogCapture silent;
    const auto store = loadedWith({rule("land", "labels").visibility("off"), rule("grid", "labels").visibility("off"),
                                   rule("all", "labels").visibility("off")});
    EXPECT_EQ(store->m_usedLevelSlots, 0);
    EXPECT_EQ(store->m_allIconsHidden, 0);
}

TEST(VisibilityStyle, TheTopSurfaceOfATypeIsHiddenAndTheRecordsStayInUse) {
    const auto store = loadedWith({rule("building", "geometry.topsurface").visibility("off")});
    tagCustomStyle expected = baseRecord(firstStyleId(3));
    expected.m_topSurfaceColorSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "3"), expected);
}

TEST(VisibilityStyle, ALabelTopSurfaceTakesTheRecordsOutOfUse) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#112233"),
                                   rule("highway", "labels.text.topsurface").visibility("off")});
    EXPECT_EQ(firstRecordAt(*store, "13").m_custom, 0);
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillColor, 0xff332211U);
    EXPECT_EQ(firstRecordAt(*store, "28").m_custom, 0);
}

// ---- Levels over all levels -----------------------------------------------------------------------------------------

// A style for all levels in which every field that hiding may touch has a value.
RuleBuilder colouredGeometry(const char* type) {
    return rule(type, "geometry").color("#000001");
}
RuleBuilder colouredLabels(const char* type) {
    return rule(type, "labels").color("#000002");
}

constexpr std::uint64_t kGeometryColour = 0xff010000;
constexpr std::uint64_t kTextColour = 0xff020000;

tagCustomStyle colouredRecord(int featureType) {
    tagCustomStyle record = baseRecord(firstStyleId(featureType));
    record.m_textFillColor = record.m_textStrokeColor = kTextColour;
    record.m_textFillColorSet = record.m_textStrokeColorSet = 1;
    record.m_fillColor = record.m_borderColor = record.m_topSurfaceColor = kGeometryColour;
    record.m_fillColorSet = record.m_borderColorSet = record.m_topSurfaceColorSet = 1;
    record.m_custom = 1;
    return record;
}

void hideText(tagCustomStyle& record) {
    record.m_textFillColor = record.m_textStrokeColor = 0;
}
void hideGeometry(tagCustomStyle& record) {
    record.m_fillColor = record.m_borderColor = record.m_topSurfaceColor = 0;
}

TEST(VisibilityAtALevel, HidingLabelsOfATypeWithCompanionEndsWithTheTextOfTheTypeAndTheIconOfTheCompanion) {
    const auto store = loadedWith({colouredGeometry("highway"), colouredGeometry("highwaylabel"),
                                   colouredLabels("highway"), rule("highway", "labels").visibility("off").level("12")});
    tagCustomStyle type = colouredRecord(13);
    hideText(type);  // written last; the icon flag of before is back
    EXPECT_EQ(firstRecordAt(*store, "13:12"), type);
    tagCustomStyle companion = colouredRecord(28);
    companion.m_iconHidden = 1;  // written last; the text colours of before are back
    EXPECT_EQ(firstRecordAt(*store, "28:12"), companion);
}

TEST(VisibilityAtALevel, HidingLabelsOfATypeThatKeepsItsLabelsEndsWithTheIcon) {
    const auto store = loadedWith(
        {colouredGeometry("water"), colouredLabels("water"), rule("water", "labels").visibility("off").level("12")});
    tagCustomStyle expected = colouredRecord(2);
    expected.m_iconHidden = 1;
    EXPECT_EQ(firstRecordAt(*store, "2:12"), expected);
}

TEST(VisibilityAtALevel, HidingLabelsKeepsTheIconFlagForAllLevels) {
    const auto store = loadedWith({rule("highway", "icon").visibility("off"), colouredGeometry("highway"),
                                   colouredLabels("highway"), rule("highway", "labels").visibility("off").level("12")});
    EXPECT_EQ(firstRecordAt(*store, "13:12").m_iconHidden, 1);
}

TEST(VisibilityAtALevel, HidingTheGeometryLeavesTheTextAsItWas) {
    const auto store = loadedWith({colouredGeometry("highway"), colouredLabels("highway"),
                                   rule("highway", "geometry").visibility("off").level("12")});
    tagCustomStyle expected = colouredRecord(13);
    hideGeometry(expected);
    EXPECT_EQ(firstRecordAt(*store, "13:12"), expected);
}

TEST(VisibilityAtALevel, HidingTheGeometryStrokeLeavesTheTextStrokeAsItWas) {
    const auto store = loadedWith({colouredGeometry("highway"), colouredLabels("highway"),
                                   rule("highway", "geometry.stroke").visibility("off").level("12")});
    tagCustomStyle expected = colouredRecord(13);
    expected.m_borderColor = 0;
    EXPECT_EQ(firstRecordAt(*store, "13:12"), expected);
}

TEST(VisibilityAtALevel, HidingAllEndsWithTheHiddenIconOverTheStyleForAllLevels) {
    const auto store = loadedWith({colouredGeometry("highway"), colouredGeometry("highwaylabel"),
                                   colouredLabels("highway"), rule("highway", "all").visibility("off").level("12")});
    for (const int type : {13, 28}) {
        tagCustomStyle expected = colouredRecord(type);
        expected.m_iconHidden = 1;
        EXPECT_EQ(firstRecordAt(*store, std::to_string(type) + ":12"), expected);
    }
}

TEST(VisibilityAtALevel, HidingAllOfLandEndsWithTheHiddenIconOverTheStyleForAllLevels) {
    const auto store =
        loadedWith({rule("land", "geometry").color("#000001"), rule("land", "all").visibility("off").level("12")});
    EXPECT_EQ(firstRecordAt(*store, "0:12").m_iconHidden, 1);
    EXPECT_EQ(firstRecordAt(*store, "0:12").m_fillColor, kGeometryColour);
}

TEST(VisibilityAtALevel, HidingALabelFillChangesItAloneOnBothTypes) {
    const auto store =
        loadedWith({colouredGeometry("highway"), colouredGeometry("highwaylabel"), colouredLabels("highway"),
                    rule("highway", "labels.text.fill").visibility("off").level("12")});
    for (const int type : {13, 28}) {
        tagCustomStyle expected = colouredRecord(type);
        expected.m_textFillColor = 0;
        EXPECT_EQ(firstRecordAt(*store, std::to_string(type) + ":12"), expected);
    }
}

TEST(VisibilityAtALevel, ShowingTheIconStartsFromTheStyleForAllLevels) {
    const auto store =
        loadedWith({colouredGeometry("water"), colouredLabels("water"), rule("water", "icon").visibility("off"),
                    rule("water", "icon").visibility("on").level("12")});
    EXPECT_EQ(firstRecordAt(*store, "2:12"), colouredRecord(2));
    EXPECT_EQ(firstRecordAt(*store, "2").m_iconHidden, 1);
}

TEST(VisibilityAtALevel, WithoutAStyleForAllLevelsEverythingIsHidden) {
    const auto store = loadedWith({rule("highway", "labels").visibility("off").level("12")});
    for (const char* key : {"13:12", "28:12"}) {
        EXPECT_EQ(firstRecordAt(*store, key).m_iconHidden, 1) << key;
        EXPECT_EQ(firstRecordAt(*store, key).m_textFillColorSet, 1) << key;
        EXPECT_EQ(firstRecordAt(*store, key).m_textStrokeColorSet, 1) << key;
    }
}

TEST(VisibilityAtALevel, IconsOfAllAreHiddenAtEveryLevel) {
    const auto store = loadedWith({rule("all", "icon").visibility("off").level("12")});
    EXPECT_EQ(store->m_allIconsHidden, 1);
    EXPECT_TRUE(store->m_keyStyleMaps.empty());
}

// ---- The writer -----------------------------------------------------------------------------------------------------

class IconFlag : public testing::TestWithParam<WriterCase> {};

TEST_P(IconFlag, IsWrittenForItsElementsWhileEveryRecordIsMarked) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetCustomIconInvisible(13, GetParam().element, 1, 1, 0);
    EXPECT_EQ(changesIn(*store, 0), std::string("13") + GetParam().changes);
}

TEST_P(IconFlag, IsWrittenTheSameAtALevel) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetCustomIconInvisible(13, GetParam().element, 1, 0, 17);
    EXPECT_EQ(changesIn(*store, 0, ":17"), std::string("13") + GetParam().changes);
}

constexpr WriterCase kIconFlagRows[] = {
    {"all", "+ icon=1"}, {"labels", "+ icon=1"}, {"icon", "+ icon=1"}, {"geometry", "+"}, {"stroke", "+"},
    {"fill", "+"},       {"topsurface", "+"},    {"text", "+"},        {"", "+"},         {"Icon", "+"},
};

INSTANTIATE_TEST_SUITE_P(VisibilityStyle, IconFlag, testing::ValuesIn(kIconFlagRows),
                         [](const auto& each) { return writerCaseName(each.param); });

TEST(VisibilityStyle, TheIconWriterBringsRecordsBackIntoUse) {
    const auto store = loadedWith(
        {rule("water", "geometry.fill").color("#000001"), rule("water", "labels.topsurface").color("#000002")});
    ASSERT_EQ(firstRecordAt(*store, "2").m_custom, 0);
    store->SetCustomIconInvisible(2, "unknown", 1, 1, 0);
    EXPECT_EQ(firstRecordAt(*store, "2").m_custom, 1);
    EXPECT_EQ(firstRecordAt(*store, "2").m_iconHidden, 0);
}

TEST(VisibilityStyle, TheIconWriterStoresWhatItIsGiven) {
    const auto store = markedStore();
    for (const int hide : {7, -1, 0}) {
        store->SetCustomIconInvisible(13, "icon", hide, 1, 0);
        EXPECT_EQ(firstRecordAt(*store, "13").m_iconHidden, hide);
    }
}

TEST(VisibilityStyle, TheIconWriterDoesNothingForATypeThatDoesNotExist) {
    const auto store = markedStore();
    for (const int type : {-1, 73}) store->SetCustomIconInvisible(type, "icon", 1, 0, 15);
    EXPECT_EQ(changesIn(*store, 0), "");
}

}  // namespace
}  // namespace customstyle_test
