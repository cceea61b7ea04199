// Rules that are well formed, in any order and number: the component against the model in tests/model_check.
#include <string>

#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/LoadAccounts.h"
#include "fuzz/support/Questions.h"
#include "fuzz/support/Require.h"
#include "tests/model_check/ModelTables.h"
#include "tests/model_check/StoreImage.h"
#include "tests/model_check/StyleModel.h"
#include "tests/support/StyleBuilder.h"

namespace {

using namespace customstyle_fuzz;
using namespace customstyle_test::model;
using _orvik_framework::CustomConfig;

constexpr const char* kPrefixes[] = {"", "", "geometry.", "labels.", "labels.text.", "all.", "wall.", ".", "a.b."};
constexpr const char* kWords[] = {"all",        "labels", "geometry", "stroke", "fill",
                                  "topsurface", "icon",   "text",     "",       "Fill"};
constexpr const char* kNumbers[] = {"0", "7", "254", "255", "256", "00099", "1000000000000", "", "-1", "3px"};
constexpr const char* kLevels[] = {"4", "5", "12", "13", "20", "21", "3", "22", "x", ""};
constexpr const char* kColours[] = {"#112233", "#aabbccdd", "#00000000", "#FFFFFFFF", "#gg00zz1"};

// Both members of a pair of companions are as likely as all other types together.
int featureType(FuzzInput& input) {
    constexpr int kFrequent[] = {0, 4, 45, 46, 53, 71, 72, 13, 28, 25, 26};
    return input.below(2) == 0 ? input.oneOf(kFrequent) : static_cast<int>(input.below(73));
}

Value text(const std::string& text) {
    return {text, "null"};
}

Rule ruleFrom(FuzzInput& input) {
    Rule rule;
    const auto type = static_cast<std::size_t>(featureType(input));
    rule.frame = {{"featureType", text(kNames[type])},
                  {"elementType", text(std::string(input.oneOf(kPrefixes)) + input.oneOf(kWords))}};
    const std::size_t stylers = input.byte();
    rule.stylers.emplace();
    if (stylers & 1) rule.stylers->emplace_back("color", text(input.oneOf(kColours)));
    if (stylers & 2) rule.stylers->emplace_back("visibility", text(stylers & 4 ? "on" : "off"));
    if (stylers & 8) rule.stylers->emplace_back("weight", text(input.oneOf(kNumbers)));
    if (stylers & 16) rule.stylers->emplace_back("fontsize", text(input.oneOf(kNumbers)));
    if (stylers & 32) rule.stylers->emplace_back("level", text(input.oneOf(kLevels)));
    if (stylers & 64) rule.stylers->emplace_back("color", text("#010203"));  // a repeated member, or a late one
    return rule;
}

/// The component and the model, given the same.
struct Both {
    void addStyleIds(int type, FuzzInput& input) {
        std::vector<int> ids;
        std::string json;
        for (std::size_t count = input.below(4); count > 0; --count) {
            ids.push_back(static_cast<int>(input.below(24)) - 2);
            json += (json.empty() ? "" : ",") + std::to_string(ids.back());
        }
        model.addStyleIds(type, ids);
        mapping += (type == 0 ? "{\"" : ",\"") + kNames[static_cast<std::size_t>(type)] + "\":[" + json + "]";
    }

    void apply(const Rule& rule) {
        model.apply(rule);
        rules += (rules.empty() ? "" : ",") + jsonOf(rule);
    }

    // Uses up slots: a rule for each level of some types.
    void applyToLevels(int firstType, std::size_t types) {
        for (std::size_t i = 0; i < types; ++i) {
            for (int level = 4; level <= 21; ++level) {
                const auto type = (static_cast<std::size_t>(firstType) + i) % 73;
                apply({{{"featureType", text(kNames[type])}, {"elementType", text("fill")}},
                       Members{{"color", text("#040506")}, {"level", text(std::to_string(level))}}});
            }
        }
    }

    void compare() {
        config.ParseMappingConfig(customstyle_test::parsed(mapping + "}").get());
        config.ParseCustomConfig(customstyle_test::parsed("[" + rules + "]").get());
        const auto found = differences(imageOf(model), imageOf(config));
        require(found.empty(), found.empty() ? "" : "store and model: " + found.front());
        requireSoundStore(config);
        requireSameAnswers(config);
    }

    CustomConfig config;
    StyleModel model;
    std::string mapping;
    std::string rules;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const LoadAccounts accounts;
    Both both;
    for (int type = 0; type <= 71; ++type) both.addStyleIds(type, input);
    for (int rules = 0; rules < 200 && !input.isEmpty(); ++rules) {
        const std::size_t action = input.below(64);
        if (action == 63 && input.below(8) == 0) both.applyToLevels(featureType(input), input.below(73));
        if (action < 63) both.apply(ruleFrom(input));
    }
    both.compare();
    require(accounts.linesEnding("") == both.model.log.size(), "as many lines as the model says");
    return 0;
}
