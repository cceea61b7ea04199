#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/check/Edits.h"
#include "tools/check/Fingerprint.h"
#include "tools/check/Report.h"
#include "tools/json/JsonScalars.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr char kSchema[] = "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

// A path as a URI: relative ones stay relative.
std::string uriOf(const std::string& path) {
    std::string uri = path.starts_with('/') ? "file://" : "";
    for (const char byte : path) {
        const bool isPlain =
            isLetter(byte) || isDigit(byte) || std::string_view("-._~/").find(byte) != std::string_view::npos;
        uri += isPlain ? std::string(1, byte) : fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return uri;
}

// This program knows no host with a page for the codes, so it uses a fixed id of its own.
std::string helpUriOf(const CodeInfo& info) {
    return fmt::format("urn:customstyle:code:{}", info.name);
}

Json ruleJson(const CodeInfo& info) {
    return {{"id", info.name},
            {"helpUri", helpUriOf(info)},
            {"shortDescription", {{"text", info.title}}},
            {"fullDescription", {{"text", info.explanation}}},
            {"help", {{"text", info.remedy}, {"markdown", codeMarkdown(info)}}},
            {"defaultConfiguration", {{"level", severityName(info.severity)}}}};
}

Json regionJson(const SourceFile& file, TextRange range) {
    const LinePosition begin = file.lines().position(range.begin);
    const LinePosition end = file.lines().position(range.end);
    return {{"startLine", begin.line}, {"startColumn", begin.column}, {"endLine", end.line},
            {"endColumn", end.column}, {"byteOffset", range.begin},   {"byteLength", range.size()}};
}

Json locationJson(const SourceFile& file, TextRange range) {
    return {{"physicalLocation",
             {{"artifactLocation", {{"uri", uriOf(file.path())}}}, {"region", regionJson(file, range)}}}};
}

std::string messageOf(const Finding& finding) {
    const char* const end = finding.remedy.ends_with('?') ? "" : ".";
    std::string text = fmt::format("{}. Remedy: {}{}", finding.message, finding.remedy, end);
    if (!finding.log.empty()) text += fmt::format(" Logged: {}", finding.log);
    return text;
}

Json fixJson(const Finding& finding, const StyleStudy& study) {
    Json replacements = Json::array();
    for (const Edit& edit : editsOf(finding, study)) {
        replacements.push_back(
            {{"deletedRegion", regionJson(*finding.file, edit.range)}, {"insertedContent", {{"text", edit.text}}}});
    }
    const Json change{{"artifactLocation", {{"uri", uriOf(finding.file->path())}}}, {"replacements", replacements}};
    return {{"description", {{"text", finding.remedy}}}, {"artifactChanges", Json::array({change})}};
}

Json resultJson(const Finding& finding, const StyleStudy* study) {
    const CodeInfo& info = infoOf(finding.code);
    Json location = locationJson(*finding.file, finding.range);
    location["logicalLocations"] = Json::array({Json{{"fullyQualifiedName", finding.path}}});
    Json result{{"ruleId", info.name},
                {"ruleIndex", static_cast<std::size_t>(finding.code)},
                {"level", severityName(severityOf(finding))},
                {"message", {{"text", messageOf(finding)}}},
                {"locations", Json::array({location})},
                {"partialFingerprints",
                 {{"customstyle/v1", fingerprintOf(finding, study == nullptr ? nullptr : &study->source())}}}};
    const bool isWhole = study != nullptr && study->source().isWhole();
    if (isWhole && !editsOf(finding, *study).empty()) result["fixes"] = Json::array({fixJson(finding, *study)});
    for (const RelatedPlace& place : finding.related) {
        Json related = locationJson(fileOf(finding, place), place.range);
        related["message"] = {{"text", place.text}};
        result["relatedLocations"].push_back(related);
    }
    return result;
}

// One run of the tool; files that cannot be read are its notifications.
Json invocationJson(const std::vector<std::string>& unreadable) {
    Json notifications = Json::array();
    for (const std::string& text : unreadable) {
        notifications.push_back({{"level", "error"}, {"message", {{"text", text}}}});
    }
    return {{"executionSuccessful", unreadable.empty()}, {"toolExecutionNotifications", notifications}};
}

}  // namespace

std::string reportSarif(const std::vector<CheckedFile>& files, const std::vector<std::string>& unreadable) {
    Json rules = Json::array();
    for (const CodeInfo& info : codeInfos()) rules.push_back(ruleJson(info));
    Json results = Json::array();
    for (const CheckedFile& checked : files) {
        for (const Finding& finding : checked.findings) results.push_back(resultJson(finding, checked.study.get()));
    }
    const Json driver{{"name", "customstyle"}, {"version", CUSTOMSTYLE_VERSION}, {"rules", rules}};
    const Json run{{"tool", {{"driver", driver}}},
                   {"invocations", Json::array({invocationJson(unreadable)})},
                   {"columnKind", "unicodeCodePoints"},
                   {"results", results}};
    return jsonText({{"$schema", kSchema}, {"version", "2.1.0"}, {"runs", Json::array({run})}}, 2) + "\n";
}

}  // namespace customstyle_tool
