// Names and kinds of the members of rules. The component logs nothing about most of them, nor could it.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <unordered_map>

#include "tools/check/DocumentFindings.h"
#include "tools/check/StyleFindings.h"
#include "tools/json/JsonScalars.h"
#include "tools/study/Probe.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/RemarkMembers.h"
#include "tools/vocabulary/Stylers.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {
namespace {

const std::vector<std::string> kRuleMembers{"featureType", "elementType", "stylers"};
const std::vector<std::string> kStylerMembers(stylerMembers().begin(), stylerMembers().end());

const std::string* find(const std::vector<std::string>& names, std::string_view name) {
    const auto found =
        std::ranges::find_if(names, [&](const std::string& known) { return equalIgnoringCase(known, name); });
    return found == names.end() ? nullptr : &*found;
}

// The members that belong in one object of a rule, and those that belong in the other.
struct Place {
    const std::vector<std::string>& members;
    const std::vector<std::string>& elsewhere;
    const char* name;
    const char* moveTo;
};

const Place kInRule{kRuleMembers, kStylerMembers, "a rule", "move it into \"stylers\""};
const Place kInStylers{kStylerMembers, kRuleMembers, "\"stylers\"", "move it out of \"stylers\", beside it"};

// A rule in which each member counts. "off" would make the colour transparent.
std::string wholeRule() {
    std::string stylerMembers;
    for (const Styler& each : stylers()) {
        const std::string_view value = each.kind == StylerKind::Visibility ? "on" : each.example;
        stylerMembers += fmt::format("{}: {}, ", inQuotes(each.name), inQuotes(value));
    }
    return R"({"featureType": "highwaylabel", "elementType": "labels", "stylers": {)" + stylerMembers +
           inQuotes(kLevelMember) + R"(: "9"}})";
}

// Whether the component reads a member under a name in another letter case, in whatever rule.
bool isReadAs(const std::string& name, const std::string& known) {
    const std::string whole = wholeRule();
    std::string rule = whole;
    rule.replace(rule.find(inQuotes(known)), inQuotes(known).size(), inQuotes(name));
    return doTheSame(rule, whole);
}

class MemberCheck {
public:
    MemberCheck(StyleFindings& found, const RuleView& rule, const Place& place)
        : m_found(found), m_rule(rule), m_place(place) {}

    void run(JsonValue object) {
        std::unordered_map<std::string, JsonValue> firsts;
        for (const JsonValue member : object.children()) {
            const auto [first, isNew] = firsts.try_emplace(inLowerCase(member.name()), member);
            isNew ? checkMember(member) : addDoubled(member, first->second);
        }
    }

private:
    Finding& add(Code code, JsonValue member, std::string message) {
        return m_found.add(code, m_rule, member.nameRange(), member.path(), std::move(message));
    }

    void addDoubled(JsonValue member, JsonValue first) {
        if (isRemark(member.name())) return;
        Finding& finding = add(Code::MemberDoubled, member,
                               fmt::format("{} is repeated here; the component uses the first one, {}",
                                           inQuotes(member.name()), quotedSource(first)));
        finding.related.push_back({first.nameRange(), "the first one"});
    }

    static std::string quotedSource(JsonValue value) {
        return value.source().size() > 40 ? "above" : std::string(value.source());
    }

    void checkMember(JsonValue member) {
        if (const std::string* known = find(m_place.members, member.name())) {
            if (*known != member.name()) checkLetterCase(member, *known);
        } else if (const std::string* other = find(m_place.elsewhere, member.name())) {
            add(Code::MemberMisplaced, member,
                fmt::format("{} has no member {}; the component ignores it here", m_place.name, inQuotes(*other)))
                .remedy = m_place.moveTo;
        } else if (!isRemark(member.name())) {
            addUnknown(member);
        }
    }

    void addUnknown(JsonValue member) {
        Finding& finding =
            add(Code::MemberUnknown, member,
                fmt::format("{} has no member {}; the component ignores it", m_place.name, inQuotes(member.name())));
        const auto nearest = likelyName(member.name(), m_place.members);
        if (nearest) return proposeName(finding, *nearest);
        if (&m_place == &kInStylers) {
            if (const auto meant = meantStyler(member.name()))
                finding.remedy = fmt::format("did you mean \"{}\"? All names: customstyle list stylers", *meant);
        } else if (member.name().starts_with("customstyle")) {
            finding.remedy = R"(to silence codes for this rule, write "note": "customstyle-ignore: CODE")";
        } else if (const auto meant = meantRuleMember(member.name())) {
            finding.remedy = fmt::format("did you mean \"{}\"?", *meant);
        }
    }

    void checkLetterCase(JsonValue member, const std::string& known) {
        const bool isRead = isReadAs(member.name(), known);
        const Code code = isRead ? Code::MemberCaseAccepted : Code::MemberLetterCase;
        const char* const message =
            isRead ? "the component accepts {}, but it is spelt \"{}\"" : "{} is ignored; the styler is spelt \"{}\"";
        propose(add(code, member, fmt::format(fmt::runtime(message), inQuotes(member.name()), known)),
                fmt::format("\"{}\"", known));
    }

    StyleFindings& m_found;
    const RuleView& m_rule;
    const Place& m_place;
};

std::string asText(JsonValue value, std::string_view name) {
    const bool isWhole = value.kind() == JsonKind::Number && std::floor(value.number()) == value.number();
    const bool isColor = isOfKind(name, StylerKind::Color);
    const bool isVisibility = isOfKind(name, StylerKind::Visibility);
    if (isColor && isWhole && value.number() >= 0 && value.number() <= 0xFFFFFF) {
        return fmt::format("\"#{:06x}\"", value.integer());
    }
    if (isVisibility && value.kind() == JsonKind::True) return "\"on\"";
    if (isVisibility && value.kind() == JsonKind::False) return "\"off\"";
    // The component takes digits only: neither "1.5" nor "-1" would do.
    if (!isColor && !isVisibility && std::ranges::all_of(value.source(), isDigit)) {
        return fmt::format("\"{}\"", value.source());
    }
    return {};
}

void checkKind(StyleFindings& found, const RuleView& rule, const std::string& name) {
    const std::optional<JsonValue> value = rule.member(name);
    if (!value || value->kind() == JsonKind::String) return;
    const bool isLevel = name == "level";
    Finding& finding = found.add(Code::ValueNotText, rule, *value,
                                 fmt::format("\"{}\" is {}, not a string; {}", name, kindName(value->kind()),
                                             isLevel ? "the rule applies at all levels" : "it is ignored"));
    const std::string text = asText(*value, name);
    if (!text.empty()) return propose(finding, text);
    if (isLevel) finding.remedy = "write a level from 4 to 21 in double quotes";
    if (isOfKind(name, StylerKind::Size)) finding.remedy = "write a whole number from 0 to 255 in double quotes";
}

// The component's log line about a rule without a styler. It looks at the stylers last.
std::string lineOfNoStyler(const StyleStudy& study, const RuleView& rule) {
    if (rule.typeId == -1 || !isText(rule.elementType)) return {};
    const auto [begin, end] = study.stepsOf(rule.place);
    const bool isEmpty =
        end - begin == 1 && study.steps()[begin].styler.empty() && study.steps()[begin].log.size() == 1;
    return isEmpty ? study.steps()[begin].log.front() : std::string();
}

// Where a rule has no styler because a member was meant as one, the finding about that member says so.
void accountForNoStyler(const StyleStudy& study, std::vector<Finding>& findings) {
    for (Finding& finding : findings) {
        const RuleView& rule = study.rules()[*finding.rule];
        const auto suspect = rule.suspect();
        const std::string line = suspect ? lineOfNoStyler(study, rule) : std::string();
        const bool isAboutIt =
            !line.empty() && (finding.range == suspect->range() || finding.range == suspect->nameRange());
        const bool isFault = finding.code == Code::ValueNotText || finding.code == Code::MemberLetterCase ||
                             finding.code == Code::MemberUnknown;
        if (!isAboutIt || !isFault) continue;
        finding.message += ", and without any other styler the rule is skipped";
        finding.log = line;
        if (finding.code == Code::MemberUnknown) finding.code = Code::NoStyler;
    }
}

}  // namespace

std::vector<Finding> findMembers(const StyleStudy& study) {
    StyleFindings found(study);
    for (const RuleView& rule : study.rules()) {
        if (rule.value.kind() != JsonKind::Object) continue;
        MemberCheck(found, rule, kInRule).run(rule.value);
        if (!rule.stylers || rule.stylers->kind() != JsonKind::Object) continue;
        MemberCheck(found, rule, kInStylers).run(*rule.stylers);
        for (const std::string& name : kStylerMembers) checkKind(found, rule, name);
    }
    std::vector<Finding> findings = found.take();
    accountForNoStyler(study, findings);
    return findings;
}

}  // namespace customstyle_tool
