#include "tools/replay/LoadedStyle.h"

#include <utility>

#include "tools/replay/LogRecording.h"
#include "tools/replay/SingleRules.h"
#include "tools/support/DefaultMapping.h"
#include "tools/support/LoadedMap.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using TextOrFailure = std::variant<std::string, ReadFailure>;

// The style file is known to be good here, so what the component refuses is the mapping.
TextOrFailure readMapping(const std::string& directory, const std::string& styleFile) {
    const LogSilence quiet;
    const LoadedMap map = loadMap(directory, styleFile);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&map)) return *failure;
    auto read = readSource(mappingFileIn(directory), "mapping file");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return *failure;
    return std::string(std::get<0>(read)->text());
}

std::unique_ptr<CustomConfig> quietStoreOf(std::string_view mapping, std::string_view style) {
    const LogSilence quiet;
    return storeOf(mapping, style);
}

}  // namespace

std::unique_ptr<CustomConfig> storeOf(std::string_view mapping, std::string_view style) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(componentTree(mapping).get());
    config->ParseCustomConfig(componentTree(style).get());
    return config;
}

LoadedStyle::LoadedStyle(std::string mapping, std::unique_ptr<SourceFile> file, JsonDocument document)
    : m_mapping(std::move(mapping)),
      m_file(std::move(file)),
      m_source(*m_file, std::move(document)),
      m_config(quietStoreOf(m_mapping, m_file->text())),
      m_styleIds(*m_config) {}

StyleOrFailure loadStyle(const std::string& styleFile, const std::optional<std::string>& mappingDirectory) {
    auto read = readSource(styleFile, "style file");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return *failure;
    std::unique_ptr<SourceFile>& file = std::get<0>(read);
    auto document = documentOf(*file, "style file");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&document)) return *failure;

    TextOrFailure mapping = mappingDirectory ? readMapping(*mappingDirectory, styleFile) : defaultMapping();
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&mapping)) return *failure;
    g_zrsdk_custom_style_enable = 1;
    return std::make_unique<LoadedStyle>(std::get<0>(std::move(mapping)), std::move(file),
                                         std::get<0>(std::move(document)));
}

}  // namespace customstyle_tool
