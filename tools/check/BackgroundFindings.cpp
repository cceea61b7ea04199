// What happens to the background of the land and of the grid.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>

#include "tools/check/StyleFindings.h"
#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/Levels.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::EMAPCUSTOMSTYLE_GRID;
using _orvik_framework::EMAPCUSTOMSTYLE_LAND;

// The owners of the land's record that is in effect at a level; null if there is none.
const RecordOwners* landOwners(const StyleStudy& study, std::size_t levelClass) {
    const RecordOwners* ofAll = nullptr;
    for (const auto& [key, story] : study.history().records()) {
        if (key.featureType != EMAPCUSTOMSTYLE_LAND) continue;
        if (!key.level) ofAll = &story.owners;
        if (key.level && classOfLevel(*key.level) == levelClass) return &story.owners;
    }
    return ofAll;
}

// The step that made the background invisible: the one that wrote the fill, or else the one that marked the record.
struct Blame {
    std::size_t step;
    bool wroteFill;
    auto operator<=>(const Blame&) const = default;
};

std::map<Blame, LevelSet> invisibleLand(const StyleStudy& study) {
    static const std::size_t fill = fieldIndex("fill");
    std::map<Blame, LevelSet> invisible;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const auto color = landColor(study.spokenConfig(), levelOfClass(levelClass));
        const RecordOwners* const owners = landOwners(study, levelClass);
        if (!color || alphaOf(*color) != 0 || owners == nullptr) continue;
        const std::optional<std::size_t> writer = (*owners)[fill].step;
        const std::optional<std::size_t> marker = (*owners)[kMarkField].step;
        if (writer || marker) invisible[{writer ? *writer : *marker, writer.has_value()}].set(levelClass);
    }
    return invisible;
}

void findLand(StyleFindings& found) {
    for (const auto& [blame, levels] : invisibleLand(found.study())) {
        const ReplayStep& step = found.steps()[blame.step];
        if (blame.wroteFill && isOfKind(step.styler, StylerKind::Color)) continue;  // the author chose this colour
        found.add(blame.wroteFill ? Code::LandHidden : Code::LandInvisible, step,
                  fmt::format("the land's background becomes {} at {}{}", colorText(0), levelsPhrase(levels),
                              blame.wroteFill ? "" : ": the land is customised, and no rule gives it a fill"));
    }
}

void findGrid(StyleFindings& found) {
    for (const ReplayStep& step : found.steps()) {
        if (step.styler.empty() || isOfKind(step.styler, StylerKind::Size) || step.gridColor) continue;
        const bool isGrid = found.ruleOf(step).typeId == EMAPCUSTOMSTYLE_GRID;
        if (!isGrid || step.keys.empty()) continue;
        const auto color = gridColor(found.study().spokenConfig(), 0);
        found.add(Code::GridUnchanged, step,
                  fmt::format("the grid's background stays {}", color ? colorText(*color) : "as it is"));
    }
}

}  // namespace

std::vector<Finding> findBackgrounds(const StyleStudy& study) {
    const ComponentGuard guard;
    StyleFindings found(study);
    findLand(found);
    findGrid(found);
    return found.take();
}

}  // namespace customstyle_tool
