#include "tools/study/RecordHistory.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

using Standing = std::optional<Write>;

bool isSame(const Standing& left, const Standing& right) {
    return left && right && left->step == right->step && left->level == right->level;
}

// What stands in the field of the record in effect, and beside it in that of all levels, which the level may inherit.
class FieldFollower {
public:
    FieldFollower(const RecordVisits& record, std::size_t field, const IntendedValue& intended)
        : m_record(record), m_field(field), m_intended(intended) {}

    History follow() {
        for (const Visit& visit : m_record.visits) {
            visit.touch->level == m_record.level ? visitInEffect(visit) : visitBeside(visit);
        }
        if (m_beside && !isSame(m_beside, m_inEffect)) loseBeside();
        std::ranges::stable_sort(m_losses, {}, [](const Loss& loss) { return loss.write.step; });
        return result();
    }

private:
    void visitInEffect(const Visit& visit) {
        const Origin origin = visit.touch->origins[m_field];
        if (origin == Origin::Written) {
            if (!isSame(m_inEffect, m_beside)) lose(m_inEffect, LossKind::Overwritten, visit.step);
            m_inEffect = writeOf(visit, valueAfter(visit));
        } else if (origin == Origin::Inherited) {
            inherit(visit);
        }
        if (!m_firstInEffect) m_firstInEffect = visit.step;
    }

    void visitBeside(const Visit& visit) {
        if (visit.touch->origins[m_field] != Origin::Written) return;
        if (!isSame(m_beside, m_inEffect)) lose(m_beside, LossKind::Overwritten, visit.step);
        m_beside = writeOf(visit, valueAfter(visit));
    }

    void inherit(const Visit& visit) {
        if (m_inEffect && m_inEffect->level) {
            lose(m_inEffect, LossKind::Reset, visit.step);
        } else if (m_beside && !isSame(m_beside, m_inEffect)) {
            lose(m_inEffect, LossKind::Overwritten, m_beside->step);
        }
        m_inEffect = m_beside;
        if (const auto value = m_intended(visit, m_field)) lose(writeOf(visit, *value), LossKind::Reset, visit.step);
    }

    // A write for all levels that the level did not inherit, or did not keep.
    void loseBeside() {
        const bool replaced = m_inEffect && m_inEffect->step > m_beside->step;
        lose(m_beside, replaced ? LossKind::Overwritten : LossKind::ShutOut,
             replaced ? m_inEffect->step : m_firstInEffect);
    }

    void lose(const Standing& write, LossKind kind, std::optional<std::size_t> byStep) {
        if (write) m_losses.push_back({*write, kind, byStep});
    }

    std::uint64_t valueAfter(const Visit& visit) const { return valueOf(styleFields()[m_field], visit.touch->after); }

    Write writeOf(const Visit& visit, std::uint64_t value) const {
        return {visit.step, m_record.featureType, visit.touch->level, value};
    }

    History result() {
        const bool alwaysApplies = styleFields()[m_field].applies == nullptr;
        return {m_inEffect ? m_inEffect->value : 0, alwaysApplies || m_inEffect.has_value(), m_inEffect,
                std::move(m_losses)};
    }

    const RecordVisits& m_record;
    std::size_t m_field;
    const IntendedValue& m_intended;
    Standing m_inEffect;
    Standing m_beside;
    std::optional<std::size_t> m_firstInEffect;
    std::vector<Loss> m_losses;
};

}  // namespace

History fieldHistory(const RecordVisits& record, std::size_t field, const IntendedValue& intended) {
    return FieldFollower(record, field, intended).follow();
}

std::optional<std::size_t> lastStepOn(const RecordVisits& record) {
    std::optional<std::size_t> last;
    for (const Visit& visit : record.visits) {
        if (visit.touch->level == record.level) last = visit.step;
    }
    return last;
}

}  // namespace customstyle_tool
