// Rules that are well formed, in any order and number, handed to the component alone over a mapping that stays.
#include <string>
#include <vector>

#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Inspection.h"
#include "fuzz/support/LoadAccounts.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/RuleInput.h"
#include "tests/support/TestStore.h"

using namespace customstyle_fuzz;

namespace {

// A style id for each type: most of the time goes into the records, and two of a type have the same history.
customstyle_test::Tree mappingOfOneEach() {
    std::vector<std::vector<int>> styleIds;
    for (int type = 0; type < 72; ++type) styleIds.push_back({customstyle_test::firstStyleId(type)});
    return customstyle_test::parsed(mappingText(styleIds));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto mapping = mappingOfOneEach();
    FuzzInput input(data, size);
    const LoadAccounts accounts;
    std::string rules;
    rulesFrom(input, Slots::Enough, [&](const auto& rule) { rules += (rules.empty() ? "" : ",") + jsonOf(rule); });
    _orvik_framework::CustomConfig config;
    require(config.ParseMappingConfig(mapping.get()) == 1, "the mapping is accepted");
    require(config.ParseCustomConfig(customstyle_test::parsed("[" + rules + "]").get()) == 1, "rules never fail");
    inspectLoaded(config);
    return 0;
}
