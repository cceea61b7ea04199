#include "tools/study/IntendedWrites.h"

#include <algorithm>

#include "tools/study/ComponentGuard.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

constexpr std::uint64_t kFirstMark = 0x5A5A5A5A5A5A5A5A;
constexpr std::uint64_t kSecondMark = ~kFirstMark;

void markRecords(CustomConfig& config, std::uint64_t mark) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        forEachSlotRecord(*slot, [&](int, tagCustomStyle& record) {
            for (const StyleField& field : styleFields()) setValue(field, record, mark);
        });
    }
}

const tagCustomStyle* recordIn(const StoreImage& image, const RecordTouch& touch) {
    const auto slot = image.slots().find(touch.key);
    if (slot == image.slots().end()) return nullptr;
    const auto record = std::ranges::find(slot->second, touch.styleId, &ImageRecord::styleId);
    return record == slot->second.end() ? nullptr : &record->style;
}

}  // namespace

IntendedWrites::IntendedWrites(std::string_view mapping, const std::vector<SingleRule>& rules)
    : m_mapping(componentTree(mapping)), m_rules(rules) {}

std::optional<std::uint64_t> IntendedWrites::value(const Visit& visit, std::size_t field) {
    const Outcome& outcome = outcomeOf(visit.step);
    const tagCustomStyle* first = recordIn(outcome.first, *visit.touch);
    const tagCustomStyle* second = recordIn(outcome.second, *visit.touch);
    if (first == nullptr || second == nullptr) return {};
    const std::uint64_t value = valueOf(styleFields()[field], *first);
    if (value != valueOf(styleFields()[field], *second)) return {};
    return value;
}

const IntendedWrites::Outcome& IntendedWrites::outcomeOf(std::size_t step) {
    const auto known = m_outcomes.find(step);
    if (known != m_outcomes.end()) return known->second;
    return m_outcomes.emplace(step, Outcome{applyOver(step, kFirstMark), applyOver(step, kSecondMark)}).first->second;
}

StoreImage IntendedWrites::applyOver(std::size_t step, std::uint64_t mark) const {
    const ComponentGuard guard;
    CustomConfig alone;
    alone.ParseMappingConfig(m_mapping.get());
    alone.ParseCustomConfig(m_rules[step].document.get());
    markRecords(alone, mark);
    alone.ParseCustomConfig(m_rules[step].document.get());
    return StoreImage(alone);
}

}  // namespace customstyle_tool
