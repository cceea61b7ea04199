// The public member functions with whatever arguments, in any order; no null where a header forbids it.
#include <memory>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/LoadAccounts.h"
#include "fuzz/support/Require.h"
#include "tests/support/StyleBuilder.h"

namespace {

using namespace customstyle_fuzz;
using _orvik_framework::CustomConfig;
using _orvik_framework::CVString;
using _orvik_framework::stFeatureTypeStyleRecorder;
using _orvik_framework::tagCustomStyle;

constexpr int kNumbers[] = {
    0, 1, 4, 13, 45, 46, 53, 70, 71, 72, 73, -1, 21, 255, 256, 1000, 2147483647, -2147483647 - 1, -2147483647, 999, 15};
constexpr const char* kWords[] = {"all",  "labels", "geometry", "stroke",  "fill", "topsurface", "icon",
                                  "land", "13",     "13:15",    "highway", "grid", "#112233",    "#11223344"};

class Caller {
public:
    explicit Caller(FuzzInput& input) : m_input(input) {
        const customstyle_test::Tree mapping = customstyle_test::parsed(kMapping);
        m_config.ParseMappingConfig(mapping.get());
    }

    void call() {
        constexpr void (Caller::*kCalls[])() = {&Caller::askStyles, &Caller::askTypes,  &Caller::askValues,
                                                &Caller::write,     &Caller::dispatch,  &Caller::parse,
                                                &Caller::update,    &Caller::askRegions};
        (this->*m_input.oneOf(kCalls))();
    }

    void release() { m_config.ReleaseCustomRes(); }

    void askStyles() {
        tagCustomStyle style{};
        style.m_ID = -77;
        const auto id = static_cast<unsigned>(number());
        const int level = number();
        g_zrsdk_custom_style_enable = number();
        int type = m_config.GetStyleFromConfig(style, id, level);
        if (type == -1) type = m_config.GetParentFeatureTypeCustomStyle(style, level, id);
        if (type == -1) type = m_config.GetParentFeatureTypeCustomStyle(style, level, number(), id);
        require(type == -1 ? style.m_ID == -77 : static_cast<unsigned>(style.m_ID) == id,
                "the record of the id, or none");
        m_config.IsCustomizedIconVisible(id, level);
        m_config.IsParentFeatureTypeIconCustomizedVisibility(number(), id, level);
    }

private:
    static constexpr const char* kMapping =
        R"({"land":[1,4,13],"green":[45,2147483647,-1],"water":[],"building":[1,2],"manmade":[255,13]})";

    int number() { return m_input.below(4) == 0 ? static_cast<int>(m_input.word()) : m_input.oneOf(kNumbers); }

    // Mostly words with a meaning; else any bytes, sometimes very many.
    std::string text() {
        const std::size_t kind = m_input.below(8);
        if (kind > 1) return m_input.oneOf(kWords);
        std::string text = m_input.text(40);
        for (std::size_t doublings = kind == 1 ? m_input.below(10) : 0; doublings > 0; --doublings) text += text;
        return text.substr(0, text.find('\0'));
    }

    void askTypes() {
        const int id = number();
        const std::string name = m_config.GetFeatureTypeName(id);
        require(name.empty() == (id < 0 || id > 72), "names for 0 to 72");
        require(name.empty() || m_config.GetFeatureTypeId(name) == id, "names and ids belong together");
        m_config.GetFeatureTypeId(text());
        m_config.IsFeatureTypeIncludeLabels(id);
        m_config.UpdateFeatureTypeId(id);
        m_config.IsParentFeatureType(id);
        m_config.PrintAllFeartureType();
        m_config.IsStyleEffectAtGivenLevel(text().c_str());
        m_config.IsStyleEffectAtAllLevel(text().c_str());
    }

    void askValues() {
        const int weight = m_config.CalculateWeightValue(text().c_str());
        require(weight >= 0 && weight <= 255, "weights are 0 to 255");
        const std::string colour = text();
        m_config.CalculateColorValue(colour.c_str(), number());
        m_config.IsValueAllDigit(text());
        m_config.CustomMapPrintLog(text().c_str());
    }

    void askRegions() {
        std::uint64_t colour = 3;
        m_config.IsCustomBackRegionEnable(colour, number());
        m_config.IsCustomGridBackRegionEnable(colour, number());
        m_config.SetGridColorStyle(m_input.word());
    }

    void write() {
        const int type = number();
        const CVString element(text().c_str());
        const int allLevels = number();
        const int level = number();
        m_config.SetTypeColor(type, element, m_input.word(), allLevels, level);
        m_config.SetFontColorStyle(type, element, m_input.word(), allLevels, level);
        m_config.SetCustomIconInvisible(type, element, number(), allLevels, level);
        m_config.SetTypeWeight(type, element, number(), allLevels, level);
        m_config.SetFontWeightStyle(type, element, number(), allLevels, level);
        m_config.setFontSizeStyle(type, element, m_input.byte(), allLevels, level);
    }

    std::string styler(const char* name) {
        return std::string("\"") + name + "\":" + customstyle_test::quoted(text()) + ",";
    }

    customstyle_test::Tree stylers() {
        std::string json = "{";
        for (const char* name : {"color", "visibility", "weight", "fontsize", "level"}) json += styler(name);
        json += "\"end\":0}";
        return customstyle_test::Tree(_orvik_vi::cJSON_Parse(json, 1));
    }

    void dispatch() {
        const int type = number();
        const CVString element(text().c_str());
        const customstyle_test::Tree tree = stylers();
        if (tree == nullptr) return;
        const int includesLabels = number();
        const int allLevels = number();
        const int level = number();
        stFeatureTypeStyleRecorder recorders[2]{};
        m_config.SetCustomColorStyle(type, element, tree.get(), includesLabels, nullptr, allLevels, level);
        m_config.SetCustomVisibilityStyle(type, element, tree.get(), includesLabels, recorders, m_input.byte() % 2,
                                          allLevels, level);
        m_config.SetCustomWeightStyle(type, element, tree.get(), includesLabels, nullptr, allLevels, level);
        m_config.SetCustomFontSizeStyle(type, element, tree.get(), includesLabels, nullptr, allLevels, level);
    }

    void parse() {
        const std::string json = m_input.text(200);
        const customstyle_test::Tree tree(_orvik_vi::cJSON_Parse(json, 1));
        if (tree == nullptr) return;
        int level = -1;
        const int allLevels = m_config.ParseCustomStyleGivenLevel(tree.get(), &level);
        require(allLevels == 1 ? level == 0 : level >= 4 && level <= 21, "levels are 4 to 21");
        require(m_config.ParseCustomStyler(tree.get()).Find(";") >= 0, "lists have their semicolons");
        require(m_config.ParseCustomConfig(tree.get()) == 1, "rules never fail as a whole");
        m_config.ParseMappingConfig(tree.get());
    }

    void update() {
        // Sixteen characters, and the heap's guard after them.
        const auto key = std::make_unique<char[]>(16);
        const int type = number();
        const int allLevels = number();
        m_config.UpdateCustomStyleMap(key.get(), type, allLevels, number());
    }

    FuzzInput& m_input;
    CustomConfig m_config;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const LoadAccounts accounts;
    Caller caller(input);
    for (int calls = 0; calls < 100 && !input.isEmpty(); ++calls) caller.call();
    caller.release();
    caller.askStyles();
    return 0;
}
