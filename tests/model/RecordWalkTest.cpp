// The protocol of the record writers: which records they reach, what these start from, what mark they end with.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/model/BaseRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VLog.h"

namespace customstyle_test {
namespace {

constexpr int kStyleId = 7;

class RecordWalk : public testing::Test {
protected:
    RecordWalk() { addBaseRecord(m_config, kHighway, kStyleId); }

    void color(std::uint64_t value, int allLevels, int level) {
        m_config.SetTypeColor(kHighway, "fill", value, allLevels, level);
    }
    void weight(int value, int allLevels, int level) {
        m_config.SetTypeWeight(kHighway, "fill", value, allLevels, level);
    }

    tagCustomStyle* record(const std::string& key, int styleId = kStyleId) const {
        return recordAt(m_config, key, styleId);
    }

    CustomConfig m_config;
};

/// A customised record with a fill colour and a fill weight; 0 means never written.
tagCustomStyle written(int styleId, std::uint64_t color, std::uint8_t weight) {
    tagCustomStyle record = baseRecord(styleId);
    record.m_fillColor = color;
    record.m_fillColorSet = color != 0;
    record.m_fillWeight = weight;
    record.m_fillWeightSet = weight != 0;
    record.m_custom = 1;
    return record;
}

TEST_F(RecordWalk, WritesForAllLevelsAddUp) {
    color(0xff000011, 1, 0);
    weight(9, 1, 0);
    EXPECT_EQ(*record("13"), written(kStyleId, 0xff000011, 9));
}

TEST_F(RecordWalk, WritesForOneLevelAddUpWithoutAStyleForAllLevels) {
    color(0xff000011, 0, 15);
    weight(9, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 9));
}

TEST_F(RecordWalk, AWriteForOneLevelStartsFromTheStyleForAllLevels) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 9));
    EXPECT_EQ(*record("13"), written(kStyleId, 0xff000011, 0));
}

TEST_F(RecordWalk, EachWriteForOneLevelStartsAnew) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    color(0xff000022, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000022, 0));
}

TEST_F(RecordWalk, AWriteForOneLevelTakesTheStyleForAllLevelsAsItStandsNow) {
    weight(9, 0, 15);
    color(0xff000011, 1, 0);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0, 9));
    weight(10, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 10));
}

TEST_F(RecordWalk, AWriteForAllLevelsDoesNotReachTheLevelsOfBefore) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    color(0xff000022, 1, 0);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 9));
}

TEST_F(RecordWalk, LevelsOfATypeDoNotTouchEachOther) {
    color(0xff000011, 0, 14);
    weight(9, 0, 15);
    EXPECT_EQ(*record("13:14"), written(kStyleId, 0xff000011, 0));
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0, 9));
}

TEST_F(RecordWalk, ALevelDoesNotStartFromAnotherType) {
    addBaseRecord(m_config, 14, kStyleId);
    m_config.SetTypeColor(14, "fill", 0xff000011, 1, 0);
    weight(9, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0, 9));
}

TEST_F(RecordWalk, EveryRecordOfTheSlotIsWritten) {
    addBaseRecord(m_config, kHighway, 8);
    addBaseRecord(m_config, kHighway, -9);
    color(0xff000011, 1, 0);
    for (const int styleId : {kStyleId, 8, -9}) EXPECT_EQ(*record("13", styleId), written(styleId, 0xff000011, 0));
}

TEST_F(RecordWalk, EachRecordStartsFromTheOneOfItsOwnStyleId) {
    addBaseRecord(m_config, kHighway, 8);
    color(0xff000011, 1, 0);
    record("13", 8)->m_fillColor = 0xff000033;
    weight(9, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 9));
    EXPECT_EQ(*record("13:15", 8), written(8, 0xff000033, 9));
}

TEST_F(RecordWalk, AStyleIdWithoutARecordForAllLevelsIsNotReset) {
    color(0xff000011, 1, 0);
    addBaseRecord(m_config, kHighway, 8);
    weight(9, 0, 15);
    color(0xff000022, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000022, 0));
    EXPECT_EQ(*record("13:15", 8), written(8, 0xff000022, 9));
}

// The two differ only where somebody filed a record under another id than its own.
TEST_F(RecordWalk, TheRecordToStartFromIsFoundByTheKeyAndNotByTheRecordsId) {
    addBaseRecord(m_config, kHighway, 8);
    color(0xff000011, 1, 0);
    record("13", 8)->m_fillColor = 0xff000033;
    weight(9, 0, 15);
    record("13:15")->m_ID = 8;
    weight(10, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000011, 10));
    EXPECT_EQ(*record("13:15", 8), written(8, 0xff000033, 10));
}

TEST_F(RecordWalk, ANullRecordForAllLevelsResetsNothing) {
    m_config.m_keyStyleMaps["13"] = &m_config.m_levelStyleMaps[1240];
    m_config.m_levelStyleMaps[1240][recordKey(kStyleId)] = nullptr;
    weight(9, 0, 15);
    color(0xff000022, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000022, 9));
}

TEST_F(RecordWalk, ANullSlotForAllLevelsResetsNothing) {
    m_config.m_keyStyleMaps["13"] = nullptr;
    weight(9, 0, 15);
    color(0xff000022, 0, 15);
    EXPECT_EQ(*record("13:15"), written(kStyleId, 0xff000022, 9));
}

TEST_F(RecordWalk, ANullRecordOfTheSlotIsPassedOver) {
    color(0xff000011, 1, 0);
    m_config.m_levelStyleMaps[0][recordKey(8)] = nullptr;
    weight(9, 1, 0);
    EXPECT_EQ(*record("13"), written(kStyleId, 0xff000011, 9));
    EXPECT_EQ(record("13", 8), nullptr);
}

TEST_F(RecordWalk, AnUnknownElementTakesTheMarkAndLeavesTheFields) {
    color(0xff000011, 1, 0);
    m_config.SetTypeColor(kHighway, "nonsense", 0xff000022, 1, 0);
    tagCustomStyle unmarked = written(kStyleId, 0xff000011, 0);
    unmarked.m_custom = 0;
    EXPECT_EQ(*record("13"), unmarked);
}

TEST_F(RecordWalk, AnUnknownElementResetsALevelAllTheSame) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    m_config.SetTypeColor(kHighway, "nonsense", 0xff000022, 0, 15);
    tagCustomStyle unmarked = written(kStyleId, 0xff000011, 0);
    unmarked.m_custom = 0;
    EXPECT_EQ(*record("13:15"), unmarked);
}

// A host may look at the store while it receives a log line.
TEST_F(RecordWalk, ARecordHasNoMarkWhileItsUnknownElementIsLogged) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    std::vector<int> marks;
    _orvik_vi::CVLog::SetSink([&](_orvik_vi::ELOGPRIORITY, const std::string&) {
        for (const char* key : {"13", "13:15"}) marks.push_back(record(key)->m_custom);
    });
    m_config.SetTypeWeight(kHighway, "nonsense", 9, 0, 15);
    m_config.SetTypeWeight(kHighway, "fill", 9, 0, 15);
    m_config.SetFontWeightStyle(kHighway, "nonsense", 9, 0, 15);
    m_config.SetTypeWeight(kHighway, "fill", 9, 0, 15);
    m_config.setFontSizeStyle(kHighway, "nonsense", 9, 0, 15);
    _orvik_vi::CVLog::SetSink({});
    EXPECT_EQ(marks, (std::vector{1, 0, 1, 0, 1, 0}));
}

TEST_F(RecordWalk, AKnownElementBringsTheMarkBack) {
    m_config.SetTypeColor(kHighway, "nonsense", 0xff000022, 1, 0);
    color(0xff000011, 1, 0);
    EXPECT_EQ(*record("13"), written(kStyleId, 0xff000011, 0));
}

TEST_F(RecordWalk, TheIconWriterMarksWhateverTheElement) {
    m_config.SetCustomIconInvisible(kHighway, "nonsense", 1, 1, 0);
    EXPECT_EQ(*record("13"), written(kStyleId, 0, 0));
}

TEST_F(RecordWalk, ATypeWithoutRecordsGetsItsKeyAndNothingElse) {
    m_config.SetTypeColor(72, "fill", 0xff000011, 1, 0);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("72"), 1);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("72")->GetCount(), 0);
    EXPECT_EQ(m_config.m_usedLevelSlots, 1);
}

TEST_F(RecordWalk, BaseRecordsStayAsTheyWere) {
    color(0xff000011, 1, 0);
    weight(9, 0, 15);
    void* base = nullptr;
    ASSERT_TRUE(m_config.m_typeStyleMaps[kHighway].Lookup(recordKey(kStyleId), base));
    EXPECT_EQ(*static_cast<tagCustomStyle*>(base), baseRecord(kStyleId));
}

// ---- All six writers ------------------------------------------------------------------------------------------------

struct Writer {
    const char* name;
    void (*write)(CustomConfig& config, int allLevels, int level);
};

class EachWriter : public testing::TestWithParam<Writer> {
protected:
    EachWriter() { addBaseRecord(m_config, kHighway, kStyleId); }

    void write(int allLevels, int level) { GetParam().write(m_config, allLevels, level); }

    CustomConfig m_config;
};

TEST_P(EachWriter, RegistersTheKeyAndMarksTheRecord) {
    write(1, 0);
    write(0, 15);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13"), 1);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13:15"), 0);
    EXPECT_EQ(recordAt(m_config, "13", kStyleId)->m_custom, 1);
    EXPECT_EQ(recordAt(m_config, "13:15", kStyleId)->m_custom, 1);
}

TEST_P(EachWriter, ResetsALevelFromTheStyleForAllLevels) {
    write(1, 0);
    write(0, 15);
    recordAt(m_config, "13", kStyleId)->m_borderColor = 0xff000011;
    recordAt(m_config, "13:15", kStyleId)->m_borderColor = 0xff000022;
    write(0, 15);
    EXPECT_EQ(recordAt(m_config, "13:15", kStyleId)->m_borderColor, 0xff000011u);
}

TEST_P(EachWriter, LeavesOtherFieldsForAllLevels) {
    write(1, 0);
    recordAt(m_config, "13", kStyleId)->m_borderColor = 0xff000011;
    write(1, 0);
    EXPECT_EQ(recordAt(m_config, "13", kStyleId)->m_borderColor, 0xff000011u);
}

INSTANTIATE_TEST_SUITE_P(
    RecordWalk, EachWriter,
    testing::Values(
        Writer{"TypeColor", [](CustomConfig& c, int all, int level) { c.SetTypeColor(13, "fill", 1, all, level); }},
        Writer{"FontColor",
               [](CustomConfig& c, int all, int level) { c.SetFontColorStyle(13, "fill", 1, all, level); }},
        Writer{"Icon",
               [](CustomConfig& c, int all, int level) { c.SetCustomIconInvisible(13, "icon", 1, all, level); }},
        Writer{"TypeWeight", [](CustomConfig& c, int all, int level) { c.SetTypeWeight(13, "fill", 1, all, level); }},
        Writer{"FontWeight",
               [](CustomConfig& c, int all, int level) { c.SetFontWeightStyle(13, "fill", 1, all, level); }},
        Writer{"FontSize", [](CustomConfig& c, int all, int level) { c.setFontSizeStyle(13, "fill", 1, all, level); }}),
    caseName);

}  // namespace
}  // namespace customstyle_test
