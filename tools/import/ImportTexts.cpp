#include "tools/import/ImportTexts.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "tools/export/JsonLines.h"
#include "tools/import/ImportedStyle.h"
#include "tools/json/JsonDocument.h"
#include "tools/layout/Layout.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

// The map style as JSON, or why it is not JSON.
std::variant<MapJson, ReadFailure> mapStyleIn(const SourceFile& file) {
    const auto document = documentOf(file, "style of another renderer");
    if (const auto* failure = std::get_if<ReadFailure>(&document)) return *failure;
    MapJson json = MapJson::parse(file.text(), nullptr, false);
    if (json.is_discarded()) return ReadFailure{file.path() + ": is not JSON as other programs read it"};
    if (!json.is_object() || !json.contains("layers") || !json["layers"].is_array()) {
        return ReadFailure{file.path() + ": is not a style for MapLibre renderers; it has no list \"layers\""};
    }
    return json;
}

// In the layout of style files.
std::string laidOutImport(std::string text) {
    const SourceFile file("imported style", std::move(text));
    const auto document = documentOf(file, "style file");
    return laidOut(std::get<JsonDocument>(document));
}

}  // namespace

std::variant<ConversionTexts, ReadFailure> importTexts(const SourceFile& mapStyle, const Legend& legend,
                                                       const Mapping& mapping, int zoomOffset,
                                                       const ConversionNames& names) {
    const auto json = mapStyleIn(mapStyle);
    if (const auto* failure = std::get_if<ReadFailure>(&json)) return *failure;
    const ImportedStyle imported = importedStyle(std::get<MapJson>(json), legend, mapping, zoomOffset);
    const MapJson report = {{"version", kConversionReport},
                            {"map_style", names.style},
                            {"source", kMapLibre},
                            {"legend", names.legend},
                            {"losses", imported.losses.json()}};
    return ConversionTexts{laidOutImport(imported.text), imported.losses.text(escapedText(names.style)),
                           jsonLines(report)};
}

}  // namespace customstyle_tool
