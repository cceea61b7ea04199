// PatchedStore: the outcome of a style in which records can be replaced temporarily, to see what would be answered.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

class PatchedStore {
public:
    explicit PatchedStore(std::unique_ptr<_orvik_framework::CustomConfig> config) : m_config(std::move(config)) {}
    ~PatchedStore() { takeBack(); }
    PatchedStore(const PatchedStore&) = delete;
    PatchedStore& operator=(const PatchedStore&) = delete;

    const _orvik_framework::CustomConfig& config() const { return *m_config; }

    /// Gives all records of a key the fields of a style; without a style the key is as if no rule had named it.
    void set(const std::string& key, const std::optional<_orvik_framework::tagCustomStyle>& style);
    void setGridColor(bool isSet, std::uint64_t color);
    void hideEveryIcon(bool isHidden);

    /// Restores everything to what it was.
    void takeBack();

private:
    struct Patch {
        std::string key;
        _orvik_framework::CVMapPtrToPtr* slot;     // null where the key had none
        _orvik_framework::tagCustomStyle style{};  // of its records
    };

    void write(_orvik_framework::CVMapPtrToPtr& slot, const _orvik_framework::tagCustomStyle& style);
    _orvik_framework::CVMapPtrToPtr& ownSlot(int featureType);

    std::unique_ptr<_orvik_framework::CustomConfig> m_config;
    std::vector<Patch> m_patches;
    std::deque<_orvik_framework::CVMapPtrToPtr> m_ownSlots;
    std::deque<_orvik_framework::tagCustomStyle> m_ownRecords;
    std::optional<std::pair<bool, std::uint64_t>> m_gridBefore;
    std::optional<bool> m_iconsBefore;
};

}  // namespace customstyle_tool
