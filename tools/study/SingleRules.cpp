#include "tools/study/SingleRules.h"

#include <cjson/cJSON.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

#include "customstyle/CustomConfig.h"
#include "tools/study/ComponentGuard.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::cJSON;
using Names = std::vector<std::string>;

// The names in the component's own list of a rule's stylers: "color;;weight;".
Names namesIn(const std::string& list) {
    Names names = split(list, ';');
    std::erase(names, "");
    return names;
}

Names without(Names names, const std::string& name) {
    std::erase(names, name);
    return names;
}

// Ends the program as operator new does when memory runs out, even where nothing can be thrown.
void endWithoutMemory() {
    constexpr std::size_t kMoreThanAnyHeapHas = std::numeric_limits<std::ptrdiff_t>::max();
    ::operator delete(::operator new(kMoreThanAnyHeapHas));
    std::abort();
}

Tree listWithout(const Names& omitted, std::string_view rule) {
    Tree list = listWith(rule);
    cJSON* const stylers = _orvik_vi::cJSON_GetObjectItem(list->child, "stylers");
    for (const std::string& name : omitted) {
        while (cJSON* member = cJSON_DetachItemFromObject(stylers, name.c_str())) cJSON_Delete(member);
    }
    return list;
}

// Asks the component which stylers of a rule it acts on.
class StylerJudge {
public:
    Names actedOn(std::string_view rule) {
        const Tree whole = listWith(rule);
        const cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(whole->child, "stylers");
        const Names listed = namesIn(m_component.ParseCustomStyler(stylers).ToUtf8());
        const auto idleLog = logOf(listWithout(listed, rule));
        // If the log is that of the rule without stylers, the component does not act on this styler.
        Names names = listed;
        std::erase_if(
            names, [&](const std::string& name) { return logOf(listWithout(without(listed, name), rule)) == idleLog; });
        return names;
    }

private:
    std::vector<std::string> logOf(const Tree& document) {
        std::vector<std::string> lines;
        const LogRecording recording(lines);
        m_component.ParseCustomConfig(document.get());
        return lines;
    }

    CustomConfig m_component;  // without style ids, so that rules leave nothing behind but their keys
};

}  // namespace

// The package notes in a global where it failed. A text takes microseconds, so waiting does not.
Tree componentTree(std::string_view text) {
    static std::atomic_flag isParsing;
    while (isParsing.test_and_set(std::memory_order_acquire)) {
    }
    Tree tree(_orvik_vi::cJSON_Parse(text, 1));
    isParsing.clear(std::memory_order_release);
    return tree;
}

Tree listWith(std::string_view rule) {
    Tree list = componentTree("[" + std::string(rule) + "]");
    if (list == nullptr) endWithoutMemory();
    return list;
}

Tree SingleRule::document() const {
    return listWithout(omitted, text);
}

std::vector<SingleRule> singleRules(const StyleSource& style) {
    const ComponentGuard guard;
    std::vector<SingleRule> rules;
    StylerJudge judge;
    for (std::size_t place = 0; place < style.rules().size(); ++place) {
        const std::string_view text = style.rules()[place].source();
        const Names names = judge.actedOn(text);
        for (const std::string& name : names) rules.push_back({place, name, without(names, name), text});
        if (names.empty()) rules.push_back({place, "", {}, text});
    }
    return rules;
}

}  // namespace customstyle_tool
