#pragma once
// The tagging run: one press of picBut1 walks the chosen files, builds each mail from the
// templates and the file's tag, hands it to the driver of the running client generation and
// counts it. picBut2 only asks for a stop, which the run sees between files.
//
// The run works on frmMain's controls and frmMenu's check marks, reading each option at the
// moment it is used. Every wait pumps events, so the user's clicks (a stop, even a second start)
// run inside it.
#include <string>

namespace qc {

class FrmMain;
class FrmMenu;
struct Services;

// The whole run; returns when the batch is over. A chosen file that has vanished raises the
// file-not-found failure out of it, which nothing catches.
void TaggingRun(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

// Enables picBut1, disables picBut2 and sets picBut1's Tag to "stop", in this order; nothing else.
void StopRun(FrmMain& frmMain);

// The twelve-line body used when the body file is missing or empty.
std::string DefaultBodyTemplate();
// Appended (after three line breaks) to every body before its keys are expanded.
std::string BodyClosingLine();

// Binds picBut1's click to TaggingRun and picBut2's click to StopRun.
void ConnectTaggingRun(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

}  // namespace qc
