// BuiltText: the text of a style that was built, and where each of its values comes from.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tools/build/RuleNode.h"
#include "tools/json/JsonError.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Takes rules one after the other and lays them out as a style.
class BuiltText {
public:
    /// The value of a variable, and where it is set.
    struct Value {
        std::string text;
        SourceOrigin::Variable variable;
    };
    /// The value of a text that a styler has; nothing for one that is not a variable, or that has no value.
    using Lookup = std::function<std::optional<Value>(const SourceFile& file, const RuleNode& node)>;

    explicit BuiltText(Lookup lookup) : m_lookup(std::move(lookup)) {}

    /// @param file  in which the rule is written
    void add(const SourceFile& file, const RuleNode& rule, bool isAfterBlankLine);

    /// The style as a file, whose positions refer to where the added rules are written.
    /// @param build  the file that the style is built by, which gives it its path
    /// @param files  the files in which the rules are written; the style keeps them
    /// @return a file, or why there is none: TOML may nest values deeper than a style file
    std::variant<std::unique_ptr<SourceFile>, std::string> file(
        const SourceFile& build, std::vector<std::shared_ptr<const SourceFile>> files) &&;

private:
    // In the order of the text: a list or object comes before what it contains.
    struct Written {
        const SourceFile* file;
        TextRange nameRange;
        TextRange range;
        std::optional<SourceOrigin::Variable> variable;
    };
    struct RuleStart {
        std::size_t offset;  // in the text
        const SourceFile* file;
        TextRange range;
    };
    class Places;

    void addNode(const SourceFile& file, const RuleNode& node, bool inStylers);
    void addChildren(const SourceFile& file, const RuleNode& node, bool inStylers);
    std::string problemOf(const JsonError& error) const;

    Lookup m_lookup;
    std::string m_text;
    std::vector<Written> m_written;
    std::vector<RuleStart> m_rules;
};

}  // namespace customstyle_tool
