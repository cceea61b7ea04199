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

constexpr unsigned int kWaterId = defaultStyleId(2);

const std::string kBlueWater = styleOf({rule("water", "geometry.fill").color("#0000ff")});

std::string failureOf(const StyleOrFailure& loaded) {
    const auto* const failure = std::get_if<ReadFailure>(&loaded);
    return failure == nullptr ? "none" : failure->text;
}

class StyleFile : public testing::Test {
protected:
    static StyleOrFailure loaded(const std::string& text, const std::optional<std::string>& mappingDirectory = {}) {
        return studyOf(std::make_unique<SourceFile>("style.json", text), mappingDirectory, Mapping::standard());
    }

    QueriesEnabled m_enabled;  // loading turns the questions on, and they are to be as before afterwards
    TemporaryDirectory m_directory;
};

TEST_F(StyleFile, IsLoadedOverTheDefaultMapping) {
    const StyleOrFailure study = loaded(kBlueWater);
    ASSERT_EQ(failureOf(study), "none");
    const StyleStudy& style = *std::get<0>(study);
    EXPECT_EQ(style.source().rules().size(), 1U);
    EXPECT_EQ(style.mapping().text(), defaultMapping());
    EXPECT_EQ(ask(style.config(), kWaterId, 9).style.m_fillColor, 0xffff0000U);
}

TEST_F(StyleFile, IsLoadedOverTheMappingOfADirectory) {
    std::string mapping = defaultMapping();
    mapping.replace(mapping.find("1002"), 4, "7");
    m_directory.write("CustomIndex", mapping);
    const StyleOrFailure study = loaded(kBlueWater, m_directory.path().string());
    ASSERT_EQ(failureOf(study), "none");
    EXPECT_EQ(ask(std::get<0>(study)->config(), 7, 9).featureType, 2);
    EXPECT_EQ(ask(std::get<0>(study)->config(), kWaterId, 9).featureType, -1);
}

TEST_F(StyleFile, IsLoadedWithoutTheLogOfItsRules) {
    LogCapture log;
    loaded(R"([{"featureType": "lake"}])");
    EXPECT_TRUE(log.take().empty());
}

TEST_F(StyleFile, ThatIsEmptyIsNotLoaded) {
    EXPECT_EQ(failureOf(loaded("")), "style.json: is empty; a style file holds JSON");
}

TEST_F(StyleFile, ThatIsNoJsonIsNotLoadedAndThePlaceIsReported) {
    EXPECT_THAT(failureOf(loaded("[\n 1,]")), StartsWith("style.json:2:3: is not JSON: "));
}

TEST_F(StyleFile, IsNotLoadedOverAMappingThatTheComponentRefuses) {
    m_directory.write("CustomIndex", "{}");
    EXPECT_THAT(failureOf(loaded(kBlueWater, m_directory.path().string())),
                HasSubstr("CustomIndex: has no list of style ids for land, green"));
}

TEST(StoreOfTwoTexts, HoldsWhatTheyMake) {
    const QueriesEnabled enabled;
    EXPECT_EQ(ask(*storeOf(defaultMapping(), kBlueWater), kWaterId, 9).style.m_fillColor, 0xffff0000U);
    EXPECT_EQ(ask(*storeOf(defaultMapping(), "[]"), kWaterId, 9).featureType, -1);
}

}  // namespace
}  // namespace customstyle_test
