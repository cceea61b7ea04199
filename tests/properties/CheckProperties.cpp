// What check claims: what it offers to remove changes nothing, and what it blames is the cause.
#include "tests/properties/CheckedStyle.h"
#include "tests/properties/Mistakes.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

class Removals {
public:
    explicit Removals(const CheckedStyle& style) : m_style(style) {
        for (const Json& finding : style.findings()) {
            if (finding.at("can_go").get<bool>()) m_all.push_back(style.partAt(finding));
        }
    }

    /// Each alone, and all of them, one after another from either end. In other selections two rules can cover for each
    /// other.
    std::optional<Failure> fail() const {
        for (const Part& part : m_all) {
            if (auto failure = oneFails({part}, "each remedy alone changes nothing")) return failure;
        }
        for (std::size_t count = 2; count <= m_all.size(); ++count) {
            const auto size = static_cast<std::ptrdiff_t>(count);
            if (auto failure = oneFails({m_all.begin(), m_all.begin() + size}, "remedies from the top change nothing"))
                return failure;
            if (auto failure = oneFails({m_all.end() - size, m_all.end()}, "remedies from the bottom change nothing"))
                return failure;
        }
        return {};
    }

private:
    std::optional<Failure> oneFails(const std::vector<Part>& parts, const char* claim) const {
        const auto changed = difference(m_style.answers(), Answers(m_style.map(), m_style.without(parts)));
        if (!changed) return {};
        std::string names;
        for (const Part& part : parts) names += m_style.textOf(part) + ", ";
        return Failure{claim, names + *changed};
    }

    const CheckedStyle& m_style;
    std::vector<Part> m_all;  // from the top
};

// What is said of rules with mistakes and of broken texts.
std::optional<Failure> formFails(const Trial& trial) {
    if (trial.variant % 2 != 0) return jsonFails(trial);
    const Trial mistaken = withMistakes(trial);
    const CheckedStyle style(mistaken);
    auto failure = reasonsFail(style);
    if (!failure) failure = logFails(style);
    if (failure) failure->detail += "\nwith mistakes: " + written(mistaken.rules).text;
    return failure;
}

}  // namespace

std::optional<Failure> checkHolds(const Trial& trial) {
    const CheckedStyle style(trial);
    if (auto failure = Removals(style).fail()) return failure;
    if (auto failure = blameFails(style)) return failure;
    if (auto failure = reasonsFail(style)) return failure;
    if (auto failure = logFails(style)) return failure;
    if (auto failure = formFails(trial)) return failure;
    return trial.variant % 100 == 0 ? slotsFail(trial.variant) : std::nullopt;
}

}  // namespace customstyle_test::properties
