#include "tools/host/LoadedMap.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <future>
#include <thread>
#include <vector>

#include "tools/host/Files.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;
using Problem = std::optional<ReadFailure>;

constexpr char kMappingName[] = "CustomIndex";
constexpr char kMapping[] = "mapping file";
constexpr char kStyle[] = "style file";

Problem problemOfMapping(const std::string& path, JsonValue root) {
    std::vector<std::string> absent;
    for (const std::string& name : mappedTypeNames()) {
        const auto list = root.firstMemberIgnoringCase(name);
        if (!list || list->kind() != JsonKind::Array) absent.push_back(name);
    }
    if (absent.empty()) return {};
    return ReadFailure{fmt::format("{}: has no list of style ids for {}; add a list for each; it may be empty", path,
                                   fmt::join(absent, ", "))};
}

std::string reasonAgainstDirectory(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return "no such directory";
    if (!fs::is_directory(status)) return "is not a directory";
    const bool isMissing = fs::status(mappingFileIn(path), error).type() == fs::file_type::not_found;
    return isMissing ? "has no file CustomIndex" : "";
}

// Why the component refuses a mapping file, where that is known.
Problem problemOfContent(const SourceFile& file) {
    const auto document = documentOf(file, kMapping);
    if (const auto* failure = std::get_if<ReadFailure>(&document)) return *failure;
    return problemOfMapping(file.path(), std::get<JsonDocument>(document).root());
}

// Runs lanes that take one item after the other; the calling thread is the first lane.
void runInLanes(std::size_t lanes, std::size_t items, const WorkItem& work) {
    std::atomic<std::size_t> next = 0;
    const auto run = [&](std::size_t lane) {
        for (std::size_t item = next++; item < items; item = next++) work(item, lane);
    };
    std::vector<std::future<void>> others;
    for (std::size_t lane = 1; lane < lanes; ++lane) {
        others.push_back(std::async(std::launch::async, [&run, lane] { run(lane); }));
    }
    run(0);
    for (std::future<void>& other : others) other.get();
}

}  // namespace

std::string mappingFileIn(const std::string& mappingDirectory) {
    return (fs::path(mappingDirectory) / kMappingName).string();
}

Problem problemOfMappingDirectory(const std::string& path) {
    const std::string reason = reasonAgainstDirectory(path);
    if (reason.empty()) return {};
    return ReadFailure{fmt::format("{}: {}; give the directory that holds the file CustomIndex",
                                   path.empty() ? "\"\"" : path, reason)};
}

Spread hostSpread() {
    const std::size_t lanes = std::max(1U, std::thread::hardware_concurrency());
    const auto run = [lanes](std::size_t items, const WorkItem& work) { runInLanes(lanes, items, work); };
    return {lanes, run};
}

std::variant<Mapping, ReadFailure> loadMapping(const std::string& mappingDirectory) {
    const std::string path = mappingFileIn(mappingDirectory);
    if (Problem problem = problemOfMappingDirectory(mappingDirectory)) return *problem;
    auto read = readSource(path, kMapping);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return *failure;
    const SourceFile& file = *std::get<0>(read);
    if (isAcceptedMapping(file.text())) return Mapping::given(std::string(file.text()));
    if (Problem problem = problemOfContent(file)) return *problem;
    return ReadFailure{fmt::format("{}: cannot be loaded", path)};
}

StyleOrFailure studyOf(std::unique_ptr<SourceFile> file, const std::optional<std::string>& mappingDirectory,
                       const Mapping& without) {
    auto document = documentOf(*file, kStyle);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&document)) return *failure;
    std::variant<Mapping, ReadFailure> mapping = without;
    if (mappingDirectory) mapping = loadMapping(*mappingDirectory);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&mapping)) return *failure;
    return std::make_unique<StyleStudy>(std::move(file), std::get<0>(std::move(document)),
                                        std::get<0>(std::move(mapping)), hostSpread());
}

}  // namespace customstyle_tool
