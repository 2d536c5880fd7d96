// The outline scan: one-row runs of pixels that differ from the transparent colour.
#include "shell/region.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QWidget>
#include <gtest/gtest.h>

namespace qc {
namespace {

constexpr QRgb kMagenta = 0xFFFF00FF;
constexpr QRgb kArt = 0xFF60869F;

// A bitmap from rows of '.' (magenta) and '#' (art); 'k' is black, 'w' white.
QImage Bitmap(std::initializer_list<const char*> rows) {
  const int h = static_cast<int>(rows.size());
  const int w = static_cast<int>(std::strlen(*rows.begin()));
  QImage img(w, h, QImage::Format_RGB32);
  int y = 0;
  for (const char* row : rows) {
    for (int x = 0; x < w; ++x) {
      const char c = row[x];
      img.setPixel(x, y, c == '.' ? kMagenta : c == 'k' ? 0xFF000000 : c == 'w' ? 0xFFFFFFFF : kArt);
    }
    ++y;
  }
  return img;
}

// The region's pixels as the same kind of picture, for readable comparisons.
std::vector<std::string> Covered(const QRegion& r, int w, int h) {
  std::vector<std::string> out;
  for (int y = 0; y < h; ++y) {
    std::string row;
    for (int x = 0; x < w; ++x) row += r.contains(QPoint(x, y)) ? '#' : '.';
    out.push_back(row);
  }
  return out;
}

TEST(RegionFromPictureTest, RunsOfEachRowAreUnited) {
  const QImage img = Bitmap({"..##..#",
                             "#######",
                             ".......",
                             "#.#.#.#"});
  PlatformColour colour = 0;
  const QRegion r = RegionFromImage(img, 7, 4, colour);
  EXPECT_EQ(colour, 0xFF00FF);  // magenta read from the top-left pixel, low byte red
  EXPECT_EQ(Covered(r, 7, 4),
            (std::vector<std::string>{"..##..#", "#######", ".......", "#.#.#.#"}));
  // One-row rectangles: the wholly transparent row adds nothing.
  EXPECT_EQ(r.boundingRect(), QRect(0, 0, 7, 4));
}

TEST(RegionFromPictureTest, AWhollyTransparentPictureGivesAnEmptyRegion) {
  const QImage img = Bitmap({"....", "...."});
  PlatformColour colour = 0;
  EXPECT_TRUE(RegionFromImage(img, 4, 2, colour).isEmpty());
}

TEST(RegionFromPictureTest, AnOpaqueTopLeftPixelMakesItsColourTransparentEverywhere) {
  // The top-left pixel is art: all art pixels drop out and the magenta ones stay.
  const QImage img = Bitmap({"##..", "#..#", "...."});
  PlatformColour colour = 0;
  const QRegion r = RegionFromImage(img, 4, 3, colour);
  EXPECT_EQ(colour, 0x9F8660);
  EXPECT_EQ(Covered(r, 4, 3), (std::vector<std::string>{"..##", ".##.", "####"}));
}

TEST(RegionFromPictureTest, AKnownColourIsKeptAndBlackCountsAsUnknown) {
  const QImage img = Bitmap({"k#w.", "kkww"});
  PlatformColour white = 0xFFFFFF;
  EXPECT_EQ(Covered(RegionFromImage(img, 4, 2, white), 4, 2),
            (std::vector<std::string>{"##.#", "##.."}));
  EXPECT_EQ(white, 0xFFFFFF);
  // Black is colour 0, below 1: the top-left pixel is read again (and is black).
  PlatformColour black = 0;
  EXPECT_EQ(Covered(RegionFromImage(img, 4, 2, black), 4, 2),
            (std::vector<std::string>{".###", "..##"}));
}

TEST(RegionFromPictureTest, PixelsOutsideTheBitmapAreNeverTransparent) {
  // A scan larger than the bitmap reads the invalid colour there, which is opaque.
  const QImage img = Bitmap({"..", ".."});
  PlatformColour colour = 0;
  EXPECT_EQ(Covered(RegionFromImage(img, 3, 3, colour), 3, 3),
            (std::vector<std::string>{"..#", "..#", "###"}));
}

TEST(RegionFromPictureTest, PictureControlScansItsSizeInPixels) {
  QLabel picture;
  picture.setPixmap(QPixmap::fromImage(Bitmap({".##.", "####", ".##."})));
  picture.resize(4, 3);
  PlatformColour colour = 0;
  const QRegion r = RegionFromPicture(picture, colour);
  EXPECT_EQ(Covered(r, 4, 3), (std::vector<std::string>{".##.", "####", ".##."}));
}

TEST(RegionFromPictureTest, ApplySkinShapesTheWindow) {
  QWidget window(nullptr, Qt::FramelessWindowHint);
  window.resize(4, 3);
  QLabel picture(&window);
  picture.setPixmap(QPixmap::fromImage(Bitmap({"....", ".##.", "...."})));
  picture.resize(4, 3);
  picture.hide();
  ApplySkin(&window, picture);
  EXPECT_EQ(window.mask(), QRegion(1, 1, 2, 1));
  EXPECT_EQ(SkinRegion(), QRegion(1, 1, 2, 1));
}

}  // namespace
}  // namespace qc
