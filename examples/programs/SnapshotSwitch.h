// SnapshotSwitch: exchanges the style of a running map.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include "customstyle/StyleSnapshot.h"

/// One pointer to the current snapshot, exchanged by the host while render threads draw.
///
/// A render thread announces once a frame which snapshot it draws with; between beginFrame and endFrame it asks without
/// any synchronisation. The host keeps a replaced snapshot until no thread announces it any more (hazard pointers;
/// Michael, "Hazard Pointers: Safe Memory Reclamation for Lock-Free Objects", 2004).
class SnapshotSwitch {
public:
    using Snapshot = _orvik_framework::StyleSnapshot;
    static constexpr std::size_t kReaders = 8;

    explicit SnapshotSwitch(std::unique_ptr<const Snapshot> first) : m_current(first.get()) {
        m_alive.push_back(std::move(first));
    }

    /// @param reader  number of the render thread, below kReaders; each thread has its own
    const Snapshot& beginFrame(std::size_t reader) {
        for (;;) {
            const Snapshot* snapshot = m_current.load();
            m_announced[reader].store(snapshot);
            // Exchanged in between? Then the host may not have seen the announcement.
            if (m_current.load() == snapshot) return *snapshot;
        }
    }

    void endFrame(std::size_t reader) { m_announced[reader].store(nullptr); }

    /// Called by one host thread. Frames that begin after it draw with `next`.
    void exchange(std::unique_ptr<const Snapshot> next) {
        m_alive.push_back(std::move(next));
        m_current.store(m_alive.back().get());
        std::erase_if(m_alive, [this](const auto& snapshot) { return !isInUse(snapshot.get()); });
    }

private:
    bool isInUse(const Snapshot* snapshot) const {
        if (snapshot == m_current.load()) return true;
        for (const auto& announced : m_announced) {
            if (announced.load() == snapshot) return true;
        }
        return false;
    }

    std::atomic<const Snapshot*> m_current;
    std::array<std::atomic<const Snapshot*>, kReaders> m_announced{};
    std::vector<std::unique_ptr<const Snapshot>> m_alive;  // the current one and those that frames still use
};
