// The counts blocks: line 2 reads frmMain's counters when it is built.
#include "run/chat.h"

#include "ui/frmmain.h"
#include "run/stats.h"

namespace qc {

void SendStartBlock(const FrmMain& f, WindowSystem& ws) {
  SendChatBlock(ws, [&f] { return CountsLine("start", f.lblUps->Caption(), TotalSizeText(f)); });
}

void SendEndBlock(const FrmMain& f, WindowSystem& ws) {
  SendChatBlock(ws, [&f] { return CountsLine("end", f.lblUps->Caption(), TotalSizeText(f)); });
}

void BragStats(const FrmMain& f, WindowSystem& ws) {
  SendChatBlock(ws, [&f] { return CountsLine("brag", f.lblUps->Caption(), TotalSizeText(f)); });
}

}  // namespace qc
