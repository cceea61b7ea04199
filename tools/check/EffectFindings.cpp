// What the proofs say: rules and stylers without effect, and with an effect in part.
#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "tools/check/FieldHistory.h"
#include "tools/check/StyleUnderCheck.h"
#include "tools/replay/StoreImage.h"
#include "tools/support/Answers.h"
#include "tools/support/FeatureTypes.h"
#include "tools/support/Levels.h"

namespace customstyle_tool {
namespace {

std::vector<std::size_t> stepsOfEffect(const StyleUnderCheck& check, const ProvenEffect& proven) {
    std::vector<std::size_t> steps;
    for (std::size_t i = 0; i < check.steps().size(); ++i) {
        const ReplayStep& step = check.steps()[i];
        if (step.rule == proven.rule && (proven.styler.empty() || step.styler == proven.styler)) steps.push_back(i);
    }
    return steps;
}

// ---- Why there is no effect -----------------------------------------------------------------------------------------

class Reason {
public:
    Reason(const StyleUnderCheck& check, const FieldHistory& history, const std::vector<std::size_t>& steps)
        : m_check(check), m_history(history), m_steps(steps.begin(), steps.end()) {}

    /// Adds the reason, and the place of it, to a finding.
    void addTo(Finding& finding) const {
        const std::set<std::size_t> culprits = overwriters();
        if (!ownsAnything() && !culprits.empty()) return addOverwritten(finding, culprits);
        if (changesNothing()) {
            finding.message += ": it writes what is there already";
        } else if (isAnsweredByOthers()) {
            finding.message += ": other feature types answer for all its style ids";
        }
    }

private:
    void addOverwritten(Finding& finding, const std::set<std::size_t>& culprits) const {
        const ReplayStep& first = m_check.steps()[*culprits.begin()];
        finding.message += fmt::format(": {}{} overwrite{} all that it writes", m_check.nameOf(first),
                                       culprits.size() > 1 ? " and later ones" : "", culprits.size() > 1 ? "" : "s");
        finding.related.push_back({m_check.ruleOf(first).stylerRange(first.styler), "overwritten here"});
    }

    std::set<std::size_t> overwriters() const {
        std::set<std::size_t> culprits;
        for (const LostWork& loss : m_history.losses()) {
            if (m_steps.contains(loss.victim) && !m_steps.contains(loss.culprit)) culprits.insert(loss.culprit);
        }
        return culprits;
    }

    bool ownsAnything() const {
        return std::ranges::any_of(m_history.records(), [&](const auto& record) {
            return std::any_of(record.second.begin(), record.second.begin() + kMarkField,
                               [&](const Owner& owner) { return owner.step && m_steps.contains(*owner.step); });
        });
    }

    template <typename Test>
    bool allTouches(Test test) const {
        return std::ranges::all_of(
            m_steps, [&](std::size_t step) { return std::ranges::all_of(m_check.steps()[step].touches, test); });
    }

    bool changesNothing() const {
        return allTouches([](const RecordTouch& touch) { return sameFields(touch.before, touch.after); });
    }

    bool isAnsweredByOthers() const {
        return allTouches([&](const RecordTouch& touch) {
            const auto styleId = static_cast<unsigned int>(touch.styleId);
            const Answer answer = ask(m_check.outcome(), styleId, touch.level.value_or(0));
            return answer.featureType != -1 && answer.featureType != touch.featureType;
        });
    }

    const StyleUnderCheck& m_check;
    const FieldHistory& m_history;
    std::set<std::size_t> m_steps;
};

// ---- The proofs -----------------------------------------------------------------------------------------------------

LevelSet levelsOf(const Effect& effect) {
    return effect.styles | effect.icons | effect.land | effect.grid;
}

std::string partialText(const Effect& effect, bool isForOneLevel) {
    const LevelSet levels = levelsOf(effect);
    std::string text;
    if (!isForOneLevel && !levels.all()) text = fmt::format(" at levels {}", levelsText(levels));
    if (effect.icons.any() && !(effect.styles | effect.land | effect.grid).any()) text += " on icons";
    return text;
}

// The time grows with the square of the number: half a minute for so many on a small machine.
constexpr std::size_t kMostStepsToProve = 15'000;

void addUnproven(StyleUnderCheck& check) {
    const std::size_t begin = check.style().document().root().range().begin;
    check.addToFile(Code::EffectsUnproven, {begin, begin + 1},
                    fmt::format("the file has {} rules, too many to prove what each of them does; rules without effect "
                                "are not found",
                                check.rules().size()));
}

class EffectCheck {
public:
    EffectCheck(StyleUnderCheck& check, const std::vector<ProvenEffect>& effects)
        : m_check(check), m_effects(effects), m_history(check.steps()) {}

    void run() {
        std::set<std::size_t> idleRules;
        for (const ProvenEffect& proven : m_effects) {
            if (idleRules.contains(proven.rule)) continue;  // what holds for a rule holds for its stylers
            if (proven.effect.any()) {
                addPartial(proven);
                addSharedIds(proven);
            } else {
                if (proven.styler.empty()) idleRules.insert(proven.rule);
                addNone(proven);
            }
        }
    }

private:
    void addNone(const ProvenEffect& proven) {
        const std::vector<std::size_t> steps = stepsOfEffect(m_check, proven);
        const auto isExplained = [&](std::size_t step) {
            return m_check.isExplained(proven.rule, m_check.steps()[step].styler) ||
                   !m_check.steps()[step].refused.empty();
        };
        if (std::ranges::all_of(steps, isExplained)) return;
        Finding& finding = add(Code::NoEffect, steps, proven);
        finding.message = fmt::format("{} no effect on the map", subjectOf(steps, proven));
        Reason(m_check, m_history, steps).addTo(finding);
    }

    void addPartial(const ProvenEffect& proven) {
        const std::vector<std::size_t> steps = stepsOfEffect(m_check, proven);
        const bool isForOneLevel = m_check.rules()[proven.rule].textMember("level").has_value();
        const std::string text = partialText(proven.effect, isForOneLevel);
        if (text.empty()) return;
        Finding& finding = add(Code::PartialEffect, steps, proven);
        finding.message = fmt::format("{} an effect only{}", subjectOf(steps, proven), text);
    }

    // The first touch of the step whose style id another type answers for, and otherwise.
    static const RecordTouch* lostTouch(const StyleUnderCheck& check, const ReplayStep& step) {
        const auto isLost = [&](const RecordTouch& touch) {
            if (catalogue().IsParentFeatureType(touch.featureType) != 0) return false;  // answers last by nature
            const Answer answer =
                ask(check.outcome(), static_cast<unsigned int>(touch.styleId), touch.level.value_or(0));
            const bool isOther = answer.featureType != -1 && answer.featureType != touch.featureType;
            return isOther && touch.after.m_custom != 0 && !sameFields(answer.style, touch.after);
        };
        const auto found = std::ranges::find_if(step.touches, isLost);
        return found == step.touches.end() ? nullptr : &*found;
    }

    void addSharedIds(const ProvenEffect& proven) {
        const std::vector<std::size_t> steps = stepsOfEffect(m_check, proven);
        if (steps.size() != 1) return;  // each styler has a proof of its own
        const ReplayStep& step = m_check.steps()[steps.front()];
        const RecordTouch* const touch = lostTouch(m_check, step);
        if (touch == nullptr) return;
        const int other =
            ask(m_check.outcome(), static_cast<unsigned int>(touch->styleId), touch->level.value_or(0)).featureType;
        m_check.add(Code::SharedIdsLost, step,
                    fmt::format("style ids that \"{0}\" shares with \"{1}\", such as {2}, follow \"{1}\"",
                                catalogue().GetFeatureTypeName(touch->featureType),
                                catalogue().GetFeatureTypeName(other), touch->styleId));
    }

    // A rule with one styler is named by that styler's place.
    Finding& add(Code code, const std::vector<std::size_t>& steps, const ProvenEffect& proven) {
        if (steps.size() == 1) return m_check.add(code, m_check.steps()[steps.front()], "");
        const RuleView& rule = m_check.rules()[proven.rule];
        return m_check.add(code, rule, rule.start(), rule.value.path(), "");
    }

    std::string subjectOf(const std::vector<std::size_t>& steps, const ProvenEffect& proven) const {
        return steps.size() == 1 && !proven.styler.empty() ? fmt::format("the {} has", proven.styler)
                                                           : std::string("the rule has");
    }

    StyleUnderCheck& m_check;
    const std::vector<ProvenEffect>& m_effects;
    FieldHistory m_history;
};

}  // namespace

void findEffects(StyleUnderCheck& check, std::string_view mapping, const Progress& progress) {
    if (check.steps().size() > kMostStepsToProve) return addUnproven(check);
    const std::vector<ProvenEffect> effects = proveEffects(mapping, check.style(), progress);
    const int wasEnabled = std::exchange(g_zrsdk_custom_style_enable, 1);
    EffectCheck(check, effects).run();
    g_zrsdk_custom_style_enable = wasEnabled;
}

}  // namespace customstyle_tool
