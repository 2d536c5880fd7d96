// Help boxes with their exact bytes, the about window, and the compiled artwork.
#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "ui/secondary_window.h"
#include "shell/frm_about.h"
#include "shell/help.h"
#include "shell/skin_art.h"
#include "shell/skin_layout.h"
#include "support/qt_events.h"
#include "support/sandbox.h"
#include "qstring_print.h"

namespace qc {
namespace {

// Every help box opened through its routine and compared with data/help_boxes.txt.
TEST(HelpTest, BoxesAsTheTableHasThem) {
  const std::map<std::string, void (*)(Prompts&)> routines = {
      {"how2use", ShowHowToUse}, {"emailTips", ShowMailListTips}, {"subjectTips", ShowSubjectTips},
      {"bodytips", ShowBodyTips}, {"contactzme", ShowContact}};
  test::ScriptedPrompts prompts;
  std::ifstream in(QC_TEST_DATA_DIR "/help_boxes.txt");
  std::size_t boxes = 0;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("box ", 0) != 0) continue;
    std::istringstream head(line.substr(4));
    std::string item, title;
    int flags = -1;
    head >> item >> flags >> std::ws;
    std::getline(head, title);
    std::string text;
    for (std::string row; std::getline(in, row) && row != "end";) text += row + "\r";
    text.pop_back();  // no break after the last line
    ASSERT_EQ(routines.count(item), 1u) << item;
    routines.at(item)(prompts);
    test::ExpectBox(prompts, boxes++, text, flags, title);
  }
  EXPECT_EQ(boxes, routines.size());
}

TEST(AboutTest, ShowsTheFixedTextsAndTheLowerCasedHandle) {
  QPointer<FrmAbout> slot;
  FrmAbout* about = OpenAbout(slot, QStringLiteral("BrinDle ÄB"));
  EXPECT_TRUE(about->isVisible());
  EXPECT_FALSE(about->isModal());
  EXPECT_TRUE(about->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(about->Label1->text(), "QUILL CAST v.qc23e");
  EXPECT_EQ(about->Label2->text(), "For all 32bit AOLs(aol 95, aol 5.0).");
  EXPECT_EQ(about->Label7->text(), "Public Release 2 : Version qc23e :");
  EXPECT_EQ(about->lblName->text(), "brindle äb");
  EXPECT_FALSE(about->Image1->pixmap().isNull());
  // A changed handle shows only at the next opening.
  EXPECT_EQ(OpenAbout(slot, QStringLiteral("other")), about);
  EXPECT_EQ(about->lblName->text(), "brindle äb");
  delete about;
}

TEST(AboutTest, AnyPressOnAnyPartUnloadsIt) {
  const std::pair<const char*, Qt::MouseButton> presses[] = {
      {"frmAbout", Qt::LeftButton}, {"Frame1", Qt::RightButton}, {"Image1", Qt::MiddleButton},
      {"lblName", Qt::LeftButton},  {"pnlAbout", Qt::RightButton}};
  for (const auto& [part, button] : presses) {
    QPointer<FrmAbout> slot;
    OpenAbout(slot, QStringLiteral("h"));
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
