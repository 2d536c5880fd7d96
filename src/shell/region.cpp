#include "shell/region.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QWidget>
#include <cmath>

#include "ui/window_routines.h"

namespace qc {
namespace {
QRegion& TheSkinRegion() {
  static QRegion r;
  return r;
}
}  // namespace

PlatformColour PixelColour(const QImage& picture, int x, int y) {
  if (x < 0 || y < 0 || x >= picture.width() || y >= picture.height()) return kInvalidColour;
  const QRgb c = picture.pixel(x, y);
  return static_cast<PlatformColour>(qRed(c) | (qGreen(c) << 8) | (qBlue(c) << 16));
}

QRegion RegionFromImage(const QImage& picture, int widthPixels, int heightPixels,
                        PlatformColour& transparent) {
  if (transparent < 1) transparent = PixelColour(picture, 0, 0);
  QRegion region;
  for (int y = 0; y < heightPixels; ++y) {
    int x = 0;
    while (x < widthPixels) {
      while (x < widthPixels && PixelColour(picture, x, y) == transparent) ++x;
      if (x >= widthPixels) break;
      const int start = x;
      while (x < widthPixels && PixelColour(picture, x, y) != transparent) ++x;
      region += QRect(start, y, x - start, 1);
    }
  }
  return region;
}

QRegion RegionFromPicture(const QLabel& picture, PlatformColour& transparent) {
  const int height = static_cast<int>(std::nearbyint(TwipsHeight(&picture) / TwipsPerPixelY()));
  const int width = static_cast<int>(std::nearbyint(TwipsWidth(&picture) / TwipsPerPixelX()));
  const QImage image = picture.pixmap().toImage();
  return RegionFromImage(image, width, height, transparent);
}

const QRegion& SkinRegion() { return TheSkinRegion(); }

void ApplySkin(QWidget* window, const QLabel& picture) {
  PlatformColour transparent = 0;
  TheSkinRegion() = RegionFromPicture(picture, transparent);
  window->setMask(TheSkinRegion());
}

}  // namespace qc
