#include "tools/export/LegendReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <tuple>

#include "customstyle/CustomConfig.h"
#include "tools/support/Numbers.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {
namespace {

constexpr int kVersion = 1;
constexpr int kHighestLevelHere = 24;
constexpr double kWidest = 1000;  // pixels
constexpr std::size_t kMostProblems = 20;

using Names = std::vector<std::string>;

std::string quotedList(std::span<const std::string> names) {
    return fmt::format("\"{}\"", fmt::join(names, "\", \""));
}

std::string nearest(std::string_view word, std::span<const std::string> known) {
    if (const auto meant = likelyName(word, known)) return didYouMean(meant);
    return known.size() > 12 ? "" : fmt::format("; write one of {}", quotedList(known));
}

// "#rrggbb" or "#rrggbbaa" as the component packs it.
std::optional<std::uint64_t> packedColor(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text.front() != '#') return {};
    const auto digits = numberIn<std::uint32_t>(text.substr(1), 16);
    if (!digits) return {};
    const std::uint32_t number = text.size() == 7 ? *digits << 8 | 0xff : *digits;
    return (number & 0xff) << 24 | (number & 0xff00) << 8 | (number & 0xff0000) >> 8 | number >> 24;
}

class Reader {
public:
    explicit Reader(const SourceFile& file) : m_file(file) {}

    std::variant<Legend, LegendProblems> read() {
        auto document = documentOf(m_file, "legend");
        if (const auto* failure = std::get_if<ReadFailure>(&document)) return LegendProblems{failure->text};
        const JsonDocument& text = std::get<JsonDocument>(document);
        if (const auto rest = text.ignoredTextBegin()) {
            m_problems.push_back(m_file.place(*rest) + ": text after the end of the legend; remove it");
        }
        readMembers(text.root(), kLegendMembers, m_legend, "a legend");
        if (m_problems.empty()) checkLabels(text.root());
        if (!m_problems.empty()) return m_problems;
        return std::move(m_legend);
    }

private:
    template <typename Part>
    struct Member {
        std::string_view name;
        bool isRequired;
        void (Reader::*read)(JsonValue value, Part& part);
    };

    // --- problems ---

    void complain(JsonValue where, const std::string& text) { complainAt(where.range().begin, text); }

    void complainAt(std::size_t offset, const std::string& text) {
        if (m_problems.size() == kMostProblems) return;
        m_problems.push_back(fmt::format("{}: {}", m_file.place(offset), text));
    }

    bool isKind(JsonValue value, JsonKind kind, std::string_view wanted) {
        if (value.kind() == kind) return true;
        complain(value, fmt::format("{} is not {}", value.isMember() ? inQuotes(value.name()) : "this", wanted));
        return false;
    }

    // --- members ---

    template <typename Part, std::size_t kCount>
    void readMembers(JsonValue object, const Member<Part> (&members)[kCount], Part& part, std::string_view what) {
        if (object.kind() != JsonKind::Object) return complain(object, fmt::format("{} is an object {{...}}", what));
        Names known;
        for (const auto& member : members) known.emplace_back(member.name);
        std::set<std::string> seen;
        for (const JsonValue value : object.children()) {
            const std::string name = value.wholeName();
            const auto member = std::ranges::find(members, name, &Member<Part>::name);
            if (member == std::end(members)) {
                complainAt(value.nameRange().begin,
                           fmt::format("unknown member {} of {}{}", inQuotes(name), what, nearest(name, known)));
            } else if (!seen.insert(name).second) {
                complainAt(value.nameRange().begin,
                           fmt::format("{} has a second member {}; remove one", what, inQuotes(name)));
            } else {
                (this->*member->read)(value, part);
            }
        }
        for (const auto& member : members) {
            if (!member.isRequired || seen.contains(std::string(member.name))) continue;
            complain(object, fmt::format("{} needs a member \"{}\"", what, member.name));
        }
    }

    // A value that goes into the style as it is.
    LegendJson verbatim(JsonValue value) {
        LegendJson json = LegendJson::parse(value.source(), nullptr, false);
        if (json.is_discarded()) complain(value, "is not JSON as other programs read it; look for numbers like 01");
        return json;
    }

    LegendJson expression(JsonValue value) {
        if (!isKind(value, JsonKind::Array, "an expression [...]")) return {};
        return verbatim(value);
    }

    std::string textOf(JsonValue value) {
        if (!isKind(value, JsonKind::String, "a string")) return {};
        if (value.wholeText().empty()) complain(value, "is empty; write a name");
        return value.wholeText();
    }

    double numberOf(JsonValue value, double highest, std::string_view wanted) {
        if (!isKind(value, JsonKind::Number, wanted)) return 0;
        if (value.number() < 0 || value.number() > highest) complain(value, fmt::format("is not {}", wanted));
        return value.number();
    }

    int levelOf(JsonValue value) {
        const std::string wanted = fmt::format("a level from 0 to {}", kHighestLevelHere);
        const double number = numberOf(value, kHighestLevelHere, wanted);
        if (number != std::floor(number)) complain(value, fmt::format("is not {}", wanted));
        return std::isfinite(number) && number <= kHighestLevelHere && number >= 0 ? static_cast<int>(number) : 0;
    }

    std::uint64_t colorOf(JsonValue value) {
        const auto color = value.kind() == JsonKind::String ? packedColor(value.wholeText()) : std::nullopt;
        if (!color) complain(value, "is not a colour; write \"#rrggbb\" or \"#rrggbbaa\"");
        return color.value_or(0);
    }

    // --- the legend ---

    void readVersion(JsonValue value, Legend&) {
        if (value.kind() == JsonKind::Number && value.number() == kVersion) return;
        complain(value, fmt::format("unknown version; this program reads version {}", kVersion));
    }
    void readName(JsonValue value, Legend& legend) { legend.name = textOf(value); }
    void readAbout(JsonValue value, Legend&) { textOf(value); }
    void readSource(JsonValue value, Legend& legend) {
        if (isKind(value, JsonKind::Object, "a source {\"type\": \"vector\", ...}")) legend.source = verbatim(value);
    }
    void readGlyphs(JsonValue value, Legend& legend) { legend.glyphs = textOf(value); }
    void readSprite(JsonValue value, Legend& legend) { legend.sprite = textOf(value); }
    void readFontFaces(JsonValue value, Legend& legend) {
        if (isKind(value, JsonKind::Object, "an object of font faces")) legend.fontFaces = verbatim(value);
    }
    void readText(JsonValue value, Legend& legend) { legend.text = expression(value); }
    void readBorder(JsonValue value, Legend& legend) { legend.border = numberOf(value, kWidest, "a width in pixels"); }
    void readFonts(JsonValue value, Legend& legend) { readMembers(value, kFontMembers, legend, "\"fonts\""); }
    void readBackgrounds(JsonValue value, Legend& legend) {
        readMembers(value, kBackgroundMembers, legend, "\"backgrounds\"");
    }
    void readLand(JsonValue value, Legend& legend) { legend.land = colorOf(value); }
    void readGrid(JsonValue value, Legend& legend) { legend.grid = colorOf(value); }
    void readRegular(JsonValue value, Legend& legend) { legend.regularFont = fontOf(value); }
    void readBold(JsonValue value, Legend& legend) { legend.boldFont = fontOf(value); }

    Names fontOf(JsonValue value) {
        if (!isKind(value, JsonKind::Array, "a list of font names")) return {};
        Names names;
        for (const JsonValue name : value.children()) names.push_back(textOf(name));
        if (names.empty()) complain(value, "is empty; write a font name");
        return names;
    }

    void readLayers(JsonValue value, Legend& legend) {
        if (!isKind(value, JsonKind::Array, "a list of layers")) return;
        std::set<std::tuple<int, ShapeKind, std::string>> seen;
        for (const JsonValue element : value.children()) {
            LegendLayer layer;
            m_looks.clear();
            const std::size_t problems = m_problems.size();
            readMembers(element, kLayerMembers, layer, "a layer");
            if (m_problems.size() != problems) continue;
            checkLayer(element, layer);
            // Their parts have the same names.
            const ShapeKind kind = layer.kind == ShapeKind::Building ? ShapeKind::Area : layer.kind;
            if (!seen.insert({layer.featureType, kind, layer.name}).second) {
                complain(element, "a second layer of this type and kind; give it a \"name\" of its own");
            }
            legend.layers.push_back(std::move(layer));
        }
    }

    void checkLabels(JsonValue root) {
        const auto needsText = [](const LegendLayer& layer) { return isLabelKind(layer.kind) && layer.text.is_null(); };
        if (std::ranges::none_of(m_legend.layers, [](const LegendLayer& layer) { return isLabelKind(layer.kind); }))
            return;
        if (m_legend.regularFont.empty()) complain(root, "a legend with labels needs a member \"fonts\"");
        if (!m_legend.text.is_null() || std::ranges::none_of(m_legend.layers, needsText)) return;
        complain(root, "a legend with labels needs a member \"text\": the expression for their text");
    }

    // --- a layer ---

    void readType(JsonValue value, LegendLayer& layer) {
        if (!isKind(value, JsonKind::String, "the name of a feature type")) return;
        layer.featureType = catalogue().GetFeatureTypeId(value.wholeText());
        if (layer.featureType >= 0 && layer.featureType < _orvik_framework::EMAPCUSTOMSTYLE_ALL) return;
        complain(value, fmt::format("unknown feature type {}{}", inQuotes(value.wholeText()),
                                    featureTypeHint(value.wholeText())));
    }
    void readKind(JsonValue value, LegendLayer& layer) {
        if (!isKind(value, JsonKind::String, "a kind")) return;
        const auto names = shapeKindNames();
        const auto found = std::ranges::find(names, value.wholeText());
        if (found != names.end()) {
            layer.kind = static_cast<ShapeKind>(found - names.begin());
        } else {
            complain(value,
                     fmt::format("unknown kind {}{}", inQuotes(value.wholeText()), nearest(value.wholeText(), names)));
        }
    }
    void readLayerName(JsonValue value, LegendLayer& layer) { layer.name = textOf(value); }
    void readSourceLayer(JsonValue value, LegendLayer& layer) { layer.sourceLayer = textOf(value); }
    void readFilter(JsonValue value, LegendLayer& layer) { layer.filter = expression(value); }
    void readIdProperty(JsonValue value, LegendLayer& layer) { layer.idProperty = textOf(value); }
    void readFrom(JsonValue value, LegendLayer& layer) { layer.firstLevel = levelOf(value); }
    void readTo(JsonValue value, LegendLayer& layer) { layer.lastLevel = levelOf(value); }
    void readIcon(JsonValue value, LegendLayer& layer) {
        layer.icon = value.kind() == JsonKind::Array ? verbatim(value) : LegendJson(textOf(value));
    }
    void readLayerText(JsonValue value, LegendLayer& layer) { layer.text = expression(value); }
    void readHeight(JsonValue value, LegendLayer& layer) { layer.height = metresOf(value); }
    void readBase(JsonValue value, LegendLayer& layer) { layer.base = metresOf(value); }

    LegendJson metresOf(JsonValue value) {
        return value.kind() == JsonKind::Array ? verbatim(value)
                                               : LegendJson(numberOf(value, 10000, "a height in metres"));
    }

    void readIds(JsonValue value, LegendLayer& layer) {
        if (!isKind(value, JsonKind::Array, "a list of style ids")) return;
        constexpr double kHighestId = std::numeric_limits<std::int32_t>::max();
        for (const JsonValue id : value.children()) {
            const double number = numberOf(id, kHighestId, "a style id from 0 to 2147483647");
            if (number != std::floor(number)) complain(id, "is not a whole number");
            if (number >= 0 && number <= kHighestId) layer.ids.push_back(static_cast<unsigned int>(number));
        }
        if (value.children().empty()) complain(value, "is empty; leave it out for all style ids of the type");
    }

    void readLook(JsonValue value, LegendLayer& layer) {
        if (!isKind(value, JsonKind::Object, "an object of colours and widths")) return;
        Names known;
        for (const LookRow& row : lookRows()) known.emplace_back(row.name);
        for (const JsonValue member : value.children()) {
            const auto row = std::ranges::find(known, member.wholeName());
            if (row != known.end()) {
                const auto key = static_cast<LookKey>(row - known.begin());
                m_looks.emplace_back(member, key);
                layer.look.set(key, levelValuesOf(member, lookRows()[static_cast<std::size_t>(key)].isColor));
            } else {
                complainAt(member.nameRange().begin,
                           fmt::format("unknown member {} of \"look\"{}", inQuotes(member.wholeName()),
                                       nearest(member.wholeName(), known)));
            }
        }
    }

    double lookValueOf(JsonValue value, bool isColor) {
        return isColor ? static_cast<double>(colorOf(value)) : numberOf(value, kWidest, "a size in pixels");
    }

    // One value, or {"4": value, "10": value}.
    LevelValues levelValuesOf(JsonValue value, bool isColor) {
        if (value.kind() != JsonKind::Object) return LevelValues(lookValueOf(value, isColor));
        std::vector<std::pair<int, double>> steps;
        for (const JsonValue step : value.children()) {
            const std::optional<int> level = levelNamed(step);
            const double number = lookValueOf(step, isColor);
            if (!level) continue;
            if (!steps.empty() && steps.back().first >= *level) {
                complainAt(step.nameRange().begin, "levels ascend here; move this one up");
            }
            steps.emplace_back(*level, number);
        }
        if (value.children().empty()) {
            complain(value, "is empty; write levels with their values: {\"4\": ..., \"10\": ...}");
        }
        return steps.empty() ? LevelValues() : LevelValues(std::move(steps));
    }

    std::optional<int> levelNamed(JsonValue step) {
        const std::string name = step.wholeName();
        const auto level = numberIn<int>(std::string_view(name));
        if (level && *level >= 0 && *level <= kHighestLevelHere && name == std::to_string(*level)) return level;
        complainAt(step.nameRange().begin,
                   fmt::format("{} is not a level from 0 to {}", inQuotes(name), kHighestLevelHere));
        return {};
    }

    // What fits together only when the kind is known.
    void checkLayer(JsonValue element, const LegendLayer& layer) {
        const std::string& kind = shapeKindNames()[static_cast<std::size_t>(layer.kind)];
        for (const auto& [value, key] : m_looks) {
            if (lookRows()[static_cast<std::size_t>(key)].appliesTo(layer.kind)) continue;
            complainAt(value.nameRange().begin,
                       fmt::format("{} means nothing for the kind \"{}\"; remove it", inQuotes(value.name()), kind));
        }
        if (layer.firstLevel && layer.lastLevel && *layer.firstLevel > *layer.lastLevel) {
            complain(element, "\"from\" is above \"to\"; exchange them");
        }
        if (layer.kind == ShapeKind::Building && layer.height.is_null()) {
            complain(element, "a building needs a member \"height\": metres, or an expression for them");
        }
        checkMembersOfKind(element, layer, kind);
    }

    void checkMembersOfKind(JsonValue element, const LegendLayer& layer, const std::string& kind) {
        const bool isBuilding = layer.kind == ShapeKind::Building;
        const std::pair<std::string_view, bool> fits[] = {{"height", isBuilding},
                                                          {"base", isBuilding},
                                                          {"icon", layer.kind == ShapeKind::Label},
                                                          {"text", isLabelKind(layer.kind)}};
        for (const JsonValue member : element.children()) {
            const auto rule = std::ranges::find(fits, member.wholeName(), &std::pair<std::string_view, bool>::first);
            if (rule == std::end(fits) || rule->second) continue;
            complainAt(member.nameRange().begin,
                       fmt::format("{} means nothing for the kind \"{}\"; remove it", inQuotes(member.name()), kind));
        }
    }

    static const Member<Legend> kLegendMembers[13];
    static const Member<Legend> kFontMembers[2];
    static const Member<Legend> kBackgroundMembers[2];
    static const Member<LegendLayer> kLayerMembers[14];

    const SourceFile& m_file;
    Legend m_legend;
    LegendProblems m_problems;
    std::vector<std::pair<JsonValue, LookKey>> m_looks;  // of the layer that is being read
};

const Reader::Member<Legend> Reader::kLegendMembers[] = {
    {"version", true, &Reader::readVersion},
    {"name", true, &Reader::readName},
    {"about", false, &Reader::readAbout},
    {"source", true, &Reader::readSource},
    {"glyphs", false, &Reader::readGlyphs},
    {"sprite", false, &Reader::readSprite},
    {"font_faces", false, &Reader::readFontFaces},
    {"fonts", false, &Reader::readFonts},
    {"text", false, &Reader::readText},
    {"border", false, &Reader::readBorder},
    {"backgrounds", true, &Reader::readBackgrounds},
    {"layers", true, &Reader::readLayers},
    {"$schema", false, &Reader::readAbout},
};
const Reader::Member<Legend> Reader::kFontMembers[] = {
    {"regular", true, &Reader::readRegular},
    {"bold", true, &Reader::readBold},
};
const Reader::Member<Legend> Reader::kBackgroundMembers[] = {
    {"land", true, &Reader::readLand},
    {"grid", true, &Reader::readGrid},
};
const Reader::Member<LegendLayer> Reader::kLayerMembers[] = {
    {"type", true, &Reader::readType},       {"kind", true, &Reader::readKind},
    {"name", false, &Reader::readLayerName}, {"source_layer", true, &Reader::readSourceLayer},
    {"filter", false, &Reader::readFilter},  {"id", false, &Reader::readIdProperty},
    {"ids", false, &Reader::readIds},        {"from", false, &Reader::readFrom},
    {"to", false, &Reader::readTo},          {"icon", false, &Reader::readIcon},
    {"text", false, &Reader::readLayerText}, {"height", false, &Reader::readHeight},
    {"base", false, &Reader::readBase},      {"look", false, &Reader::readLook},
};

}  // namespace

std::variant<Legend, LegendProblems> readLegend(const SourceFile& file) {
    return Reader(file).read();
}

}  // namespace customstyle_tool
