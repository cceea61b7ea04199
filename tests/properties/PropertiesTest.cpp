// The tools against the model: what they claim about random styles holds.
#include <gtest/gtest.h>

#include "tests/properties/Properties.h"

namespace customstyle_test::properties {

void PrintTo(const Property& property, std::ostream* stream) {
    *stream << property.name;
}

namespace {

constexpr unsigned kTrials = 400;

class Claims : public testing::TestWithParam<Property> {};

TEST_P(Claims, HoldForRandomStyles) {
    for (unsigned seed = 1; seed <= kTrials; ++seed) {
        const Trial trial = randomTrial(seed);
        const auto failure = tried(GetParam(), trial);
        if (!failure) continue;
        const Trial small = shrunk(GetParam(), trial, *failure);
        FAIL() << report(GetParam(), seed, small, tried(GetParam(), small).value_or(*failure));
    }
}

std::string propertyName(const testing::TestParamInfo<Property>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Properties, Claims, testing::ValuesIn(kProperties), propertyName);

}  // namespace
}  // namespace customstyle_test::properties
