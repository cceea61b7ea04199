#include "tools/diff/StyleDiff.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "tools/diff/Attribution.h"
#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Value = std::optional<std::uint64_t>;

// An icon flag of 0 only says that there is a record.
Value shownFieldIn(const Answer& answer, std::size_t place) {
    const Value value = fieldIn(answer, place);
    return place == kIconField && value == 0U ? Value() : value;
}

// The style ids under one type, or those under several; the one that the mapping does not list is among the first.
std::vector<unsigned int> styleIdsToCompare(const Mapping& mapping, bool underSeveral) {
    std::vector<unsigned int> styleIds;
    for (const Speaker& speaker : mapping.speakers()) {
        if ((speaker.types.size() > 1) == underSeveral) styleIds.push_back(speaker.styleId);
    }
    return styleIds;
}
class Comparison {
public:
    Comparison(const StyleStudy& before, const StyleStudy& after) : m_before(before.config()), m_after(after.config()) {
        for (int type = _orvik_framework::EMAPCUSTOMSTYLE_ALL - 1; type >= 0; --type) {
            for (const int styleId : before.mapping().idsOf(type))
                m_lowestType[static_cast<unsigned int>(styleId)] = type;
        }
    }

    std::vector<ChangedAnswer> changes(const std::vector<unsigned int>& styleIds) {
        for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
            m_levelClass = levelClass;
            compareBackgrounds();
            for (const unsigned int styleId : styleIds) compareStyleId(styleId);
        }
        return std::move(m_changes);
    }

private:
    void compareBackgrounds() {
        const int level = levelOfClass(m_levelClass);
        const Question background{Subject::Background, 0};
        m_styleId = 0;
        m_featureType = _orvik_framework::EMAPCUSTOMSTYLE_LAND;
        add(background, landColor(m_before, level), landColor(m_after, level));
        m_featureType = _orvik_framework::EMAPCUSTOMSTYLE_GRID;
        add(background, gridColor(m_before, level), gridColor(m_after, level));
    }

    void compareStyleId(unsigned int styleId) {
        const Answer before = ask(m_before, styleId, levelOfClass(m_levelClass));
        const Answer after = ask(m_after, styleId, levelOfClass(m_levelClass));
        m_styleId = styleId;
        m_featureType = groupOf(before, after);
        const bool icon = add({Subject::Icon, 0}, Value(before.iconHidden), Value(after.iconHidden));
        bool differs = icon;
        for (std::size_t field = 0; field < kMarkField; ++field) {
            if (field == kIconField && icon) continue;
            differs |= add({Subject::Field, field}, shownFieldIn(before, field), shownFieldIn(after, field));
        }
        const bool bothCustomised = before.featureType != -1 && after.featureType != -1;
        if (bothCustomised || !differs) add({Subject::FeatureType, 0}, answeringType(before), answeringType(after));
    }

    int groupOf(const Answer& before, const Answer& after) const {
        if (before.featureType != -1) return before.featureType;
        if (after.featureType != -1) return after.featureType;
        const auto mapped = m_lowestType.find(m_styleId);
        return mapped == m_lowestType.end() ? kNoType : mapped->second;
    }

    bool add(const Question& question, const Value& before, const Value& after) {
        if (before == after) return false;
        m_changes.push_back({question, m_styleId, m_featureType, m_levelClass, before, after});
        return true;
    }

    const CustomConfig& m_before;
    const CustomConfig& m_after;
    std::map<unsigned int, int> m_lowestType;
    std::size_t m_levelClass = 0;
    unsigned int m_styleId = 0;
    int m_featureType = kNoType;
    std::vector<ChangedAnswer> m_changes;
};

struct LevelOrder {
    bool operator()(const LevelSet& left, const LevelSet& right) const {
        for (std::size_t i = 0; i < kLevelClassCount; ++i) {
            if (left[i] != right[i]) return left[i];
        }
        return false;
    }
};

// Joins single changes: first over the levels, then over the style ids, finally over the types.
class Joiner {
public:
    explicit Joiner(const StyleStudy& style) : m_mapping(style.mapping()) {
        const std::vector<unsigned int> mapped = style.mapping().questionIds();
        m_mapped = {mapped.begin(), mapped.end()};
        if (style.mapping().kind() != Mapping::Kind::EveryMap) return;
        std::erase_if(m_mapped, [&](unsigned int id) { return style.mapping().typesOf(id).size() > 1; });
    }

    void add(const ChangedAnswer& answer, const Change& change) {
        m_levels[{answer.featureType, change, answer.styleId}].set(answer.levelClass);
    }

    std::vector<JoinedChange> joined() const {
        std::map<std::pair<Change, LevelSet>, IdsByType, ChangeOrder> changes;
        for (const auto& [where, levels] : m_levels) {
            const auto& [featureType, change, styleId] = where;
            changes[{change, levels}][featureType].insert(styleId);
        }
        std::vector<JoinedChange> list;
        for (const auto& [what, ids] : changes) append(list, what.first, what.second, ids);
        std::ranges::stable_sort(
            list, {}, [](const JoinedChange& each) { return std::tuple(each.featureType, each.change.question); });
        return list;
    }

private:
    using Ids = std::set<unsigned int>;
    using IdsByType = std::map<int, Ids>;

    struct ChangeOrder {
        bool operator()(const std::pair<Change, LevelSet>& left, const std::pair<Change, LevelSet>& right) const {
            if (left.first.question != right.first.question) return left.first.question < right.first.question;
            if (left.second != right.second) return LevelOrder()(left.second, right.second);
            return left.first < right.first;
        }
    };

    void append(std::vector<JoinedChange>& list, const Change& change, const LevelSet& levels,
                const IdsByType& idsByType) const {
        if (holdsEverywhere(idsByType)) {
            list.push_back({kEveryType, change, levels, {m_mapped.begin(), m_mapped.end()}, true});
        }
        for (const auto& [type, ids] : idsByType) {
            const bool isIdless = type == kNoType || change.question.subject == Subject::Background;
            if (isIdless) list.push_back({type, change, levels, {}, true});
            if (isIdless || holdsEverywhere(idsByType)) continue;
            list.push_back({type, change, levels, {ids.begin(), ids.end()}, isWhole(type, ids)});
        }
    }

    bool holdsEverywhere(const IdsByType& idsByType) const {
        Ids ids;
        for (const auto& [type, ofType] : idsByType) {
            if (type != kNoType) ids.insert(ofType.begin(), ofType.end());
        }
        return idsByType.size() > 1 && ids == m_mapped;
    }

    bool isWhole(int featureType, const Ids& ids) const {
        const auto& all = m_mapping.questionIdsOf(featureType);
        const auto isOfAll = [&](unsigned int id) { return ids.contains(id) || !m_mapped.contains(id); };
        return std::ranges::all_of(all, isOfAll) &&
               std::ranges::all_of(ids, [&](unsigned int id) { return m_mapped.contains(id); });
    }

    const Mapping& m_mapping;
    Ids m_mapped;
    std::map<std::tuple<int, Change, unsigned int>, LevelSet> m_levels;
};

}  // namespace

std::vector<ChangedAnswer> changedAnswers(const StyleStudy& before, const StyleStudy& after) {
    const ComponentGuard guard;
    const Mapping& mapping = before.mapping();
    Comparison comparison(before, after);
    if (mapping.kind() != Mapping::Kind::EveryMap) {
        std::vector<unsigned int> styleIds = mapping.questionIds();
        styleIds.push_back(mapping.unlistedId());
        return comparison.changes(styleIds);
    }
    std::vector<ChangedAnswer> changes = comparison.changes(styleIdsToCompare(mapping, false));
    // Changes for single types would only be reported again.
    return changes.empty() ? comparison.changes(styleIdsToCompare(mapping, true)) : changes;
}

std::vector<JoinedChange> differenceOf(const StyleStudy& before, const StyleStudy& after) {
    const std::vector<ChangedAnswer> answers = changedAnswers(before, after);
    if (answers.empty()) return {};
    Attribution beforeBy(before);
    Attribution afterBy(after);
    Joiner joiner(before);
    for (const ChangedAnswer& answer : answers) {
        joiner.add(answer,
                   {answer.question, answer.before, answer.after, beforeBy.stylerOf(answer), afterBy.stylerOf(answer)});
    }
    return joiner.joined();
}

}  // namespace customstyle_tool
