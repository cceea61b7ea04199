#include "customstyle/MapOptions.h"

#include <fmt/format.h>

#include <cstdio>
#include <variant>

#include "customstyle/Command.h"
#include "support/LoadedMap.h"

namespace customstyle_tool {

void addMapOptions(CLI::App& command, MapOptions& options) {
    command.add_option("--mapping", options.mappingDirectory, "Directory of the mapping file CustomIndex")
        ->type_name("DIR")
        ->required();
    command.add_option("--style", options.styleFile, "Style file")->type_name("FILE")->required();
}

int withLoadedMap(const MapOptions& options, const std::function<void(const _orvik_framework::CustomConfig&)>& use) {
    const LoadedMap map = loadMap(options.mappingDirectory, options.styleFile);
    if (const LoadFailure* failure = std::get_if<LoadFailure>(&map)) {
        fmt::print(stderr, "customstyle: {}\n", failure->text);
        return kFinding;
    }
    use(*std::get<0>(map));
    return kGood;
}

}  // namespace customstyle_tool
