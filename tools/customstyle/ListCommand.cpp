// customstyle list: the names that styles are written with.
#include <fmt/format.h>

#include <memory>

#include "tools/check/FindingCodes.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/NameLists.h"

namespace customstyle_tool {
namespace {

struct ListArguments : MappingArguments {
    std::string what;
    std::string format = "text";
};

int list(ListArguments arguments) {
    if (!findMapping(arguments, {kHere})) return kMisuse;
    const auto mapping = mappingOrComplain(arguments.mappingDirectory);
    if (!mapping) return kMisuse;
    const NameList names = namesOf(arguments.what, *mapping);
    print(arguments.format == "json" ? nameListJson(names) : nameListText(names));
    return kGood;
}

Command listCommand() {
    const auto arguments = std::make_shared<ListArguments>();
    Option what = choiceOption("WHAT", "", "types, elements, stylers or codes", &arguments->what,
                               {"types", "elements", "stylers", "codes"});
    what.problem = [known = what.choices](const std::string& word) {
        for (const std::string& each : known) {
            if (each == word) return std::string();
        }
        return unknownWord("list", word, known);
    };
    what.isRequired = true;
    Option mapping = mappingOption(arguments->mappingDirectory);
    mapping.help =
        "Directory of the mapping file CustomIndex, whose style ids are listed with the types; without it, "
        "feature type T has the style id 1000 + T";
    std::vector<Option> options{what, mapping};
    addSettingsOptions(options, arguments->configuration, arguments->withoutConfiguration, "the mapping",
                       "the current folder");
    options.push_back(formatOption(arguments->format, {{"text", "for people"}, {"json", "for programs"}}));
    return {
        .name = "list",
        .purpose = Purpose::Ask,
        .summary = "List feature types with their style ids, elements, stylers, or codes of findings",
        .description = {"Prints the names that rules use: values of \"featureType\" and \"elementType\", members of "
                        "\"stylers\", and the codes that customstyle check reports."},
        .options = std::move(options),
        .statuses = {{0, "The list is printed"}, {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"which style ids each feature type has on a map", "customstyle list types --mapping map"},
                     {"what a rule can style", "customstyle list elements"}},
        .run = [arguments] { return list(*arguments); }};
}

const Registration listRegistration(listCommand);

}  // namespace
}  // namespace customstyle_tool
