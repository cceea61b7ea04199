#include "studio/wasm/Answering.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <list>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>
#include <variant>

#include "studio/wasm/AnswersJson.h"
#include "studio/wasm/Refusals.h"
#include "studio/wasm/Requests.h"
#include "studio/wasm/Vocabulary.h"
#include "tools/check/MappingCheck.h"
#include "tools/check/Report.h"
#include "tools/check/StyleCheck.h"
#include "tools/diff/DiffText.h"
#include "tools/explain/ExplanationText.h"
#include "tools/layout/Layout.h"
#include "tools/layout/StyleText.h"
#include "tools/minify/Minifier.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_studio {
namespace {

using customstyle_tool::CheckedFile;
using customstyle_tool::CheckOptions;
using customstyle_tool::JsonDocument;
using customstyle_tool::jsonText;
using customstyle_tool::JsonValue;
using customstyle_tool::Mapping;
using customstyle_tool::ReadFailure;
using customstyle_tool::SourceFile;
using customstyle_tool::StyleStudy;
using customstyle_tool::StyleText;

constexpr std::size_t kKeptStyles = 3;
constexpr std::size_t kKeptText = 2'000'000;  // bytes; what is known about a style takes a hundred times as much memory

// A style with one rule removed. The rest keeps its text, so only the positions differ.
std::string withoutRule(const StyleStudy& style, std::size_t left) {
    std::string text;
    const auto& rules = style.source().rules();
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (i == left) continue;
        text += (text.empty() ? "" : ",\n") + std::string(rules[i].source());
    }
    return "[" + text + "]";
}

using SharedStudy = std::shared_ptr<const StyleStudy>;

/// The mapping that the page works with, and the styles that it asked about last.
class Desk {
public:
    const File& mappingFile() const { return m_mappingFile; }
    const Mapping& mapping() const { return m_mapping; }

    std::string setMapping(File mapping) {
        if (!customstyle_tool::isAcceptedMapping(mapping.text)) {
            return failed(fmt::format("{}: the component refuses this mapping file", mapping.path));
        }
        m_styles.clear();
        m_mapping = Mapping::given(mapping.text);
        m_mappingFile = std::move(mapping);
        return R"({"accepted":true})";
    }

    std::variant<SharedStudy, ReadFailure> style(const File& file) {
        const auto isSame = [&](const SharedStudy& kept) {
            return fileOf(kept).path() == file.path && fileOf(kept).text() == file.text;
        };
        const auto known = std::ranges::find_if(m_styles, isSame);
        if (known == m_styles.end()) return study(file);
        m_styles.splice(m_styles.begin(), m_styles, known);
        return m_styles.front();
    }

private:
    static const SourceFile& fileOf(const SharedStudy& style) { return style->source().file(); }

    std::variant<SharedStudy, ReadFailure> study(const File& file) {
        auto source = std::make_shared<const SourceFile>(file.path, file.text);
        auto document = customstyle_tool::documentOf(*source, "style file");
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&document)) return *failure;
        makeRoomFor(file);
        m_styles.push_front(
            std::make_shared<StyleStudy>(std::move(source), std::get<JsonDocument>(std::move(document)), m_mapping));
        return m_styles.front();
    }

    void makeRoomFor(const File& file) {
        std::size_t count = 1;
        std::size_t size = file.text.size();
        std::erase_if(m_styles, [&](const SharedStudy& kept) {
            size += fileOf(kept).text().size();
            return ++count > kKeptStyles || size > kKeptText;
        });
    }

    File m_mappingFile;
    Mapping m_mapping = Mapping::standard();
    std::list<SharedStudy> m_styles;  // what was asked about last comes first
};

Desk& desk() {
    static Desk only;
    return only;
}

// Calls `use` with the request's style, or reports what is wrong with it.
template <typename Use>
std::string withStyle(const Json& request, const char* name, Use use) {
    const auto file = fileIn(request, name);
    if (!file) return failed(fmt::format(R"(the request needs "{}": {{"path", "text"}})", name));
    const auto style = desk().style(*file);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&style)) return failed(failure->text);
    return use(*std::get<SharedStudy>(style));
}

std::string setMapping(const Json& request) {
    const auto file = fileIn(request, "mapping");
    return file ? desk().setMapping(*file) : failed(R"(the request needs "mapping": {"path", "text"})");
}

Json rangeJson(customstyle_tool::TextRange range) {
    return {{"begin", range.begin}, {"end", range.end}};
}

std::string load(const Json& request) {
    return withStyle(request, "style", [](const StyleStudy& style) {
        Json rules = Json::array();
        for (const JsonValue rule : style.source().rules()) rules.push_back(rangeJson(rule.range()));
        return jsonText({{"rules", rules}});
    });
}

std::string answers(const Json& request) {
    return withStyle(request, "style", [](const StyleStudy& style) { return answersJson(style.config()); });
}

// A text that is not a style has findings, too.
CheckedFile checkedStyle(const File& file, const CheckOptions& options) {
    const auto style = desk().style(file);
    if (const SharedStudy* study = std::get_if<SharedStudy>(&style)) {
        const std::shared_ptr<const SourceFile> source(*study, &(*study)->source().file());
        return {source, customstyle_tool::checkStyle(**study, options), *study};
    }
    const auto source = std::make_shared<const SourceFile>(file.path, file.text);
    auto [study, findings] = customstyle_tool::checkStyle(source, desk().mapping(), options, {}, refusalOfStyle);
    return {source, std::move(findings), std::move(study)};
}

CheckedFile checkedMapping(const CheckOptions& options) {
    auto mapping = std::make_shared<const SourceFile>(desk().mappingFile().path, desk().mappingFile().text);
    auto findings = customstyle_tool::checkMapping(*mapping, options.effects, refusalOfMapping);
    return {std::move(mapping), std::move(findings)};
}

std::string check(const Json& request) {
    const auto file = fileIn(request, "style");
    if (!file) return failed(R"(the request needs "style": {"path", "text"})");
    const CheckOptions options{.effects = isSet(request, "effects")};
    std::vector<CheckedFile> checked;
    if (isSet(request, "with_mapping")) checked.push_back(checkedMapping(options));
    checked.push_back(checkedStyle(*file, options));
    return customstyle_tool::reportJson(checked);
}

std::string explain(const Json& request) {
    const auto styleId = numberIn(request, "id", 0xFFFFFFFF);
    const auto level = numberIn(request, "level", 0x7FFFFFFF);
    if (!styleId || !level) return failed(R"(the request needs "id" and "level")");
    return withStyle(request, "style", [&](const StyleStudy& style) {
        const auto id = static_cast<unsigned int>(*styleId);
        customstyle_tool::Explainer explainer(style);
        const auto explanation = explainer.explain(id, static_cast<int>(*level));
        return fmt::format("{{\n\"version\": 1,\n\"explanations\": [\n{}\n]\n}}\n",
                           customstyle_tool::explanationJson(explainer, explanation, nullptr));
    });
}

std::string diff(const Json& request) {
    return withStyle(request, "before", [&](const StyleStudy& before) {
        return withStyle(request, "after", [&](const StyleStudy& after) {
            return customstyle_tool::diffJson(customstyle_tool::differenceOf(before, after), desk().mapping());
        });
    });
}

// What a rule does: the difference from the style without it.
std::string effect(const Json& request) {
    return withStyle(request, "style", [&](const StyleStudy& whole) {
        const auto rule = numberIn(request, "rule", static_cast<std::int64_t>(whole.source().rules().size()) - 1);
        if (!rule) return failed(R"(the request needs "rule", counted from 0)");
        const File rest{"without", withoutRule(whole, static_cast<std::size_t>(*rule))};
        const auto without = desk().style(rest);
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&without)) return failed(failure->text);
        const auto changes = customstyle_tool::differenceOf(*std::get<SharedStudy>(without), whole);
        return fmt::format(R"({{"without":{},"difference":{}}})", jsonText(rest.text),
                           customstyle_tool::diffJson(changes, desk().mapping()));
    });
}

// Calls `use` with the request's style as a text that may be written again.
template <typename Use>
std::string rewritten(const Json& request, Use use) {
    const auto file = fileIn(request, "style");
    if (!file) return failed(R"(the request needs "style": {"path", "text"})");
    const auto text = customstyle_tool::forRewriting(std::make_unique<SourceFile>(file->path, file->text));
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&text)) return failed(failure->text);
    return use(std::get<StyleText>(text));
}

std::string format(const Json& request) {
    return rewritten(request, [](const StyleText& text) {
        return jsonText({{"text", customstyle_tool::laidOut(text.document)}});
    });
}

std::string minify(const Json& request) {
    return rewritten(request, [](const StyleText& text) {
        const customstyle_tool::StyleSource style(*text.file, text.document);
        auto [shorter, rules, thoroughness] = customstyle_tool::minified(style, desk().mapping().text());
        if (text.file->text().ends_with('\n')) shorter += '\n';
        return jsonText(
            {{"text", shorter}, {"rules", rules}, {"complete", thoroughness == customstyle_tool::Thoroughness::Full}});
    });
}

std::string complete(const Json& /*request*/) {
    return vocabularyJson();
}

std::string takes(const Json& /*request*/) {
    return takesJson();
}

constexpr std::array kMethods{Method{"mapping", setMapping}, Method{"load", load},       Method{"answers", answers},
                              Method{"check", check},        Method{"explain", explain}, Method{"diff", diff},
                              Method{"effect", effect},      Method{"format", format},   Method{"minify", minify},
                              Method{"complete", complete},  Method{"takes", takes}};

}  // namespace

std::string answerTo(std::string_view request) {
    return answerWith(kMethods, request);
}

}  // namespace customstyle_studio
