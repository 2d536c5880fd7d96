#pragma once
// Every command of the menus and the main window's picture buttons bound to its routine, in one
// place, including the Connect functions of the other subsystems.
#include <string>

namespace qc {

class FrmMain;
class FrmMenu;
class FrmMenu2;
class Prompts;
class SettingsStore;
struct Services;

inline constexpr int kInputBoxX = 15;  // twips, both input boxes
inline constexpr int kInputBoxY = 15;
inline constexpr int kCommentLimit = 30;  // the width of the tag's comment field

// userHandle: an empty answer (or cancel) changes nothing.
void AskHandle(FrmMenu& frmMenu, Prompts& prompts);
// renametags: an answer longer than 30 characters keeps its first 30.
void AskCommentText(FrmMenu& frmMenu, Prompts& prompts);
// "&handle [" + handle + "]"
std::string HandleItemCaption(const std::string& handle);

// resetstat: deletes every setting of the program and zeroes the two all-runs counters.
void ResetStats(FrmMain& frmMain, SettingsStore& settings);

// Binds the popups, the items and the buttons of the three windows, once. `services` must
// outlive the windows.
void ConnectMenus(FrmMain& frmMain, FrmMenu& frmMenu, FrmMenu2& frmMenu2,
                  const Services& services);

}  // namespace qc
