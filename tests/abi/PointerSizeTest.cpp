// What depends on the size of pointers, and what must not.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "customstyle/StoredRecords.h"
#include "customstyle/StyleSnapshot.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using namespace _orvik_framework;

constexpr bool kNarrowPointers = sizeof(void*) == 4;
constexpr int kType = EMAPCUSTOMSTYLE_OTHERLABEL;
constexpr int kAnyLevel = 10;

/// A store in which the style id that a mapping file gives as `mapped` belongs to a styled type.
std::unique_ptr<CustomConfig> storeWith(int mapped) {
    auto config = std::make_unique<CustomConfig>();
    std::string mapping;
    for (int type = 0; type < EMAPCUSTOMSTYLE_ALL; ++type) {
        mapping += (type == 0 ? "{\"" : ",\"") + config->GetFeatureTypeName(type) + "\":[";
        mapping += (type == kType ? std::to_string(mapped) : std::string()) + "]";
    }
    config->ParseMappingConfig(parsed(mapping + "}").get());
    const RuleBuilder colour = rule("otherlabel", "labels.text.fill").color("#112233");
    const RuleBuilder hidden = rule("otherlabel", "labels.icon").visibility("off");
    config->ParseCustomConfig(parsed(styleOf({colour, hidden})).get());
    return config;
}

struct IdCase {
    const char* name;
    int mapped;
    unsigned int asked;
    bool foundOnlyByNarrowPointers;
};

void PrintTo(const IdCase& each, std::ostream* stream) {
    *stream << each.name;
}

class MappedStyleId : public testing::TestWithParam<IdCase> {
protected:
    static bool isToBeFound() { return kNarrowPointers || !GetParam().foundOnlyByNarrowPointers; }

    static void expectAnswers(const auto& styles) {
        const QueriesEnabled enabled;
        tagCustomStyle style{};
        EXPECT_EQ(styles.GetStyleFromConfig(style, GetParam().asked, kAnyLevel), isToBeFound() ? kType : -1);
        EXPECT_EQ(style.m_ID, isToBeFound() ? GetParam().mapped : 0);
        EXPECT_EQ(styles.IsCustomizedIconVisible(GetParam().asked, kAnyLevel), isToBeFound() ? 1 : 0);
    }
};

TEST_P(MappedStyleId, IsAnsweredByTheClass) {
    expectAnswers(*storeWith(GetParam().mapped));
}

TEST_P(MappedStyleId, IsAnsweredByTheSnapshot) {
    expectAnswers(StyleSnapshot(*storeWith(GetParam().mapped)));
}

TEST_P(MappedStyleId, HasOneKeyForStoringAndAskingExactlyWhereItIsFound) {
    EXPECT_EQ(storedKey(GetParam().mapped) == queriedKey(GetParam().asked), isToBeFound());
}

INSTANTIATE_TEST_SUITE_P(PointerSize, MappedStyleId,
                         testing::Values(IdCase{"One", 1, 1, false},
                                         IdCase{"LastBelow2To31", std::numeric_limits<int>::max(), 0x7FFFFFFF, false},
                                         IdCase{"2To31", std::numeric_limits<int>::min(), 0x80000000, true},
                                         IdCase{"LastOfAll", -1, 0xFFFFFFFF, true}),
                         caseName);

TEST(StoredKey, IsTheSignExtendedId) {
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(storedKey(-2)), -2);
}

TEST(QueriedKey, IsTheZeroExtendedId) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(queriedKey(0xFFFFFFFE)), 0xFFFFFFFEu);
}

}  // namespace
}  // namespace customstyle_test
