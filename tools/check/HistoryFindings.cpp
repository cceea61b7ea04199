// What steps do to the work of others, and of themselves.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tools/check/StyleFindings.h"
#include "tools/study/FieldHistory.h"
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

// ---- Lost at a level -----------------------------------------------------------------------------------------------

// The fields that a step lost to another one, or to itself, at a level.
using Resets = std::map<std::tuple<std::size_t, std::size_t, std::optional<int>>, std::set<std::size_t>>;

Resets resetsIn(const FieldHistory& history) {
    Resets resets;
    for (const LostWork& loss : history.losses()) {
        if (loss.kind != LossKind::Reset || !loss.isChanged) continue;
        resets[{loss.victim, loss.culprit, loss.key.level}].insert(loss.field);
    }
    return resets;
}

void findResets(StyleFindings& found) {
    for (const auto& [each, fields] : resetsIn(found.study().history())) {
        const auto& [victim, culprit, level] = each;
        if (victim == culprit) {
            found.add(Code::LevelResetsItself, found.steps()[victim],
                      fmt::format("what it writes to {} does not stay at {}: the rule writes several times, and each "
                                  "time starts over from the style for all levels",
                                  fieldNames(fields), levelText(level)));
            continue;
        }
        Finding& finding =
            found.add(Code::LevelReset, found.steps()[victim],
                      fmt::format("what it writes to {} is lost at {}: {} starts over from the style for all levels",
                                  fieldNames(fields), levelText(level), found.nameOf(culprit)));
        finding.related.push_back(found.placeOf(culprit, "starts over here"));
    }
}

// ---- Taken out of use -----------------------------------------------------------------------------------------------

bool isTakenOut(const RecordTouch& touch) {
    return touch.origins[kMarkField] == Origin::Written && touch.after.m_custom == 0;
}

// The records of a type that are out of use in the end, and the steps whose values are in them.
struct OutOfUse {
    int featureType = 0;
    LevelSet levels;                                       // the levels at which these records are in effect
    std::map<std::size_t, std::set<std::size_t>> victims;  // steps, with the fields that they set
};

// The levels at which the record of a key is in effect.
LevelSet levelsInEffect(const StyleKey& key, const FieldHistory& history) {
    if (key.level) return LevelSet().set(classOfLevel(*key.level));
    LevelSet levels = LevelSet().set();
    for (const auto& [other, story] : history.records()) {
        if (other.featureType == key.featureType && other.level) levels.reset(classOfLevel(*other.level));
    }
    return levels;
}

// Keyed by the step that took the records out of use, then by feature type.
using Hiding = std::map<std::size_t, std::map<int, OutOfUse>>;

// Whether the step left this record out of use. The mark is from the last step that visited the record.
bool takesOut(const ReplayStep& step, const StyleKey& key) {
    return std::ranges::any_of(step.touches, [&](const RecordTouch& touch) {
        return touch.featureType == key.featureType && touch.level == key.level && isTakenOut(touch);
    });
}

Hiding recordsOutOfUse(const StyleFindings& found) {
    Hiding hiding;
    const FieldHistory& history = found.study().history();
    for (const auto& [key, story] : history.records()) {
        const RecordOwners& owners = story.owners;
        const auto& [last, ofLevel] = owners[kMarkField];
        // A record for a level may have copied its mark along with everything else.
        StyleKey ofMark{key.featureType, {}};
        if (ofLevel) ofMark.level = key.level;
        if (!last || !takesOut(found.steps()[*last], ofMark)) continue;
        OutOfUse& out = hiding[*last][key.featureType];
        out.featureType = key.featureType;
        out.levels |= levelsInEffect(key, history);
        for (std::size_t field = 0; field < kIconField; ++field) {  // icons do not depend on the mark
            if (owners[field].step) out.victims[*owners[field].step].insert(field);
        }
    }
    return hiding;
}

std::string atSomeLevels(const LevelSet& levels) {
    return levels.all() ? "" : fmt::format(" at {}", levelsPhrase(levels));
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

// The labels that lack the element: those of the first record that the step takes out of use.
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

// The steps for all levels whose values in a type's record are missing from its record for a level.
std::set<std::size_t> missingIn(const RecordOwners& ofLevel, const RecordOwners& ofAll) {
    std::set<std::size_t> missing;
    for (std::size_t field = 0; field < kMarkField; ++field) {
        if (ofAll[field].step && !ofLevel[field].ofLevel && ofLevel[field].step != ofAll[field].step) {
            missing.insert(*ofAll[field].step);
        }
    }
    return missing;
}

std::map<std::size_t, ShutOut> shutOutSteps(const FieldHistory& history) {
    std::map<std::size_t, ShutOut> shutOut;
    for (const auto& [key, story] : history.records()) {
        const RecordStory* const ofAll = history.storyOf({key.featureType, {}});
        if (!key.level || ofAll == nullptr) continue;
        for (const std::size_t step : missingIn(story.owners, ofAll->owners)) {
            ShutOut& each = shutOut[step];
            each.levels.set(classOfLevel(*key.level));
            each.culprit = std::min(each.culprit.value_or(story.firstStep), story.firstStep);
        }
    }
    return shutOut;
}

void findShutOut(StyleFindings& found) {
    for (const auto& [place, shutOut] : shutOutSteps(found.study().history())) {
        const bool isOne = shutOut.levels.count() == 1;
        Finding& finding = found.add(Code::ShutOutByLevel, found.steps()[place],
                                     fmt::format("it does not reach {}: the style for {} was made before, by {}{}",
                                                 levelsPhrase(shutOut.levels), isOne ? "that level" : "those levels",
                                                 found.nameOf(*shutOut.culprit), isOne ? "" : " and others"));
        finding.related.push_back(found.placeOf(*shutOut.culprit, "the style for the level starts here"));
    }
}

}  // namespace

std::vector<Finding> findHistory(const StyleStudy& study) {
    StyleFindings found(study);
    findResets(found);
    findTakenOut(found);
    findShutOut(found);
    return found.take();
}

}  // namespace customstyle_tool
