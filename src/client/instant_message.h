#pragma once
// Instant messages to the client: the route of each generation (keyword and hidden window on 4
// and 5, the main menu on 3 and 2) and the shared end game that presses the client's complaint
// box. Fixed scripts; every wait is unlimited.
#include <string>

#include "client/window_system.h"

namespace qc {

// Cuts text to 512 characters and takes the route of the running generation. Texts are code-page
// text, one byte a character.
void SendInstantMessage(WindowSystem& ws, const std::string& to, const std::string& text);
void SendImKeyword(WindowSystem& ws, const std::string& to, const std::string& text);
void SendImGen3(WindowSystem& ws, const std::string& to, const std::string& text);
void SendImGen2(WindowSystem& ws, const std::string& to, const std::string& text);

// The text of the ims menu items: one no-break blank, in the code page.
inline constexpr char kImCommandText[] = "\xA0";
inline constexpr char kImOn[] = "$im_on";
inline constexpr char kImOff[] = "$im_off";

}  // namespace qc
