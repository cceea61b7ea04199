// Expectations: what an author expects of a style, one per line.
//
//   highway    12-15    fill        #ff0000
//   id 1001    all      text-fill   #ff000080     // half transparent
//   town       4,7-9    font-size   none
//   restaurantlabel  4-21  icon     hidden
//   land       all      background  #112233
//   id 2504    10       none
//   id 2503    all      type        education
//   # a comment
//
// The grammar, words being separated by blanks:
//
//   line    = [ subject levels what ] [ "//" comment ]  |  "#" comment
//   subject = a feature type: all style ids that the mapping lists under it  |  "id" style id
//   levels  = "all"  |  range { "," range }             without blanks
//   range   = level  |  level "-" level  |  "other"     levels 4 to 21; "other" are all beyond
//   what    = field value  |  "icon" ( "hidden" | "shown" )  |  "type" feature type  |  "none": no custom style
//           |  "as-in" path of another style: every answer is as there
//           |  "background" ( colour | "none" )         of land and grid only
//   field   = fill, stroke, top-surface, text-fill, text-stroke with a colour,
//             fill-weight, stroke-weight, text-fill-weight, text-stroke-weight, font-size with a number 0 to 255
//   value   = colour | number | "none": not customised
//   colour  = #rrggbb  |  #rrggbbaa
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/explain/ExplanationText.h"
#include "tools/json/SourceFile.h"
#include "tools/study/Mapping.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// What is expected of the answers.
enum class Aspect {
    Topic,        ///< one value
    FeatureType,  ///< which type answers; none if there is no custom style
    AsIn,         ///< everything is as in another style
};

struct Expectation {
    std::size_t offset = 0;          ///< of the first word in the file
    std::string text;                ///< as written in the file, without comment
    std::optional<int> featureType;  ///< all of its style ids, or
    unsigned int styleId = 0;        ///< this one
    LevelSet levels;
    Aspect aspect = Aspect::Topic;
    const TopicName* topic = nullptr;  ///< of a Topic
    std::optional<std::uint64_t>
        value;                 ///< packed colour, number, 1 for a hidden icon, feature type; none: not customised
    std::string otherStyle{};  ///< of AsIn: path of its file, relative to the folder of the expectations
};

/// What is wrong in a file of expectations, and what to write instead.
struct ExpectationProblem {
    std::size_t offset;
    std::string text;
};

struct ExpectationFile {
    std::vector<Expectation> expectations;
    std::vector<ExpectationProblem> problems;  ///< in the order of the file; at most one per line
};

/// After this many problems, the rest of a file is not read: it is probably some other kind of file.
inline constexpr std::size_t kMostProblems = 20;

/// Reads a file of expectations. An expectation about a feature type without style ids is a problem, because it could
/// not fail, and so is one about a style id that the mapping does not list.
ExpectationFile parseExpectations(const SourceFile& file, const Mapping& mapping);

/// The grammar for people, a few lines long.
const char* expectationHelp();

}  // namespace customstyle_tool
