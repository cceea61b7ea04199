#include "tools/customstyle/NameLists.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/check/FindingCodes.h"
#include "tools/support/PlainText.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

NameList types(const Mapping& mapping) {
    NameList list{.what = "types", .columns = {"name", "number", "style_ids"}, .rows = {}, .styleIds = {}};
    for (std::size_t type = 0; type < mappedTypeNames().size(); ++type) {
        list.styleIds.push_back(mapping.questionIdsOf(static_cast<int>(type)));
        const std::string ids = list.styleIds.back().empty() ? "-" : rangesText(list.styleIds.back());
        list.rows.push_back({mappedTypeNames()[type], std::to_string(type), ids});
    }
    return list;
}

NameList elementList() {
    NameList list{.what = "elements", .columns = {"path", "title"}, .rows = {}, .styleIds = {}};
    for (const Element& each : elements()) list.rows.push_back({std::string(each.path), std::string(each.title)});
    return list;
}

NameList stylerList() {
    NameList list{.what = "stylers", .columns = {"name", "example", "title"}, .rows = {}, .styleIds = {}};
    for (const Styler& each : stylers()) {
        list.rows.push_back({std::string(each.name), fmt::format("\"{}\"", each.example), std::string(each.title)});
    }
    list.rows.push_back({std::string(kLevelMember), "\"12\"", std::string(kLevelTitle)});
    return list;
}

NameList codes() {
    NameList list{.what = "codes", .columns = {"name", "severity", "title"}, .rows = {}, .styleIds = {}};
    for (const CodeInfo& info : codeInfos()) {
        list.rows.push_back({info.name, std::string(severityName(info.severity)), info.title});
    }
    return list;
}

}  // namespace

NameList namesOf(const std::string& what, const Mapping& mapping) {
    if (what == "elements") return elementList();
    if (what == "stylers") return stylerList();
    return what == "codes" ? codes() : types(mapping);
}

std::string nameListText(const NameList& list) {
    std::vector<std::size_t> widths(list.columns.size(), 0);
    for (const auto& row : list.rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : list.rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i) text += fmt::format("{:<{}}  ", row[i], widths[i]);
        text += row.back() + "\n";
    }
    return text;
}

std::string nameListJson(const NameList& list) {
    Json rows = Json::array();
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        Json row = Json::object();
        for (std::size_t column = 0; column < list.columns.size(); ++column) {
            row[list.columns[column]] = list.rows[i][column];
        }
        if (!list.styleIds.empty()) {
            row["number"] = i;
            row["style_ids"] = list.styleIds[i];
        }
        rows.push_back(row);
    }
    return Json{{"version", 1}, {list.what, rows}}.dump(2) + "\n";
}

}  // namespace customstyle_tool
