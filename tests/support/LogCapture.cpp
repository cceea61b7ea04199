#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <utility>

namespace customstyle_test {

using _orvik_vi::CVLog;

LogCapture::LogCapture() {
    CVLog::SetSink([this](_orvik_vi::ELOGPRIORITY priority, const std::string& utf8) {
        m_lines.push_back(utf8);
        m_priorities.push_back(priority);
    });
}

LogCapture::~LogCapture() {
    CVLog::SetSink({});
    for (const std::string& line : m_lines) ADD_FAILURE() << "unexpected log line: " << line;
}

std::vector<std::string> LogCapture::take() {
    return std::exchange(m_lines, {});
}

LogSilence::LogSilence() {
    CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string&) {});
}

LogSilence::~LogSilence() {
    CVLog::SetSink({});
}

std::string logLine(const std::string& message) {
    return "ZRX Custom Map: " + message;
}

}  // namespace customstyle_test
