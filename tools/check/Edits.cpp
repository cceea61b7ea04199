#include "tools/check/Edits.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

// Rules, and members of the stylers of rules, by index.
struct TakenOut {
    std::set<std::size_t> rules{};
    std::map<std::size_t, std::set<std::size_t>> members{};  // by rule
};

std::optional<JsonValue> stylersOf(JsonValue rule) {
    return rule.firstMemberIgnoringCase("stylers");
}

TextRange wholeRange(JsonValue value) {
    return {value.isMember() ? value.nameRange().begin : value.range().begin, value.range().end};
}

// Marks every occurrence of the styler that a finding is about, or the whole rule.
void takeOut(TakenOut& takenOut, const Finding& finding, const StyleStudy& study) {
    if (!finding.step) return void(takenOut.rules.insert(*finding.rule));
    const std::vector<JsonValue> members = study.rules()[*finding.rule].members(study.steps()[*finding.step].styler);
    if (members.empty()) takenOut.rules.insert(*finding.rule);
    for (const JsonValue member : members) takenOut.members[*finding.rule].insert(member.position());
}

// The edits that take some children out of a list or object, with the commas that go with them.
void addRemovals(std::vector<Edit>& edits, const std::vector<JsonValue>& children, const std::set<std::size_t>& gone) {
    for (auto next = gone.begin(); next != gone.end();) {
        const std::size_t first = *next;
        std::size_t last = first;
        while (++next != gone.end() && *next == last + 1) ++last;
        const bool isLast = last + 1 == children.size();
        const std::size_t begin =
            isLast && first > 0 ? wholeRange(children[first - 1]).end : wholeRange(children[first]).begin;
        const std::size_t end = isLast ? wholeRange(children[last]).end : wholeRange(children[last + 1]).begin;
        edits.push_back({{begin, end}, ""});
    }
}

// A rule must keep a styler: one without any would be a new mistake.
bool isStyler(JsonValue member) {
    return stylerNamed(member.name()) != nullptr;
}

// What is removed from one rule: some members of its stylers, or instead the whole rule.
struct Removal {
    std::vector<Edit> ofMembers;
    bool isWhole = false;
};

Removal removalFrom(JsonValue rule, const std::set<std::size_t>& goneMembers) {
    const auto stylers = stylersOf(rule);
    std::vector<JsonValue> members;
    if (stylers) members.assign(stylers->children().begin(), stylers->children().end());
    bool isAnyLeft = false;
    for (std::size_t i = 0; i < members.size(); ++i) isAnyLeft |= isStyler(members[i]) && !goneMembers.contains(i);
    if (!isAnyLeft) return {{}, true};
    Removal removal;
    addRemovals(removal.ofMembers, members, goneMembers);
    return removal;
}

std::vector<Edit> removals(const TakenOut& takenOut, const StyleSource& style) {
    std::vector<Edit> edits;
    std::set<std::size_t> goneRules = takenOut.rules;
    for (const auto& [rule, members] : takenOut.members) {
        if (goneRules.contains(rule)) continue;
        const Removal removal = removalFrom(style.rules()[rule], members);
        if (removal.isWhole) goneRules.insert(rule);
        edits.insert(edits.end(), removal.ofMembers.begin(), removal.ofMembers.end());
    }
    addRemovals(edits, style.rules(), goneRules);
    return edits;
}

// Sorted, and without those that overlap an earlier one.
std::vector<Edit> inOrder(std::vector<Edit> edits) {
    std::ranges::stable_sort(edits, {}, [](const Edit& edit) { return edit.range.begin; });
    std::vector<Edit> kept;
    for (Edit& edit : edits) {
        if (kept.empty() || kept.back().range.end <= edit.range.begin) kept.push_back(std::move(edit));
    }
    return kept;
}

}  // namespace

std::vector<Edit> editsOf(const Finding& finding, const StyleStudy& study) {
    return jointEdits({&finding, 1}, study);
}

std::vector<Edit> jointEdits(std::span<const Finding> findings, const StyleStudy& study) {
    if (study.source().file().isBuilt()) return {};
    std::vector<Edit> edits;
    TakenOut takenOut;
    for (const Finding& finding : findings) {
        if (finding.replacement)
            edits.push_back({finding.range, *finding.replacement});
        else if (finding.canGo && finding.rule)
            takeOut(takenOut, finding, study);
    }
    return inOrder(edits.empty() ? removals(takenOut, study.source()) : std::move(edits));
}

std::string edited(std::string_view text, std::span<const Edit> edits) {
    std::string result;
    std::size_t begin = 0;
    for (const Edit& edit : edits) {
        result += text.substr(begin, edit.range.begin - begin);
        result += edit.text;
        begin = edit.range.end;
    }
    return result.append(text.substr(begin));
}

}  // namespace customstyle_tool
