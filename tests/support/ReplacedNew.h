// The program's own operator new, which asks before it allocates. Linking ReplacedNew.cpp puts it in place.
#pragma once

namespace customstyle_test {

/// Asked before each allocation with operator new, which fails where the answer is false.
using NewGuard = bool (*)();

/// @param guard  nullptr to grant everything
void setNewGuard(NewGuard guard);

}  // namespace customstyle_test
