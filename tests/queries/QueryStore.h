// A store filled by hand, record by record, for the renderer's questions.
#pragma once

#include <cstdint>
#include <string>

#include "tests/model/BaseRecords.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {

/// A store to which a test adds single records under style keys.
struct QueryStore : CustomConfig {
    /// The slot of a key ("13", "13:15"), registered on first use with the mark that its form calls for.
    _orvik_vi::CVMapPtrToPtr& slot(const std::string& key) {
        char written[16];
        const std::size_t colon = key.find(':');
        const bool allLevels = colon == std::string::npos;
        UpdateCustomStyleMap(written, std::stoi(key), allLevels ? 1 : 0,
                             allLevels ? 0 : std::stoi(key.substr(colon + 1)));
        return *m_keyStyleMaps.at(key);
    }

    /// Adds a customised record whose fill colour tells it from others.
    tagCustomStyle& add(const std::string& key, int styleId, std::uint64_t fillColor = 0) {
        auto* record = _orvik_vi::VNewArray<tagCustomStyle>(1);
        record->m_ID = styleId;
        record->m_fillColor = fillColor;
        record->m_custom = 1;
        slot(key)[recordKey(styleId)] = record;
        return *record;
    }

    /// Adds a record that hides (not 0) or shows (0) its icon.
    void addIcon(const std::string& key, int styleId, int hidden) { add(key, styleId).m_iconHidden = hidden; }
};

}  // namespace customstyle_test
