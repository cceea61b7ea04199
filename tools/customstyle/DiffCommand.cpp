// customstyle diff: what changes on the map between two styles.
#include <memory>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/ProgressLine.h"
#include "tools/diff/DiffText.h"

namespace customstyle_tool {
namespace {

struct DiffArguments : MappingArguments {
    std::string before;
    std::string after;
    std::string format = "text";
    std::string color = "auto";
};

std::vector<JoinedChange> differenceWithProgress(const StyleStudy& before, const StyleStudy& after) {
    const ProgressLine line(after.source().file().path());
    return differenceOf(before, after);
}

int diff(DiffArguments arguments) {
    if (!findMapping(arguments, {arguments.before, arguments.after})) return kMisuse;
    const auto before = loadOrComplain(arguments.before, arguments.mappingDirectory, Mapping::everyMap());
    const auto after =
        before == nullptr ? nullptr : loadOrComplain(arguments.after, arguments.mappingDirectory, Mapping::everyMap());
    if (after == nullptr) return kMisuse;
    const std::vector<JoinedChange> changes = differenceWithProgress(*before, *after);
    const Swatches swatches = isColored(arguments.color) ? Swatches::Shown : Swatches::None;
    print(arguments.format == "json"
              ? diffJson(changes, before->mapping()) + "\n"
              : diffText(changes, before->mapping(), swatches) + diffSummary(changes, before->mapping()));
    return changes.empty() ? kGood : kFinding;
}

std::vector<Option> optionsOf(DiffArguments& arguments) {
    std::vector<Option> options{{.names = "A",
                                 .help = "Style file before",
                                 .target = &arguments.before,
                                 .offer = Offer::Files,
                                 .isRequired = true},
                                {.names = "B",
                                 .help = "Style file after; one of the two may be -, standard input",
                                 .target = &arguments.after,
                                 .offer = Offer::Files,
                                 .isRequired = true}};
    addMappingOptions(options, arguments);
    options.push_back(formatOption(arguments.format, {{"text", "a line for each change"}, {"json", "for programs"}}));
    options.push_back(colorOption(arguments.color));
    return options;
}

Command diffCommand() {
    const auto arguments = std::make_shared<DiffArguments>();
    return {
        .name = "diff",
        .purpose = Purpose::Judge,
        .summary = "Print what changes on the map between two style files",
        .description = {"Compares the answers for every style id at every level, not the texts. A change that affects "
                        "only some style ids of a feature type lists them. The settings beside A apply, otherwise "
                        "those beside B."},
        .options = optionsOf(*arguments),
        .statuses = {{0, "Every answer is the same"},
                     {1, "Some answers differ"},
                     {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"whether a rewritten style draws the same map",
                      "customstyle diff old.json new.json --mapping map"},
                     {"what the uncommitted changes of a style mean",
                      "git show HEAD:night.json | customstyle diff - night.json"}},
        .run = [arguments] { return diff(*arguments); }};
}

const Registration diffRegistration(diffCommand);

}  // namespace
}  // namespace customstyle_tool
