#pragma once
// The run log: a plain-text account of the files chosen in lstPathSelect at the moment it is
// built. Notices carry the mail form (with subject lines); the clipboard gets the short form.
#include <cstdint>
#include <string>

#include "base/civil_date.h"

namespace qc {

class FrmMain;
class FrmMenu;
struct Services;

enum class RunLogForm { kMail, kClipboard };

// Both forms walk every chosen file and ask for its length; a file that has vanished raises the
// file-not-found failure, which nothing catches. `today` is the log's date.
std::string BuildRunLog(const FrmMain& frmMain, RunLogForm form, CivilDate today);
std::string CompileRunLog(const FrmMain& frmMain, CivilDate today);

// The total of the chosen files' rounded sizes, as trimmed number text (".5", "3.52").
std::string SelectedMbTotal(const FrmMain& frmMain);

// The compileLog menu item: the clipboard form onto the clipboard, then a message box. Refuses
// with an error box when nothing is chosen.
void CopyRunLog(const FrmMain& frmMain, const Services& services);

// Connects the menu item compileLog to CopyRunLog.
void ConnectRunLog(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

// The name behind the last path separator.
std::string ShortFileName(const std::string& path);

// A file's size in decimal megabytes rounded to two places, as the run and the log add it up.
double RoundedMegabytes(const std::string& path);

}  // namespace qc
