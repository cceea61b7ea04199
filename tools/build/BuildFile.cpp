#include "tools/build/BuildFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/build/Toml.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

const std::vector<std::string> kMembers = {"base", "overlays", "palette", "rules"};

class Reader {
public:
    explicit Reader(const SourceFile& file) : m_file(file) {}

    BuildFile read() {
        const std::variant<toml::table, TomlProblem> read = readToml(m_file);
        if (const auto* fault = std::get_if<TomlProblem>(&read)) {
            problem(fault->range, fault->what);
        } else {
            for (const auto& [key, value] : inOrder(std::get<toml::table>(read))) apply(*key, *value);
        }
        return std::move(m_result);
    }

private:
    using Member = std::pair<const toml::key*, const toml::node*>;

    TextRange rangeOf(const toml::source_region& region) const { return customstyle_tool::rangeOf(m_file, region); }

    void problem(TextRange range, const std::string& what) {
        m_result.problems.push_back(fmt::format("{}: {}", m_file.place(range.begin), escapedText(what)));
    }

    void problem(const toml::node& node, const std::string& what) { problem(rangeOf(node.source()), what); }

    // The members of a table as they are written, not by their names.
    std::vector<Member> inOrder(const toml::table& table) const {
        std::vector<Member> members;
        for (const auto& [key, value] : table) members.emplace_back(&key, &value);
        std::ranges::stable_sort(members, {},
                                 [&](const Member& member) { return rangeOf(member.first->source()).begin; });
        return members;
    }

    void apply(const toml::key& key, const toml::node& value) {
        const std::string name(key.str());
        if (name == "base")
            m_result.base = pathIn(value);
        else if (name == "overlays")
            readOverlays(value);
        else if (name == "palette")
            readPalette(value);
        else if (name == "rules")
            readRules(value);
        else
            problem(rangeOf(key.source()), unknownWord("member", name, kMembers));
    }

    std::optional<QuotedText> pathIn(const toml::node& value) {
        const auto text = value.value_exact<std::string>();
        if (text && !text->empty()) return QuotedText{*text, rangeOf(value.source())};
        problem(value, R"(write the path of a style or build file in quotes: "day.json")");
        return {};
    }

    void readOverlays(const toml::node& value) {
        const toml::array* const list = value.as_array();
        if (list == nullptr) return problem(value, R"(write a list of paths: ["winter.json"])");
        for (const toml::node& each : *list) {
            if (auto path = pathIn(each)) m_result.overlays.push_back(std::move(*path));
        }
    }

    static bool isMember(std::string_view name) { return std::ranges::find(kMembers, name) != kMembers.end(); }

    // What follows [palette] belongs to it, which is easily forgotten.
    void readPalette(const toml::node& value) {
        const toml::table* const table = value.as_table();
        if (table == nullptr) return problem(value, R"(write a table: [palette], and below it road = "#a8772f")");
        for (const auto& [key, each] : inOrder(*table)) {
            if (isMember(key->str())) {
                problem(rangeOf(key->source()), fmt::format("\"{}\" belongs above [palette]", key->str()));
                continue;
            }
            const auto text = textIn(*each);
            if (!text) {
                problem(*each, R"(write a string in quotes, as in road = "#a8772f", or a whole number)");
                continue;
            }
            m_result.palette.push_back(
                {std::string(key->str()), rangeOf(key->source()), *text, rangeOf(each->source())});
        }
    }

    void readRules(const toml::node& value) {
        const toml::array* const list = value.as_array();
        if (list == nullptr) return problem(value, "write rules as [[rules]], each with its members below");
        for (const toml::node& each : *list) {
            if (each.is_table())
                m_result.rules.push_back(objectOf(*each.as_table(), false));
            else
                problem(each, "a rule is a table with featureType, elementType and stylers");
        }
    }

    // Style files know texts only; a whole number in TOML means its digits.
    static std::optional<std::string> textIn(const toml::node& value) {
        if (const auto number = value.value_exact<std::int64_t>()) return std::to_string(*number);
        return value.value_exact<std::string>();
    }

    RuleNode objectOf(const toml::table& table, bool inStylers) {
        RuleNode node{.kind = JsonKind::Object, .range = rangeOf(table.source())};
        for (const auto& [key, value] : inOrder(table)) {
            const std::string name(key->str());
            RuleNode named{.name = name};
            RuleNode child = nodeOf(*value, inStylers || holdsStylers(named));
            child.name = name;
            child.nameRange = rangeOf(key->source());
            child.nameJson = jsonText(name);
            node.children.push_back(std::move(child));
        }
        return node;
    }

    RuleNode nodeOf(const toml::node& value, bool inStylers) {
        if (value.is_table()) return objectOf(*value.as_table(), inStylers);
        RuleNode node{.kind = JsonKind::Array, .range = rangeOf(value.source())};
        if (const toml::array* const list = value.as_array()) {
            for (const toml::node& each : *list) node.children.push_back(nodeOf(each, inStylers));
            return node;
        }
        setScalar(node, value, inStylers);
        return node;
    }

    void setScalar(RuleNode& node, const toml::node& value, bool inStylers) {
        node.kind = JsonKind::String;
        if (const auto text = value.value_exact<std::string>(); text || (inStylers && value.is_integer())) {
            node.text = textIn(value).value_or("");
            node.json = jsonText(node.text);
        } else if (inStylers) {
            problem(value, "write a string in quotes or a whole number");
        } else if (value.is_integer()) {
            node.kind = JsonKind::Number;
            node.json = std::to_string(*value.value_exact<std::int64_t>());
        } else if (const auto flag = value.value_exact<bool>()) {
            node.kind = *flag ? JsonKind::True : JsonKind::False;
            node.json = *flag ? "true" : "false";
        } else {
            problem(value, "write a string in quotes; a style has no times and no fractions");
        }
    }

    const SourceFile& m_file;
    BuildFile m_result;
};

}  // namespace

BuildFile readBuildFile(const SourceFile& file) {
    return Reader(file).read();
}

}  // namespace customstyle_tool
