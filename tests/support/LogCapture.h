// The log lines of a test.
#pragma once

#include <string>
#include <vector>

#include "vi/vos/VLog.h"

namespace customstyle_test {

/// Takes over the log as long as it lives, and fails the test if lines are left that nobody took.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The lines since the last call, oldest first.
    std::vector<std::string> take();

    /// The priorities of all lines so far.
    const std::vector<_orvik_vi::ELOGPRIORITY>& priorities() const { return m_priorities; }

private:
    std::vector<std::string> m_lines;
    std::vector<_orvik_vi::ELOGPRIORITY> m_priorities;
};

/// Drops all log lines as long as it lives: for tests that provoke messages without end.
class LogSilence {
public:
    LogSilence();
    ~LogSilence();
    LogSilence(const LogSilence&) = delete;
    LogSilence& operator=(const LogSilence&) = delete;
};

/// A message of the component as its log line shows it.
std::string logLine(const std::string& message);

}  // namespace customstyle_test
