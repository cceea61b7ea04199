#include "tools/build/StyleBuild.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "tools/build/BuildFile.h"
#include "tools/build/BuiltText.h"
#include "tools/host/Files.h"
#include "tools/layout/StyleText.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

constexpr char kMark = '$';

using File = std::shared_ptr<const SourceFile>;

// A path in a build file.
struct Reference {
    const SourceFile& file;
    const QuotedText& path;

    std::string place() const { return file.place(path.range.begin); }
};

// All that the files of a build say, read one after the other.
class Sources {
public:
    struct Section {
        File file;
        std::vector<RuleNode> rules;
    };
    struct Setting {
        File file;
        PaletteEntry entry;
    };

    void add(const std::string& path, const Reference* reference) {
        auto read = readSource(path, reference == nullptr ? "build file" : "style or build file");
        if (const auto* failure = std::get_if<ReadFailure>(&read)) {
            const std::string from = reference == nullptr ? "" : reference->place() + ": ";
            problems.push_back(from + failure->text);
            return;
        }
        auto& file = std::get<0>(read);
        if (reference == nullptr || isBuildFile(path))
            addBuildFile(std::move(file));
        else
            addStyle(std::move(file), *reference);
    }

    std::vector<File> files;
    std::vector<Section> sections;
    std::map<std::string, Setting> palette;
    BuildProblems problems;

private:
    void addStyle(std::unique_ptr<SourceFile> source, const Reference& reference) {
        auto style = forRewriting(std::move(source));
        if (const auto* failure = std::get_if<ReadFailure>(&style)) return problems.push_back(failure->text);
        auto& [file, document] = std::get<StyleText>(style);
        if (document.root().kind() != JsonKind::Array) {
            return problems.push_back(
                fmt::format("{}: {} is not a list of rules; put [ and ] around them", reference.place(), file->path()));
        }
        std::vector<RuleNode> rules = rulesOf(document);
        files.emplace_back(std::move(file));
        sections.push_back({files.back(), std::move(rules)});
    }

    void addBuildFile(std::unique_ptr<SourceFile> source) {
        const File file = files.emplace_back(std::move(source));
        BuildFile build = readBuildFile(*file);
        std::ranges::move(build.problems, std::back_inserter(problems));
        m_open.push_back(file->path());
        if (build.base) addReferenced(*file, *build.base);
        for (const QuotedText& overlay : build.overlays) addReferenced(*file, overlay);
        m_open.pop_back();
        for (PaletteEntry& entry : build.palette) palette[entry.name] = {file, entry};
        sections.push_back({file, std::move(build.rules)});
    }

    void addReferenced(const SourceFile& file, const QuotedText& written) {
        const Reference reference{file, written};
        const std::string path = (fs::path(file.path()).parent_path() / written.text).string();
        std::error_code error;
        const auto isSame = [&](const std::string& open) { return fs::equivalent(open, path, error); };
        const auto first = std::ranges::find_if(m_open, isSame);
        if (first == m_open.end()) return add(path, &reference);
        const std::vector<std::string> circle(first, m_open.end());
        problems.push_back(fmt::format("{}: this leads back to {}: {} -> {}; remove it", reference.place(), path,
                                       fmt::join(circle, " -> "), path));
    }

    std::vector<std::string> m_open;  // the build files that are being read, each named by the one before
};

// The values of variables, once all palettes are known.
class Variables {
public:
    explicit Variables(Sources& sources) : m_sources(sources) {
        for (const auto& [name, setting] : sources.palette) m_names.push_back(name);
    }

    std::optional<BuiltText::Value> valueOf(const SourceFile& file, const RuleNode& node) {
        if (!isVariable(node.text)) return {};
        const std::string name = node.text.substr(1);
        const Sources::Setting* const setting = settingOf(name, file, node.range);
        if (setting == nullptr) return {};
        const auto text = textOf(*setting, {name});
        if (!text) return {};
        return BuiltText::Value{*text, {name, {setting->file.get(), setting->entry.range}}};
    }

    // Unused names that look like a name that is used.
    std::vector<std::string> misspelt() const {
        std::vector<std::string> warnings;
        const std::vector<std::string> used(m_used.begin(), m_used.end());
        for (const auto& [name, setting] : m_sources.palette) {
            const auto meant = m_used.contains(name) ? std::nullopt : likelyName(name, used);
            if (!meant) continue;
            warnings.push_back(fmt::format("{}: nothing uses \"{}\"{}",
                                           setting.file->place(setting.entry.nameRange.begin), escapedText(name),
                                           didYouMean(meant)));
        }
        return warnings;
    }

private:
    static bool isVariable(const std::string& text) { return text.starts_with(kMark); }

    const Sources::Setting* settingOf(const std::string& name, const SourceFile& file, TextRange range) {
        m_used.insert(name);
        const auto found = m_sources.palette.find(name);
        if (found != m_sources.palette.end()) return &found->second;
        const std::string what = m_names.empty()
                                     ? fmt::format("unknown variable \"{}\"; no palette sets any", escapedText(name))
                                     : unknownWord("variable", name, m_names);
        addProblem(fmt::format("{}: {}", file.place(range.begin), what));
        return nullptr;
    }

    // @param names  those that led here; one that recurs has no value
    std::optional<std::string> textOf(const Sources::Setting& setting, std::vector<std::string> names) {
        const std::string& text = setting.entry.text;
        if (!isVariable(text)) return text;
        const std::string name = text.substr(1);
        const bool isCircle = std::ranges::find(names, name) != names.end();
        names.push_back(name);
        if (isCircle) {
            addCircle(setting, names);
            return {};
        }
        const Sources::Setting* const next = settingOf(name, *setting.file, setting.entry.range);
        return next == nullptr ? std::nullopt : textOf(*next, std::move(names));
    }

    void addCircle(const Sources::Setting& setting, const std::vector<std::string>& names) {
        addProblem(fmt::format("{}: this variable leads back to itself: ${}; give one of them a value",
                               setting.file->place(setting.entry.range.begin), fmt::join(names, " -> $")));
    }

    // A variable may be used many times; what is wrong with it is reported once.
    void addProblem(std::string problem) {
        if (std::ranges::find(m_sources.problems, problem) == m_sources.problems.end())
            m_sources.problems.push_back(std::move(problem));
    }

    Sources& m_sources;
    std::vector<std::string> m_names;
    std::set<std::string> m_used;
};

BuiltText textOf(const Sources& sources, Variables& variables) {
    BuiltText text([&](const SourceFile& file, const RuleNode& node) { return variables.valueOf(file, node); });
    for (const Sources::Section& section : sources.sections) {
        for (const RuleNode& rule : section.rules) {
            text.add(*section.file, rule, rule.isAfterBlankLine || &rule == &section.rules.front());
        }
    }
    return text;
}

}  // namespace

bool isBuildFile(std::string_view path) {
    return path.ends_with(".toml");
}

std::variant<BuiltStyle, BuildProblems> builtStyle(const std::string& path) {
    Sources sources;
    sources.add(path, nullptr);
    if (sources.files.empty()) return std::move(sources.problems);
    Variables variables(sources);
    BuiltText text = textOf(sources, variables);
    if (!sources.problems.empty()) return std::move(sources.problems);
    BuiltStyle built{{}, variables.misspelt()};
    const SourceFile& build = *sources.files.front();
    auto file = std::move(text).file(build, std::move(sources.files));
    if (const auto* const problem = std::get_if<std::string>(&file)) return BuildProblems{*problem};
    built.file = std::get<0>(std::move(file));
    return built;
}

}  // namespace customstyle_tool
