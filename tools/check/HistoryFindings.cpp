// What steps do to the work of others, and of themselves.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tools/check/FieldHistory.h"
#include "tools/check/StyleUnderCheck.h"
#include "tools/check/WhatIf.h"
#include "tools/replay/StyleKey.h"
#include "tools/support/FeatureTypes.h"
#include "tools/support/Levels.h"

namespace customstyle_tool {
namespace {

// A key's level in the middle of a sentence.
std::string levelText(std::optional<int> level) {
    return level ? fmt::format("level {}", *level) : "all levels";
}

std::string fieldNames(const std::set<std::size_t>& fields) {
    std::vector<std::string_view> names;
    for (const std::size_t field : fields) names.emplace_back(styleFields()[field].name);
    return fmt::format("{}", fmt::join(names, ", "));
}

RelatedPlace placeOf(const StyleUnderCheck& check, const ReplayStep& step, std::string text) {
    return {check.ruleOf(step).stylerRange(step.styler), std::move(text)};
}

// ---- Lost to a later step for the same level ------------------------------------------------------------------------

struct Resetting {
    std::set<std::size_t> fields;
    std::set<std::size_t> types;
};

void addReset(StyleUnderCheck& check, const ReplayStep& victim, const ReplayStep& culprit, std::optional<int> level,
              const std::set<std::size_t>& fields) {
    Finding& finding =
        check.add(Code::LevelReset, victim,
                  fmt::format("what it writes to {} is lost at {}: {} starts again from the style for all levels",
                              fieldNames(fields), levelText(level), check.nameOf(culprit)));
    finding.related.push_back(placeOf(check, culprit, "starts again here"));
    check.explain(victim.rule, victim.styler);
}

void findResets(StyleUnderCheck& check, const FieldHistory& history) {
    using Case = std::tuple<std::size_t, std::size_t, std::optional<int>>;
    std::map<Case, std::set<std::size_t>> cases;
    for (const LostWork& loss : history.losses()) {
        if (loss.kind != LostHow::Reset || !loss.isChanged || loss.field == kMarkField) continue;
        cases[{loss.victim, loss.culprit, loss.level}].insert(loss.field);
    }
    for (const auto& [each, fields] : cases) {
        const auto& [victim, culprit, level] = each;
        addReset(check, check.steps()[victim], check.steps()[culprit], level, fields);
    }
}

// ---- Lost within a step ---------------------------------------------------------------------------------------------

// What a step would write where there is no style for all levels, by feature type.
std::map<int, std::set<std::size_t>> writtenAlone(const RuleView& rule, const std::string& styler) {
    std::map<int, std::set<std::size_t>> written;
    for (const ReplayStep& step : stepsOf(std::string(rule.value.source()))) {
        if (step.styler != styler) continue;
        for (const RecordTouch& touch : step.touches) {
            for (std::size_t field = 0; field < kMarkField; ++field) {
                if (touch.origins[field] == Origin::Written) written[touch.featureType].insert(field);
            }
        }
    }
    return written;
}

void checkOwnReset(StyleUnderCheck& check, const ReplayStep& step) {
    const auto alone = writtenAlone(check.ruleOf(step), step.styler);
    std::set<std::size_t> lost;
    std::optional<int> level;
    for (const RecordTouch& touch : step.touches) {
        const auto fields = alone.find(touch.featureType);
        if (!touch.level || fields == alone.end()) continue;
        level = touch.level;
        std::ranges::copy_if(fields->second, std::inserter(lost, lost.end()),
                             [&](std::size_t field) { return touch.origins[field] == Origin::Inherited; });
    }
    if (lost.empty()) return;
    check.add(Code::LevelResetsItself, step,
              fmt::format("what it writes to {} does not stay at {}: the rule writes several times, and each time "
                          "starts again from the style for all levels",
                          fieldNames(lost), levelText(level)));
}

void findOwnResets(StyleUnderCheck& check) {
    for (const ReplayStep& step : check.steps()) {
        const bool mayWriteTwice = step.styler == "visibility" && check.ruleOf(step).textMember("level");
        if (mayWriteTwice && !step.touches.empty()) checkOwnReset(check, step);
    }
}

// ---- Taken out of use -----------------------------------------------------------------------------------------------

bool isTakenOut(const RecordTouch& touch) {
    return touch.origins[kMarkField] == Origin::Written && touch.after.m_custom == 0;
}

// Which step was the last one that made records of a type count as customised, for each level and for all.
class WorkSoFar {
public:
    void add(std::size_t place, const ReplayStep& step) {
        for (const RecordTouch& touch : step.touches) {
            if (touch.after.m_custom != 0) m_last[{touch.featureType, touch.level}] = place;
        }
    }

    /// The last step whose work can be in the record of this touch.
    std::optional<std::size_t> before(const RecordTouch& touch) const {
        return std::max(find(touch.featureType, {}), find(touch.featureType, touch.level));
    }

private:
    std::optional<std::size_t> find(int featureType, std::optional<int> level) const {
        const auto found = m_last.find({featureType, level});
        if (found == m_last.end()) return {};
        return found->second;
    }

    std::map<std::pair<int, std::optional<int>>, std::size_t> m_last;
};

void addTakenOut(StyleUnderCheck& check, const ReplayStep& step, const RecordTouch& touch,
                 std::optional<std::size_t> work) {
    const std::string type = catalogue().GetFeatureTypeName(touch.featureType);
    check.explain(step.rule, step.styler);
    if (!work) {
        check.add(Code::ElementMatchesNothing, step,
                  fmt::format("nothing is written: labels of \"{}\" have no such element", type));
        return;
    }
    const ReplayStep& lost = check.steps()[*work];
    Finding& finding = check.add(
        Code::ElementMatchesNothing, step,
        fmt::format("nothing is written, and what {} gave \"{}\" is no longer drawn", check.nameOf(lost), type));
    finding.related.push_back(placeOf(check, lost, "taken out of use"));
    check.explain(lost.rule, lost.styler);
}

void findTakenOut(StyleUnderCheck& check) {
    WorkSoFar work;
    for (std::size_t i = 0; i < check.steps().size(); ++i) {
        const ReplayStep& step = check.steps()[i];
        const auto touch = std::ranges::find_if(step.touches, isTakenOut);
        if (touch != step.touches.end()) addTakenOut(check, step, *touch, work.before(*touch));
        work.add(i, step);
    }
}

// ---- Shut out by a level --------------------------------------------------------------------------------------------

struct ShutOut {
    LevelSet levels;
    std::optional<std::size_t> culprit;
};

std::map<std::string, std::size_t> firstStepsOfKeys(const StyleUnderCheck& check) {
    std::map<std::string, std::size_t> first;
    for (std::size_t i = 0; i < check.steps().size(); ++i) {
        for (const std::string& key : check.steps()[i].newKeys) first.try_emplace(key, i);
    }
    return first;
}

// The steps for all levels whose work in a type's record is missing in its record for a level.
std::set<std::size_t> missingIn(const RecordOwners& ofLevel, const RecordOwners& ofAll) {
    std::set<std::size_t> missing;
    for (std::size_t field = 0; field < kMarkField; ++field) {
        if (ofAll[field].step && !ofLevel[field].ofLevel && ofLevel[field].step != ofAll[field].step) {
            missing.insert(*ofAll[field].step);
        }
    }
    return missing;
}

std::map<std::size_t, ShutOut> shutOutSteps(const StyleUnderCheck& check, const FieldHistory& history) {
    const auto firstSteps = firstStepsOfKeys(check);
    std::map<std::size_t, ShutOut> shutOut;
    for (const auto& [record, owners] : history.records()) {
        const auto [featureType, level] = parsedKey(record.first);
        if (!level) continue;
        const RecordOwners& ofAll = history.ownersOf(std::to_string(featureType), record.second);
        for (const std::size_t step : missingIn(owners, ofAll)) {
            ShutOut& each = shutOut[step];
            each.levels.set(classOfLevel(*level));
            const std::size_t culprit = firstSteps.at(record.first);
            each.culprit = std::min(each.culprit.value_or(culprit), culprit);
        }
    }
    return shutOut;
}

void findShutOut(StyleUnderCheck& check, const FieldHistory& history) {
    for (const auto& [place, shutOut] : shutOutSteps(check, history)) {
        const ReplayStep& step = check.steps()[place];
        const ReplayStep& culprit = check.steps()[*shutOut.culprit];
        const bool isOne = shutOut.levels.count() == 1;
        Finding& finding = check.add(
            Code::ShutOutByLevel, step,
            fmt::format("it does not reach {} {}: the style for {} was made before, by {}{}",
                        isOne ? "level" : "levels", levelsText(shutOut.levels), isOne ? "that level" : "those levels",
                        check.nameOf(culprit), isOne ? "" : " and others"));
        finding.related.push_back(placeOf(check, culprit, "the style for the level begins here"));
    }
}

}  // namespace

void findHistory(StyleUnderCheck& check) {
    const FieldHistory history(check.steps());
    findResets(check, history);
    findOwnResets(check);
    findTakenOut(check);
    findShutOut(check, history);
}

}  // namespace customstyle_tool
