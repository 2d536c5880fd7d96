// The outline scan: one-row runs of pixels that differ from the transparent colour.
#include "shell/region.h"

#include <QImage>
#include <gtest/gtest.h>

namespace qc {
namespace {

using Rows = std::vector<std::string>;

// A bitmap from rows of '.' (magenta) and '#' (art); 'k' is black, 'w' white.
QImage Bitmap(const Rows& rows) {
  QImage img(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
  for (int y = 0; y < img.height(); ++y) {
    for (int x = 0; x < img.width(); ++x) {
      const char c = rows[y][x];
      img.setPixel(x, y, c == '.' ? 0xFFFF00FF : c == 'k' ? 0xFF000000 : c == 'w' ? 0xFFFFFFFF : 0xFF60869F);
    }
  }
  return img;
}

// The region's pixels as the same kind of picture, for readable comparisons.
Rows Covered(const QRegion& r, int w, int h) {
  Rows out;
  for (int y = 0; y < h; ++y) {
    std::string row;
    for (int x = 0; x < w; ++x) row += r.contains(QPoint(x, y)) ? '#' : '.';
    out.push_back(row);
  }
  return out;
}

TEST(RegionFromPictureTest, ScansAsTheTopLeftPixelOrTheKnownColourSays) {
  struct Case {
    const char* what;
    Rows picture;
    int width, height;
    PlatformColour known, after;  // the colour passed in and as it comes back
    Rows covered;
  } cases[] = {
      {"runs of each row are united", {"..##..#", "#######", ".......", "#.#.#.#"}, 7, 4, 0,
       0xFF00FF, {"..##..#", "#######", ".......", "#.#.#.#"}},
      {"wholly transparent", {"....", "...."}, 4, 2, 0, 0xFF00FF, {"....", "...."}},
      // The top-left pixel is art: all art pixels drop out and the magenta ones stay.
      {"opaque corner", {"##..", "#..#", "...."}, 4, 3, 0, 0x9F8660, {"..##", ".##.", "####"}},
      {"known colour kept", {"k#w.", "kkww"}, 4, 2, 0xFFFFFF, 0xFFFFFF, {"##.#", "##.."}},
      // Black is colour 0, below 1: the top-left pixel is read again (and is black).
      {"black counts as unknown", {"k#w.", "kkww"}, 4, 2, 0, 0, {".###", "..##"}},
      // A scan larger than the bitmap reads the invalid colour there, which is opaque.
      {"outside the bitmap", {"..", ".."}, 3, 3, 0, 0xFF00FF, {"..#", "..#", "###"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    PlatformColour colour = c.known;
    EXPECT_EQ(Covered(RegionFromImage(Bitmap(c.picture), c.width, c.height, colour), c.width,
                      c.height),
              c.covered);
    EXPECT_EQ(colour, c.after);
  }
}

}  // namespace
}  // namespace qc
