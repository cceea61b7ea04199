#include "tools/study/SingleRules.h"

#include <cjson/cJSON.h>

#include "customstyle/CustomConfig.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/StyleSource.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::cJSON;

// The names in the component's own list of a rule's stylers: "color;;weight;".
std::vector<std::string> namesIn(const std::string& list) {
    std::vector<std::string> names = split(list, ';');
    std::erase(names, "");
    return names;
}

using NoMemory = void (*)();

// A list with a copy of the rule.
Tree copyOf(const cJSON* rule, NoMemory onNoMemory) {
    Tree list(cJSON_CreateArray());
    Tree copy(cJSON_Duplicate(rule, 1));
    if (list == nullptr || copy == nullptr) onNoMemory();
    cJSON_AddItemToArray(list.get(), copy.release());
    return list;
}

// Keeps only one of the named stylers, or none for the empty name. The order of the members does not matter.
Tree copyWithOnly(const cJSON* rule, const std::string& styler, const std::vector<std::string>& all,
                  NoMemory onNoMemory) {
    Tree list = copyOf(rule, onNoMemory);
    cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(list->child, "stylers");
    for (const std::string& other : all) {
        if (other == styler) continue;
        while (cJSON* member = cJSON_DetachItemFromObject(stylers, other.c_str())) cJSON_Delete(member);
    }
    return list;
}

// Asks the component which stylers of a rule it acts on.
class StylerJudge {
public:
    explicit StylerJudge(NoMemory onNoMemory) : m_onNoMemory(onNoMemory) {}

    std::vector<std::string> actedOn(const cJSON* rule) {
        const cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(rule, "stylers");
        const auto listed = namesIn(m_component.ParseCustomStyler(stylers).ToUtf8());
        const auto idleLog = logOf(copyWithOnly(rule, "", listed, m_onNoMemory));
        std::vector<std::string> names;
        for (const std::string& name : listed) {
            // If the log is that of the rule without stylers, the component does not act on this styler.
            if (logOf(copyWithOnly(rule, name, listed, m_onNoMemory)) != idleLog) names.push_back(name);
        }
        return names;
    }

private:
    std::vector<std::string> logOf(const Tree& document) {
        std::vector<std::string> lines;
        const LogRecording recording(lines);
        m_component.ParseCustomConfig(document.get());
        return lines;
    }

    NoMemory m_onNoMemory;
    CustomConfig m_component;  // without style ids, so that rules leave nothing behind but their keys
};

}  // namespace

Tree componentTree(std::string_view text) {
    return Tree(_orvik_vi::cJSON_Parse(text, 1));
}

std::vector<SingleRule> singleRules(const StyleSource& style, void (*onNoMemory)()) {
    const ComponentGuard guard;
    std::vector<SingleRule> rules;
    StylerJudge judge(onNoMemory);
    const Tree tree = componentTree(style.text());
    std::size_t place = 0;
    const cJSON* rule = nullptr;
    cJSON_ArrayForEach(rule, tree.get()) {
        const std::vector<std::string> names = judge.actedOn(rule);
        for (const std::string& name : names)
            rules.push_back({place, name, copyWithOnly(rule, name, names, onNoMemory)});
        if (names.empty()) rules.push_back({place, "", copyOf(rule, onNoMemory)});
        ++place;
    }
    return rules;
}

}  // namespace customstyle_tool
