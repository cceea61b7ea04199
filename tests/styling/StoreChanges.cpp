#include "tests/styling/StoreChanges.h"

#include <map>

#include "customstyle/StoredRecords.h"
#include "tests/support/RecordTable.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;

std::string changeOf(const RecordField& field, const tagCustomStyle& before, const tagCustomStyle& after,
                     std::uint64_t value) {
    const std::uint64_t changed = valueIn(after, field);
    if (changed == valueIn(before, field) && after.*field.applies == before.*field.applies) return {};
    std::string text = std::string(" ") + field.brief;
    if (changed != value) text += "=" + std::to_string(changed);
    if (after.*field.applies != 1) text += " with flag " + std::to_string(after.*field.applies);
    return text;
}

std::string changesOf(const tagCustomStyle& record, std::uint64_t value) {
    const tagCustomStyle before = markedRecord(record.m_ID);
    std::string text = record.m_custom == 1   ? "+"
                       : record.m_custom == 0 ? "-"
                                              : " m_custom=" + std::to_string(record.m_custom);
    for (const RecordField& field : kRecordFields) text += changeOf(field, before, record, value);
    if (record.m_iconHidden != before.m_iconHidden) text += " icon=" + std::to_string(record.m_iconHidden);
    return text;
}

std::string changesUnder(const CustomConfig& store, const std::string& key, std::uint64_t value) {
    const int featureType = std::stoi(key);
    const tagCustomStyle* first = recordAt(store, key, firstStyleId(featureType));
    const tagCustomStyle* second = recordAt(store, key, secondStyleId(featureType));
    if (first == nullptr || second == nullptr) return " empty";
    const std::string changes = changesOf(*first, value);
    const std::string others = changesOf(*second, value);
    return changes == others ? changes : changes + " but" + others;
}

std::string withoutSuffix(const std::string& key, const std::string& suffix) {
    const bool ends =
        key.ends_with(suffix) && key.find(':') == (suffix.empty() ? std::string::npos : key.rfind(suffix));
    return ends ? key.substr(0, key.size() - suffix.size()) : "unexpected " + key;
}

std::map<const CVMapPtrToPtr*, std::string> keysInSlotOrder(const CustomConfig& store) {
    std::map<const CVMapPtrToPtr*, std::string> keys;
    for (const auto& [key, slot] : store.m_keyStyleMaps) keys[slot] = key;
    return keys;
}

void append(std::string& list, const std::string& item) {
    list += (list.empty() ? "" : ", ") + item;
}

}  // namespace

tagCustomStyle markedRecord(int styleId) {
    tagCustomStyle record{};
    record.m_ID = styleId;
    std::uint64_t mark = 0xA10000C8;
    for (const RecordField& field : kRecordFields) {
        setValueIn(record, field, ++mark);
        record.*field.applies = 9;
    }
    record.m_iconHidden = 9;
    record.m_custom = 9;
    return record;
}

std::unique_ptr<CustomConfig> markedStore() {
    std::unique_ptr<CustomConfig> store = loadedWith({});
    for (const CVMapPtrToPtr& records : store->m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) *entry.record = markedRecord(entry.record->m_ID);
    }
    return store;
}

std::string changesIn(const CustomConfig& store, std::uint64_t value, const std::string& keySuffix) {
    std::string changes;
    for (const auto& [slot, key] : keysInSlotOrder(store)) {
        append(changes, withoutSuffix(key, keySuffix) + changesUnder(store, key, value));
    }
    if (store.m_gridColorSet != 0) {
        append(changes, store.m_gridColor == value ? "grid" : "grid=" + std::to_string(store.m_gridColor));
    }
    if (store.m_allIconsHidden != 0) append(changes, "every-icon");
    return changes;
}

}  // namespace customstyle_test
