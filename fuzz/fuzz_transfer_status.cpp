// The transfer-status reader on arbitrary window texts: the transfer window's title and its two
// text lines take the input's first three pieces (cut at 0x00 bytes). The reader gives numbers
// or "na"/"none", or fails as the string cuts do when a text holds no blank.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/chat.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "client/vocabulary.h"
#include "client/window_system.h"
#include "sim/sim_desktop.h"

namespace {

std::string Take(const std::string& all, std::size_t& pos) {
  if (pos > all.size()) return {};
  std::size_t end = all.find('\0', pos);
  if (end == std::string::npos) end = all.size();
  std::string part = all.substr(pos, end - pos);
  pos = end + 1;
  return part;
}

// What the platform's numeric test lets through is made of these characters only.
bool NumberOrMark(const std::string& s) {
  return s == "na" || s == "none" || s.find_first_not_of(" +-.0123456789") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  std::size_t pos = 0;
  const std::string title = Take(all, pos);
  const std::string fileLine = Take(all, pos);
  const std::string amountLine = Take(all, pos);

  qc::sim::SimDesktop desktop;
  desktop.SetTraceLimit(0);
  const qc::Hwnd modal = desktop.NewWindow(0, qc::aol::kModalClass, title);
  desktop.NewWindow(modal, qc::aol::kStaticClass, fileLine);
  desktop.NewWindow(modal, qc::aol::kStaticClass, amountLine);
  qc::SetWindowSystem(&desktop);
  try {
    const qc::TransferStatus s = qc::ReadTransferStatus();
    if (!NumberOrMark(s.percent) || !NumberOrMark(s.amount)) std::abort();
    if (s.file.size() > fileLine.size()) std::abort();
    (void)qc::ScrollLine(s, size % 2 == 0);
  } catch (const qc::RuntimeFailure&) {
    // A file or amount text without a blank: the modelled failure of the string cut.
  }
  qc::SetWindowSystem(nullptr);
  return 0;
}
