#include "tools/study/TracedReplay.h"

#include <algorithm>
#include <set>

#include "tools/study/ComponentGuard.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::cJSON;
using Records = std::vector<ImageRecord>;

// Marks are unlike for records of a level and of all levels, and for the first and the second marking, in every width.
std::uint64_t markFor(bool ofLevel, bool second) {
    const std::uint64_t mark = ofLevel ? 0x5A5A5A5A5A5A5A5A : 0x3C3C3C3C3C3C3C3C;
    return second ? ~mark : mark;
}

void markRecord(tagCustomStyle& record, std::uint64_t mark) {
    for (const StyleField& field : styleFields()) setValue(field, record, mark);
}

bool isMarked(const StyleField& field, const tagCustomStyle& record, std::uint64_t mark) {
    tagCustomStyle marked{};
    setValue(field, marked, mark);
    return valueOf(field, record) == valueOf(field, marked);
}

std::array<Origin, kStyleFieldCount> originsOf(bool ofLevel, const tagCustomStyle& first,
                                               const tagCustomStyle& second) {
    std::array<Origin, kStyleFieldCount> origins{};
    for (std::size_t i = 0; i < kStyleFieldCount; ++i) {
        const StyleField& field = styleFields()[i];
        const auto bears = [&](bool markOfLevel) {
            return isMarked(field, first, markFor(markOfLevel, false)) &&
                   isMarked(field, second, markFor(markOfLevel, true));
        };
        origins[i] = bears(ofLevel) ? Origin::Kept : bears(false) ? Origin::Inherited : Origin::Written;
    }
    return origins;
}

Records recordsOf(const CustomConfig& config, const std::string& key) {
    Records records;
    if (const auto* slot = slotOf(config, key)) {
        forEachSlotRecord(*slot, [&](int styleId, const tagCustomStyle& style) {
            records.push_back({styleId, style});
        });
    }
    return records;
}

// A store beside the traced one, in which a step is tried.
class Trial {
public:
    explicit Trial(const cJSON* mapping) { m_config.ParseMappingConfig(mapping); }

    /// What the step addresses; there is always room.
    std::vector<std::string> keysOf(const cJSON* document) {
        forgetStyles(m_config);
        m_config.ParseCustomConfig(document);
        return keysInOrder(m_config);
    }

    /// Does the step of keysOf again over marked records.
    void applyToMarked(const cJSON* document, bool second) {
        for (const auto& [key, slot] : m_config.m_keyStyleMaps) {
            const std::uint64_t mark = markFor(parsedKey(key).level.has_value(), second);
            forEachSlotRecord(*slot, [&](int, tagCustomStyle& record) { markRecord(record, mark); });
        }
        m_config.m_gridColorSet = 0;
        m_config.m_allIconsHidden = 0;
        m_config.ParseCustomConfig(document);
    }

    CustomConfig& config() { return m_config; }

private:
    CustomConfig m_config;
};

class Stepper {
public:
    Stepper(CustomConfig& config, Trial& trial, ReplayStep& step) : m_config(config), m_trial(trial), m_step(step) {}

    void apply(const cJSON* document) {
        m_step.keys = m_trial.keysOf(document);
        std::vector<Records> before;
        for (const std::string& key : m_step.keys) {
            if (!hasSlot(m_config, key)) m_step.newKeys.push_back(key);
            before.push_back(recordsOf(m_config, key));
        }
        {
            const LogRecording recording(m_step.log);
            m_config.ParseCustomConfig(document);
        }
        sortOutRefusedKeys();
        findTouches(document, before);
    }

private:
    void sortOutRefusedKeys() {
        std::vector<std::string>& keys = m_step.newKeys;
        const auto refused = std::stable_partition(keys.begin(), keys.end(),
                                                   [&](const std::string& key) { return hasSlot(m_config, key); });
        m_step.refused.assign(refused, keys.end());
        keys.erase(refused, keys.end());
    }

    // The styles for all levels from which a step for one level may start.
    void addInherited() {
        for (const std::string& key : m_step.keys) {
            const std::string ofType = std::to_string(parsedKey(key).featureType);
            if (hasSlot(m_config, ofType)) addKey(m_trial.config(), ofType);
        }
    }

    void findTouches(const cJSON* document, const std::vector<Records>& before) {
        addInherited();
        m_trial.applyToMarked(document, false);
        if (m_trial.config().m_gridColorSet != 0) m_step.gridColor = m_trial.config().m_gridColor;
        m_step.hidesEveryIcon = m_trial.config().m_allIconsHidden != 0;
        m_step.touches.reserve(m_step.keys.size());  // one record for each
        std::vector<Records> first;
        for (const std::string& key : m_step.keys) first.push_back(recordsOf(m_trial.config(), key));
        m_trial.applyToMarked(document, true);
        for (std::size_t i = 0; i < m_step.keys.size(); ++i) {
            if (hasSlot(m_config, m_step.keys[i])) findTouchesOfKey(m_step.keys[i], before[i], first[i]);
        }
    }

    // A record that came with the step began as a copy of its base record.
    void findTouchesOfKey(const std::string& key, const Records& before, const Records& first) {
        const auto [featureType, level] = parsedKey(key);
        const Records after = recordsOf(m_config, key);
        const Records second = recordsOf(m_trial.config(), key);
        for (std::size_t i = 0; i < after.size(); ++i) {
            tagCustomStyle base{};
            base.m_ID = after[i].styleId;
            m_step.touches.push_back({key, featureType, level, after[i].styleId,
                                      i < before.size() ? before[i].style : base, after[i].style,
                                      originsOf(level.has_value(), first[i].style, second[i].style)});
        }
    }

    CustomConfig& m_config;
    Trial& m_trial;
    ReplayStep& m_step;
};

}  // namespace

TracedReplay::TracedReplay(const cJSON* mapping, const std::vector<SingleRule>& rules)
    : m_config(std::make_unique<CustomConfig>()) {
    const ComponentGuard guard;
    m_config->ParseMappingConfig(mapping);
    Trial trial(mapping);
    m_steps.reserve(rules.size());
    for (const SingleRule& single : rules) {
        ReplayStep& step = m_steps.emplace_back();
        step.rule = single.rule;
        step.styler = single.styler;
        Stepper(*m_config, trial, step).apply(single.document.get());
    }
}

}  // namespace customstyle_tool
