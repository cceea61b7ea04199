#include "tools/customstyle/Selection.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/support/PlainText.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {

void addSelection(std::vector<Option>& options, Selection& selection) {
    const auto types = mappedTypeNames();
    Option type = choiceOption("-t,--type", "TYPE", "Feature type: all style ids that the mapping lists under it",
                               &selection.types, {types.begin(), types.end()});
    type.problem = [names = type.choices](const std::string& word) {
        return std::ranges::find(names, word) != names.end()
                   ? ""
                   : fmt::format("unknown feature type {}{}", inQuotes(word), featureTypeHint(word));
    };
    options.push_back(std::move(type));
    options.push_back(styleIdOption(selection.ids));
    options.push_back(levelOption(selection.levels));
    options.back().help += "; all without it";
}

std::vector<int> selectedLevels(const Selection& selection) {
    return levelsIn(selection.levels.empty() ? std::vector<std::string>{"all"} : selection.levels);
}

bool isSelected(const Selection& selection, const char* command) {
    if (!selection.ids.empty() || !selection.types.empty()) return true;
    complain(fmt::format("{} needs --type or --id; run customstyle {} --help for more", command, command));
    return false;
}

std::vector<unsigned int> selectedStyleIds(const Selection& selection, const StyleStudy& style) {
    std::vector<unsigned int> selected = styleIdsIn(selection.ids);
    for (const std::string& type : selection.types) {
        const std::vector<unsigned int> ofType = style.mapping().questionIdsOf(catalogue().GetFeatureTypeId(type));
        if (ofType.empty()) {
            complain(fmt::format("the mapping lists no style id under \"{}\" that the renderer can ask for", type));
            return {};
        }
        for (const unsigned int id : ofType) {
            if (std::ranges::find(selected, id) == selected.end()) selected.push_back(id);
        }
    }
    return selected;
}

}  // namespace customstyle_tool
