// A line on the terminal while the user waits.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace customstyle_tool {

/// Shows on standard error, where that is a terminal, what is being worked on and for how long, once it takes longer
/// than a second; the line disappears with the object. Nothing else may be printed meanwhile.
class ProgressLine {
public:
    /// @param what  the path of the file
    explicit ProgressLine(std::string what);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// How many proofs there are, and have been made. May be called on any thread.
    void show(std::size_t done, std::size_t all);

private:
    void run();

    std::string m_what;
    std::atomic<std::size_t> m_done = 0;
    std::atomic<std::size_t> m_all = 0;
    bool m_isOver = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::thread m_thread;
};

}  // namespace customstyle_tool
