#include "tools/study/FieldHistory.h"

namespace customstyle_tool {
namespace {

const RecordOwners kNobody{};

bool isSameValue(const StyleField& field, const RecordTouch& touch) {
    return valueOf(field, touch.before) == valueOf(field, touch.after) &&
           appliesIn(field, touch.before) == appliesIn(field, touch.after);
}

}  // namespace

FieldHistory::FieldHistory(const std::vector<ReplayStep>& steps)
    : m_byVictim(steps.size()), m_byCulprit(steps.size()), m_isOwner(steps.size()) {
    for (std::size_t step = 0; step < steps.size(); ++step) {
        for (const RecordTouch& touch : steps[step].touches) follow(step, touch);
        if (steps[step].gridColor) followGrid(steps, step);
    }
    m_losses.shrink_to_fit();
    for (std::size_t i = 0; i < m_losses.size(); ++i) {
        m_byVictim[m_losses[i].victim].push_back(i);
        m_byCulprit[m_losses[i].culprit].push_back(i);
    }
    for (const auto& [record, owners] : m_owners) {
        for (std::size_t field = 0; field < kMarkField; ++field) {
            if (owners[field].step) m_isOwner[*owners[field].step] = true;
        }
    }
    if (m_gridOwner) m_isOwner[*m_gridOwner] = true;
}

const RecordOwners& FieldHistory::ownersOf(const std::string& key, int styleId) const {
    const auto found = m_owners.find({key, styleId});
    return found == m_owners.end() ? kNobody : found->second;
}

void FieldHistory::follow(std::size_t step, const RecordTouch& touch) {
    RecordOwners& owners = m_owners[{touch.key, touch.styleId}];
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) followField(step, touch, field, owners[field]);
}

void FieldHistory::followGrid(const std::vector<ReplayStep>& steps, std::size_t step) {
    if (m_gridOwner) {
        const bool isChanged = steps[*m_gridOwner].gridColor != steps[step].gridColor;
        m_losses.push_back({*m_gridOwner,
                            step,
                            LostHow::Overwritten,
                            _orvik_framework::EMAPCUSTOMSTYLE_GRID,
                            {},
                            kGridField,
                            isChanged});
    }
    m_gridOwner = step;
}

void FieldHistory::followField(std::size_t step, const RecordTouch& touch, std::size_t field, Owner& owner) {
    const Origin origin = touch.origins[field];
    if (origin == Origin::Kept) return;
    const Owner before = owner;
    if (origin == Origin::Written) {
        owner = {step, touch.level.has_value()};
    } else {
        owner = {ownersOf(std::to_string(touch.featureType), touch.styleId)[field].step, false};
    }
    const bool isOwnWork = origin == Origin::Written || before.ofLevel;
    if (field == kMarkField || !before.step || before.step == owner.step || !isOwnWork) return;
    const LostHow kind = origin == Origin::Written ? LostHow::Overwritten : LostHow::Reset;
    m_losses.push_back(
        {*before.step, step, kind, touch.featureType, touch.level, field, !isSameValue(styleFields()[field], touch)});
}

}  // namespace customstyle_tool
