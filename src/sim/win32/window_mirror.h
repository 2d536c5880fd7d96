#pragma once
// Real Win32 windows kept level with a simulated desktop, so that another program finds the
// simulated client's windows with the platform's own lookups and drives them with real messages.
//
// Every window of the model has a real window of the same class, caption, parent, sibling order,
// show state and menu bar. A window comes into place whole: one that stands in front of its
// siblings, or on top of the desktop, is built out of sight and moved in at once, so a lookup
// never sees it half built where the model never was.
//
// The client's messages (the ones its message table names) go to the model as the program sent
// them: one sent from another thread inside the send, one posted through PumpMessages into the
// model's queue. What another program does to a window's show state (hide, minimise, restore)
// reaches the model as its own ShowWindow call. This thread's own reads of a caption are answered
// by the real window.
#include <windows.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "sim/sim_desktop.h"

namespace qc::sim {

class WindowMirror {
 public:
  // Installs a pump hook that keeps the windows level after every pump.
  explicit WindowMirror(SimDesktop& model);
  ~WindowMirror();
  WindowMirror(const WindowMirror&) = delete;
  WindowMirror& operator=(const WindowMirror&) = delete;

  // Tells the model what the program did to show states, then brings the real windows level.
  void Sync();
  // Takes this thread's pending messages: posted client messages to mirrored windows go to the
  // model's queue, the rest are dispatched. False once WM_QUIT has come.
  bool PumpMessages();

  HWND RealOf(Hwnd window) const;
  // The message procedure of every mirrored window.
  LRESULT Handle(HWND real, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  struct Shown {
    bool visible = false;
    bool minimised = false;
    bool operator==(const Shown&) const = default;
  };

  LRESULT Forward(Hwnd window, UINT message, WPARAM wParam, LPARAM lParam);
  void ReadBack();
  void SyncChildren(Hwnd parent, HWND realParent);
  HWND Create(Hwnd window, HWND realParent);
  void Apply(Hwnd window, HWND real);
  void Place(HWND real, HWND previous, bool topLevel);
  HMENU BuildMenu(Hmenu menu);
  void Register(const std::string& className);

  SimDesktop& model_;
  PumpHookId hook_ = 0;
  HWND staging_ = nullptr;  // hidden host of windows being built
  std::map<Hwnd, HWND> real_;
  std::map<HWND, Hwnd> modelOf_;
  std::map<Hwnd, std::string> text_;
  std::map<Hwnd, Shown> shown_;
  std::set<std::string> registered_;
  std::uint64_t revision_ = ~std::uint64_t{0};
  bool syncing_ = false;
  std::int32_t zero_ = 0;  // the word a message's address stands for
};

}  // namespace qc::sim
