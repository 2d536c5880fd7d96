// Info mode: stepping with wrap-around, the fallback words by caller, the change and commit rules.
#include <QImage>
#include <QKeyEvent>
#include <QPixmap>

#include "ui/window_routines.h"
#include "catalogue/catalogue_fixture.h"
#include "catalogue/info_mode.h"

namespace qc::test {
namespace {

class InfoModeTest : public CatalogueTest {
 protected:
  // Adds the folder's files to the selection, in folder order.
  void SelectAll() {
    Choose(folder_);
    for (int i = 0; i < main_->lstMp3->ListCount(); ++i) main_->lstMp3->SetSelected(i, true);
    AddSelectedMp3s(*main_);
  }
  void Type(const QString& text) {
    for (QChar c : text) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
      QCoreApplication::sendEvent(main_->txtSubj, &press);
    }
  }
  void PressEnter() {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(main_->txtSubj, &press);
  }
  std::string Index() { return main_->lblIndex->Caption(); }
  std::string Title() { return main_->lblTitle->Caption(); }
  unsigned Colour() { return main_->txtSubj->BackColor(); }
};

TEST_F(InfoModeTest, PanelsSwitchAndEmptyListShowsNothingNew) {
  GoInfoMode(*main_);
  EXPECT_EQ(TwipsTop(main_->pnlInfo), kPanelShownTop);
  EXPECT_EQ(TwipsTop(main_->pnlSelect), kPanelHiddenTop);
  EXPECT_EQ(Index(), "0/0");
  EXPECT_EQ(Title(), "title:");
  ShowNextFile(*main_);
  ShowPreviousFile(*main_);
  EXPECT_EQ(Index(), "0/0");
  PressEnter();
  EXPECT_EQ(main_->lstSubj->ListCount(), 0);
  GoSelectMode(*main_);
  EXPECT_EQ(TwipsTop(main_->pnlSelect), kPanelShownTop);
  EXPECT_EQ(TwipsTop(main_->pnlInfo), kPanelHiddenTop);
}

TEST_F(InfoModeTest, StepsWrapAroundWithThreeFiles) {
  Mp3("a.mp3", TagBytes("A"));
  Mp3("b.mp3", TagBytes("B"));
  Mp3("c.mp3", TagBytes("C"));
  SelectAll();
  emit main_->picInfo->clicked();
  EXPECT_EQ(Index(), "1/3");
  EXPECT_EQ(Title(), "title: A");
  emit main_->picUp->clicked();
  EXPECT_EQ(Index(), "3/3");
  EXPECT_EQ(Title(), "title: C");
  emit main_->picDown->clicked();
  EXPECT_EQ(Index(), "1/3");
  EXPECT_EQ(main_->lstPathSelect->Tag.toStdString(), "0");
  emit main_->picDown->clicked();
  EXPECT_EQ(Title(), "title: B");
  EXPECT_EQ(main_->txtSubj->Text(), main_->lstSubj->List(1));
  EXPECT_EQ(main_->lstPathSelect->Tag.toStdString(), "1");
}

TEST_F(InfoModeTest, OneFileStepsToItself) {
  Mp3("a.mp3", TagBytes("A"));
  SelectAll();
  GoInfoMode(*main_);
  ShowNextFile(*main_);
  EXPECT_EQ(Index(), "1/1");
  ShowPreviousFile(*main_);
  EXPECT_EQ(Index(), "1/1");
  EXPECT_EQ(Title(), "title: A");
}

TEST_F(InfoModeTest, UntaggedFileSaysNoneOnEntryAndUnknownWhenSteppedTo) {
  Mp3("a.mp3", "", 700000);
  Mp3("b.mp3", TagBytes("", "", "", "", "", 255));
  SelectAll();
  GoInfoMode(*main_);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: none");
  EXPECT_EQ(main_->lblAlbum->Caption(), "album: none");
  EXPECT_EQ(main_->lblGenre->Caption(), "genre: none");
  EXPECT_EQ(main_->lblYear->Caption(), "yr: 1999");
  EXPECT_EQ(Title(), "title: a.mp3");
  EXPECT_EQ(main_->lblMb->Caption(), "mb: .7");
  ShowNextFile(*main_);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: ");  // empty fields, no fallback
  EXPECT_EQ(main_->lblYear->Caption(), "yr: ");
  ShowPreviousFile(*main_);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: unknown");
  EXPECT_EQ(main_->lblAlbum->Caption(), "album: unknown");
  EXPECT_EQ(main_->lblGenre->Caption(), "genre: unknown");
  EXPECT_EQ(main_->lblYear->Caption(), "yr: 1999");
}

TEST_F(InfoModeTest, TypingChangesColourAndEnterCommitsAtTheIndex) {
  Mp3("a.mp3", TagBytes("A"));
  Mp3("b.mp3", TagBytes("B"));
  SelectAll();
  GoInfoMode(*main_);
  const std::string line0 = main_->lstSubj->List(0), line1 = main_->lstSubj->List(1);
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);
  Type("x");
  EXPECT_EQ(Colour(), 0xFFFFFFu);
  main_->txtSubj->backspace();
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);  // the old text again, without Enter
  QString upper = main_->txtSubj->text();
  upper[upper.size() - 1] = upper[upper.size() - 1].toLower();  // "A" -> "a"
  main_->txtSubj->setText(upper);
  EXPECT_EQ(Colour(), 0xFFFFFFu);  // case counts

  // A change left without Enter is lost on stepping.
  ShowNextFile(*main_);
  ShowPreviousFile(*main_);
  EXPECT_EQ(main_->txtSubj->Text(), line0);

  ShowNextFile(*main_);
  main_->txtSubj->setText(QStringLiteral("own line"));
  PressEnter();
  EXPECT_EQ(Colour(), kSubjectUnchangedColour);
  EXPECT_EQ(main_->lstSubj->Items(), (std::vector<std::string>{line0, "own line"}));
  ShowNextFile(*main_);
  ShowPreviousFile(*main_);
  EXPECT_EQ(main_->txtSubj->Text(), "own line");
  EXPECT_EQ(main_->lstUp->ListCount(), 2);
  EXPECT_NE(line1, "own line");

  // An empty box stores an empty line; the list keeps its length.
  main_->txtSubj->clear();
  PressEnter();
  EXPECT_EQ(main_->lstSubj->Items(), (std::vector<std::string>{line0, ""}));
}

// What a person sees: the box's painted background, not only its palette.
TEST_F(InfoModeTest, SubjectBoxIsPaintedInTheAccentOrWhite) {
  Mp3("a.mp3", TagBytes("A"));
  SelectAll();
  GoInfoMode(*main_);
  main_->show();
  auto painted = [&] {
    const QImage img = main_->txtSubj->grab().toImage();
    return img.pixelColor(img.width() - 4, img.height() / 2);
  };
  EXPECT_EQ(painted(), QColor(0x60, 0x86, 0x9F));
  Type("!");
  EXPECT_EQ(painted(), QColor(Qt::white));
}

TEST_F(InfoModeTest, EntryAfterRemovalStartsAtOneOfTheNewCount) {
  for (const char* n : {"a.mp3", "b.mp3", "c.mp3"}) Mp3(n, "");
  SelectAll();
  GoInfoMode(*main_);
  ShowNextFile(*main_);
  ShowNextFile(*main_);
  GoSelectMode(*main_);
  main_->lstUp->SetSelected(0, true);
  RemoveSelectedMp3s(*main_);
  GoInfoMode(*main_);
  EXPECT_EQ(Index(), "1/2");
  EXPECT_EQ(Title(), "title: b.mp3");
}

TEST_F(InfoModeTest, FileGoneSinceAddedFailsAfterTheFallbacks) {
  const std::string a = Mp3("a.mp3", TagBytes("A"));
  SelectAll();
  std::filesystem::remove(a);
  EXPECT_EQ(FailureNumberOf([&] { GoInfoMode(*main_); }), kFileNotFound);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: none");
}

TEST_F(InfoModeTest, IndexTextHasNoBlanks) {
  for (int i = 0; i < 12; ++i) Mp3("f" + std::to_string(100 + i) + ".mp3", "");
  SelectAll();
  GoInfoMode(*main_);
  ShowNextFile(*main_);
  ShowNextFile(*main_);
  EXPECT_EQ(Index(), "3/12");
}

}  // namespace
}  // namespace qc::test
