// The client double: the simulated AOL client as real windows, for a program that drives it over
// the Win32 backend from a process of its own.
//   client_double report=PATH generation=5 room=Town Square ...
#include <windows.h>

#include <fstream>
#include <string>
#include <vector>

#include "base/pump.h"
#include "client/win32/win32_window_system.h"
#include "sim/win32/client_double.h"

namespace {

struct Control {
  qc::sim::ClientDouble* client = nullptr;
  std::string reportPath;
  UINT reportMessage = 0;
};

LRESULT CALLBACK ControlProc(HWND h, UINT m, WPARAM w, LPARAM l) {
  auto* c = reinterpret_cast<Control*>(::GetWindowLongPtrA(h, GWLP_USERDATA));
  if (c && m == c->reportMessage) {
    std::ofstream out(c->reportPath, std::ios::binary | std::ios::trunc);
    for (const std::string& line : c->client->Report()) out << line << '\n';
    return out ? 1 : 0;
  }
  if (m == WM_CLOSE) {
    ::PostQuitMessage(0);
    return 0;
  }
  return ::DefWindowProcA(h, m, w, l);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  Control control;
  for (const std::string& w : words) {
    if (w.rfind("report=", 0) == 0) control.reportPath = w.substr(7);
  }
  qc::sim::ClientDouble client(qc::sim::ParseSetup(words));
  control.client = &client;
  control.reportMessage = ::RegisterWindowMessageA(qc::sim::kDoubleReportMessage);

  bool running = true;
  qc::SetEventProcessor([&] { running = client.mirror()->PumpMessages() && running; });
  // Once the quit has been taken, no message is left to end an idle wait.
  qc::SetEventWaiter([&](double seconds) {
    if (running) qc::Win32WaitForMessages(seconds);
  });

  WNDCLASSA wc{};
  wc.lpfnWndProc = &ControlProc;
  wc.hInstance = ::GetModuleHandleA(nullptr);
  wc.lpszClassName = qc::sim::kDoubleControlClass;
  ::RegisterClassA(&wc);
  HWND window = ::CreateWindowExA(0, qc::sim::kDoubleControlClass, "", WS_POPUP, 0, 0, 1, 1,
                                  nullptr, nullptr, wc.hInstance, nullptr);
  ::SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&control));

  while (running) qc::WaitEvents();
  qc::SetEventProcessor({});
  return 0;
}
