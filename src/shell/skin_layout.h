#pragma once
// Where the skin's artwork puts things, in pixels of the 245 by 136 skin. Shared by the art
// generator (which draws wells and labels around these places) and the skin binding (which puts
// the picture buttons on them), so the two cannot drift apart.

namespace qc::skin {

inline constexpr int kSkinWidth = 245;
inline constexpr int kSkinHeight = 136;
inline constexpr int kBackgroundWidth = 244;
inline constexpr int kBackgroundHeight = 135;

struct ArtSize {
  int number;  // p1 .. p16
  int width, height;
};

// Press and release art come in pairs of one size.
inline constexpr ArtSize kArtSizes[] = {
    {1, 12, 9},   {2, 12, 9},    // menu triangle
    {3, 16, 12},  {4, 16, 12},   // next index
    {5, 16, 12},  {6, 16, 12},   // previous index
    {7, 12, 12},  {8, 12, 12},   // roll
    {9, 14, 14},  {10, 14, 14},  // round command button
    {11, 20, 20}, {12, 20, 20},  // info mode
    {13, 20, 20}, {14, 20, 20},  // select mode
    {15, 12, 12}, {16, 12, 12},  // exit
};

struct Place {
  const char* control;
  int pressArt, releaseArt;
  int x, y;            // top-left corner on the skin
  const char* label;   // the small label drawn beside it on the skin, or null
};

// The face's picture buttons. picUp and picDown sit on the info panel and are placed with it.
inline constexpr Place kFacePlaces[] = {
    {"picMenu1", 2, 1, 8, 9, "file"},
    {"picMenu2", 2, 1, 40, 9, "setup"},
    {"picMenu3", 2, 1, 78, 9, "other"},
    {"picMini", 8, 7, 206, 10, nullptr},
    {"picExit", 16, 15, 224, 10, nullptr},
    {"picSelect", 14, 13, 7, 28, nullptr},
    {"picInfo", 12, 11, 7, 54, nullptr},
    {"picBut1", 10, 9, 12, 117, "tag"},
    {"picBut2", 10, 9, 58, 117, "stop"},
    {"picBut3", 10, 9, 104, 117, "up"},
    {"picBut4", 10, 9, 150, 117, "off"},
    {"picBut5", 10, 9, 196, 117, "stats"},
};

inline constexpr Place kPanelPlaces[] = {
    {"picUp", 6, 5, 0, 0, nullptr},
    {"picDown", 4, 3, 0, 0, nullptr},
};

// The panel face (left 465, top 330, 2790 by 1170 twips) and the status label's strip.
inline constexpr int kPanelX = 31, kPanelY = 22, kPanelW = 186, kPanelH = 78;
inline constexpr int kStatusX = 41, kStatusY = 99, kStatusW = 165, kStatusH = 14;
// The dark display in the crown that shows the all-runs sum line (Label1).
inline constexpr int kCounterX = 119, kCounterY = 5, kCounterW = 84, kCounterH = 14;

// Skin colours as 0xRRGGBB.
inline constexpr unsigned kAccentRgb = 0x60869F;
inline constexpr unsigned kTransparentRgb = 0xFF00FF;

}  // namespace qc::skin
