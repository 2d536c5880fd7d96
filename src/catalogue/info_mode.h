#pragma once
// Info mode: one selected file at a time, its tag, size and stored subject line. The index in
// view lies in lstPathSelect's Tag; the panel in use is the one whose top edge is at 330.
namespace qc {

class FrmMain;

// Which operation shows the file: an untagged file says "none" on entering info mode and
// "unknown" when stepped to.
enum class InfoCaller { kEnter, kStep };

void ShowFileInfo(FrmMain& f, int index, InfoCaller caller);

void GoSelectMode(FrmMain& f);  // picSelect
void GoInfoMode(FrmMain& f);    // picInfo: starts again at the first file
void ShowNextFile(FrmMain& f);      // picDown, wraps to the first
void ShowPreviousFile(FrmMain& f);  // picUp, wraps to the last

// Every change of txtSubj's text: its colour tells whether it equals the stored line.
void SubjectTextChanged(FrmMain& f);
// A key pressed in txtSubj: Enter stores the box's text as the line of the file in view.
void SubjectKeyPress(FrmMain& f, int keyAscii);

}  // namespace qc
