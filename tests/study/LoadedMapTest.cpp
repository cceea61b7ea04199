#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <variant>

#include "tests/study/LoadedText.h"
#include "tests/support/LogCapture.h"
#include "tests/support/StyleBuilder.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"
#include "tools/host/LoadedMap.h"
#include "tools/study/Answers.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::HasSubstr;
using testing::StartsWith;

constexpr unsigned int kWater = defaultStyleId(2);

const std::string kBlueWater = styleOf({rule("water", "geometry.fill").color("#0000ff")});

std::string failureOf(const StyleOrFailure& loaded) {
    const auto* const failure = std::get_if<ReadFailure>(&loaded);
    return failure == nullptr ? "none" : failure->text;
}

class StyleFile : public testing::Test {
protected:
    QueriesEnabled m_enabled;  // loading turns the questions on, and they are to be as before afterwards
    TemporaryDirectory m_directory;
};

TEST_F(StyleFile, IsLoadedOverTheDefaultMapping) {
    const StyleOrFailure loaded = loadStyle(m_directory.write("style.json", kBlueWater), {});
    ASSERT_EQ(failureOf(loaded), "none");
    const StyleStudy& style = *std::get<0>(loaded);
    EXPECT_EQ(style.source().rules().size(), 1U);
    EXPECT_EQ(style.mapping().text(), defaultMapping());
    EXPECT_EQ(ask(style.config(), kWater, 9).style.m_fillColor, 0xffff0000U);
}

TEST_F(StyleFile, IsLoadedOverTheMappingOfADirectory) {
    std::string mapping = defaultMapping();
    mapping.replace(mapping.find("1002"), 4, "7");
    m_directory.write("CustomIndex", mapping);
    const StyleOrFailure loaded = loadStyle(m_directory.write("style.json", kBlueWater), m_directory.path().string());
    ASSERT_EQ(failureOf(loaded), "none");
    EXPECT_EQ(ask(std::get<0>(loaded)->config(), 7, 9).featureType, 2);
    EXPECT_EQ(ask(std::get<0>(loaded)->config(), kWater, 9).featureType, -1);
}

TEST_F(StyleFile, IsLoadedWithoutTheLogOfItsRules) {
    LogCapture log;
    loadStyle(m_directory.write("style.json", R"([{"featureType": "lake"}])"), {});
    EXPECT_TRUE(log.take().empty());
}

TEST_F(StyleFile, ThatIsEmptyIsNotLoaded) {
    const std::string path = m_directory.write("style.json", "");
    EXPECT_EQ(failureOf(loadStyle(path, {})), path + ": is empty; a style file holds JSON");
}

TEST_F(StyleFile, ThatIsNoJsonIsNotLoadedAndThePlaceIsTold) {
    const std::string path = m_directory.write("style.json", "[\n 1,]");
    EXPECT_THAT(failureOf(loadStyle(path, {})), StartsWith(path + ":2:3: is not JSON: "));
}

TEST_F(StyleFile, IsNotLoadedOverAMappingThatTheComponentRefuses) {
    m_directory.write("CustomIndex", "{}");
    EXPECT_THAT(failureOf(loadStyle(m_directory.write("style.json", kBlueWater), m_directory.path().string())),
                HasSubstr("CustomIndex: has no list of style ids for land, green"));
}

TEST(StoreOfTwoTexts, HoldsWhatTheyMake) {
    const QueriesEnabled enabled;
    EXPECT_EQ(ask(*storeOf(defaultMapping(), kBlueWater), kWater, 9).style.m_fillColor, 0xffff0000U);
    EXPECT_EQ(ask(*storeOf(defaultMapping(), "[]"), kWater, 9).featureType, -1);
}

}  // namespace
}  // namespace customstyle_test
