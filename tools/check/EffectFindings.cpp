#include "tools/check/EffectFindings.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "tools/check/StyleFindings.h"
#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/StoreImage.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Levels.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

bool doesNothing(const ReplayStep& step) {
    return step.touches.empty() && !step.gridColor && !step.hidesEveryIcon;
}

// Calls `visit(levelClass, answer)` for the levels at which a record can be in effect.
template <typename Visit>
void forEachAnswer(const StyleStudy& study, const Speaker& speaker, const RecordTouch& touch, Visit visit) {
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        if (touch.level && *touch.level != levelOfClass(levelClass)) continue;
        visit(levelClass, study.answers().at(speaker, levelClass));
    }
}

bool isOfOtherType(const Answer& answer, const RecordTouch& touch) {
    return answer.featureType != -1 && answer.featureType != touch.featureType;
}

// Whether other types answer at all of these levels.
bool othersAnswer(const StyleStudy& study, const Speaker& speaker, const RecordTouch& touch) {
    bool areOthers = true;
    forEachAnswer(study, speaker, touch,
                  [&](std::size_t, const Answer& answer) { areOthers = areOthers && isOfOtherType(answer, touch); });
    return areOthers;
}

template <typename Visit>
void forEachSpeakerOf(const StyleStudy& study, int featureType, Visit visit) {
    for (const Speaker& speaker : study.mapping().speakers()) {
        if (std::ranges::find(speaker.types, featureType) != speaker.types.end()) visit(speaker);
    }
}

// ---- Why there is no effect -----------------------------------------------------------------------------------------

class Reason {
public:
    Reason(const StyleFindings& found, std::size_t begin, std::size_t end)
        : m_found(found), m_history(found.study().history()), m_begin(begin), m_end(end) {}

    /// Adds the reason and its place to a finding.
    void addTo(Finding& finding) const {
        const Culprits culprits = overwriters();
        if (hidesEveryIcon()) return addOtherHider(finding);
        if (isNeverAskedFor()) {
            finding.message += ": the renderer never finds its style ids";
        } else if (!ownsAnything() && !culprits.steps.empty()) {
            addCulprits(finding, culprits, culprits.steps.size() > 1 ? "overwrite" : "overwrites", "overwritten here");
        } else if (changesNothing()) {
            const Culprits owners = ownersBefore();
            if (!owners.isAll) return void(finding.message += ": it writes what is already there");
            addCulprits(finding, owners, "", "written here before");
        } else if (isAnsweredByOthers()) {
            finding.message += ": other feature types answer for all its style ids";
        }
    }

private:
    struct Culprits {
        std::vector<std::size_t> steps;  // ascending
        bool isSame = true;              // whether they wrote the same values
        bool isAll = true;               // whether each value has one
    };

    bool isOwn(std::size_t step) const { return step >= m_begin && step < m_end; }

    void addCulprits(Finding& finding, const Culprits& culprits, std::string_view verb, const char* place) const {
        const std::string names = m_found.namesOf(culprits.steps);
        if (culprits.isSame) {
            finding.message += fmt::format(": it says the same as {}", names);
        } else {
            finding.message += fmt::format(": {} {} all that it writes", names, verb);
        }
        for (const std::size_t step : culprits.steps) finding.related.push_back(m_found.placeOf(step, place));
    }

    // The steps that overwrote the values of these steps.
    Culprits overwriters() const {
        std::set<std::size_t> steps;
        Culprits culprits;
        for (std::size_t step = m_begin; step < m_end; ++step) {
            for (const LostWork& loss : m_history.lossesOf(step)) {
                if (isOwn(loss.culprit)) continue;
                steps.insert(loss.culprit);
                culprits.isSame &= !loss.isChanged;
                culprits.isAll &= loss.kind == LossKind::Overwritten;
            }
        }
        // A step that starts a record over writes none of the values.
        if (culprits.isAll) culprits.steps.assign(steps.begin(), steps.end());
        return culprits;
    }

    // The steps whose values these steps overwrote.
    Culprits ownersBefore() const {
        std::set<std::size_t> steps;
        std::size_t owned = 0;
        std::size_t written = 0;
        for (std::size_t step = m_begin; step < m_end; ++step) {
            for (const LostWork& loss : m_history.lossesBy(step)) {
                if (isOwn(loss.victim) || loss.kind != LossKind::Overwritten) continue;
                steps.insert(loss.victim);
                ++owned;
            }
            written += writtenFields(m_found.steps()[step]);
        }
        return {{steps.begin(), steps.end()}, true, owned == written && owned > 0};
    }

    static std::size_t writtenFields(const ReplayStep& step) {
        std::size_t count = step.gridColor ? 1 : 0;
        for (const RecordTouch& touch : step.touches) {
            count += static_cast<std::size_t>(
                std::count(touch.origins.begin(), touch.origins.begin() + kMarkField, Origin::Written));
        }
        return count;
    }

    bool isNeverAskedFor() const {
        return isInRecordsOnly() && allTouches([&](const RecordTouch& touch) {
                   return m_found.study().mapping().questionIdsOf(touch.featureType).empty();
               });
    }

    bool ownsAnything() const {
        for (std::size_t step = m_begin; step < m_end; ++step) {
            if (m_history.ownsAnything(step)) return true;
        }
        return false;
    }

    template <typename Test>
    bool allSteps(Test test) const {
        for (std::size_t step = m_begin; step < m_end; ++step) {
            if (!test(step)) return false;
        }
        return true;
    }

    template <typename Test>
    bool allTouches(Test test) const {
        return allSteps([&](std::size_t step) { return std::ranges::all_of(m_found.steps()[step].touches, test); });
    }

    bool changesNothing() const {
        return allTouches([](const RecordTouch& touch) { return sameFields(touch.before, touch.after); }) &&
               allSteps([&](std::size_t step) { return !m_found.steps()[step].gridColor || isSameGrid(step); });
    }

    bool isSameGrid(std::size_t step) const {
        return std::ranges::any_of(m_history.lossesBy(step),
                                   [](const LostWork& loss) { return loss.field == kGridField && !loss.isChanged; });
    }

    // Whether the steps change nothing but records.
    bool isInRecordsOnly() const {
        return allSteps([&](std::size_t step) {
            const ReplayStep& each = m_found.steps()[step];
            return !each.gridColor && !each.hidesEveryIcon;
        });
    }

    bool hidesEveryIcon() const {
        return !allSteps([&](std::size_t step) { return !m_found.steps()[step].hidesEveryIcon; });
    }

    void addOtherHider(Finding& finding) const {
        const auto& steps = m_found.steps();
        for (std::size_t step = 0; step < steps.size() && m_end - m_begin == 1; ++step) {
            if (isOwn(step) || !steps[step].hidesEveryIcon) continue;
            return addCulprits(finding, {{step}, true, true}, "", "hidden here");
        }
    }

    bool isAnsweredByOthers() const {
        return isInRecordsOnly() && allTouches([&](const RecordTouch& touch) {
                   bool areOthers = true;
                   forEachSpeakerOf(m_found.study(), touch.featureType, [&](const Speaker& speaker) {
                       areOthers = areOthers && othersAnswer(m_found.study(), speaker, touch);
                   });
                   return areOthers;
               });
    }

    const StyleFindings& m_found;
    const FieldHistory& m_history;
    std::size_t m_begin;
    std::size_t m_end;
};

// ---- The proofs -----------------------------------------------------------------------------------------------------

std::string partialText(const Effect& effect, bool isForOneLevel) {
    const LevelSet levels = effect.styles | effect.icons | effect.land | effect.grid;
    std::string text;
    if (!isForOneLevel && !levels.all()) text = fmt::format(" at {}", levelsPhrase(levels));
    if (effect.icons.any() && !(effect.styles | effect.land | effect.grid).any()) text += " on icons";
    return text;
}

class EffectFindings {
public:
    EffectFindings(StyleFindings& found, bool details) : m_found(found), m_details(details) {}

    void add(const ProvenEffect& proven) {
        if (proven.isIdle) return addNone(proven);
        if (m_details) addPartial(proven);
        if (proven.step) addSharedIds(m_found.steps()[*proven.step]);
    }

private:
    StyleStudy::StepRange stepsOf(const ProvenEffect& proven) const {
        if (proven.step) return {*proven.step, *proven.step + 1};
        return m_found.study().stepsOf(proven.rule);
    }

    void addNone(const ProvenEffect& proven) {
        const auto [begin, end] = stepsOf(proven);
        Finding& finding = addAt(Code::NoEffect, proven);
        finding.message = fmt::format("{} no effect on the map", subjectOf(proven));
        finding.canGo = true;
        if (isDoubled(proven)) finding.remedy = "remove every copy of it";
        Reason(m_found, begin, end).addTo(finding);
    }

    // Where the component treats several members as the same, the next one counts once the first is gone.
    bool isDoubled(const ProvenEffect& proven) const {
        if (!proven.step) return false;
        const ReplayStep& step = m_found.steps()[*proven.step];
        return m_found.ruleOf(step).members(step.styler).size() > 1;
    }

    void addPartial(const ProvenEffect& proven) {
        if (!proven.effect.any()) return;  // would be idle, if not for other rules that are
        const bool isForOneLevel = m_found.rules()[proven.rule].textMember(kLevelMember).has_value();
        const std::string text = partialText(proven.effect, isForOneLevel);
        if (!text.empty())
            addAt(Code::PartialEffect, proven).message = fmt::format("{} an effect only{}", subjectOf(proven), text);
    }

    // Style ids that a record shares with another type, and that follow the other type: the first id, and its levels.
    struct Followed {
        unsigned int styleId = 0;
        LevelSet levels;
    };

    // Keyed by the other type, which answers with different values.
    std::map<int, Followed> followedTypes(const RecordTouch& touch) const {
        std::map<int, Followed> followed;
        forEachSpeakerOf(m_found.study(), touch.featureType, [&](const Speaker& speaker) {
            forEachAnswer(m_found.study(), speaker, touch, [&](std::size_t levelClass, const Answer& answer) {
                if (!isOfOtherType(answer, touch) || sameFields(answer.style, touch.after)) return;
                Followed& each = followed.try_emplace(answer.featureType, Followed{speaker.styleId, {}}).first->second;
                if (each.styleId == speaker.styleId) each.levels.set(levelClass);
            });
        });
        return followed;
    }

    void addSharedIds(const ReplayStep& step) {
        // On every map any type may share style ids with any other.
        if (m_found.study().mapping().kind() == Mapping::Kind::EveryMap) return;
        for (const RecordTouch& touch : step.touches) {
            if (catalogue().IsParentFeatureType(touch.featureType) != 0) continue;  // always answers last
            if (touch.after.m_custom == 0) continue;
            for (const auto& [other, followed] : followedTypes(touch)) {
                m_found.add(
                    Code::SharedIdsLost, step,
                    fmt::format("style ids that \"{0}\" shares with \"{1}\", such as {2}, follow \"{1}\" at {3}",
                                catalogue().GetFeatureTypeName(touch.featureType),
                                catalogue().GetFeatureTypeName(other), followed.styleId,
                                levelsPhrase(followed.levels)));
            }
        }
    }

    // A rule with one styler is named by that styler's place.
    Finding& addAt(Code code, const ProvenEffect& proven) {
        if (proven.step) return m_found.add(code, m_found.steps()[*proven.step], "");
        const RuleView& rule = m_found.rules()[proven.rule];
        return m_found.add(code, rule, rule.start(), rule.value.path(), "");
    }

    std::string subjectOf(const ProvenEffect& proven) const {
        const auto [begin, end] = m_found.study().stepsOf(proven.rule);
        return proven.step && end - begin > 1 ? fmt::format("the {} has", m_found.steps()[*proven.step].styler)
                                              : std::string("the rule has");
    }

    StyleFindings& m_found;
    bool m_details;
};

std::vector<bool> keptSteps(const StyleStudy& study, const std::vector<Finding>& others) {
    std::vector<bool> kept(study.steps().size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const ReplayStep& step = study.steps()[i];
        kept[i] = !step.log.empty() || !step.refused.empty() || doesNothing(step);
    }
    for (const Finding& finding : others) {
        if (finding.step && infoOf(finding.code).has(Trait::Settles)) kept[*finding.step] = true;
    }
    return kept;
}

}  // namespace

std::vector<Finding> findEffects(const StyleStudy& study, const std::vector<Finding>& others, ProofOptions options) {
    const ComponentGuard guard;
    options.kept = keptSteps(study, others);
    const Proofs proofs = proveEffects(study, options);
    StyleFindings found(study);
    EffectFindings effects(found, options.details);
    for (const ProvenEffect& proven : proofs.effects) effects.add(proven);
    if (proofs.unproven > 0) {
        const std::size_t begin = study.source().document().root().range().begin;
        found.addToFile(Code::EffectsUnproven, {begin, begin + 1},
                        fmt::format("{} of {} proofs were not made; what has no effect among them is not reported",
                                    proofs.unproven, proofs.unproven + proofs.effects.size()));
    }
    return found.take();
}

void markIdle(const StyleStudy& study, std::vector<Finding>& findings) {
    // In a full store, a freed slot would go to a key that was refused.
    const bool isFull =
        std::ranges::any_of(study.steps(), [](const ReplayStep& step) { return !step.refused.empty(); });
    for (Finding& finding : findings) {
        if (!finding.step || infoOf(finding.code).severity == Severity::Error) continue;
        const ReplayStep& step = study.steps()[*finding.step];
        const bool keepsSlots = step.newKeys.empty() || !isFull;
        finding.canGo |= doesNothing(step) && step.log.empty() && step.refused.empty() && keepsSlots;
    }
}

}  // namespace customstyle_tool
