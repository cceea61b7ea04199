// What the component logs, with the place in the file that each line is about.
#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>

#include "tools/check/DocumentFindings.h"
#include "tools/check/StyleFindings.h"
#include "tools/json/JsonScalars.h"
#include "tools/study/Probe.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {
namespace {

constexpr std::string_view kLogPrefix = "ZRX Custom Map: ";

/// A line of the component for one step.
struct LoggedLine {
    StyleFindings& found;
    const ReplayStep& step;
    const RuleView& rule;
    const std::string& line;

    Finding& add(Code code, TextRange range, const std::string& path, std::string message) const {
        Finding& finding = found.add(code, rule, range, path, std::move(message));
        finding.log = line;
        return finding;
    }
    Finding& add(Code code, JsonValue value, std::string message) const {
        return add(code, value.range(), value.path(), std::move(message));
    }
    Finding& addMissing(Code code, const char* member) const {
        return add(code, rule.start(), rule.value.path(), fmt::format("the rule has no \"{}\" and is skipped", member));
    }
    Finding& addWrongKind(Code code, const char* member, JsonValue value) const {
        return add(code, value, fmt::format("\"{}\" is {}; the rule is skipped", member, kindName(value.kind())));
    }
};

// ---- The frame of a rule --------------------------------------------------------------------------------------------

void featureTypeAbsent(const LoggedLine& logged) {
    const JsonValue rule = logged.rule.value;
    if (rule.kind() != JsonKind::Object) {
        logged.add(Code::RuleNotObject, rule,
                   fmt::format("this rule is {}, not an object; it is skipped", kindName(rule.kind())));
    } else if (logged.rule.featureType) {
        logged.addWrongKind(Code::TypeNotText, "featureType", *logged.rule.featureType);
    } else {
        logged.addMissing(Code::TypeMissing, "featureType");
    }
}

void featureTypeUnknown(const LoggedLine& logged) {
    const std::string& name = logged.rule.typeName;
    Finding& finding = logged.add(Code::TypeUnknown, *logged.rule.featureType,
                                  fmt::format("unknown feature type {}; the rule is skipped", inQuotes(name)));
    const auto nearest = likelyName(name, featureTypeNames());
    const auto meant = meantFeatureType(name);
    if (nearest && (!meant || spellingDistance(inLowerCase(name), *nearest) <= 1))
        return proposeName(finding, *nearest);
    finding.remedy = meant ? fmt::format("did you mean \"{}\"? All names: customstyle list types", *meant)
                           : "use a name from: customstyle list types";
}

void elementTypeAbsent(const LoggedLine& logged) {
    if (!logged.rule.elementType) {
        logged.addMissing(Code::ElementMissing, "elementType");
    } else {
        logged.addWrongKind(Code::ElementNotText, "elementType", *logged.rule.elementType);
    }
}

void stylersAbsent(const LoggedLine& logged) {
    if (!logged.rule.stylers) {
        logged.addMissing(Code::StylersMissing, "stylers");
    } else {
        logged.addWrongKind(Code::StylersNotObject, "stylers", *logged.rule.stylers);
    }
}

void stylersEmpty(const LoggedLine& logged) {
    if (logged.rule.suspect()) return;  // the finding about that member reports it
    const bool hasLevel = logged.rule.member("level").has_value();
    logged.add(
        Code::NoStyler, *logged.rule.stylers,
        hasLevel ? "a level alone styles nothing; the rule is skipped" : "the rule has no styler and is skipped");
}

// ---- Elements -------------------------------------------------------------------------------------------------------

std::string quotedList(const std::vector<std::string>& names) {
    std::vector<std::string> parts;
    for (const std::string& name : names) parts.push_back("\"" + name + "\"");
    return fmt::format("{}", fmt::join(parts, ", "));
}

// If the path starts like some of the elements, only those are worth naming.
std::vector<std::string> relatedElements(const RuleView& rule, const std::vector<std::string>& elements) {
    std::vector<std::string> related;
    std::ranges::copy_if(elements, std::back_inserter(related),
                         [&](const std::string& element) { return element.starts_with(rule.words.front()); });
    return rule.words.front().empty() || related.empty() ? elements : related;
}

std::string elementRemedy(const RuleView& rule, const std::string& styler) {
    const std::vector<std::string> elements = elementsTaking(rule.typeName, styler);
    if (elements.empty()) return fmt::format("remove the {}: no element of \"{}\" has one", styler, rule.typeName);
    auto likely = likelyName(rule.path, elements);
    if (!likely) likely = meantElement(rule.path, elements);
    return fmt::format("{}\"{}\" has a {} on {}", likely ? fmt::format("did you mean \"{}\"? ", *likely) : "",
                       rule.typeName, styler, quotedList(relatedElements(rule, elements)));
}

void elementInvalid(const LoggedLine& logged) {
    const RuleView& rule = logged.rule;
    const std::string& styler = logged.step.styler;
    const bool isKnown = std::ranges::any_of(
        stylers(), [&](const Styler& other) { return acceptsStyler(rule.typeName, rule.path, other.name); });
    const std::string message = isKnown
                                    ? fmt::format("{} has no {}; the styler is dropped", inQuotes(rule.path), styler)
                                    : fmt::format("unknown element {}; the {} is dropped", inQuotes(rule.path), styler);
    logged.add(isKnown ? Code::ElementNotForStyler : Code::ElementUnknown, *rule.elementType, message).remedy =
        elementRemedy(rule, styler);
}

void fontSizeNeedsLabelType(const LoggedLine& logged) {
    logged.add(Code::FontsizeWithoutLabels, *logged.rule.featureType,
               fmt::format("{} has no labels; the font size is dropped", inQuotes(logged.rule.typeName)));
}

void fontSizeNeedsLabels(const LoggedLine& logged) {
    logged
        .add(Code::FontsizeWithoutLabels, *logged.rule.elementType,
             fmt::format("{} names no labels; the font size is dropped", inQuotes(logged.rule.path)))
        .remedy = elementRemedy(logged.rule, logged.step.styler);
}

// ---- Values ---------------------------------------------------------------------------------------------------------

void visibilityIllegal(const LoggedLine& logged) {
    const JsonValue value = *logged.rule.member("visibility");
    Finding& finding =
        logged.add(Code::VisibilityUnknown, value,
                   fmt::format("{} is neither \"on\" nor \"off\"; the styler is dropped", inQuotes(value.text())));
    if (const auto meant = meantVisibility(value.text())) {
        finding.remedy = fmt::format("did you mean \"{}\"?", *meant);
    } else if (const auto nearest = likelyName(value.text(), std::vector<std::string>{"on", "off"})) {
        propose(finding, fmt::format("\"{}\"", *nearest));
    }
}

// The whole number that a size starts with, where nothing but a fraction or a unit follows: "3" of "3px".
std::string leadingNumber(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    text.remove_prefix(std::min(text.find_first_not_of(" +"), text.size()));
    const std::string_view digits = text.substr(0, text.find_first_not_of(kDigits));
    const std::string_view rest = text.substr(digits.size());
    const bool isUnit = rest.find_first_of(kDigits) == std::string_view::npos;
    return isUnit || rest.starts_with('.') ? std::string(digits) : "";
}

void sizeNotDigits(const LoggedLine& logged) {
    const JsonValue value = *logged.rule.member(logged.step.styler);
    const std::string text = value.text();
    const std::string digits = leadingNumber(text);
    Finding& finding =
        logged.add(Code::SizeNotDigits, value,
                   fmt::format("{} is not only digits; the {} is dropped", inQuotes(text), logged.step.styler));
    const bool isInRange = digits.size() < 3 || (digits.size() == 3 && digits <= "255");
    if (!digits.empty() && isInRange)
        finding.remedy = fmt::format("write \"{}\", or another whole number up to 255", digits);
}

// ---- The lines ------------------------------------------------------------------------------------------------------

struct LogRow {
    std::string_view begin;
    std::string_view end;
    void (*explain)(const LoggedLine&);
};

constexpr LogRow kRows[] = {
    {"warning, \"featureType\" is  illegal or absent", "", featureTypeAbsent},
    {"warning, \"featureType:", "\" is illegal", featureTypeUnknown},
    {"warning, \"elementType\" is illegal or absent", "", elementTypeAbsent},
    {"warning, \"stylers\" is illegal or absent", "", stylersAbsent},
    {"warning, \"stylers\" is undefined", "", stylersEmpty},
    {"warning, \"elementType\" is invalid.", "", elementInvalid},
    {"warning, \"visibility\" is illegal or absent", "", visibilityIllegal},
    {"Error, \"weight\" contain alpha, is illegal", "", sizeNotDigits},
    {"Error, \"fontsize\" contain alpha, is illegal", "", sizeNotDigits},
    {"Error, \"featureType\" not include labels element", "", fontSizeNeedsLabelType},
    {"Error, \"", "\" not include labels element", fontSizeNeedsLabels},
    {"warning, \"", "\" is not set for font size style.", elementInvalid},
};

void otherLine(const LoggedLine& logged) {
    Finding& finding = logged.found.add(Code::OtherLogLine, logged.step, "the component logs a line about this");
    finding.log = logged.line;
}

void explainLine(const LoggedLine& logged) {
    std::string_view text = logged.line;
    if (text.starts_with(kLogPrefix)) text.remove_prefix(kLogPrefix.size());
    const auto says = [text](const LogRow& row) {
        return row.end.empty() ? text == row.begin : text.starts_with(row.begin) && text.ends_with(row.end);
    };
    const auto* const row = std::ranges::find_if(kRows, says);
    row == std::end(kRows) ? otherLine(logged) : row->explain(logged);
}

}  // namespace

std::vector<Finding> findLogged(const StyleStudy& study) {
    StyleFindings found(study);
    for (const ReplayStep& step : study.steps()) {
        for (const std::string& line : step.log) explainLine({found, step, found.ruleOf(step), line});
    }
    return found.take();
}

}  // namespace customstyle_tool
