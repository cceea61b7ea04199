// QuietLog: the component's log lines go nowhere.
#pragma once

#include <string>

#include "vi/vos/VLog.h"

namespace customstyle_tool {

/// Drops all log lines while it lives: for tools whose subject is not what the component complains about.
class QuietLog {
public:
    QuietLog() {
        _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string&) {});
    }
    ~QuietLog() { _orvik_vi::CVLog::SetSink({}); }
    QuietLog(const QuietLog&) = delete;
    QuietLog& operator=(const QuietLog&) = delete;
};

}  // namespace customstyle_tool
