#pragma once
#include "client/window_system.h"

namespace qc {

// The first document window whose text holds "'s Buddy List", or 0.
Hwnd FindBuddyList(WindowSystem& ws);

}  // namespace qc
