// The codes of all findings: what each one means, what to do, and an example of it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/json/JsonDocument.h"

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
    AllColorsNamesOnly,
    LabelsChangeGeometry,
    GeometryHidesNames,
    NamesakeNotReached,
    IconsOfCompanion,
    ParentAnswersLast,
    // Rules among each other.
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

/// Which file a code is about.
enum class FileKind : std::uint8_t { Style, Mapping };

struct CodeInfo {
    Code code;
    const char* name;  ///< stable: "level-clamped"
    Severity severity;
    FileKind kind;
    const char* title;
    const char* explanation;
    const char* remedy;               ///< where a finding has nothing better to say
    const char* example;              ///< see exampleOf; empty where nothing brings the finding about
    const char* exampleMapping = "";  ///< the mapping file that the example of a style needs, if any
};

std::span<const CodeInfo> codeInfos();
const CodeInfo& infoOf(Code code);

/// The code of a name, or none.
std::optional<Code> codeNamed(std::string_view name);

/// Whether findings of the code appear only where the author asks for them.
bool isShownOnRequest(Code code);

/// A file that brings about a finding, and where the finding stands in it. The table writes << and >> around the place,
/// and names in parentheses what is too long or no text: (1000 x [).
struct Example {
    std::string text;
    TextRange place;
    std::string mapping;  ///< empty where any will do
};

Example exampleOf(const CodeInfo& info);

/// The example as the table writes it, without << and >>.
std::string shownExample(const CodeInfo& info);

}  // namespace customstyle_tool
