#include "client/full_box.h"

#include "base/pump.h"
#include "client/compose_mail.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"
#include "client/write_mail.h"
#include "text/text.h"

namespace qc {
namespace {

// Subject and body of the probe: one no-break blank each, in the code page.
const std::string kNoBreakBlank = "\xA0";

// Guards that nothing ever sets: the generation 4 probe is never run, and the early return of the
// silent check is never taken.
bool gProbeOld = false;

}  // namespace

std::string RemoveFullBoxes(WindowSystem& ws, const std::function<AddressList&()>& pick,
                            bool* reachedRemoval) {
  if (reachedRemoval) *reachedRemoval = false;
  std::string addresses;
  {
    AddressList& list = pick();
    for (int i = 0; i < list.Count(); ++i) addresses += list.Item(i) + ", ";
  }
  // A lone "-" at the end always fails, so the client always answers with its "Error" window.
  const std::string to = addresses + "-";

  if (ClientVersion(ws) == 5) WriteProbe50(ws, to, kNoBreakBlank, kNoBreakBlank);
  if (gProbeOld) WriteProbe40(ws, to, kNoBreakBlank, kNoBreakBlank);
  if (ClientVersion(ws) == 3) ComposeProbe95(ws, to, kNoBreakBlank, kNoBreakBlank);
  if (ClientVersion(ws) == 2) return "";

  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hwnd mdi = ws.FindWindowExA(frame, 0, aol::kMdiClientUpperClass, std::nullopt);
  if (frame == 0) return "";

  Hwnd error = 0;
  Hwnd view = 0;
  std::string report;
  do {
    WaitEvents();
    error = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kErrorCaption);
    view = ws.FindWindowExA(error, 0, aol::kViewClass, std::nullopt);
    report = StripBlanks(ControlText(ws, view));
  } while (error == 0 || view == 0);

  CloseWindow(ws, error);
  // Both closed whatever the generation; a lookup that gave 0 closes nothing.
  CloseWindow(ws, ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kWriteMailCaption));
  CloseWindow(ws, ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kComposeMailCaption));

  // The client asks about the mail just closed; generation 3 stops looking at once.
  Hwnd question = 0;
  Hwnd no = 0;
  for (;;) {
    WaitEvents();
    question = ws.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption);
    no = ws.FindWindowExA(question, 0, aol::kButtonClass, aol::kNoCaption);
    if (ClientVersion(ws) == 3) break;
    if (question != 0 && no != 0) break;
  }
  std::int32_t zero = 0;
  ws.SendMessageA(no, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
  ws.SendMessageA(no, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
  DoEvents();

  if (reachedRemoval) *reachedRemoval = true;
  return RemoveReported(report, pick());
}

std::string RemoveReported(const std::string& report, AddressList& list) {
  // Only the report is folded and stripped: an item with a capital or a blank is never found.
  const std::string folded = LowerCodePage(report);
  std::string removed;
  const int last = list.Count() - 1;
  for (int i = 0; i <= last; ++i) {
    if (!(i < list.Count())) break;
    const std::string item = list.Item(i);
    if (InStr(folded, item + "-") > 0) {
      removed += " - " + item + "\r";
      list.Remove(i);
      --i;
    }
  }
  return removed;
}

void CheckFullBoxes(WindowSystem& ws, AddressList& list) {
  if (gProbeOld) return;
  RemoveFullBoxes(ws, [&list]() -> AddressList& { return list; });
}

}  // namespace qc
