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

// The component looks at a level only where it is a text.
std::optional<std::string> levelText(const JsonValue& stylers) {
    const auto level = stylers.firstMemberIgnoringCase("level");
    if (!level || level->kind() != JsonKind::String) return {};
    return std::string(level->source());
}

}  // namespace

StylerNote noteOf(const StyleSource& style, const ReplayStep& step) {
    const JsonValue rule = style.rules()[step.rule];
    StylerNote note{step.rule + 1, style.file().path(), {}, step.styler, "", "", "", {}};
    std::size_t offset = rule.range().begin;
    if (const auto stylers = rule.firstMemberIgnoringCase("stylers")) {
        note.level = levelText(*stylers);
        if (const auto styler = stylers->firstMemberIgnoringCase(step.styler)) {
            offset = styler->nameRange().begin;
            note.value = styler->source();
        }
    }
    note.position = style.file().lines().position(offset);
    note.featureType = memberText(rule, "featureType");
    note.elementType = memberText(rule, "elementType");
    return note;
}

std::string stylerText(const StylerNote& note) {
    const std::string level = note.level ? fmt::format(" at level {}", *note.level) : "";
    return fmt::format("rule {}, {}:{}:{}: {} {} on {} {}{}", note.rule, note.file, note.position.line,
                       note.position.column, note.styler, escapedText(note.value), escapedText(note.featureType),
                       escapedText(note.elementType), escapedText(level));
}

std::optional<int> companionOf(const StylerNote& note, const Write& write) {
    const int own = catalogue().GetFeatureTypeId(note.featureType);
    if (own == write.featureType || catalogue().UpdateFeatureTypeId(own) != write.featureType) return {};
    return write.featureType;
}

}  // namespace customstyle_tool
