// Help boxes with their exact bytes, the about window, and the compiled artwork.
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <gtest/gtest.h>

#include "ui/secondary_window.h"
#include "shell/frm_about.h"
#include "shell/help.h"
#include "shell/skin_art.h"
#include "shell/skin_layout.h"
#include "support/sandbox.h"
#include "qstring_print.h"

namespace qc {
namespace {

TEST(HelpTest, BoxesHaveTheirTitlesAndStylesAndCarriageReturnsOnly) {
  test::ScriptedPrompts prompts;
  ShowHowToUse(prompts);
  ShowMailListTips(prompts);
  ShowSubjectTips(prompts);
  ShowBodyTips(prompts);
  ShowContact(prompts);
  const std::tuple<std::string, int, const char*> want[] = {
      {HowToUseText(), 4160, "how to use..."}, {MailListTipsText(), 4160, "tips!"},
      {SubjectTipsText(), 4160, "tips"},       {BodyTipsText(), 4160, "tips"},
      {ContactText(), 0, "quillcast"}};
  for (std::size_t i = 0; i < std::size(want); ++i) {
    const auto& [text, flags, title] = want[i];
    test::ExpectBox(prompts, i, text, flags, title);
    EXPECT_EQ(text.find('\n'), std::string::npos) << title;
  }
  EXPECT_EQ(BodyTipsText().find('\r'), std::string::npos);
}

TEST(HelpTest, HowToUseIsSixParagraphsSplitByBlankLines) {
  const std::string t = HowToUseText();
  EXPECT_EQ(t.substr(0, 56), "1. setup your 'mail list', 'subject lines' and 'body'.\r\r");
  EXPECT_NE(t.find("the files that you've selected to be taged/uploaded.\r\r3. click on"),
            std::string::npos);
  EXPECT_NE(t.find("press 'enter'.\r\r5. just hit the 'start tagging' circle.\r\rto review this, "
                   "just simply go to the 'file menu' triangle and 'how to use...'."),
            std::string::npos);
  EXPECT_EQ(t.back(), '.');
  size_t breaks = 0;
  for (char c : t) breaks += c == '\r';
  EXPECT_EQ(breaks, 10u);
}

TEST(HelpTest, MailListTipsLineByLine) {
  EXPECT_EQ(MailListTipsText(),
            "mail listing tips:\r\r - to add more than 1 person at a time,\r   seperate the "
            "names with comas or\r   parenthesis. example:\r      email, email2, email3\r      "
            "or\r      (email)(email2)(email3)\r\r - to check if mailboxes arent full, go\r   to "
            "'options' >> 'check and remove\r   full boxes'\r\r - to remove more than 1 name, "
            "select\r   by holding SHIFT or CONTROL");
}

TEST(HelpTest, SubjectTipsHaveSixteenLinesAndNoBlankOne) {
  const std::string t = SubjectTipsText();
  EXPECT_EQ(t.find("\r\r"), std::string::npos);
  size_t lines = 1;
  for (char c : t) lines += c == '\r';
  EXPECT_EQ(lines, 16u);
  EXPECT_EQ(t.substr(0, 40), "editing subject lines with 'quill cast'\r");
  EXPECT_NE(t.find("\r   fileName$\r   fileSize$\r   idTitle$\r   idArtist$\r   idAlbum$\r   "
                   "idGenre$\rexample: ur subject line is:\r"),
            std::string::npos);
  EXPECT_EQ(t.substr(t.size() - 30), "\r[my group - ilona - miracles]");
}

TEST(HelpTest, ContactAndBodyTipsExact) {
  EXPECT_EQ(ContactText(),
            "my email address it brindle@quillcast.example. feel free to email me. please do not "
            "ask about programing, help, or teaching. all emails with this content will be "
            "deleted and not replyed to.");
  EXPECT_EQ(BodyTipsText(),
            "in your tag, in the file info, set these keys in. when the program is tagging the "
            "email, it will replace it with the real name. like idTitle$ will be replaced with "
            "'miracles' and idArtist$ will be replaced with 'ilona'");
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

void PressOn(QWidget* w, Qt::MouseButton button) {
  QMouseEvent e(QEvent::MouseButtonPress, QPointF(3, 3), w->mapToGlobal(QPointF(3, 3)), button,
                button, Qt::NoModifier);
  QApplication::sendEvent(w, &e);
}

TEST(AboutTest, AnyPressOnAnyPartUnloadsIt) {
  const std::pair<const char*, Qt::MouseButton> presses[] = {
      {"frmAbout", Qt::LeftButton}, {"Frame1", Qt::RightButton}, {"Image1", Qt::MiddleButton},
      {"Label1", Qt::LeftButton},   {"Label2", Qt::RightButton}, {"Label7", Qt::MiddleButton},
      {"lblName", Qt::LeftButton},  {"pnlAbout", Qt::RightButton}};
  for (const auto& [part, b] : presses) {
    {
      QPointer<FrmAbout> slot;
      OpenAbout(slot, QStringLiteral("h"));
      QWidget* target = slot->objectName() == part ? slot.data()
                                                   : slot->findChild<QWidget*>(part);
      ASSERT_NE(target, nullptr) << part;
      PressOn(target, b);
      EXPECT_FALSE(slot->isVisible()) << part;
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      EXPECT_TRUE(slot.isNull()) << part;
    }
  }
}

TEST(SkinArtTest, PicturesHaveTheirSizesAndTheOutlineColourAtTheCorner) {
  const QImage picture = SkinArt("picture1").toImage();
  ASSERT_EQ(picture.size(), QSize(245, 136));
  EXPECT_EQ(picture.pixel(0, 0) & 0xFFFFFF, skin::kTransparentRgb);
  EXPECT_EQ(SkinArt("background").size(), QSize(244, 135));
  for (const skin::ArtSize& a : skin::kArtSizes) {
    EXPECT_EQ(ButtonArt(a.number).size(), QSize(a.width, a.height)) << "p" << a.number;
  }
  EXPECT_FALSE(SkinArt("title").isNull());
  EXPECT_FALSE(SkinArt("logo").isNull());
}

TEST(SkinArtTest, TheOutlineLeavesTheLastRowAndColumnToTheBackground) {
  // The background is one pixel narrower and shorter: nothing may show outside it.
  const QImage picture = SkinArt("picture1").toImage();
  for (int x = 0; x < 245; ++x) EXPECT_EQ(picture.pixel(x, 135) & 0xFFFFFF, skin::kTransparentRgb);
  for (int y = 0; y < 136; ++y) EXPECT_EQ(picture.pixel(244, y) & 0xFFFFFF, skin::kTransparentRgb);
}

}  // namespace
}  // namespace qc
