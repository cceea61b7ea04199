// What diff says: whether two styles are equal, and what changes where they are not.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <tuple>

#include "tests/properties/AnswerJson.h"
#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"
#include "tests/properties/Writes.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

// A changed answer: style id, level class, field, and what it was and is.
using Change = std::tuple<unsigned, std::size_t, std::string, Json, Json>;

std::size_t levelClassOf(const Json& level) {
    return level.is_string() ? kLevelClasses - 1 : level.get<std::size_t>() - 4;
}

bool isStored(const model::StyleModel& model, int styleId) {
    return std::ranges::any_of(model.base, [&](const auto& type) { return type.second.contains(styleId); });
}

// Style ids that the map does not list, and backgrounds, are reported without a number.
std::vector<unsigned> idsOf(const Json& change) {
    if (!change.at("ids").empty()) return change.at("ids").get<std::vector<unsigned>>();
    return {change.at("field") == "background" ? 0 : kUnlisted};
}

std::set<Change> reportedIn(const Json& changes) {
    std::set<Change> reported;
    for (const Json& change : changes) {
        const Json& topic = change.at(change.at("field") == "background" ? "feature_type" : "field");
        const std::string name = topic.is_null() ? "" : topic.get<std::string>();
        for (const Json& level : change.at("levels")) {
            for (const unsigned id : idsOf(change)) {
                if (id > 0x7fffffff) continue;
                reported.emplace(id, levelClassOf(level), name, change.at("a"), change.at("b"));
            }
        }
    }
    return reported;
}

// What there is to report of two styles, by the model.
class Comparison {
public:
    Comparison(const Answers& before, const Answers& after) : m_before(before), m_after(after) {
        const std::vector<unsigned>& ids = m_before.map().styleIds;
        for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
            addBackground("land", levelClass, m_before.land(levelClass), m_after.land(levelClass));
            addBackground("grid", levelClass, m_before.grid(), m_after.grid());
            for (std::size_t i = 0; i < ids.size(); ++i) {
                if (isComparable(ids[i])) addAnswer(ids[i], i, levelClass);
            }
        }
    }

    /// Every changed answer.
    const std::set<Change>& changes() const { return m_changes; }

    /// The feature type of a change is the one that answers, first in the first style, else the lowest that is mapped.
    bool isOfType(const Json& change) const {
        if (change.at("field") == "background" || change.at("feature_type").is_null()) return true;
        for (const Json& level : change.at("levels")) {
            for (const unsigned id : idsOf(change)) {
                const auto at = std::ranges::find(m_before.map().styleIds, id);
                if (at == m_before.map().styleIds.end()) return false;
                const auto place = static_cast<std::size_t>(at - m_before.map().styleIds.begin());
                if (change.at("feature_type") != nameOf(typeOf(place, levelClassOf(level)))) return false;
            }
        }
        return true;
    }

private:
    // An id below 0 is asked for as a large number, and is as good as one that is not listed. So is a 0 that the
    // component has dropped.
    bool isComparable(unsigned id) const { return id <= 0x7fffffff && (id != 0 || isStored(m_before.model(), 0)); }

    int typeOf(std::size_t styleId, std::size_t levelClass) const {
        for (const Answers* answers : {&m_before, &m_after}) {
            const int type = answers->of(styleId, levelClass).featureType;
            if (type != -1) return type;
        }
        const StyleIds& lists = m_before.map().lists;
        const auto id = static_cast<int>(m_before.map().styleIds[styleId]);
        const auto found = std::ranges::find_if(
            lists, [&](const std::vector<int>& list) { return std::ranges::find(list, id) != list.end(); });
        return found == lists.end() ? -1 : static_cast<int>(found - lists.begin());
    }

    void addBackground(const char* type, std::size_t levelClass, const std::optional<std::uint64_t>& before,
                       const std::optional<std::uint64_t>& after) {
        add(0, levelClass, type, colourJson(before), colourJson(after));
    }

    // The type is reported where both styles have one or nothing else says so; the icon's flag in the record where the
    // icon itself stays as it is.
    void addAnswer(unsigned id, std::size_t place, std::size_t levelClass) {
        const Answer& before = m_before.of(place, levelClass);
        const Answer& after = m_after.of(place, levelClass);
        const std::size_t others = m_changes.size();
        if (!add(id, levelClass, "icon", iconText(before.isIconHidden), iconText(after.isIconHidden))) {
            add(id, levelClass, "icon_flag_of_the_record", iconText(hidesIcon(before)), iconText(hidesIcon(after)));
        }
        const Json valuesBefore = valuesAsJson(before);
        const Json valuesAfter = valuesAsJson(after);
        for (const auto& [field, name] : fieldNames()) {
            add(id, levelClass, name, valuesBefore.value(name, Json()), valuesAfter.value(name, Json()));
        }
        const bool bothHaveOne = before.featureType != -1 && after.featureType != -1;
        if (bothHaveOne || m_changes.size() == others) {
            add(id, levelClass, "feature_type", nameOf(before.featureType), nameOf(after.featureType));
        }
    }

    static bool hidesIcon(const Answer& answer) {
        return answer.record != nullptr && answer.record->contains("iconHidden");
    }

    bool add(unsigned id, std::size_t levelClass, const std::string& field, const Json& before, const Json& after) {
        if (before == after) return false;
        m_changes.emplace(id, levelClass, field, before, after);
        return true;
    }

    const Answers& m_before;
    const Answers& m_after;
    std::set<Change> m_changes;
};

// Whether the rule that is said to have made a value writes to that field.
bool isWriter(const Json& from, const Json& change, const Rules& rules) {
    const auto named =
        std::ranges::find_if(fieldNames(), [&](const auto& each) { return each.second == change.at("field"); });
    if (from.is_null() || named == fieldNames().end()) return true;
    const std::size_t rule = from.at("rule").get<std::size_t>() - 1;
    if (rule >= rules.size()) return false;
    const std::set<Write> writes = writesOf(rules[rule], "");
    return std::ranges::any_of(writes, [&](const Write& write) { return write.second == named->first; });
}

}  // namespace

std::optional<Failure> diffHolds(const Trial& trial) {
    const Rules other = variantOf(trial);
    std::vector<std::string> words = {"diff", "--format", "json", fileWith("style.json", written(trial.rules).text),
                                      fileWith("other.json", written(other).text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    const Run run = runTool(words);
    const Map map = mapFor(trial, {&trial.rules, &other});
    const Answers before(map, trial.rules);
    const Answers after(map, other);
    const auto changed = difference(before, after);
    if (run.status != (changed ? 1 : 0)) {
        return Failure{"diff knows whether two styles are equal",
                       changed.value_or("no answer") + " changes\n" + written(other).text};
    }
    const Json changes = Json::parse(run.out).at("changes");
    for (const Json& change : changes) {
        if (!isWriter(change.at("a_from"), change, trial.rules) || !isWriter(change.at("b_from"), change, other)) {
            return Failure{"diff names a rule that wrote the value", change.dump() + written(other).text};
        }
    }
    if (!trial.mapping) return {};
    const Comparison comparison(before, after);
    if (reportedIn(changes) != comparison.changes()) {
        return Failure{"diff reports every change with its values", run.out + written(other).text};
    }
    if (!std::ranges::all_of(changes, [&](const Json& change) { return comparison.isOfType(change); })) {
        return Failure{"diff names the type of a change", run.out + written(other).text};
    }
    return {};
}

}  // namespace customstyle_test::properties
