// Export and import: a module of its own, which a page loads when somebody asks for either.
#include <fmt/format.h>

#include <array>
#include <memory>
#include <utility>
#include <variant>

#include "studio/wasm/Answering.h"
#include "studio/wasm/Requests.h"
#include "tools/export/ExportTexts.h"
#include "tools/export/LegendReader.h"
#include "tools/import/ImportTexts.h"
#include "tools/json/SourceFile.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_studio {
namespace {

using customstyle_tool::ConversionTexts;
using customstyle_tool::ExportOptions;
using customstyle_tool::JsonDocument;
using customstyle_tool::Legend;
using customstyle_tool::Mapping;
using customstyle_tool::ReadFailure;
using customstyle_tool::SourceFile;
using customstyle_tool::StyleStudy;

constexpr int kZoomOffset = 1;

// What both need.
struct Task {
    File file;
    std::string legendName;
    Legend legend;
    Mapping mapping;
};

std::variant<Task, ReadFailure> taskIn(const Json& request, const char* fileMember) {
    auto file = fileIn(request, fileMember);
    const auto mapping = fileIn(request, "mapping");
    if (!file || !mapping) {
        return ReadFailure{fmt::format(R"(the request needs "{}" and "mapping": {{"path", "text"}})", fileMember)};
    }
    if (!customstyle_tool::isAcceptedMapping(mapping->text)) {
        return ReadFailure{fmt::format("{}: the component refuses this mapping file", mapping->path)};
    }
    const std::string name = textIn(request, "legend");
    const auto legendFile = customstyle_tool::builtInLegend(name);
    if (legendFile == nullptr) return ReadFailure{fmt::format("there is no legend \"{}\"", name)};
    auto legend = std::get<Legend>(customstyle_tool::readLegend(*legendFile));
    return Task{std::move(*file), name, std::move(legend), Mapping::given(mapping->text)};
}

std::string answered(const ConversionTexts& texts) {
    return customstyle_tool::jsonText({{"style", texts.style}, {"losses", texts.losses}, {"report", texts.report}});
}

std::optional<std::string> addressIn(const Json& request, const char* name) {
    std::string address = textIn(request, name);
    return address.empty() ? std::nullopt : std::optional(std::move(address));
}

std::string exportStyle(const Json& request) {
    auto read = taskIn(request, "style");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return failed(failure->text);
    Task& task = std::get<Task>(read);
    auto source = std::make_shared<const SourceFile>(task.file.path, std::move(task.file.text));
    auto document = customstyle_tool::documentOf(*source, "style file");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&document)) return failed(failure->text);
    const StyleStudy study(std::move(source), std::get<JsonDocument>(std::move(document)), task.mapping);
    const ExportOptions options{.isRaised = isSet(request, "raised"),
                                .zoomOffset = kZoomOffset,
                                .tiles = addressIn(request, "tiles"),
                                .glyphs = addressIn(request, "glyphs"),
                                .sprite = addressIn(request, "sprite")};
    return answered(customstyle_tool::exportTexts(study, task.legend, options, {task.file.path, task.legendName}));
}

std::string importStyle(const Json& request) {
    auto read = taskIn(request, "map_style");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return failed(failure->text);
    Task& task = std::get<Task>(read);
    const SourceFile mapStyle(task.file.path, std::move(task.file.text));
    const auto imported = customstyle_tool::importTexts(mapStyle, task.legend, task.mapping, kZoomOffset,
                                                        {task.file.path, task.legendName});
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&imported)) return failed(failure->text);
    return answered(std::get<ConversionTexts>(imported));
}

constexpr std::array kMethods{Method{"export", exportStyle}, Method{"import", importStyle}};

}  // namespace

std::string answerTo(std::string_view request) {
    return answerWith(kMethods, request);
}

}  // namespace customstyle_studio
