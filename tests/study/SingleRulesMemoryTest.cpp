// Splitting a style into single rules while memory runs out.
#include <gtest/gtest.h>

#include <new>

#include "tests/study/Sources.h"
#include "tests/support/FailingHeaps.h"
#include "tools/study/SingleRules.h"

namespace customstyle_test {
namespace {

using Failures = FailingHeaps::Failures;

class SingleRulesMemory : public testing::TestWithParam<Failures> {
protected:
    /// Whether an allocation failed on the way.
    static bool splitWith(std::size_t successes, const StyleText& style) {
        const FailingHeaps heaps(successes, GetParam());
        try {
            customstyle_tool::singleRules(style.source(), [] { throw std::bad_alloc(); });
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(heaps.hasFailed());
        }
        return heaps.hasFailed();
    }
};

TEST_P(SingleRulesMemory, RunningOutEndsInAnExceptionAndLeavesNothing) {
    const StyleText style("[" + rule("highway", "all").color("#112233").visibility("off").level("9").json() + "]");
    std::size_t successes = 0;
    for (; splitWith(successes, style); ++successes) ASSERT_EQ(outstandingJsonBlocks(), 0) << successes;
    EXPECT_GT(successes, 0U);
    EXPECT_EQ(outstandingJsonBlocks(), 0);
}

INSTANTIATE_TEST_SUITE_P(Heaps, SingleRulesMemory, testing::Values(Failures::One, Failures::AllFurther),
                         [](const auto& each) { return each.param == Failures::One ? "Once" : "FromThenOn"; });

}  // namespace
}  // namespace customstyle_test
