// The component's log, taken down.
#pragma once

#include <string>
#include <vector>

#include "vi/vos/VLog.h"

namespace customstyle_tool {

/// Takes over the process's log as long as it lives; afterwards the log goes to standard error again.
class LogRecording {
public:
    /// @param lines  receives the lines, prefix included
    explicit LogRecording(std::vector<std::string>& lines) {
        _orvik_vi::CVLog::SetSink(
            [&lines](_orvik_vi::ELOGPRIORITY, const std::string& line) { lines.push_back(line); });
    }
    ~LogRecording() { _orvik_vi::CVLog::SetSink({}); }
    LogRecording(const LogRecording&) = delete;
    LogRecording& operator=(const LogRecording&) = delete;
};

/// Drops the process's log as long as it lives. Any number of threads may log meanwhile.
class LogSilence {
public:
    LogSilence() {
        _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string&) {});
    }
    ~LogSilence() { _orvik_vi::CVLog::SetSink({}); }
    LogSilence(const LogSilence&) = delete;
    LogSilence& operator=(const LogSilence&) = delete;
};

}  // namespace customstyle_tool
