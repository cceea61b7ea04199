// What steps do to the work of others, and of themselves.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tools/check/StyleFindings.h"
#include "tools/study/FieldHistory.h"
#include "tools/study/Probe.h"
#include "tools/study/StyleKey.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Levels.h"

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

// ---- Lost to a later step for the same level ------------------------------------------------------------------------

void findResets(StyleFindings& found) {
    using Case = std::tuple<std::size_t, std::size_t, std::optional<int>>;
    std::map<Case, std::set<std::size_t>> cases;
    for (const LostWork& loss : found.study().history().losses()) {
        if (loss.kind == LostHow::Reset && loss.isChanged) {
            cases[{loss.victim, loss.culprit, loss.level}].insert(loss.field);
        }
    }
    for (const auto& [each, fields] : cases) {
        const auto& [victim, culprit, level] = each;
        Finding& finding =
            found.add(Code::LevelReset, found.steps()[victim],
                      fmt::format("what it writes to {} is lost at {}: {} starts over from the style for all levels",
                                  fieldNames(fields), levelText(level), found.nameOf(culprit)));
        finding.related.push_back(found.placeOf(culprit, "starts over here"));
    }
}

// ---- Lost within a step ---------------------------------------------------------------------------------------------

// What a step would write where there is no style for all levels, by feature type.
std::map<int, std::set<std::size_t>> writtenAlone(const RuleView& rule, const std::string& styler) {
    std::map<int, std::set<std::size_t>> written;
    for (const ReplayStep& step : stepsOfRule(std::string(rule.value.source()))) {
        if (step.styler != styler) continue;
        for (const RecordTouch& touch : step.touches) {
            for (std::size_t field = 0; field < kMarkField; ++field) {
                if (touch.origins[field] == Origin::Written) written[touch.featureType].insert(field);
            }
        }
    }
    return written;
}

void checkOwnReset(StyleFindings& check, const ReplayStep& step) {
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
                          "starts over from the style for all levels",
                          fieldNames(lost), levelText(level)));
}

void findOwnResets(StyleFindings& check) {
    for (const ReplayStep& step : check.steps()) {
        const bool mayWriteTwice = step.styler == "visibility" && check.ruleOf(step).textMember("level");
        if (mayWriteTwice && !step.touches.empty()) checkOwnReset(check, step);
    }
}

// ---- Taken out of use -----------------------------------------------------------------------------------------------

bool isTakenOut(const RecordTouch& touch) {
    return touch.origins[kMarkField] == Origin::Written && touch.after.m_custom == 0;
}

// The records of a type that are out of use in the end, and whose values stand in them.
struct OutOfUse {
    int featureType = 0;
    LevelSet levels;                                       // at which these are the records in effect
    std::map<std::size_t, std::set<std::size_t>> victims;  // steps, with the fields that they gave
};

// The levels at which the record of a key is the one in effect.
LevelSet levelsInEffect(const StyleKey& key, const FieldHistory& history) {
    if (key.level) return LevelSet().set(classOfLevel(*key.level));
    LevelSet levels = LevelSet().set();
    for (const auto& [record, owners] : history.records()) {
        const auto [featureType, level] = parsedKey(record.first);
        if (featureType == key.featureType && level) levels.reset(classOfLevel(*level));
    }
    return levels;
}

// By the step that took them out, and by feature type.
using Hiding = std::map<std::size_t, std::map<int, OutOfUse>>;

// Whether the step left this record out of use; the mark is of the last step that visited the record.
bool takesOut(const ReplayStep& step, const std::string& key) {
    return std::ranges::any_of(step.touches,
                               [&](const RecordTouch& touch) { return touch.key == key && isTakenOut(touch); });
}

Hiding recordsOutOfUse(const StyleFindings& found) {
    Hiding hiding;
    const FieldHistory& history = found.study().history();
    for (const auto& [record, owners] : history.records()) {
        const std::optional<std::size_t> last = owners[kMarkField].step;
        const StyleKey key = parsedKey(record.first);
        // A record for a level may have taken its mark over with all else.
        const std::string ofMark = owners[kMarkField].ofLevel ? record.first : std::to_string(key.featureType);
        if (!last || !takesOut(found.steps()[*last], ofMark)) continue;
        OutOfUse& out = hiding[*last][key.featureType];
        out.featureType = key.featureType;
        out.levels |= levelsInEffect(key, history);
        for (std::size_t field = 0; field < kIconField; ++field) {  // icons do not ask for the mark
            if (owners[field].step) out.victims[*owners[field].step].insert(field);
        }
    }
    return hiding;
}

std::string atSomeLevels(const LevelSet& levels) {
    return levels.all() ? "" : fmt::format(" at levels {}", levelsText(levels));
}

void addHidden(StyleFindings& found, std::size_t culprit, const OutOfUse& out) {
    for (const auto& [victim, fields] : out.victims) {
        Finding& finding = found.add(Code::HiddenByRule, found.steps()[victim],
                                     fmt::format("the {} that it gives \"{}\" is not drawn{}: {} disables it",
                                                 fieldNames(fields), catalogue().GetFeatureTypeName(out.featureType),
                                                 atSomeLevels(out.levels), found.nameOf(culprit)));
        finding.remedy = fmt::format("correct the element of {}", found.nameOf(culprit));
        finding.related.push_back(found.placeOf(culprit, "disabled here"));
    }
}

// The labels that lack the element: those of the first record that the step takes out.
std::string typeTakenOut(const ReplayStep& step) {
    return catalogue().GetFeatureTypeName(std::ranges::find_if(step.touches, isTakenOut)->featureType);
}

void addTakenOut(StyleFindings& found, std::size_t culprit, const std::map<int, OutOfUse>& types) {
    const ReplayStep& step = found.steps()[culprit];
    std::set<std::size_t> victims;
    for (const auto& [type, out] : types) {
        for (const auto& [victim, fields] : out.victims) victims.insert(victim);
    }
    if (victims.empty()) {
        found.add(Code::ElementMatchesNothing, step,
                  fmt::format("nothing is written: labels of \"{}\" have no such element", typeTakenOut(step)));
        return;
    }
    const std::vector<std::size_t> list(victims.begin(), victims.end());
    Finding& finding =
        found.add(Code::ElementMatchesNothing, step,
                  fmt::format("labels of \"{}\" have no such element: nothing is written, and this hides what {} set",
                              typeTakenOut(step), found.namesOf(list)));
    for (const std::size_t victim : list) finding.related.push_back(found.placeOf(victim, "hidden by it"));
    for (const auto& [type, out] : types) addHidden(found, culprit, out);
}

void findTakenOut(StyleFindings& found) {
    const Hiding hiding = recordsOutOfUse(found);
    for (std::size_t i = 0; i < found.steps().size(); ++i) {
        if (std::ranges::none_of(found.steps()[i].touches, isTakenOut)) continue;
        const auto hidden = hiding.find(i);
        addTakenOut(found, i, hidden == hiding.end() ? std::map<int, OutOfUse>() : hidden->second);
    }
}

// ---- Shut out by a level --------------------------------------------------------------------------------------------

struct ShutOut {
    LevelSet levels;
    std::optional<std::size_t> culprit;
};

std::map<std::string, std::size_t> firstStepsOfKeys(const StyleFindings& check) {
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

std::map<std::size_t, ShutOut> shutOutSteps(const StyleFindings& check, const FieldHistory& history) {
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

void findShutOut(StyleFindings& found) {
    for (const auto& [place, shutOut] : shutOutSteps(found, found.study().history())) {
        const bool isOne = shutOut.levels.count() == 1;
        Finding& finding = found.add(
            Code::ShutOutByLevel, found.steps()[place],
            fmt::format("it does not reach {} {}: the style for {} was made before, by {}{}",
                        isOne ? "level" : "levels", levelsText(shutOut.levels), isOne ? "that level" : "those levels",
                        found.nameOf(*shutOut.culprit), isOne ? "" : " and others"));
        finding.related.push_back(found.placeOf(*shutOut.culprit, "the style for the level starts here"));
    }
}

}  // namespace

std::vector<Finding> findHistory(const StyleStudy& study) {
    StyleFindings found(study);
    findResets(found);
    findOwnResets(found);
    findTakenOut(found);
    findShutOut(found);
    return found.take();
}

}  // namespace customstyle_tool
