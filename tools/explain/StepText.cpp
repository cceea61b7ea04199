#include "tools/explain/StepText.h"

#include <fmt/format.h>

#include "tools/study/StyleSource.h"
#include "tools/support/PlainText.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

std::string memberText(const JsonValue& rule, const char* name) {
    const auto member = rule.firstMemberIgnoringCase(name);
    return member ? member->text() : std::string();
}

// The component looks at a level only if it is a text.
std::optional<std::string> levelText(const JsonValue& stylers) {
    const auto level = stylers.firstMemberIgnoringCase("level");
    if (!level || level->kind() != JsonKind::String) return {};
    return std::string(level->source());
}

std::string variableText(const SourceOrigin& origin) {
    if (!origin.variable) return {};
    const auto& [name, place] = *origin.variable;
    return fmt::format("${}, {}", name, place.file->place(place.range.begin));
}

}  // namespace

StylerNote noteOf(const StyleSource& style, const ReplayStep& step) {
    const JsonValue rule = style.rules()[step.rule];
    StylerNote note{step.rule + 1, {}, {}, step.styler, "", "", "", {}};
    TextRange range = rule.range();
    if (const auto stylers = rule.firstMemberIgnoringCase("stylers")) {
        note.level = levelText(*stylers);
        if (const auto styler = stylers->firstMemberIgnoringCase(step.styler)) {
            range = styler->nameRange();
            note.value = styler->source();
            note.variable = variableText(style.file().origin(styler->range()));
        }
    }
    const SourcePlace place = style.file().origin(range).place;
    note.file = place.file->path();
    note.position = place.file->lines().position(place.range.begin);
    note.featureType = memberText(rule, "featureType");
    note.elementType = memberText(rule, "elementType");
    return note;
}

std::string stylerText(const StylerNote& note) {
    const std::string level = note.level ? fmt::format(" at level {}", *note.level) : "";
    const std::string variable = note.variable.empty() ? "" : fmt::format(" ({})", note.variable);
    return fmt::format("rule {}, {}:{}:{}: {} {}{} on {} {}{}", note.rule, escapedText(note.file), note.position.line,
                       note.position.column, note.styler, escapedText(note.value), escapedText(variable),
                       escapedText(note.featureType), escapedText(note.elementType), escapedText(level));
}

std::optional<int> companionOf(const StylerNote& note, const Write& write) {
    const int own = catalogue().GetFeatureTypeId(note.featureType);
    if (own == write.featureType || catalogue().UpdateFeatureTypeId(own) != write.featureType) return {};
    return write.featureType;
}

}  // namespace customstyle_tool
