// The reasons that check prints: whatever a finding says of the component is so in the model.
#include <algorithm>

#include "tests/properties/Reasons.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

// A code without a reason is not so: whoever adds a finding about rules has to say when it is true.
bool isSo(const CheckedStyle& style, const Json& finding) {
    const std::string code = finding.at("code");
    for (const auto* reasons : {&kEffectReasons, &kReachReasons, &kMemberReasons}) {
        const auto reason = reasons->find(code);
        if (reason != reasons->end()) return reason->second(Said(style, finding));
    }
    return false;
}

// Whether it is reported that a styler undoes its own work.
bool undoingIsReported(const CheckedStyle& style, const Part& part) {
    return std::ranges::any_of(style.findings(), [&](const Json& finding) {
        if (finding.at("code") != "level-resets-itself") return false;
        const Part found = style.partAt(finding);
        return found.rule == part.rule && style.stylerOf(found) == style.stylerOf(part);
    });
}

}  // namespace

std::optional<Failure> reasonsFail(const CheckedStyle& style) {
    for (const Json& finding : style.findings()) {
        if (isSo(style, finding)) continue;
        return Failure{"what " + finding.at("code").get<std::string>() + " says is so", finding.at("message")};
    }
    for (std::size_t rule = 0; rule < style.rules().size(); ++rule) {
        const auto& stylers = style.rules()[rule].stylers;
        for (std::size_t styler = 0; stylers && styler < stylers->size(); ++styler) {
            const Part part{rule, styler};
            if (turnOf(style.stylerOf(part)) == kTurnCount || !undoesItsWork(style, part)) continue;
            if (!undoingIsReported(style, part))
                return Failure{"who undoes its own work gets a finding", style.textOf(part)};
        }
    }
    return {};
}

}  // namespace customstyle_test::properties
