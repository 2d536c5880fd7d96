#pragma once
// Small commands that make the client act without a window of the program's to fill: run a main
// menu entry by its text, walk a toolbar icon's popup with the keyboard, go to a keyword, and clear
// the client's glyph, modal windows and about box away.
//
// Each is a fixed script: which messages are posted and which sent, where events are pumped, and
// when a press is repeated are what each client generation is known to take. Waits never give up.
#include <cstdint>
#include <string>

#include "client/window_system.h"

namespace qc {

// Sends WM_COMMAND for the first main-menu entry, left to right and top to bottom, whose text
// holds itemText without regard to case. Nothing when none does.
void RunMainMenu(WindowSystem& ws, const std::string& itemText);
// Clicks the iconIndex-th toolbar icon with the pointer parked in the screen's far corner, waits
// for a visible popup menu (clicking again every 1000 passes), then posts downCount Down keys and
// Enter to it, and puts the pointer back.
void RunToolbarMenu(WindowSystem& ws, std::int16_t iconIndex, std::int16_t downCount);
// The third toolbar icon's popup on generation 4: Up, Right, Down, Enter. No repeated click.
void OpenOutgoingMail40(WindowSystem& ws);
// Types the keyword into the toolbar's keyword box, then a blank and Enter.
void KeywordToolbar(WindowSystem& ws, const std::string& keyword);
// Opens the Keyword window from the main menu, fills it and clicks its first icon.
void KeywordWindow(WindowSystem& ws, const std::string& keyword);
// Closes the toolbar's glyph of the frame captioned "America  Online", if there is one.
void KillGlyph(WindowSystem& ws);
// Closes modal windows until none is found; no pump in between.
void KillModal(WindowSystem& ws);
// Opens the about box and closes it by its first icon.
void KillWait(WindowSystem& ws);
// Waits for the "America Online" box with an "OK" button and presses it with Space.
void DismissOkBox(WindowSystem& ws);

}  // namespace qc
