#include "tools/customstyle/Configuration.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "tools/build/Toml.h"
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
    explicit Reader(const SourceFile& file) : m_file(file) { m_result.path = file.path(); }

    Configuration read() {
        const std::variant<toml::table, TomlProblem> settings = readToml(m_file);
        if (const auto* problem = std::get_if<TomlProblem>(&settings)) fail(problem->range, problem->what);
        for (const auto& [key, value] : std::get<toml::table>(settings)) apply(key, value);
        return std::move(m_result);
    }

private:
    [[noreturn]] void fail(TextRange place, const std::string& what) const {
        throw ConfigurationProblem{fmt::format("{}: {}", m_file.place(place.begin), escapedText(what))};
    }

    [[noreturn]] void fail(const toml::source_region& place, const std::string& what) const {
        fail(rangeOf(m_file, place), what);
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
        return (fs::path(m_file.path()).parent_path() / *text).string();
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
            const auto written = each.value_exact<std::string>();
            if (!written) fail(each.source(), R"(write "error", "warning", "note" or "off")");
            const std::string& name = *written;
            const auto severity = severityNamed(name);
            if (severity)
                m_result.severities[code] = *severity;
            else if (name == "off")
                m_result.ignored.push_back(code);
            else
                fail(each.source(), unknownWord("severity", name, {"error", "warning", "note", "off"}));
        }
    }

    const SourceFile& m_file;
    Configuration m_result;
};

}  // namespace

std::variant<Configuration, ConfigurationProblem> readConfiguration(const std::string& path) {
    const auto file = readSource(path, "settings file");
    if (const auto* failure = std::get_if<ReadFailure>(&file)) return ConfigurationProblem{failure->text};
    try {
        return Reader(*std::get<0>(file)).read();
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
        for (const std::string& name : split(word, ',')) codes.push_back(codeNamed(name).value_or(Code::kCount));
    }
    return codes;
}

std::string problemOfCodes(const std::string& word) {
    for (const std::string& name : split(word, ',')) {
        if (!codeNamed(name)) return unknownCode(name);
    }
    return {};
}

}  // namespace customstyle_tool
