#include "tools/customstyle/MapOptions.h"

#include <variant>

#include "tools/customstyle/Console.h"
#include "tools/support/LoadedMap.h"

namespace customstyle_tool {

void addMapOptions(CLI::App& command, MapOptions& options) {
    command.add_option("--mapping", options.mappingDirectory, "Directory of the mapping file CustomIndex")
        ->type_name("DIR")
        ->required();
    command.add_option("--style", options.styleFile, "Style file")->type_name("FILE")->required();
}

int withLoadedMap(const MapOptions& options, const std::function<void(const _orvik_framework::CustomConfig&)>& use) {
    const LoadedMap map = loadMap(options.mappingDirectory, options.styleFile);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&map)) return complain(failure->text, kFinding);
    use(*std::get<0>(map));
    return kGood;
}

}  // namespace customstyle_tool
