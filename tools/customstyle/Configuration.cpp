#include "tools/customstyle/Configuration.h"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "tools/build/BuildFile.h"
#include "tools/customstyle/Arguments.h"
#include "tools/host/Files.h"
#include "tools/host/LoadedMap.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "customstyle.toml";

std::string unknownCode(const std::string& name) {
    std::vector<std::string> names;
    for (const CodeInfo& info : codeInfos()) names.emplace_back(info.name);
    const auto meant = likelyName(name, names);
    return fmt::format("unknown code {}{}", inQuotes(name),
                       meant ? didYouMean(meant) : "; all codes: customstyle list codes");
}

std::optional<Severity> severityNamed(std::string_view name) {
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (severityName(severity) == name) return severity;
    }
    return {};
}

// Reads one file; what is wrong is thrown as a ConfigurationProblem.
class Reader {
public:
    explicit Reader(std::string path) : m_path(std::move(path)) { m_result.path = m_path; }

    Configuration read() {
        const toml::table settings = parsed();
        for (const auto& [key, value] : settings) apply(key, value);
        return std::move(m_result);
    }

private:
    toml::table parsed() const {
        try {
            return toml::parse_file(m_path);
        } catch (const toml::parse_error& error) {
            fail(error.source(), problemOfToml(error.description()));
        }
    }

    [[noreturn]] void fail(const toml::source_region& place, const std::string& what) const {
        const std::string position =
            place.begin.line == 0 ? "" : fmt::format(":{}:{}", place.begin.line, place.begin.column);
        throw ConfigurationProblem{fmt::format("{}{}: {}", m_path, position, escapedText(what))};
    }

    void apply(const toml::key& key, const toml::node& value) {
        const std::string name(key.str());
        if (name == "mapping")
            m_result.mappingDirectory = pathIn(value);
        else if (name == "baseline")
            m_result.baseline = pathIn(value);
        else if (name == "select")
            m_result.selected = codesIn(value);
        else if (name == "ignore")
            m_result.ignored = codesIn(value);
        else if (name == "effects")
            m_result.effects = flagIn(value);
        else if (name == "werror")
            m_result.warningsAreErrors = flagIn(value);
        else if (name == "severity")
            readSeverities(value);
        else
            fail(key.source(),
                 unknownWord("setting", name,
                             {"mapping", "baseline", "select", "ignore", "effects", "werror", "severity"}));
    }

    std::string pathIn(const toml::node& value) const {
        const auto text = value.value_exact<std::string>();
        if (!text || text->empty()) fail(value.source(), "write a path in quotes");
        return (fs::path(m_path).parent_path() / *text).string();
    }

    bool flagIn(const toml::node& value) const {
        const auto flag = value.value_exact<bool>();
        if (!flag) fail(value.source(), "write true or false");
        return *flag;
    }

    Code codeIn(const toml::source_region& place, const std::string& name) const {
        const auto code = codeNamed(name);
        if (!code) fail(place, unknownCode(name));
        return *code;
    }

    std::vector<Code> codesIn(const toml::node& value) const {
        const toml::array* const list = value.as_array();
        if (list == nullptr) fail(value.source(), R"(write a list of codes: ["level-clamped"])");
        std::vector<Code> codes;
        for (const toml::node& each : *list) {
            const auto name = each.value_exact<std::string>();
            if (!name) fail(each.source(), "write a code in quotes");
            codes.push_back(codeIn(each.source(), *name));
        }
        return codes;
    }

    void readSeverities(const toml::node& value) {
        const toml::table* const table = value.as_table();
        if (table == nullptr)
            fail(value.source(), R"(write a table: [severity], and below it level-clamped = "error")");
        for (const auto& [key, each] : *table) {
            const Code code = codeIn(key.source(), std::string(key.str()));
            const std::string name = each.value_or(std::string());
            const auto severity = severityNamed(name);
            if (severity)
                m_result.severities[code] = *severity;
            else if (name == "off")
                m_result.ignored.push_back(code);
            else
                fail(each.source(), unknownWord("severity", name, {"error", "warning", "note", "off"}));
        }
    }

    std::string m_path;
    Configuration m_result;
};

void forEachPiece(const std::string& word, const std::function<void(const std::string&)>& use) {
    for (std::size_t begin = 0; begin <= word.size();) {
        const std::size_t end = std::min(word.find(',', begin), word.size());
        use(word.substr(begin, end - begin));
        begin = end + 1;
    }
}

}  // namespace

std::variant<Configuration, ConfigurationProblem> readConfiguration(const std::string& path) {
    if (const auto problem = problemOfFile(path, "settings file")) return ConfigurationProblem{problem->text};
    try {
        return Reader(path).read();
    } catch (const ConfigurationProblem& problem) {
        return problem;
    }
}

std::optional<ReadFailure> problemOfMapping(const Configuration& configuration) {
    if (!configuration.mappingDirectory) return {};
    auto problem = problemOfMappingDirectory(*configuration.mappingDirectory);
    if (problem) problem->text = fmt::format("{}: mapping: {}", configuration.path, problem->text);
    return problem;
}

std::optional<std::string> configurationFor(const std::string& style) {
    std::error_code error;
    const fs::path file = style == "-" ? fs::path("stdin") : fs::path(style);
    const fs::path start = fs::absolute(file, error).parent_path();
    for (fs::path folder = start; !error; folder = folder.parent_path()) {
        if (fs::is_regular_file(folder / kName, error)) {
            // As the author would write it, where the style's own path is relative.
            const fs::path shown = style != "-" && folder == start ? file.parent_path() / kName : folder / kName;
            return (style == "-" && folder == start ? fs::path(kName) : shown).string();
        }
        error.clear();
        if (folder == folder.parent_path()) break;
    }
    return {};
}

std::vector<Code> codesIn(const std::vector<std::string>& words) {
    std::vector<Code> codes;
    for (const std::string& word : words) {
        forEachPiece(word, [&](const std::string& name) { codes.push_back(codeNamed(name).value_or(Code::kCount)); });
    }
    return codes;
}

std::string problemOfCodes(const std::string& word) {
    std::string problem;
    forEachPiece(word, [&](const std::string& name) {
        if (problem.empty() && !codeNamed(name)) problem = unknownCode(name);
    });
    return problem;
}

}  // namespace customstyle_tool
