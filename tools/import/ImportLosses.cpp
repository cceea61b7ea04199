#include "tools/import/ImportLosses.h"

#include <fmt/format.h>

#include <iterator>
#include <nlohmann/json.hpp>
#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr LossRow kRows[] = {
    {"not-understood", "these values and filters are not understood and left out; nothing is guessed"},
    {"no-counterpart", "these properties have no counterpart in a style"},
    {"between-zooms", "values that change within a level have the value at its start"},
    {"rounded", "weights and font sizes are whole numbers from 0 to 255; these are rounded, and at least 1"},
    {"features-differ", "features of one type look different here; all get the look of most of them"},
    {"shapes-differ", "a type has one fill for all its shapes; the first one in the legend is used"},
    {"more-layers", "several layers draw the same feature; the top one is used"},
    {"layer-unused", "these layers draw nothing that the legend covers"},
    {"legend-filter", "the legend selects these features by more than values; they are left out"},
    {"not-kept", "a style cannot express this; the component answers differently"},
};
static_assert(std::size(kRows) == static_cast<std::size_t>(ImportLoss::NotKept) + 1);

const LossRow& rowOf(ImportLoss loss) {
    return kRows[static_cast<std::size_t>(loss)];
}

// Names from the map style may be long, and may hold anything.
std::vector<std::string> shownPlaces(const std::set<std::string>& places) {
    std::vector<std::string> shown;
    for (const std::string& place : places) shown.push_back(escapedText(shortened(place, 80)));
    return shown;
}

}  // namespace

std::span<const LossRow> importLossRows() {
    return kRows;
}

std::string ImportLosses::text(std::string_view file) const {
    std::string text;
    for (const auto& [loss, places] : m_places) {
        text += fmt::format("{}: {}: {}{}\n", file, rowOf(loss).code, rowOf(loss).text,
                            placesText(shownPlaces(places), kMostPlaces));
    }
    return text;
}

Json ImportLosses::json() const {
    Json list = Json::array();
    for (const auto& [loss, places] : m_places) {
        list.push_back({{"code", rowOf(loss).code}, {"text", rowOf(loss).text}, {"places", places}});
    }
    return list;
}

}  // namespace customstyle_tool
