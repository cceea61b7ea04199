// CVLog of another engine: it counts its lines.
#pragma once

#include "vi/vos/VString.h"

namespace [[gnu::visibility("default")]] _orvik_vi {

enum ELOGPRIORITY : int { ELOG_WARN = 5 };

class CVLog {
public:
    static void Log(ELOGPRIORITY, const CVString&) { ++lines; }

    static inline int lines = 0;
};

}  // namespace _orvik_vi
