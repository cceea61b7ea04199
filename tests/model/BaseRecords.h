// Base records as a mapping file would make them, one at a time.
#pragma once

#include <cstdint>

#include "customstyle/CustomConfig.h"
#include "vi/vos/VTempl.h"

namespace customstyle_test {

/// Key of a style id in the store's record maps.
inline void* recordKey(int styleId) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(styleId));
}

/// Adds the base record of a style id to a feature type; the store owns it.
inline _orvik_framework::tagCustomStyle& addBaseRecord(_orvik_framework::CustomConfig& config, int featureType,
                                                       int styleId) {
    auto* record = _orvik_vi::VNewArray<_orvik_framework::tagCustomStyle>(1);
    record->m_ID = styleId;
    config.m_typeStyleMaps[featureType][recordKey(styleId)] = record;
    return *record;
}

/// A record in which every field has a value of its own.
inline _orvik_framework::tagCustomStyle fullRecord(int styleId) {
    return {.m_ID = styleId,
            .m_textFillColor = 101,
            .m_textStrokeColor = 102,
            .m_textFillColorSet = 103,
            .m_textStrokeColorSet = 104,
            .m_textFillWeight = 105,
            .m_textStrokeWeight = 106,
            .m_textFillWeightSet = 107,
            .m_textStrokeWeightSet = 108,
            .m_fontSize = 109,
            .m_fontSizeSet = 110,
            .m_fillColor = 111,
            .m_borderColor = 0x1122334455667788,
            .m_fillWeight = 113,
            .m_borderWeight = 114,
            .m_fillColorSet = 115,
            .m_borderColorSet = 116,
            .m_iconHidden = 117,
            .m_fillWeightSet = 118,
            .m_borderWeightSet = 119,
            .m_topSurfaceColor = 120,
            .m_topSurfaceColorSet = 121,
            .m_custom = 122};
}

}  // namespace customstyle_test
