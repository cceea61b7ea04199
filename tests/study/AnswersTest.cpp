// What a question of the renderer is answered.
#include <gtest/gtest.h>

#include "tests/support/TestStore.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

constexpr int kWaterType = _orvik_framework::EMAPCUSTOMSTYLE_WATER;

TEST(FieldOfAnAnswer, IsNoneWhereNoTypeAnswers) {
    const auto config = loadedWith({rule("water", "fill").color("#112233")});
    const Answer answer = ask(*config, static_cast<unsigned int>(firstStyleId(kHighway)), 9);
    for (std::size_t field = 0; field < styleFields().size(); ++field) {
        EXPECT_EQ(fieldIn(answer, field), std::nullopt) << styleFields()[field].name;
    }
}

TEST(FieldOfAnAnswer, IsNoneWhereNoRuleHasSetIt) {
    const auto config = loadedWith({rule("water", "fill").color("#112233")});
    const Answer answer = ask(*config, static_cast<unsigned int>(firstStyleId(kWaterType)), 9);
    EXPECT_EQ(fieldIn(answer, fieldIndex("fill")), 0xFF332211U);
    EXPECT_EQ(fieldIn(answer, fieldIndex("stroke")), std::nullopt);
    EXPECT_EQ(fieldIn(answer, kIconField), 0U);
}

}  // namespace
}  // namespace customstyle_test
