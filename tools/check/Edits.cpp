#include "tools/check/Edits.h"

#include <algorithm>
#include <optional>
#include <set>

#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

// A rule, or a member of its stylers.
struct TakenOut {
    std::size_t rule;
    std::optional<std::size_t> member;

    auto operator<=>(const TakenOut&) const = default;
};

std::optional<JsonValue> stylersOf(JsonValue rule) {
    return rule.firstMemberIgnoringCase("stylers");
}

TextRange wholeRange(JsonValue value) {
    return {value.isMember() ? value.nameRange().begin : value.range().begin, value.range().end};
}

// Notes the styler that a finding is about, each time that it is there, or the whole rule.
void takeOut(std::set<TakenOut>& takenOut, const Finding& finding, const StyleStudy& study) {
    if (!finding.step) return void(takenOut.insert({*finding.rule, {}}));
    const std::vector<JsonValue> members = study.rules()[*finding.rule].members(study.steps()[*finding.step].styler);
    if (members.empty()) takenOut.insert({*finding.rule, {}});
    for (const JsonValue member : members) takenOut.insert({*finding.rule, member.position()});
}

// The edits that take some children out of a list or object, with the commas that go with them.
void addRemovals(std::vector<Edit>& edits, const std::vector<TextRange>& children, const std::set<std::size_t>& gone) {
    for (std::size_t first = 0; first < children.size();) {
        if (!gone.contains(first)) {
            ++first;
            continue;
        }
        std::size_t last = first;
        while (last + 1 < children.size() && gone.contains(last + 1)) ++last;
        const bool isLast = last + 1 == children.size();
        const std::size_t begin = isLast && first > 0 ? children[first - 1].end : children[first].begin;
        const std::size_t end = isLast ? children[last].end : children[last + 1].begin;
        edits.push_back({{begin, end}, ""});
        first = last + 1;
    }
}

std::vector<TextRange> rangesOf(const std::vector<JsonValue>& values) {
    std::vector<TextRange> ranges;
    for (const JsonValue value : values) ranges.push_back(wholeRange(value));
    return ranges;
}

// Which members of a rule's stylers go; all of them means the rule.
std::set<std::size_t> goneMembers(const std::set<TakenOut>& takenOut, std::size_t rule) {
    std::set<std::size_t> gone;
    for (const TakenOut& each : takenOut) {
        if (each.rule == rule && each.member) gone.insert(*each.member);
    }
    return gone;
}

// What is left of a rule without a styler is a mistake of its own.
bool isStyler(JsonValue member) {
    return stylerNamed(member.name()) != nullptr;
}

std::vector<Edit> removals(const std::set<TakenOut>& takenOut, const StyleSource& style) {
    std::vector<Edit> edits;
    std::set<std::size_t> goneRules;
    for (std::size_t rule = 0; rule < style.rules().size(); ++rule) {
        const std::set<std::size_t> gone = goneMembers(takenOut, rule);
        const auto stylers = stylersOf(style.rules()[rule]);
        std::vector<JsonValue> members;
        if (stylers) members.assign(stylers->children().begin(), stylers->children().end());
        std::size_t left = 0;
        for (std::size_t i = 0; i < members.size(); ++i) left += isStyler(members[i]) && !gone.contains(i) ? 1 : 0;
        if (takenOut.contains({rule, {}}) || (!gone.empty() && left == 0))
            goneRules.insert(rule);
        else
            addRemovals(edits, rangesOf(members), gone);
    }
    addRemovals(edits, rangesOf(style.rules()), goneRules);
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
    std::set<TakenOut> takenOut;
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
