// The component once more, plain and slow: what a rule does to the store is written down as lists and loops, without a
// line of the component's own. Records are maps from field name to value; a field that is 0 is not in the map.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace customstyle_test::model {

/// The value of a JSON member: a text, or something else that is given as JSON.
struct Value {
    std::optional<std::string> text;
    std::string otherJson = "null";
};

using Members = std::vector<std::pair<std::string, Value>>;

/// One rule of a style file. `stylers` without members means a member that is not an object.
struct Rule {
    Members frame;  ///< featureType, elementType
    std::optional<Members> stylers;
};

enum class Writer { GeometryColour, TextColour, Icon, GeometryWeight, TextWeight, FontSize, GridColour, EveryIcon };

/// What a writer writes where. `allLevels` is 1, or 0 for one level.
struct Writing {
    Writer writer;
    int featureType;
    std::string element;
    std::uint64_t value;
    int allLevels;
    int level;
};

using Record = std::map<std::string, std::uint64_t>;
using Records = std::map<int, Record>;

/// The styles of a map, and the answers to the renderer's questions while they are switched on.
class StyleModel {
public:
    /// Applies one list of the mapping file.
    void addStyleIds(int featureType, const std::vector<int>& styleIds);

    void apply(const Rule& rule);
    void write(const Writing& writing);

    /// The feature type that styles an id at a level and its record, or -1 and null.
    std::pair<int, const Record*> findStyle(unsigned styleId, int level) const;
    bool isIconHidden(unsigned styleId, int level) const;

    std::map<int, Records> base;         ///< by feature type
    std::vector<std::string> keys;       ///< in the order of their slots
    std::map<std::string, int> effects;  ///< 1 for keys of all levels, 0 for keys of one level
    std::map<std::string, Records> slots;
    std::optional<std::uint64_t> gridColour;
    bool everyIconHidden = false;
    std::vector<std::string> log;  ///< the messages, without what the log puts in front of each

private:
    struct Frame;

    bool registerKey(const std::string& key, int featureType, int allLevels);
    void writeRecord(Record& record, const Writing& writing);
    void applyColour(const Frame& frame);
    void applyVisibility(const Frame& frame);
    void applyWeight(const Frame& frame);
    void applyFontSize(const Frame& frame);
    const Records* effectiveRecords(int featureType, int level) const;
    const Record* findRecord(int featureType, unsigned styleId, int level) const;
};

/// The rule as JSON.
std::string jsonOf(const Rule& rule);

}  // namespace customstyle_test::model
