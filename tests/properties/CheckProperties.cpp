// What check claims: whatever it says can be taken out changes nothing, and what it blames is to blame.
#include <algorithm>
#include <functional>
#include <iterator>
#include <random>
#include <utility>

#include "tests/properties/CheckedStyle.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

std::string inSmallLetters(std::string text) {
    std::ranges::transform(text, text.begin(), [](char each) { return each >= 'A' && each <= 'Z' ? each + 32 : each; });
    return text;
}

// A styler goes each time that it is there: where the first of two is gone, the second counts.
Rules without(Rules rules, std::vector<Part> parts) {
    std::ranges::sort(parts, std::greater<>());
    parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
    for (const auto& [rule, styler] : parts) {
        const auto at = rules.begin() + static_cast<std::ptrdiff_t>(rule);
        if (!styler) {
            at->stylers.reset();
        } else if (at->stylers && *styler < at->stylers->size()) {
            const std::string name = inSmallLetters((*at->stylers)[*styler].first);
            std::erase_if(*at->stylers, [&](const auto& each) { return inSmallLetters(each.first) == name; });
        }
    }
    return rules;
}

class Removals {
public:
    explicit Removals(const CheckedStyle& style) : m_style(style) {
        for (const Json& finding : style.findings()) {
            if (finding.at("remedy").get<std::string>().starts_with("remove it")) {
                m_all.push_back(style.partAt(finding));
            }
        }
    }

    /// Whichever of them an author follows, in whichever order.
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
        return oneFails(someOfThem(), "some of the remedies change nothing");
    }

private:
    std::vector<Part> someOfThem() const {
        std::mt19937 random(m_style.trial().variant);
        std::vector<Part> some;
        std::ranges::copy_if(m_all, std::back_inserter(some), [&](const Part&) { return random() % 2 == 0; });
        return some;
    }

    std::optional<Failure> oneFails(const std::vector<Part>& parts, const char* claim) const {
        const auto changed = difference(m_style.answers(), Answers(m_style.map(), without(m_style.rules(), parts)));
        if (!changed) return {};
        std::string names;
        for (const Part& part : parts) names += m_style.textOf(part) + ", ";
        return Failure{claim, names + *changed};
    }

    const CheckedStyle& m_style;
    std::vector<Part> m_all;  // from the top
};

}  // namespace

std::optional<Failure> checkHolds(const Trial& trial) {
    const CheckedStyle style(trial);
    if (auto failure = Removals(style).fail()) return failure;
    return blameFails(style);
}

}  // namespace customstyle_test::properties
