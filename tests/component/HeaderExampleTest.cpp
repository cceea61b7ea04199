// The code that CustomConfig.h shows above the class, in the hands of a user.
#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void runExample(unsigned int styleId, int level, const std::function<void(std::uint64_t)>& fillWith){
#include "tests/component/HeaderExample.inc"
}

std::vector<std::uint64_t> fillsAt(unsigned int styleId, int level) {
    std::vector<std::uint64_t> fills;
    runExample(styleId, level, [&](std::uint64_t colour) { fills.push_back(colour); });
    return fills;
}

// The night style fills the example map's motorway, 1001, with #a8772f.
TEST(HeaderExample, FillsACustomisedStyle) {
    EXPECT_THAT(fillsAt(1001, 15), ElementsAre(0xFF2F77A8));
}

TEST(HeaderExample, LeavesOtherStylesAlone) {
    EXPECT_THAT(fillsAt(424242, 15), IsEmpty());
}

}  // namespace
