// The transfer-status reader on arbitrary window texts: the transfer window's title and its two
// text lines take the input's first three pieces (cut at 0x00 bytes). The reader gives numbers
// or "na"/"none", or fails as the string cuts do when a text holds no blank.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "client/chat_room.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "client/vocabulary.h"
#include "client/window_system.h"
#include "fuzz_pieces.h"
#include "sim/sim_desktop.h"

namespace {

// What the platform's numeric test lets through is made of these characters only.
bool NumberOrMark(const std::string& s) {
  return s == "na" || s == "none" || s.find_first_not_of(" +-.0123456789") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> texts = Pieces(data, size, 3);
  texts.resize(3);
  const std::string& title = texts[0];
  const std::string& fileLine = texts[1];
  const std::string& amountLine = texts[2];

  qc::sim::SimDesktop desktop;
  desktop.SetTraceLimit(0);
  const qc::Hwnd modal = desktop.NewWindow(0, qc::aol::kModalClass, title);
  desktop.NewWindow(modal, qc::aol::kStaticClass, fileLine);
  desktop.NewWindow(modal, qc::aol::kStaticClass, amountLine);
  try {
    const qc::TransferStatus s = qc::ReadTransferStatus(desktop);
    if (!NumberOrMark(s.percent) || !NumberOrMark(s.amount)) std::abort();
    // The file comes back as the program's text: in the code page it is a tail of the line, or
    // the mark "none" when there is no transfer.
    if (s.file != "none" && qc::ToCodePage(s.file).size() > fileLine.size()) std::abort();
    (void)qc::ScrollLine(s, size % 2 == 0);
  } catch (const qc::RuntimeFailure&) {
    // A file or amount text without a blank: the modelled failure of the string cut.
  }
  return 0;
}
