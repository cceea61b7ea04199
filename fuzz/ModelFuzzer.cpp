// Rules that are well formed, in any order and number: the component against the model in tests/model_check, and all
// questions.
#include <string>

#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Inspection.h"
#include "fuzz/support/LoadAccounts.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/RuleInput.h"
#include "tests/model_check/StoreImage.h"
#include "tests/model_check/StyleModel.h"
#include "tests/support/StyleBuilder.h"

using namespace customstyle_fuzz;
using namespace customstyle_test::model;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const LoadAccounts accounts;
    StyleModel model;
    const auto styleIds = styleIdsFrom(input);
    for (std::size_t type = 0; type < styleIds.size(); ++type)
        model.addStyleIds(static_cast<int>(type), styleIds[type]);
    std::string rules;
    rulesFrom(input, Slots::MayRunOut, [&](const Rule& rule) {
        model.apply(rule);
        rules += (rules.empty() ? "" : ",") + jsonOf(rule);
    });

    _orvik_framework::CustomConfig config;
    config.ParseMappingConfig(customstyle_test::parsed(mappingText(styleIds)).get());
    config.ParseCustomConfig(customstyle_test::parsed("[" + rules + "]").get());
    const auto found = differences(imageOf(model), imageOf(config));
    require(found.empty(), found.empty() ? "" : "store and model: " + found.front());
    inspectLoaded(config);
    require(accounts.linesEnding("") == model.log.size(), "as many lines as the model says");
    return 0;
}
