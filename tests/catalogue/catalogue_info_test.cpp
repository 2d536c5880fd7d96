// Info mode: stepping with wrap-around, the fallback words by caller, the change and commit rules.
#include <QImage>

#include "catalogue/info_mode.h"
#include "catalogue_fixture.h"
#include "support/qt_events.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

class InfoModeTest : public CatalogueTest {
 protected:
  void Type(const QString& text) { test::Type(main.txtSubj, text); }
  void PressEnter() { Key(main.txtSubj, Qt::Key_Return, QStringLiteral("\r")); }
  std::string Shown() { return main.lblIndex->Caption() + " " + main.lblTitle->Caption(); }
  unsigned Colour() { return main.txtSubj->BackColor(); }
};

TEST_F(InfoModeTest, PanelsSwitchAndEmptyListShowsNothingNew) {
  GoInfoMode(main);
  EXPECT_EQ(TwipsTop(main.pnlInfo), kPanelShownTop);
  EXPECT_EQ(TwipsTop(main.pnlSelect), kPanelHiddenTop);
  ShowNextFile(main);
  ShowPreviousFile(main);
  EXPECT_EQ(Shown(), "0/0 title:");
  PressEnter();
  EXPECT_EQ(main.lstSubj->ListCount(), 0);
  GoSelectMode(main);
  EXPECT_EQ(TwipsTop(main.pnlSelect), kPanelShownTop);
  EXPECT_EQ(TwipsTop(main.pnlInfo), kPanelHiddenTop);
}

TEST_F(InfoModeTest, StepsWrapAround) {
  for (const char* t : {"A", "B", "C"}) Mp3(std::string(t) + ".mp3", TagBytes(t));
  AddAll();
  emit main.picInfo->clicked();
  EXPECT_EQ(Shown(), "1/3 title: A");
  emit main.picUp->clicked();
  EXPECT_EQ(Shown(), "3/3 title: C");
  emit main.picDown->clicked();
  EXPECT_EQ(Shown(), "1/3 title: A");
  emit main.picDown->clicked();
  EXPECT_EQ(Shown(), "2/3 title: B");
  EXPECT_EQ(main.txtSubj->Text(), main.lstSubj->List(1));
  EXPECT_EQ(main.lstPathSelect->Tag.toStdString(), "1");
}

TEST_F(InfoModeTest, UntaggedFileSaysNoneOnEntryAndUnknownWhenSteppedTo) {
  Mp3("a.mp3", "", 700000);
  Mp3("b.mp3", TagBytes("", "", "", "", "", 255));
  AddAll();
  auto labels = [&] {
    return main.lblArtist->Caption() + "|" + main.lblAlbum->Caption() + "|" +
           main.lblGenre->Caption() + "|" + main.lblYear->Caption();
  };
  GoInfoMode(main);
  EXPECT_EQ(labels(), "artist: none|album: none|genre: none|yr: 1999");
  EXPECT_EQ(Shown(), "1/2 title: a.mp3");
  EXPECT_EQ(main.lblMb->Caption(), "mb: .7");
  ShowNextFile(main);
  EXPECT_EQ(labels(), "artist: |album: |genre: |yr: ");  // empty fields, no fallback
  ShowPreviousFile(main);
  EXPECT_EQ(labels(), "artist: unknown|album: unknown|genre: unknown|yr: 1999");
}

TEST_F(InfoModeTest, TypingChangesColourAndEnterCommitsAtTheIndex) {
  Mp3("a.mp3", TagBytes("A"));
  Mp3("b.mp3", TagBytes("B"));
  AddAll();
  GoInfoMode(main);
  const std::string line0 = main.lstSubj->List(0);
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);
  Type("x");
  EXPECT_EQ(Colour(), 0xFFFFFFu);
  main.txtSubj->backspace();
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);  // the old text again, without Enter
  QString changed = main.txtSubj->text();
  changed[changed.size() - 1] = changed[changed.size() - 1].toLower();  // "A" -> "a"
  main.txtSubj->setText(changed);
  EXPECT_EQ(Colour(), 0xFFFFFFu);  // case counts
  // A change left without Enter is lost on stepping.
  ShowNextFile(main);
  ShowPreviousFile(main);
  EXPECT_EQ(main.txtSubj->Text(), line0);
  ShowNextFile(main);
  main.txtSubj->setText(QStringLiteral("own line"));
  PressEnter();
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);
  EXPECT_EQ(main.lstSubj->Items(), (std::vector<std::string>{line0, "own line"}));
  ShowNextFile(main);
  ShowPreviousFile(main);
  EXPECT_EQ(main.txtSubj->Text(), "own line");
  // An empty box stores an empty line; the list keeps its length.
  main.txtSubj->clear();
  PressEnter();
  EXPECT_EQ(main.lstSubj->Items(), (std::vector<std::string>{line0, ""}));
}

// What a person sees: the box's painted background, not only its palette.
TEST_F(InfoModeTest, SubjectBoxIsPaintedInTheAccentOrWhite) {
  Mp3("a.mp3", TagBytes("A"));
  AddAll();
  GoInfoMode(main);
  main.show();
  auto painted = [&] {
    const QImage img = main.txtSubj->grab().toImage();
    return img.pixelColor(img.width() - 4, img.height() / 2);
  };
  EXPECT_EQ(painted(), QColor(0x60, 0x86, 0x9F));
  Type("!");
  EXPECT_EQ(painted(), QColor(Qt::white));
}

TEST_F(InfoModeTest, EntryAfterRemovalStartsAtOneOfTheNewCountWithoutBlanks) {
  for (int i = 0; i < 12; ++i) Mp3("f" + std::to_string(100 + i) + ".mp3", "");
  AddAll();
  GoInfoMode(main);
  ShowNextFile(main);
  ShowNextFile(main);
  EXPECT_EQ(Shown(), "3/12 title: f102.mp3");
  GoSelectMode(main);
  main.lstUp->SetSelected(0, true);
  RemoveSelectedMp3s(main);
  GoInfoMode(main);
  EXPECT_EQ(Shown(), "1/11 title: f101.mp3");
}

TEST_F(InfoModeTest, FileGoneSinceAddedFailsAfterTheFallbacks) {
  const std::string a = Mp3("a.mp3", TagBytes("A"));
  AddAll();
  std::filesystem::remove(a);
  EXPECT_EQ(FailureNumberOf([&] { GoInfoMode(main); }), kFileNotFound);
  EXPECT_EQ(main.lblArtist->Caption(), "artist: none");
}

}  // namespace
}  // namespace qc::test
