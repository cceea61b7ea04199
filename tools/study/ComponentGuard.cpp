#include "tools/study/ComponentGuard.h"

#include <atomic>
#include <utility>

#include "customstyle/CustomConfig.h"
#include "vi/vos/VLog.h"

namespace customstyle_tool {
namespace {

using _orvik_vi::CVLog;

std::atomic<int> guards = 0;
int switchBefore = 0;
thread_local std::vector<std::string>* recorded = nullptr;

void record(_orvik_vi::ELOGPRIORITY /*priority*/, const std::string& line) {
    if (recorded != nullptr) recorded->push_back(line);
}

}  // namespace

ComponentGuard::ComponentGuard() {
    if (guards.fetch_add(1, std::memory_order_relaxed) > 0) return;
    switchBefore = std::exchange(g_zrsdk_custom_style_enable, 1);
    CVLog::SetSink(record);
}

ComponentGuard::~ComponentGuard() {
    if (guards.fetch_sub(1, std::memory_order_relaxed) > 1) return;
    g_zrsdk_custom_style_enable = switchBefore;
    CVLog::SetSink({});
}

LogRecording::LogRecording(std::vector<std::string>& lines) : m_outer(std::exchange(recorded, &lines)) {}

LogRecording::~LogRecording() {
    recorded = m_outer;
}

}  // namespace customstyle_tool
