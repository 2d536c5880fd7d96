// The screen-name reader on arbitrary captions: document windows under the client's frame take
// the input's pieces (cut at each 0x00 byte) as captions. The reader either gives the text
// between "Welcome, " and the first "!" of the first welcome caption, or fails as the string cut
// does; it never reads past a caption.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/failure.h"
#include "client/vocabulary.h"
#include "fuzz_pieces.h"
#include "client/window_routines.h"
#include "sim/sim_desktop.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> captions = Pieces(data, size, 8);
  qc::sim::SimDesktop desktop;
  desktop.SetTraceLimit(0);
  const qc::Hwnd frame = desktop.NewWindow(0, qc::aol::kFrameClass, qc::aol::kFrameCaption);
  const qc::Hwnd mdi = desktop.NewWindow(frame, qc::aol::kMdiClientClass);
  for (const auto& caption : captions) desktop.NewWindow(mdi, qc::aol::kChildClass, caption);

  const std::string prefix = qc::aol::kWelcomePrefix;
  try {
    const std::string name = qc::ClientScreenName(desktop);
    // The name stands inside one caption, right behind the prefix.
    bool found = name.empty();
    for (const auto& caption : captions) {
      const std::string shown = caption.substr(0, caption.find('\0'));
      if (shown.compare(0, prefix.size(), prefix) == 0 &&
          shown.compare(prefix.size(), name.size(), name) == 0) {
        found = true;
      }
    }
    if (!found) std::abort();
  } catch (const qc::RuntimeFailure&) {
    // A welcome caption without "!" cuts at a negative length: the modelled failure.
  }
  return 0;
}
