// The component over the base library of another engine: it asks for what our base library's headers declare, and
// relies neither on their default arguments nor on the JSON package that implements them.
#include <gtest/gtest.h>

#include <deque>
#include <initializer_list>
#include <memory>
#include <utility>

#include "customstyle/CustomConfig.h"
#include "tests/other_engine/OtherEngine.h"
#include "vi/vos/VLog.h"

namespace customstyle_test {
namespace {

using namespace _orvik_framework;
using Kind = cJSON::Kind;
using Members = std::initializer_list<std::pair<const char*, cJSON*>>;

/// Makes trees, which live as long as it does.
class Trees {
public:
    cJSON* number(int value) { return make({.kind = Kind::Number, .valueint = value}); }
    cJSON* text(const char* value) { return make({.kind = Kind::String, .valuestring = value}); }

    cJSON* array(std::initializer_list<cJSON*> items) {
        cJSON* const node = make({.kind = Kind::Array});
        cJSON** link = &node->firstChild;
        for (cJSON* item : items) link = &(*link = item)->sibling;
        return node;
    }

    cJSON* object(Members members) {
        cJSON* const node = make({.kind = Kind::Object});
        cJSON** link = &node->firstChild;
        for (const auto& [name, member] : members) {
            member->string = name;
            link = &(*link = member)->sibling;
        }
        return node;
    }

    cJSON* rule(const char* featureType, const char* elementType, Members stylers) {
        return object(
            {{"featureType", text(featureType)}, {"elementType", text(elementType)}, {"stylers", object(stylers)}});
    }

    /// Each feature type has the style ids 1000 + its own id and 2000 + its own id.
    cJSON* mapping(const CustomConfig& config) {
        cJSON* const node = make({.kind = Kind::Object});
        for (int type = EMAPCUSTOMSTYLE_GRID; type >= 0; --type) {
            cJSON* const ids = array({number(1000 + type), number(2000 + type)});
            ids->string = m_names.emplace_back(config.GetFeatureTypeName(type)).c_str();
            ids->sibling = std::exchange(node->firstChild, ids);
        }
        return node;
    }

private:
    cJSON* make(const cJSON& node) { return &m_nodes.emplace_back(node); }

    std::deque<cJSON> m_nodes;
    std::deque<std::string> m_names;
};

TEST(OtherEngine, GetsTheBlockSizeOfEachMap) {
    const auto config = std::make_unique<CustomConfig>();
    for (const CVMapPtrToPtr& records : config->m_typeStyleMaps) ASSERT_EQ(records.blockSize(), 10);
    for (const CVMapPtrToPtr& records : config->m_levelStyleMaps) ASSERT_EQ(records.blockSize(), 10);
}

TEST(OtherEngine, LoadsAndAnswers) {
    const auto config = std::make_unique<CustomConfig>();
    Trees trees;
    g_documents["map/CustomIndex"] = trees.mapping(*config);
    g_documents["style"] = trees.array({
        trees.rule("highway", "geometry.fill", {{"color", trees.text("#112233")}, {"weight", trees.text("7")}}),
        trees.rule("lake", "geometry.fill", {{"color", trees.text("#112233")}}),
        trees.rule("highway", "labels.text", {{"visibility", trees.text("off")}}),
        trees.rule("poilabel", "labels.icon", {{"visibility", trees.text("off")}, {"level", trees.text("12")}}),
    });
    EXPECT_EQ(config->Init("map/", "style"), 1);
    EXPECT_EQ(_orvik_vi::CVLog::lines, 2);

    g_zrsdk_custom_style_enable = 1;
    tagCustomStyle style{};
    for (const unsigned int styleId : {1013U, 2013U}) {
        EXPECT_EQ(config->GetStyleFromConfig(style, styleId, 9), 13);
        EXPECT_EQ(style.m_fillColor, 0xff332211U);
        EXPECT_EQ(style.m_fillWeight, 7);
    }
    for (const unsigned int styleId : {1053U, 2053U}) {
        EXPECT_EQ(config->IsCustomizedIconVisible(styleId, 12), 1);
        EXPECT_EQ(config->IsCustomizedIconVisible(styleId, 13), 0);
    }
    g_zrsdk_custom_style_enable = 0;
}

}  // namespace
}  // namespace customstyle_test
