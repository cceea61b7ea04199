// What check says of the members of a rule: names, kinds of values, elements, and lines of the log.
#include <algorithm>
#include <cctype>

#include "tests/model_check/ModelTables.h"
#include "tests/properties/Reasons.h"

namespace customstyle_test::properties {
namespace {

using model::Members;
using model::StyleModel;

// ---- Members ----

const Rule& ruleOf(const Said& said) {
    return said.style.rules()[said.part.rule];
}

bool isNamed(const std::pair<std::string, model::Value>& member, const std::string& name) {
    return std::ranges::equal(
        member.first, name, {}, [](unsigned char each) { return std::tolower(each); },
        [](unsigned char each) { return std::tolower(each); });
}

// The first member with the name in any letter case; null for none.
const model::Value* valueOf(const Members& members, const std::string& name) {
    for (const auto& member : members) {
        if (isNamed(member, name)) return &member.second;
    }
    return nullptr;
}

std::ptrdiff_t countOf(const Members& members, const std::string& name) {
    return std::ranges::count_if(members, [&](const auto& member) { return isNamed(member, name); });
}

// The object that a finding about a member is in.
const Members& objectOf(const Said& said) {
    static const Members none;
    if (!said.part.styler) return ruleOf(said).frame;
    return ruleOf(said).stylers ? *ruleOf(said).stylers : none;
}

const std::vector<std::string> kOfRule = {"featureType", "elementType", "stylers"};

std::vector<std::string> namesOfStylers() {
    std::vector<std::string> names;
    for (const auto& [name, value] : kStylers) names.emplace_back(name);
    return names;
}

std::vector<std::string> namesInStylers() {
    std::vector<std::string> names = namesOfStylers();
    names.emplace_back("level");
    return names;
}

bool isAmong(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::any_of(names, [&](const std::string& each) { return isNamed({each, {}}, name); });
}

bool isMissing(const Said& said, const char* member) {
    return valueOf(ruleOf(said).frame, member) == nullptr;
}

bool isNoText(const Said& said, const char* member) {
    const model::Value* value = valueOf(ruleOf(said).frame, member);
    return value != nullptr && !value->text;
}

bool hasKnownType(const Said& said) {
    const model::Value* type = valueOf(ruleOf(said).frame, "featureType");
    return type != nullptr && type->text && std::ranges::find(model::kNames, *type->text) != model::kNames.end();
}

bool typeUnknown(const Said& said) {
    return !isMissing(said, "featureType") && !isNoText(said, "featureType") && !hasKnownType(said);
}

bool stylersNotObject(const Said& said) {
    return hasKnownType(said) && !ruleOf(said).stylers;
}

bool noStyler(const Said& said) {
    const Members& stylers = *ruleOf(said).stylers;
    return std::ranges::none_of(namesOfStylers(), [&](const std::string& name) {
        const auto first = std::ranges::find_if(stylers, [&](const auto& each) { return isNamed(each, name); });
        return first != stylers.end() && first->first == name && first->second.text;
    });
}

bool memberUnknown(const Said& said) {
    const std::string name = said.words.textAfter("has no member \"", "\"");
    return countOf(objectOf(said), name) > 0 && !isAmong(kOfRule, name) && !isAmong(namesInStylers(), name);
}

bool memberMisplaced(const Said& said) {
    const std::string name = said.words.textAfter("has no member \"", "\"");
    return countOf(objectOf(said), name) > 0 && isAmong(said.part.styler ? kOfRule : namesInStylers(), name);
}

bool memberDoubled(const Said& said) {
    return countOf(objectOf(said), said.words.quoted().at(0)) > 1;
}

std::vector<std::string> logOf(const Rule& rule) {
    StyleModel model;
    model.apply(rule);
    return model.log;
}

// Only stylers have to be spelt exactly.
bool letterCaseAccepted(const Said& said) {
    return !isAmong(namesOfStylers(), said.words.quoted().at(0)) &&
           said.words.quoted().at(0) != said.words.quoted().at(1);
}

bool valueNotText(const Said& said) {
    const model::Value* value = valueOf(*ruleOf(said).stylers, said.words.quoted().at(0));
    return value != nullptr && !value->text;
}

// ---- Elements and values ----

// The styler that is said to be dropped.
std::string droppedStyler(const Said& said) {
    for (const std::string& styler : namesOfStylers()) {
        if (said.says(("the " + styler + " is dropped").c_str()) || said.says((" has no " + styler + ";").c_str()))
            return styler;
    }
    if (said.says("nothing is logged with \"on\"")) return "visibility";
    return said.says("the font size is dropped") ? "fontsize" : "";
}

bool isDropped(const Said& said) {
    return !droppedStyler(said).empty() && valuesOf(ruleOf(said), droppedStyler(said)).empty();
}

// No map has style ids for the type "all".
bool isSeen(const Write& write) {
    return !isRecord(write) || typeOf(write.first) != typeNamed("all");
}

// Whether some styler has an effect on the rule's type and element.
bool isElement(const Said& said) {
    return std::ranges::any_of(kStylers, [&](const ExampleOfStyler& example) {
        Rule rule = ruleOf(said);
        rule.stylers = Members{{example.name, {example.value}}};
        const Written writes = valuesOf(rule, "");
        return logOf(rule).empty() && std::ranges::any_of(writes, [](const auto& each) { return isSeen(each.first); });
    });
}

bool fontsizeWithoutLabels(const Said& said) {
    const std::string path = valueOf(ruleOf(said).frame, "elementType")->text.value_or("");
    const bool namesLabels = path.find("labels") != std::string::npos || path.find("all") != std::string::npos;
    return isDropped(said) && (said.says(" has no labels") || !namesLabels);
}

bool visibilityUnknown(const Said& said) {
    const std::string word = valueOf(*ruleOf(said).stylers, "visibility")->text.value_or("on");
    return word != "on" && word != "off";
}

bool sizeNotDigits(const Said& said) {
    const model::Value* size = valueOf(*ruleOf(said).stylers, droppedStyler(said));
    return isDropped(said) && size != nullptr && size->text &&
           (size->text->empty() || size->text->find_first_not_of("0123456789") != std::string::npos);
}

bool gridLevelLost(const Said& said) {
    const Written writes = valuesOf(ruleOf(said), "");
    return writes.contains({"grid", "colour"}) && valueOf(*ruleOf(said).stylers, "level") != nullptr;
}

// ---- The log ----

const std::string kLogPrefix = "ZRX Custom Map: ";

// The lines that findings about a rule give as the component's.
std::set<std::string> linesGiven(const CheckedStyle& style, std::size_t rule) {
    std::set<std::string> lines;
    for (const auto& finding : style.findings()) {
        if (finding.at("log").is_string() && style.partAt(finding).rule == rule) lines.insert(finding.at("log"));
    }
    return lines;
}

}  // namespace

const std::map<std::string, Reason> kMemberReasons = {
    {"type-missing", [](const Said& said) { return isMissing(said, "featureType"); }},
    {"type-not-text", [](const Said& said) { return isNoText(said, "featureType"); }},
    {"type-unknown", typeUnknown},
    {"element-missing", [](const Said& said) { return hasKnownType(said) && isMissing(said, "elementType"); }},
    {"element-not-text", [](const Said& said) { return hasKnownType(said) && isNoText(said, "elementType"); }},
    {"stylers-missing", [](const Said&) { return false; }},  // a trial's rule has some value for them
    {"stylers-not-object", stylersNotObject},
    {"no-styler", noStyler},
    {"member-unknown", memberUnknown},
    {"member-misplaced", memberMisplaced},
    {"member-doubled", memberDoubled},
    {"member-letter-case", [](const Said& said) { return !letterCaseAccepted(said); }},
    {"member-case-accepted", letterCaseAccepted},
    {"value-not-text", valueNotText},
    {"element-unknown", [](const Said& said) { return isDropped(said) && !isElement(said); }},
    {"element-not-for-styler", [](const Said& said) { return isDropped(said) && isElement(said); }},
    {"fontsize-without-labels", fontsizeWithoutLabels},
    {"visibility-unknown", visibilityUnknown},
    {"size-not-digits", sizeNotDigits},
    {"grid-level-lost", gridLevelLost},
};

std::optional<Failure> logFails(const CheckedStyle& style) {
    for (std::size_t rule = 0; rule < style.rules().size(); ++rule) {
        std::set<std::string> logged;
        for (const std::string& line : logOf(style.rules()[rule])) logged.insert(kLogPrefix + line);
        const std::set<std::string> given = linesGiven(style, rule);
        if (given == logged) continue;
        std::string detail = "rule " + std::to_string(rule + 1);
        for (const std::string& line : logged) detail += "\n  logged: " + line;
        for (const std::string& line : given) detail += "\n  given: " + line;
        return Failure{"each line of the log is given, and no other", detail};
    }
    return {};
}

}  // namespace customstyle_test::properties
