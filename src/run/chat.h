#pragma once
// The start, end and brag blocks, whose counts line reads frmMain's counters, and the chat tools'
// wiring. The lines themselves and the typing are the client layer's.
#include "client/chat_room.h"

namespace qc {

class FrmMain;
class FrmMenu;

// The three greeting lines at start-up and the three goodbye lines at exit, and the brag.
void SendStartBlock(const FrmMain& frmMain);
void SendEndBlock(const FrmMain& frmMain);
void BragStats(const FrmMain& frmMain);
// Wires the menu items bragg, upchatscrolll, ucon, ucoff, imzonn, imzzoff, gonnnnn, gofffff and
// the buttons picBut3 (upchat on), picBut4 (upchat off) and picBut5 (scroll stats).
void ConnectChatTools(FrmMain& frmMain, FrmMenu& frmMenu);

}  // namespace qc
