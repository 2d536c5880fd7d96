#include "client/buddy_list.h"

#include <optional>

#include "client/vocabulary.h"
#include "client/window_routines.h"

namespace qc {

Hwnd FindBuddyList(WindowSystem& ws) {
  const Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  const Hwnd mdi = ws.FindWindowExA(frame, 0, aol::kMdiClientClass, std::nullopt);
  Hwnd child = ws.FindWindowExA(mdi, 0, aol::kChildClass, std::nullopt);
  while (child != 0) {
    if (ControlText(ws, child).find(aol::kBuddyListMark) != std::string::npos) return child;
    child = ws.FindWindowExA(mdi, child, aol::kChildClass, std::nullopt);
  }
  return 0;
}

}  // namespace qc
