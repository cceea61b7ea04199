#include "tools/study/TracedReplay.h"

#include <algorithm>

#include "tools/study/ComponentGuard.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::cJSON;
using Records = std::vector<ImageRecord>;

// Marks differ between records for a level and for all levels, and between the first and the second marking, in every
// width.
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

// A record after a step over a record with the first mark, and over one with the second.
struct MarkedTwice {
    const tagCustomStyle& first;
    const tagCustomStyle& second;

    bool bears(const StyleField& field, bool markOfLevel) const {
        return isMarked(field, first, markFor(markOfLevel, false)) &&
               isMarked(field, second, markFor(markOfLevel, true));
    }

    Origin originOf(const StyleField& field, bool ofLevel) const {
        if (bears(field, ofLevel)) return Origin::Kept;
        return bears(field, false) ? Origin::Inherited : Origin::Written;
    }
};

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

    /// The keys that the step addresses; there is always room for them.
    std::vector<std::string> keysOf(const cJSON* document) {
        forgetStyles(m_config);
        m_config.ParseCustomConfig(document);
        return keysInOrder(m_config);
    }

    /// Repeats the step of keysOf over marked records.
    void applyToMarked(const cJSON* document, bool second) {
        for (const auto& [key, slot] : m_config.m_keyStyleMaps) {
            const std::uint64_t mark = markFor(parsedKey(key).level.has_value(), second);
            forEachSlotRecord(*slot, [&](int, tagCustomStyle& record) { markRecord(record, mark); });
        }
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

    // The records of the step's keys after it has run over marked ones.
    struct MarkedRecords {
        std::vector<Records> first;   // by key
        std::vector<Records> second;  // by key
    };

    MarkedRecords appliedToMarked(const cJSON* document) {
        MarkedRecords marked;
        for (const bool second : {false, true}) {
            m_trial.applyToMarked(document, second);
            std::vector<Records>& records = second ? marked.second : marked.first;
            records.reserve(m_step.keys.size());
            for (const std::string& key : m_step.keys) records.push_back(recordsOf(m_trial.config(), key));
        }
        return marked;
    }

    // The keys of the styles for all levels from which the step may start.
    std::vector<std::string> keysToInherit() const {
        std::vector<std::string> keys;
        for (const std::string& key : m_step.keys) {
            const auto [featureType, level] = parsedKey(key);
            const std::string ofType = std::to_string(featureType);
            if (level && hasSlot(m_config, ofType)) keys.push_back(ofType);
        }
        return keys;
    }

    void findTouches(const cJSON* document, const std::vector<Records>& before) {
        const std::vector<std::string> inherited = keysToInherit();
        const MarkedRecords alone = inherited.empty() ? MarkedRecords() : appliedToMarked(document);
        for (const std::string& key : inherited) addKey(m_trial.config(), key);
        const MarkedRecords marked = appliedToMarked(document);
        if (m_trial.config().m_gridColorSet != 0) m_step.gridColor = m_trial.config().m_gridColor;
        m_step.hidesEveryIcon = m_trial.config().m_allIconsHidden != 0;
        m_step.touches.reserve(m_step.keys.size());  // one record for each
        for (std::size_t i = 0; i < m_step.keys.size(); ++i) {
            if (!hasSlot(m_config, m_step.keys[i])) continue;
            const std::size_t begin = m_step.touches.size();
            findTouchesOfKey(m_step.keys[i], before[i], marked.first[i], marked.second[i]);
            if (!inherited.empty()) findUndone(begin, alone.first[i], alone.second[i]);
        }
    }

    // A record that the step created began as a copy of its base record.
    void findTouchesOfKey(const std::string& key, const Records& before, const Records& first, const Records& second) {
        const auto [featureType, level] = parsedKey(key);
        const Records after = recordsOf(m_config, key);
        for (std::size_t i = 0; i < after.size(); ++i) {
            tagCustomStyle base{};
            base.m_ID = after[i].styleId;
            RecordTouch& touch = m_step.touches.emplace_back(RecordTouch{key,
                                                                         featureType,
                                                                         level,
                                                                         after[i].styleId,
                                                                         i < before.size() ? before[i].style : base,
                                                                         after[i].style,
                                                                         {}});
            const MarkedTwice marked{first[i].style, second[i].style};
            std::ranges::transform(styleFields(), touch.origins.begin(), [&](const StyleField& field) {
                return marked.originOf(field, touch.level.has_value());
            });
        }
    }

    // Finds what the step writes where there is no style for all levels, but has inherited here instead.
    void findUndone(std::size_t begin, const Records& first, const Records& second) {
        for (std::size_t i = begin; i < m_step.touches.size(); ++i) {
            const RecordTouch& touch = m_step.touches[i];
            const MarkedTwice alone{first[i - begin].style, second[i - begin].style};
            for (std::size_t place = 0; place < kMarkField; ++place) {
                const StyleField& field = styleFields()[place];
                if (touch.origins[place] != Origin::Inherited || alone.bears(field, touch.level.has_value())) continue;
                m_step.undone.push_back({i, place, valueOf(field, alone.first)});
            }
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
        Stepper(*m_config, trial, step).apply(single.document().get());
    }
}

}  // namespace customstyle_tool
