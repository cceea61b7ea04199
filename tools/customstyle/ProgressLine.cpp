#include "tools/customstyle/ProgressLine.h"

#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <utility>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

ProgressLine::ProgressLine(std::string what) : m_what(std::move(what)) {
    if (::isatty(STDERR_FILENO) != 0) m_thread = std::thread([this] { run(); });
}

ProgressLine::~ProgressLine() {
    if (!m_thread.joinable()) return;
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void ProgressLine::show(std::size_t done, std::size_t all) {
    m_done = done;
    m_all = all;
}

void ProgressLine::run() {
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock lock(m_mutex);
    bool isShown = false;
    while (!m_changed.wait_for(lock, isShown ? kInterval : kPatience, [this] { return m_isOver; })) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - begin);
        std::string text = fmt::format("{}: {} s", escapedText(m_what), seconds.count());
        if (m_all > 0) text += fmt::format(", {} of {} proofs", m_done.load(), m_all.load());
        fmt::print(stderr, "\r{}\x1b[K", text);
        std::fflush(stderr);
        isShown = true;
    }
    if (isShown) fmt::print(stderr, "\r\x1b[K");
}

}  // namespace customstyle_tool
