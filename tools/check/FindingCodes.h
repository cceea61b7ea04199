// The codes of all findings: what each one means, what to do, and an example of it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace customstyle_tool {

enum class Severity : std::uint8_t { Error, Warning, Note };

/// "error", "warning", "note".
std::string_view severityName(Severity severity);

enum class Code : std::uint8_t {
    // The text of a file.
    JsonSyntax,
    JsonComment,
    JsonTooDeep,
    JsonEncoding,
    JsonEmpty,
    JsonLenient,
    TextAfterEnd,
    TextCutAtNul,
    NotAList,
    NoRules,
    // The frame of a rule.
    RuleNotObject,
    TypeMissing,
    TypeNotText,
    TypeUnknown,
    ElementMissing,
    ElementNotText,
    StylersMissing,
    StylersNotObject,
    NoStyler,
    // Members.
    MemberUnknown,
    MemberMisplaced,
    MemberDoubled,
    MemberLetterCase,
    MemberCaseAccepted,
    ValueNotText,
    // Elements and stylers.
    ElementUnknown,
    ElementNotForStyler,
    ElementUnusual,
    ElementMatchesNothing,
    HiddenByRule,
    FontsizeWithoutLabels,
    // Values.
    ColorShort,
    ColorName,
    ColorWithoutSign,
    ColorBadDigit,
    ColorLength,
    ColorInvisible,
    ColorAlphaIgnored,
    VisibilityUnknown,
    SizeNotDigits,
    SizeClamped,
    LevelMalformed,
    LevelClamped,
    // What a rule reaches.
    WeightOnBoundary,
    StrokeOnLand,
    AllReachesNothing,
    TypeWithoutIds,
    NothingReached,
    OnRestoresNoColor,
    IconOnAll,
    GridLevelLost,
    GridUnchanged,
    LandInvisible,
    LandHidden,
    AllColorsNamesOnly,
    LabelsChangeGeometry,
    GeometryHidesNames,
    NamesakeNotReached,
    IconsOfCompanion,
    ParentAnswersLast,
    // How rules affect each other.
    LevelReset,
    LevelResetsItself,
    ShutOutByLevel,
    NoEffect,
    SharedIdsLost,
    PartialEffect,
    EffectsUnproven,
    SlotsNearlyFull,
    SlotsExceeded,
    OtherLogLine,
    // The mapping file.
    MappingNotObject,
    MappingTypeMissing,
    MappingNotList,
    MappingNameUnknown,
    MappingNotNumber,
    MappingIdZero,
    MappingIdRepeated,
    MappingIdFraction,
    MappingIdOutOfRange,
    MappingIdNeverFound,
    MappingIdShared,
    kCount
};

inline constexpr std::size_t kCodeCount = static_cast<std::size_t>(Code::kCount);

/// Which file a code is about, and how its findings are treated.
enum class Trait : std::uint8_t {
    Style = 1,
    Mapping = 2,
    OnRequest = 4,  ///< reported only where the author asks for it
    Refusal = 8,    ///< the component refuses the whole file
    Settles = 16,   ///< says all about its step: whether the step could be removed is not examined
};

constexpr Trait operator|(Trait left, Trait right) {
    return static_cast<Trait>(static_cast<std::uint8_t>(left) | static_cast<std::uint8_t>(right));
}

struct CodeInfo {
    Code code;
    const char* name;  ///< stable: "level-clamped"
    Severity severity;
    Trait traits;
    const char* title;
    const char* explanation;
    const char* remedy;  ///< used where a finding has no better one
    /// A file that causes the finding, with << and >> around the place; what is too long or is not text is named in
    /// parentheses: (1000 x [). Empty where nothing causes the finding.
    const char* example;
    const char* exampleMapping = "";  ///< the mapping file that the example of a style needs, if any

    constexpr bool has(Trait trait) const {
        return (static_cast<std::uint8_t>(traits) & static_cast<std::uint8_t>(trait)) != 0;
    }
};

std::span<const CodeInfo> codeInfos();
const CodeInfo& infoOf(Code code);

/// The code with a name, or none.
std::optional<Code> codeNamed(std::string_view name);

/// The example as people read it, without << and >>.
std::string shownExample(const CodeInfo& info);

}  // namespace customstyle_tool
