// A build file: TOML that says what a style is made of.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/build/RuleNode.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// A text in a build file.
struct QuotedText {
    std::string text;
    TextRange range;
};

/// A name of the palette with its value, which may be a variable in turn.
struct PaletteEntry {
    std::string name;
    TextRange nameRange;
    std::string text;
    TextRange range;
};

struct BuildFile {
    std::optional<QuotedText> base{};
    std::vector<QuotedText> overlays{};
    std::vector<PaletteEntry> palette{};
    std::vector<RuleNode> rules{};
    std::vector<std::string>
        problems{};  ///< what is wrong with the file, with positions; what is right is read nevertheless
};

BuildFile readBuildFile(const SourceFile& file);

}  // namespace customstyle_tool
