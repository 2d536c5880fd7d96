#pragma once
// The main window's outline, cut from its skin bitmap.
#include <QRegion>
#include <cstdint>

class QImage;
class QLabel;
class QWidget;

namespace qc {

// Colours here are in the platform's form, low byte red (0x00BBGGRR). A colour below 1 counts
// as not yet known; reading outside the bitmap gives kInvalidColour, which is never transparent.
using PlatformColour = std::int32_t;
inline constexpr PlatformColour kInvalidColour = -1;

PlatformColour PixelColour(const QImage& picture, int x, int y);

// The union of one-row rectangles, one for each run of pixels that differ from the transparent
// colour. When `transparent` is below 1 it is read from the top-left pixel and filled in.
// The scan covers width by height pixels, whatever the bitmap's own size.
QRegion RegionFromImage(const QImage& picture, int widthPixels, int heightPixels,
                        PlatformColour& transparent);

// The same for a picture control: its size in twips over the twips per pixel, rounded, and the
// pixels of its picture.
QRegion RegionFromPicture(const QLabel& picture, PlatformColour& transparent);

// The window's region, made once and kept for the program's life.
const QRegion& SkinRegion();

// Builds the skin region from the picture (the top-left pixel decides the transparent colour)
// and cuts the window to it: transparent pixels are no part of it and take no mouse events.
void ApplySkin(QWidget* window, const QLabel& picture);

}  // namespace qc
