// The about window and the compiled artwork. The help boxes' exact texts, and the about window's,
// are a program scenario (web_and_help_items, about_window).
#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>

#include "shell/frm_about.h"
#include "shell/skin_art.h"
#include "shell/skin_layout.h"
#include "support/qt_events.h"

namespace qc {
namespace {

TEST(AboutTest, OpensOnTopWithoutBlockingAndAnyPressOnAnyPartUnloadsIt) {
  const std::pair<const char*, Qt::MouseButton> presses[] = {
      {"frmAbout", Qt::LeftButton}, {"Frame1", Qt::RightButton}, {"Image1", Qt::MiddleButton},
      {"lblName", Qt::LeftButton},  {"pnlAbout", Qt::RightButton}};
  for (const auto& [part, button] : presses) {
    QPointer<FrmAbout> slot;
    OpenAbout(slot, QStringLiteral("h"));
    EXPECT_TRUE(slot->isVisible());
    EXPECT_FALSE(slot->isModal());
    EXPECT_TRUE(slot->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(slot->Image1->pixmap().isNull());
    QWidget* target = slot->objectName() == part ? slot.data() : slot->findChild<QWidget*>(part);
    ASSERT_NE(target, nullptr) << part;
    test::SendMouse(target, QEvent::MouseButtonPress, button);
    EXPECT_FALSE(slot->isVisible()) << part;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(slot.isNull()) << part;
  }
}

TEST(SkinArtTest, PicturesHaveTheirSizesAndTheOutlineLeavesTheLastRowAndColumnBare) {
  const QImage picture = SkinArt("picture1").toImage();
  ASSERT_EQ(picture.size(), QSize(245, 136));
  EXPECT_EQ(picture.pixel(0, 0) & 0xFFFFFF, skin::kTransparentRgb);
  // The background is one pixel narrower and shorter: nothing may show outside it.
  EXPECT_EQ(SkinArt("background").size(), QSize(244, 135));
  for (int x = 0; x < 245; ++x) EXPECT_EQ(picture.pixel(x, 135) & 0xFFFFFF, skin::kTransparentRgb);
  for (int y = 0; y < 136; ++y) EXPECT_EQ(picture.pixel(244, y) & 0xFFFFFF, skin::kTransparentRgb);
  for (const skin::ArtSize& a : skin::kArtSizes) {
    EXPECT_EQ(ButtonArt(a.number).size(), QSize(a.width, a.height)) << "p" << a.number;
  }
  EXPECT_FALSE(SkinArt("title").isNull());
  EXPECT_FALSE(SkinArt("logo").isNull());
}

}  // namespace
}  // namespace qc
