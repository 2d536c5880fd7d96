// The ID tag editor: genre box order, opening through either list, the fill failing at the genre
// box, the year filter, limits, focus selection, Save and Cancel on real files.
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "app/core/application.h"
#include "app/core/list_box.h"
#include "catalogue/catalogue_fixture.h"
#include "catalogue/codec/genres.h"
#include "catalogue/frm_idedit.h"

namespace qc::test {
namespace {

const std::vector<std::string> kBoxOrder = {
    "A Capella", "Acid", "Acid Jazz", "Acid Punk", "Acoustic", "Alt. Rock",
    "Alternative", "Ambient", "Anime", "Avantegarde", "Ballad", "Bass",
    "Beat", "Bebob", "Big Band", "Black Metal", "Blue Grass", "Blues",
    "Booty Bass", "Brit Pop", "Cabaret", "Celtic", "Chamber Music", "Chanson",
    "Chorus", "Christian Gangsta Rap", "Christian Rap", "Christian Rock", "Classic Rock",
    "Classical", "Club", "Club-House", "Comedy", "Comteporary Christian", "Country", "Crossover",
    "Cult", "Dance", "Dance Hall", "Darkwave", "Death Metal", "Disco",
    "Dream", "Drum & Bass", "Drum Solo", "Duet", "Easy Listening", "Electronic",
    "Ethnic", "Eurodance", "Euro-House", "Euro-Techno", "Fast-Fusion", "Folk",
    "Folk/Rock", "Folklore", "Freestyle", "Funk", "Fusion", "Game",
    "Gangsta Rap", "Goa", "Gospel", "Gothic", "Gothic Rock", "Grunge",
    "Hard Rock", "Hardcore", "Heavy Metal", "Hip-Hop", "House", "Humour",
    "indie", "Industrial", "Instrumental", "Instrumental Pop", "Instrumental Rock", "Jazz",
    "Jazz+Funk", "JPop", "Jungle", "Latin", "Lo-Fi", "Meditative",
    "Merengue", "Metal", "Musical", "National Folk", "Native American", "Negerpunk",
    "New Age", "New Wave", "Noise", "Oldies", "Opera", "Other",
    "Phychedelic", "Polka", "Polsk Punk", "Pop", "Pop/Punk", "Pop-Folk",
    "Porn Groove", "power Ballad", "Pranks", "Primus", "Progressive Rock", "Psychedelic Rock",
    "Punk", "Punk Rock", "R&B", "Rap", "Rave", "Reggae",
    "Retro", "Revival", "Rhythmic Soul", "Rock", "Rock & Roll", "Salsa",
    "Samba", "Satire", "Showtunes", "Ska", "Slow Jam", "Slow Rock",
    "Sonata", "Soul", "Sound Clip", "Soundtrack", "Southern Rock", "Space",
    "Speech", "Swing", "Symphonic Rock", "Symphony", "Synth Pop", "Tango",
    "Techno", "Techno-Industrial", "Terror", "Top 40", "Trailer", "Trance",
    "Trash Metal", "Tribal", "Trip Hop", "Vocal",
};

class TagEditorTest : public CatalogueTest {
 protected:
  void TearDown() override {
    if (TagEditor()) delete TagEditor();
    CatalogueTest::TearDown();
  }
  // Puts the file in both lists with the cursor on it.
  void Pick(const std::string& path) {
    main_->lstPaths->AddItem(path);
    main_->lstMp3->AddItem("x");
    main_->lstMp3->SetListIndex(main_->lstMp3->ListCount() - 1);
    main_->lstPathSelect->AddItem(path);
    main_->lstUp->AddItem("x");
    main_->lstUp->SetListIndex(main_->lstUp->ListCount() - 1);
  }
  void ViaLblId() { emit main_->lbl_Id->clicked(); }
  void ViaLblIdview() { emit main_->lblIdview->clicked(); }
  FrmIDedit& Ed() { return *TagEditor(); }
  std::vector<std::string> Boxes() {
    return {Ed().txtTitle->text().toStdString(),  Ed().txtArtist->text().toStdString(),
            Ed().txtAlbum->text().toStdString(),  Ed().txtYear->text().toStdString(),
            Ed().GenreText(),                     Ed().txtComment->text().toStdString()};
  }
  void Key(QWidget* w, int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(w, &press);
  }
  void Closed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

TEST(GenreBoxOrder, AllNamesInBoxOrder) {
  EXPECT_EQ(SortedGenreNames(), kBoxOrder);
  EXPECT_TRUE(GenreBoxLess("Eurodance", "Euro-House"));
  EXPECT_TRUE(GenreBoxLess("Pop/Punk", "Pop-Folk"));
  EXPECT_TRUE(GenreBoxLess("Humour", "indie"));
  EXPECT_TRUE(GenreBoxLess("indie", "Industrial"));
  EXPECT_FALSE(GenreBoxLess("a-b", "ab"));
  EXPECT_FALSE(GenreBoxLess("ab", "a-b"));
}

TEST_F(TagEditorTest, WindowCaptionTabOrderLimitsAndGenreBox) {
  Pick(Mp3("a.mp3", TagBytes("T", "A", "L", "1999", "C", 0)));
  ViaLblId();
  ASSERT_TRUE(TagEditor());
  EXPECT_EQ(Ed().objectName(), "frmIDedit");
  EXPECT_TRUE(Ed().isVisible());
  EXPECT_EQ(Ed().txtTitle->maxLength(), 30);
  EXPECT_EQ(Ed().txtComment->maxLength(), 30);
  EXPECT_EQ(Ed().txtYear->maxLength(), 4);
  EXPECT_FALSE(Ed().cmbGenre->isEditable());
  ASSERT_EQ(Ed().cmbGenre->count(), kGenreCount);
  EXPECT_EQ(Ed().cmbGenre->itemText(49).toStdString(), "Eurodance");
  EXPECT_TRUE(Ed().cmdSave->isDefault());
  std::vector<std::string> chain;
  QWidget* w = Ed().txtTitle;
  for (int i = 0; i < 8; ++i, w = w->nextInFocusChain()) {
    while (w->focusPolicy() == Qt::NoFocus) w = w->nextInFocusChain();
    chain.push_back(w->objectName().toStdString());
  }
  EXPECT_EQ(chain, (std::vector<std::string>{"txtTitle", "txtArtist", "txtAlbum", "txtYear",
                                             "cmbGenre", "txtComment", "cmdSave", "cmdCancel"}));
  EXPECT_EQ(Ed().cmdSave->text(), "&Save");
  EXPECT_EQ(Ed().cmdCancel->text(), "Ca&ncel");
  EXPECT_EQ(Ed().windowTitle().toStdString(), "MPEG file info box + ID3 tag editor");
}

TEST_F(TagEditorTest, OpenFillsBoxesAndSaveRewritesTheBlock) {
  const std::string a = Mp3("a.mp3", TagBytes("Song", "Band", "Disc", "2001", "note", 17, '\0'));
  const std::string b = Mp3("b.mp3", TagBytes("Old", "", "", "", "", 80));
  Pick(a);
  ViaLblId();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"Song", "Band", "Disc", "2001", "Rock", "note"}));
  EXPECT_EQ(Ed().lblPath->text().toStdString(), a);
  EXPECT_EQ(main_->lblPath->Caption(), a);
  Ed().cmdSave->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  const std::string bytes = ReadAll(a);
  // Blank padding in place of NULs, and "Rock" found inside "Classic Rock".
  EXPECT_EQ(bytes.substr(bytes.size() - 128), TagBytes("Song", "Band", "Disc", "2001", "note", 1));

  Pick(b);
  ViaLblIdview();
  EXPECT_EQ(Ed().GenreText(), "Folk");
  Key(Ed().txtTitle, Qt::Key_Return, QStringLiteral("\r"));  // Enter in a box presses Save
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(static_cast<unsigned char>(ReadAll(b).back()), 53);  // "Pop-Folk"
  // The lists keep their texts until a refresh.
  EXPECT_EQ(main_->lstMp3->List(0), "x");
}

TEST_F(TagEditorTest, GenreAbove147ThroughLblIdStopsAtTheGenreBox) {
  const std::string a = Mp3("a.mp3", TagBytes("T", "A", "L", "1980", "gone", 200));
  Pick(a);
  ViaLblId();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"T", "A", "L", "1980", "", ""}));
  EXPECT_TRUE(prompts_.boxes.empty());
  Ed().cmdSave->click();
  const std::string bytes = ReadAll(a);
  EXPECT_EQ(bytes.substr(bytes.size() - 128), TagBytes("T", "A", "L", "1980", "", 0));
}

TEST_F(TagEditorTest, UntaggedFileIsIgnoredThroughLblIdAndEndsTheProgramThroughLblIdview) {
  const std::string a = Mp3("a.mp3", "");
  Pick(a);
  ViaLblId();
  EXPECT_EQ(Boxes(), (std::vector<std::string>(6, "")));
  std::optional<RuntimeFailure> failure;
  try {
    ViaLblIdview();
  } catch (const RuntimeFailure& e) {
    failure = e;
  }
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), kInvalidPropertyValue);
  int status = -1;
  SetEndProgramHook([&](int s) { status = s; });
  ReportUnhandledFailure(*failure);
  SetEndProgramHook({});
  EXPECT_EQ(status, 1);
  ASSERT_EQ(prompts_.boxes.size(), 1u);
  EXPECT_EQ(prompts_.boxes[0].text, "Run-time error '380':\n\nInvalid property value");
}

TEST_F(TagEditorTest, ShortFileIsIgnoredOnlyThroughLblId) {
  Pick(Mp3("a.mp3", "", 100));
  ViaLblId();
  EXPECT_EQ(Boxes(), (std::vector<std::string>(6, "")));
  EXPECT_EQ(FailureNumberOf([&] { emit menu2_->viewidtag->triggered(); }), kBadRecordNumber);
  EXPECT_EQ(FailureNumberOf([&] { emit menu2_->editviewidtagg->triggered(); }),
            kBadRecordNumber);
}

TEST_F(TagEditorTest, NoCursorEntryOrVanishedFileShowsTheMessage) {
  ViaLblId();
  ASSERT_TRUE(TagEditor());
  EXPECT_TRUE(Ed().isVisible());
  ASSERT_EQ(prompts_.boxes.size(), 1u);
  EXPECT_EQ(prompts_.boxes[0].text, "cannot find mp3 file!");
  EXPECT_EQ(prompts_.boxes[0].flags, 4112);
  EXPECT_EQ(prompts_.boxes[0].title, "error:");
  EXPECT_EQ(Boxes(), (std::vector<std::string>(6, "")));
  // Save with the empty path writes nothing and closes without a word.
  Ed().cmdSave->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(prompts_.boxes.size(), 1u);
}

TEST_F(TagEditorTest, SecondOpeningReusesTheWindowAndCancelLeavesTheFile) {
  const std::string a = Mp3("a.mp3", TagBytes("A", "", "", "", "", 1));
  const std::string b = Mp3("b.mp3", TagBytes("B", "", "", "", "", 2));
  Pick(a);
  ViaLblId();
  FrmIDedit* first = TagEditor();
  first->move(first->pos() + QPoint(37, 21));  // the user moved it
  const QPoint movedTo = first->pos();
  Pick(b);
  ViaLblId();
  EXPECT_EQ(TagEditor(), first);
  EXPECT_EQ(first->pos(), movedTo);  // not centred again
  EXPECT_EQ(Ed().txtTitle->text(), "B");
  EXPECT_EQ(Ed().GenreText(), "Country");
  Ed().txtTitle->setText(QStringLiteral("changed"));
  const std::string before = ReadAll(b);
  Ed().cmdCancel->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(ReadAll(b), before);
  EXPECT_TRUE(prompts_.boxes.empty());
}

TEST_F(TagEditorTest, FileNameThatIsNotUtf8OpensShowsNulPaddedFieldsAndSaves) {
  const std::string a =
      Mp3("caf\xE9.mp3", TagBytes("Old", "Band", "Disc", "2001", "note", 17, '\0'));
  Pick(a);
  ViaLblIdview();
  EXPECT_TRUE(prompts_.boxes.empty());  // found
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"Old", "Band", "Disc", "2001", "Rock", "note"}));
  EXPECT_EQ(Ed().lblPath->Caption(), a);
  Ed().txtTitle->setText(QStringLiteral("New"));
  Ed().cmdSave->click();
  Closed();
  EXPECT_EQ(ReadId3Tag(a).title, "New");
}

TEST_F(TagEditorTest, YearFilterLimitsAndSelectAllOnFocus) {
  Pick(Mp3("a.mp3", TagBytes("T", "A", "Album", "", "", 0)));
  ViaLblId();
  YearTextBox* year = Ed().txtYear;
  year->clear();
  for (const char* k : {"1", "a", "-", "9", "x", "9", "9", "7"})
    Key(year, 0, QString::fromLatin1(k));
  EXPECT_EQ(year->text(), "1999");  // letters and minus refused, the fifth digit too
  Key(year, Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(year->text(), "199");
  // Editing keys are no typed characters: Delete, the arrows and Home pass.
  Key(year, Qt::Key_Home, QString());
  Key(year, Qt::Key_Delete, QStringLiteral("\x7f"));
  EXPECT_EQ(year->text(), "99");
  Key(year, Qt::Key_Right, QString());
  Key(year, Qt::Key_Delete, QStringLiteral("\x7f"));
  EXPECT_EQ(year->text(), "9");
  year->clear();
  QApplication::clipboard()->setText(QStringLiteral("-7a"));
  year->paste();
  ASSERT_EQ(QApplication::clipboard()->text(), "-7a");
  EXPECT_EQ(year->text(), "-7a");  // pasted text is not filtered

  Ed().txtTitle->clear();
  for (int i = 0; i < 31; ++i) Key(Ed().txtTitle, 0, QStringLiteral("w"));
  EXPECT_EQ(Ed().txtTitle->text().size(), 30);

  Ed().activateWindow();
  Ed().txtAlbum->setFocus(Qt::TabFocusReason);
  QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
  QCoreApplication::sendEvent(Ed().txtAlbum, &in);
  EXPECT_EQ(Ed().txtAlbum->selectedText(), "Album");
}

}  // namespace
}  // namespace qc::test
