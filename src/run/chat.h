#pragma once
// The start, end and brag blocks, whose counts line reads frmMain's counters, and the chat tools'
// wiring. The lines themselves and the typing are the client layer's.
#include "client/chat_room.h"

namespace qc {

class FrmMain;
class FrmMenu;
struct Services;

// The three greeting lines at start-up and the three goodbye lines at exit, and the brag.
void SendStartBlock(const FrmMain& frmMain, WindowSystem& ws);
void SendEndBlock(const FrmMain& frmMain, WindowSystem& ws);
void BragStats(const FrmMain& frmMain, WindowSystem& ws);
// Wires the menu items bragg, upchatscrolll, ucon, ucoff, imzonn, imzzoff, gonnnnn, gofffff and
// the buttons picBut3 (upchat on), picBut4 (upchat off) and picBut5 (scroll stats).
void ConnectChatTools(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

}  // namespace qc
