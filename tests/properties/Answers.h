// The oracle: what the renderer receives, by the model of the component.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/model_check/StyleModel.h"
#include "tests/properties/Trial.h"

namespace customstyle_test::properties {

constexpr std::size_t kLevelClasses = 19;

/// Stands for all style ids that a map does not list.
constexpr unsigned kUnlisted = 999999;

/// 4 to 21, and one for all others.
int levelOf(std::size_t levelClass);

/// A map, ready to be asked about.
struct Map {
    StyleIds lists;
    std::vector<unsigned> styleIds;  ///< all that can be asked for, and one that the map does not list
    std::optional<int> landId;       ///< whose record speaks for the land's background
};

Map mapWith(const StyleIds& lists);

/// A map that tells apart whatever any map tells apart about these rules: every type that they can reach has an id of
/// its own, and one in common with each other such type.
Map mapOfAllPairs(const std::vector<const Rules*>& styles);

/// The map that a trial's answers have to be kept on: its own, or every map.
Map mapFor(const Trial& trial, const std::vector<const Rules*>& styles);

struct Answer {
    int featureType;
    const model::Record* record;  ///< null for none
    bool isIconHidden;
};

/// All answers for a style on a map.
class Answers {
public:
    /// @param map  must outlive the answers
    Answers(const Map& map, const Rules& rules);

    /// @param styleId  index in the map's styleIds
    const Answer& of(std::size_t styleId, std::size_t levelClass) const {
        return m_answers[styleId * kLevelClasses + levelClass];
    }
    std::optional<std::uint64_t> land(std::size_t levelClass) const;
    std::optional<std::uint64_t> grid() const { return m_model.gridColour; }
    const model::StyleModel& model() const { return m_model; }
    const Map& map() const { return *m_map; }

private:
    void answerAll();
    Answer answerFor(unsigned styleId, std::size_t levelClass) const;

    const Map* m_map;
    model::StyleModel m_model;
    std::array<std::vector<std::pair<int, const model::Records*>>, kLevelClasses> m_inEffect;  // types in order
    std::vector<Answer> m_answers;
};

bool isSame(const Answer& left, const Answer& right);

/// The style ids and level classes that are answered differently.
std::set<std::pair<unsigned, std::size_t>> changedAnswers(const Answers& left, const Answers& right);

/// Names the first question that two styles answer differently, if any.
std::optional<std::string> difference(const Answers& left, const Answers& right);

}  // namespace customstyle_test::properties
