#include "studio/wasm/Refusals.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "studio/wasm/MemoryDisk.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"

namespace customstyle_studio {
namespace {

constexpr char kStylePath[] = "/style";
constexpr char kMappingDirectory[] = "/";
constexpr char kMappingPath[] = "/CustomIndex";

std::string firstLineOfLoading(std::string mapping, std::string style) {
    putFile(kMappingPath, std::move(mapping));
    putFile(kStylePath, std::move(style));
    std::vector<std::string> lines;
    {
        const customstyle_tool::LogRecording recording(lines);
        std::make_unique<_orvik_framework::CustomConfig>()->Init(kMappingDirectory, kStylePath);
    }
    removeAllFiles();
    return lines.empty() ? std::string() : lines.front();
}

}  // namespace

// Elsewhere it is loaded as its own style file, too.
std::string refusalOfMapping(const customstyle_tool::SourceFile& mapping) {
    return firstLineOfLoading(std::string(mapping.text()), std::string(mapping.text()));
}

std::string refusalOfStyle(const customstyle_tool::SourceFile& style) {
    return firstLineOfLoading(customstyle_tool::defaultMapping(), std::string(style.text()));
}

}  // namespace customstyle_studio
