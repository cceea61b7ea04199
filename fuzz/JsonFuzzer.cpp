// The tools' JSON reader beside the parser that the component uses.
#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Require.h"
#include "tests/json/ComponentComparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = customstyle_fuzz::FuzzInput(data, size).rest();
    const std::string difference = customstyle_test::differenceToComponent(text);
    customstyle_fuzz::require(difference.empty(), difference);
    if (size > 2000) return 0;  // each value is read again for each list around it
    const std::string misplaced = customstyle_test::misplacedValue(text);
    customstyle_fuzz::require(misplaced.empty(), misplaced);
    return 0;
}
