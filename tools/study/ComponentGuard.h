// The component's state that belongs to the whole process: its log and its switch.
#pragma once

#include <string>
#include <vector>

namespace customstyle_tool {

/// As long as one lives, the renderer's questions are answered, and the log goes to those who record it and nowhere
/// else. Guards nest; with the outermost one the switch becomes what it was, and the log goes to standard error again.
/// The outermost one must not be made or end while other threads use the component.
class ComponentGuard {
public:
    ComponentGuard();
    ~ComponentGuard();
    ComponentGuard(const ComponentGuard&) = delete;
    ComponentGuard& operator=(const ComponentGuard&) = delete;
};

/// Takes down what the component logs on this thread as long as it lives.
class LogRecording {
public:
    /// @param lines  receives the lines, prefix included
    explicit LogRecording(std::vector<std::string>& lines);
    ~LogRecording();
    LogRecording(const LogRecording&) = delete;
    LogRecording& operator=(const LogRecording&) = delete;

private:
    ComponentGuard m_guard;
    std::vector<std::string>* m_outer;
};

}  // namespace customstyle_tool
