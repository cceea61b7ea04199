// What check says of the values of a rule, and of what it reaches.
#include <algorithm>
#include <iterator>

#include "tests/model_check/ModelTables.h"
#include "tests/properties/Reasons.h"
#include "tests/support/RecordTable.h"

namespace customstyle_test::properties {
namespace {

// ---- Backgrounds ----

bool landHidden(const Said& said) {
    const CheckedStyle& style = said.style;
    const Levels levels = said.words.levelsAfter("(invisible) at ");
    return !levels.empty() && std::ranges::all_of(levels, [&](std::size_t levelClass) {
        const auto color = style.answers().land(levelClass);
        return color && *color == said.words.color();
    });
}

bool gridUnchanged(const Said& said) {
    const CheckedStyle& style = said.style;
    const auto color = style.answers().grid();
    return (color ? said.words.color() == color : said.says("stays as it is")) &&
           storeAt(style, said.part, false).gridColour == storeAt(style, said.part, true).gridColour;
}

// ---- Values ----

// Whether what was written is a field of the record that meets the condition.
template <typename IsMeant>
bool isField(const Write& write, IsMeant isMeant) {
    return std::ranges::any_of(
        kRecordFields, [&](const RecordField& field) { return field.member == write.second && isMeant(field); });
}

bool isOnlyAtLevel(const Said& said) {
    const CheckedStyle& style = said.style;
    const Levels levels = said.words.levelsAfter("applies at ");
    return levels.size() == 1 && std::ranges::all_of(alone(style, Part{said.part.rule, {}}), [&](const auto& each) {
               return !isOfLevel(each.first.first) ||
                      each.first.first == keyOf(typeOf(each.first.first), *levels.begin());
           });
}

bool hasValue(const CheckedStyle& style, const Said& said, const char* ending, std::uint64_t value) {
    const Written writes = alone(style, said.part);
    const auto isOfKind = [&](const auto& each) { return each.first.second.ends_with(ending); };
    return std::ranges::none_of(writes, isOfKind) ||
           std::ranges::any_of(writes, [&](const auto& each) { return isOfKind(each) && each.second == value; });
}

bool colorRead(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::optional<std::uint64_t> color = said.words.color();
    return color && (hasValue(style, said, "olor", *color) || hasValue(style, said, "colour", *color));
}

bool sizeDrawn(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::uint64_t size = said.words.numberBefore(" is drawn");
    const auto isOfSize = [](const RecordField& field) { return isSize(field); };
    return std::ranges::all_of(alone(style, said.part),
                               [&](const auto& each) { return each.second == size || !isField(each.first, isOfSize); });
}

bool hasSameEffect(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::string path = said.words.textAfter("has the effect of \"", "\"");
    if (path.empty()) return said.says("only its last word counts");
    Rule rule = style.rules()[said.part.rule];
    for (auto& [name, value] : rule.frame) {
        if (name == "elementType") value.text = path;
    }
    return valuesOf(rule, "") == alone(style, Part{said.part.rule, {}});
}

// ---- What is reached ----

template <typename IsMeant>
bool writesSome(const CheckedStyle& style, const Part& part, const std::string& type, IsMeant isMeant) {
    return std::ranges::any_of(alone(style, part), [&](const auto& each) {
        return isRecord(each.first) && typeOf(each.first.first) == typeNamed(type) && isMeant(each.first);
    });
}

bool writesAny(const CheckedStyle& style, const Part& part, const std::string& type) {
    return writesSome(style, part, type, [](const Write&) { return true; });
}

bool writes(const CheckedStyle& style, const Part& part, const std::string& type, const char* beginning) {
    return writesSome(style, part, type, [&](const Write& write) { return write.second.starts_with(beginning); });
}

bool writesGeometry(const CheckedStyle& style, const Part& part, const std::string& type) {
    const auto isOfGeometry = [](const RecordField& field) { return field.part == RecordPart::Geometry; };
    return writesSome(style, part, type, [&](const Write& write) { return isField(write, isOfGeometry); });
}

bool namesOnly(const Said& said) {
    return !writesGeometry(said.style, said.part, said.words.quoted().at(0));
}

bool geometryChanges(const Said& said) {
    return writesGeometry(said.style, said.part, said.words.quoted().at(0));
}

bool namesHidden(const Said& said) {
    const CheckedStyle& style = said.style;
    return writes(style, said.part, said.words.quoted().at(0), "text");
}

bool companionIcons(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::vector<std::string> types = said.words.quoted();
    return writes(style, said.part, types.at(0), "icon") && !writesAny(style, said.part, types.at(1));
}

bool typesNotReached(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::vector<std::string> types = said.words.quoted();
    const bool isFamily = said.says("applies to its own style ids only");
    return std::ranges::none_of(std::span(types).subspan(isFamily ? 1 : 0), [&](const std::string& type) {
        return writesAny(style, Part{said.part.rule, {}}, type);
    });
}

bool hidesEveryIcon(const Said& said) {
    const CheckedStyle& style = said.style;
    return alone(style, said.part).contains({"all", "icon"}) && style.answers().model().everyIconHidden;
}

}  // namespace

const std::map<std::string, Reason> kReachReasons = {
    {"land-hidden", landHidden},
    {"land-invisible", landHidden},
    {"grid-unchanged", gridUnchanged},
    {"level-malformed", isOnlyAtLevel},
    {"level-clamped", isOnlyAtLevel},
    {"color-short", colorRead},
    {"color-name", colorRead},
    {"color-without-sign", colorRead},
    {"color-bad-digit", colorRead},
    {"color-length", colorRead},
    {"color-invisible", colorRead},
    {"color-alpha-ignored", colorRead},
    {"size-clamped", sizeDrawn},
    {"element-unusual", hasSameEffect},
    {"all-colors-names-only", namesOnly},
    {"labels-change-geometry", geometryChanges},
    {"geometry-hides-names", namesHidden},
    {"icons-of-companion", companionIcons},
    {"namesake-not-reached", typesNotReached},
    {"parent-answers-last", typesNotReached},
    {"icon-on-all", hidesEveryIcon},
};

}  // namespace customstyle_test::properties
