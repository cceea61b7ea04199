#include "tools/study/FieldHistory.h"

#include <algorithm>
#include <numeric>

namespace customstyle_tool {
namespace {

using _orvik_framework::EMAPCUSTOMSTYLE_GRID;

StyleKey keyOf(const RecordTouch& touch) {
    return {touch.featureType, touch.level};
}

bool isSameValue(const StyleField& field, const RecordTouch& touch) {
    return valueOf(field, touch.before) == valueOf(field, touch.after) &&
           appliesIn(field, touch.before) == appliesIn(field, touch.after);
}

History historyWith(const std::optional<Write>& winner) {
    History history;
    history.winner = winner;
    history.value = winner ? winner->value : 0;
    history.applies = winner.has_value();
    return history;
}

// A step writes a field for one level or for all, so that it has one write at most in a history. The winner is not
// lost. Of several losses of one write, the last one counts.
void add(History& history, const Loss& loss) {
    if (history.winner && history.winner->step == loss.write.step) return;
    const auto stepOf = [](const Loss& each) { return each.write.step; };
    const auto known = std::ranges::find(history.losses, loss.write.step, stepOf);
    if (known == history.losses.end()) {
        history.losses.push_back(loss);
    } else {
        *known = loss;
    }
}

}  // namespace

FieldHistory::FieldHistory(const std::vector<ReplayStep>& steps)
    : m_steps(steps), m_byType(_orvik_framework::kFeatureTypeCount), m_isOwner(steps.size()) {
    for (std::size_t step = 0; step < steps.size(); ++step) {
        for (const RecordTouch& touch : steps[step].touches) follow(step, touch);
        for (const UndoneWrite& write : steps[step].undone) followUndone(step, write);
        if (steps[step].gridColor) followGrid(step);
    }
    m_losses.shrink_to_fit();
    m_byVictim.resize(m_losses.size());
    std::iota(m_byVictim.begin(), m_byVictim.end(), 0U);
    std::ranges::stable_sort(m_byVictim, {}, [&](std::uint32_t index) { return m_losses[index].victim; });
    for (const std::uint32_t index : m_byVictim) {
        m_byType[static_cast<std::size_t>(m_losses[index].key.featureType)].push_back(index);
    }
    findOwners();
}

void FieldHistory::findOwners() {
    for (const auto& [key, story] : m_records) {
        for (std::size_t field = 0; field < kMarkField; ++field) {
            if (const auto& step = story.owners[field].step) m_isOwner[*step] = true;
        }
    }
    if (m_gridOwner) m_isOwner[*m_gridOwner] = true;
}

std::vector<LostWork> FieldHistory::lossesOf(std::size_t victim) const {
    const auto victimOf = [&](std::uint32_t index) { return m_losses[index].victim; };
    std::vector<LostWork> losses;
    for (auto at = std::ranges::lower_bound(m_byVictim, victim, {}, victimOf);
         at != m_byVictim.end() && victimOf(*at) == victim; ++at) {
        losses.push_back(m_losses[*at]);
    }
    return losses;
}

std::span<const LostWork> FieldHistory::lossesBy(std::size_t culprit) const {
    return {std::ranges::lower_bound(m_losses, culprit, {}, &LostWork::culprit),
            std::ranges::upper_bound(m_losses, culprit, {}, &LostWork::culprit)};
}

const RecordStory* FieldHistory::storyOf(const StyleKey& key) const {
    const auto found = m_records.find(key);
    return found == m_records.end() ? nullptr : &found->second;
}

// ---- Following the steps --------------------------------------------------------------------------------------------

void FieldHistory::follow(std::size_t step, const RecordTouch& touch) {
    RecordStory& story = m_records.try_emplace(keyOf(touch), RecordStory{{}, step, step}).first->second;
    story.lastStep = step;
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) followField(step, touch, field, story.owners[field]);
}

void FieldHistory::followField(std::size_t step, const RecordTouch& touch, std::size_t field, Owner& owner) {
    const Origin origin = touch.origins[field];
    if (origin == Origin::Kept) return;
    const Owner before = owner;
    if (origin == Origin::Written) {
        owner = {step, touch.level.has_value()};
    } else {
        owner = {m_records.at({touch.featureType, {}}).owners[field].step, false};
    }
    const bool isOwnWork = origin == Origin::Written || before.ofLevel;
    if (field == kMarkField || !before.step || before.step == owner.step || !isOwnWork) return;
    const LossKind kind = origin == Origin::Written ? LossKind::Overwritten : LossKind::Reset;
    m_losses.push_back(
        {*before.step, step, kind, keyOf(touch), field, before.ofLevel, !isSameValue(styleFields()[field], touch)});
}

void FieldHistory::followUndone(std::size_t step, const UndoneWrite& write) {
    const RecordTouch& touch = m_steps[step].touches[write.touch];
    const StyleField& field = styleFields()[write.field];
    const bool isChanged = !appliesIn(field, touch.after) || valueOf(field, touch.after) != write.value;
    m_losses.push_back({step, step, LossKind::Reset, keyOf(touch), write.field, true, isChanged});
}

void FieldHistory::followGrid(std::size_t step) {
    if (m_gridOwner) {
        const bool isChanged = m_steps[*m_gridOwner].gridColor != m_steps[step].gridColor;
        m_losses.push_back(
            {*m_gridOwner, step, LossKind::Overwritten, {EMAPCUSTOMSTYLE_GRID, {}}, kGridField, false, isChanged});
    }
    m_gridOwner = step;
}

// ---- Queries --------------------------------------------------------------------------------------------------------

History FieldHistory::historyOf(const StyleKey& key, std::size_t field) const {
    History history = historyWith(standing(key, field));
    history.applies |= styleFields()[field].applies == nullptr;
    for (const std::uint32_t index : m_byType[static_cast<std::size_t>(key.featureType)]) {
        const LostWork& lost = m_losses[index];
        const bool isSeen = !lost.key.level || lost.key.level == key.level;
        if (isSeen && lost.field == field) add(history, lossOf(lost));
    }
    // A write for all levels that the level did not inherit, or did not keep.
    if (const std::optional<Write> beside = standing({key.featureType, {}}, field)) {
        const bool isReplaced = history.winner && history.winner->step > beside->step;
        add(history, isReplaced ? Loss{*beside, LossKind::Overwritten, history.winner->step}
                                : Loss{*beside, LossKind::ShutOut, m_records.at(key).firstStep});
    }
    std::ranges::stable_sort(history.losses, {}, [](const Loss& loss) { return loss.write.step; });
    return history;
}

History FieldHistory::gridHistory() const {
    if (!m_gridOwner) return {};
    const StyleKey grid{EMAPCUSTOMSTYLE_GRID, {}};
    History history = historyWith(writeOf(*m_gridOwner, grid, kGridField));
    for (const LostWork& lost : m_losses) {
        if (lost.field == kGridField) history.losses.push_back(lossOf(lost));
    }
    return history;
}

std::optional<Write> FieldHistory::standing(const StyleKey& key, std::size_t field) const {
    const RecordStory* const story = storyOf(key);
    if (story == nullptr || !story->owners[field].step) return {};
    const auto& [step, ofLevel] = story->owners[field];
    return writeOf(*step, {key.featureType, ofLevel ? key.level : std::nullopt}, field);
}

Write FieldHistory::writeOf(std::size_t step, const StyleKey& key, std::size_t field) const {
    if (field == kGridField) return {step, key.featureType, {}, *m_steps[step].gridColor};
    const auto touch = std::ranges::find(m_steps[step].touches, key, keyOf);
    return {step, key.featureType, key.level, valueOf(styleFields()[field], touch->after)};
}

Loss FieldHistory::lossOf(const LostWork& lost) const {
    const StyleKey written{lost.key.featureType, lost.ofLevel ? lost.key.level : std::nullopt};
    Loss loss{writeOf(lost.victim, written, lost.field), lost.kind, lost.culprit};
    if (lost.victim != lost.culprit) return loss;
    const ReplayStep& step = m_steps[lost.victim];
    const auto undone = std::ranges::find_if(step.undone, [&](const UndoneWrite& each) {
        return each.field == lost.field && keyOf(step.touches[each.touch]) == written;
    });
    loss.write.value = undone->value;
    return loss;
}

}  // namespace customstyle_tool
