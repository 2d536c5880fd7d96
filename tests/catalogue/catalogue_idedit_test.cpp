// The ID tag editor: genre box order, opening through either list, the fill failing at the genre
// box, the year filter, limits, focus selection, Save and Cancel on real files.
#include <QApplication>
#include <QClipboard>
#include <algorithm>

#include "catalogue/frm_idedit.h"
#include "catalogue_fixture.h"
#include "codec/genres.h"
#include "support/qt_events.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;

class TagEditorTest : public CatalogueTest {
 protected:
  ~TagEditorTest() override { delete TagEditor(); }
  // Puts the file in both lists with the cursor on it.
  void Pick(const std::string& path) {
    for (auto [paths, texts] : {std::pair{main.lstPaths, main.lstMp3},
                                std::pair{main.lstPathSelect, main.lstUp}}) {
      paths->AddItem(path);
      texts->AddItem("x");
      texts->SetListIndex(texts->ListCount() - 1);
    }
  }
  void ViaLblId() { emit main.lbl_Id->clicked(); }
  void ViaLblIdview() { emit main.lblIdview->clicked(); }
  FrmIDedit& Ed() { return *TagEditor(); }
  Items Boxes() {
    return {Ed().txtTitle->text().toStdString(), Ed().txtArtist->text().toStdString(),
            Ed().txtAlbum->text().toStdString(), Ed().txtYear->text().toStdString(),
            Ed().GenreText(),                    Ed().txtComment->text().toStdString()};
  }
  static void Closed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  static std::string Block(const std::string& path) {
    const std::string bytes = ReadBytes(path);
    return bytes.substr(bytes.size() - 128);
  }
};

TEST(GenreBoxOrder, SortedAsTheBoxSortsThem) {
  const std::vector<std::string> names = SortedGenreNames();
  ASSERT_EQ(names.size(), 148u);
  // Blanks and marks sort before letters, letters without case.
  const std::pair<int, const char*> at[] = {
      {0, "A Capella"}, {5, "Alt. Rock"}, {49, "Eurodance"}, {50, "Euro-House"},
      {71, "Humour"},   {72, "indie"},    {100, "Pop/Punk"}, {101, "Pop-Folk"}, {147, "Vocal"}};
  for (const auto& [i, name] : at) EXPECT_EQ(names[i], name) << i;
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), GenreBoxLess));
  EXPECT_FALSE(GenreBoxLess("a-b", "ab"));
  EXPECT_FALSE(GenreBoxLess("ab", "a-b"));
}

TEST_F(TagEditorTest, WindowCaptionTabOrderAndGenreBox) {
  Pick(Mp3("a.mp3", TagBytes("T", "A", "L", "1999", "C", 0)));
  ViaLblId();
  ASSERT_TRUE(TagEditor());
  EXPECT_EQ(Ed().windowTitle().toStdString(), "MPEG file info box + ID3 tag editor");
  for (TagTextBox* box : {Ed().txtTitle, Ed().txtArtist, Ed().txtAlbum, Ed().txtComment})
    EXPECT_EQ(box->maxLength(), 30) << box->objectName().toStdString();
  EXPECT_FALSE(Ed().cmbGenre->isEditable());
  ASSERT_EQ(Ed().cmbGenre->count(), kGenreCount);
  EXPECT_EQ(Ed().cmbGenre->itemText(49).toStdString(), "Eurodance");
  EXPECT_TRUE(Ed().cmdSave->isDefault());
  EXPECT_EQ(Ed().cmdSave->text() + Ed().cmdCancel->text(), "&SaveCa&ncel");
  Items chain;
  QWidget* w = Ed().txtTitle;
  for (int i = 0; i < 8; ++i, w = w->nextInFocusChain()) {
    while (w->focusPolicy() == Qt::NoFocus) w = w->nextInFocusChain();
    chain.push_back(w->objectName().toStdString());
  }
  EXPECT_EQ(chain, (Items{"txtTitle", "txtArtist", "txtAlbum", "txtYear", "cmbGenre",
                          "txtComment", "cmdSave", "cmdCancel"}));
}

TEST_F(TagEditorTest, OpenFillsBoxesAndSaveRewritesTheBlock) {
  const std::string a = Mp3("a.mp3", TagBytes("Song", "Band", "Disc", "2001", "note", 17, '\0'));
  const std::string b = Mp3("b.mp3", TagBytes("Old", "", "", "", "", 80));
  Pick(a);
  ViaLblId();
  EXPECT_EQ(Boxes(), (Items{"Song", "Band", "Disc", "2001", "Rock", "note"}));
  EXPECT_EQ(Ed().lblPath->text().toStdString(), a);
  EXPECT_EQ(main.lblPath->Caption(), a);
  Ed().cmdSave->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  // Blank padding in place of NULs, and "Rock" found inside "Classic Rock".
  EXPECT_EQ(Block(a), TagBytes("Song", "Band", "Disc", "2001", "note", 1));
  Pick(b);
  ViaLblIdview();
  EXPECT_EQ(Ed().GenreText(), "Folk");
  Key(Ed().txtTitle, Qt::Key_Return, QStringLiteral("\r"));  // Enter in a box presses Save
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(static_cast<unsigned char>(ReadBytes(b).back()), 53);  // "Pop-Folk"
  EXPECT_EQ(main.lstMp3->List(0), "x");  // the lists keep their texts until a refresh
}

TEST_F(TagEditorTest, GenreAbove147ThroughLblIdStopsAtTheGenreBox) {
  const std::string a = Mp3("a.mp3", TagBytes("T", "A", "L", "1980", "gone", 200));
  Pick(a);
  ViaLblId();
  EXPECT_EQ(Boxes(), (Items{"T", "A", "L", "1980", "", ""}));
  EXPECT_TRUE(prompts.boxes.empty());
  Ed().cmdSave->click();
  EXPECT_EQ(Block(a), TagBytes("T", "A", "L", "1980", "", 0));
}

TEST_F(TagEditorTest, UntaggedOrShortFilesAreIgnoredOnlyThroughLblId) {
  Pick(Mp3("a.mp3", ""));
  ViaLblId();
  EXPECT_EQ(Boxes(), Items(6, ""));
  EXPECT_EQ(FailureNumberOf([&] { ViaLblIdview(); }), kInvalidPropertyValue);
  Pick(Mp3("short.mp3", "", 100));
  ViaLblId();
  EXPECT_EQ(Boxes(), Items(6, ""));
  EXPECT_EQ(FailureNumberOf([&] { emit menu2.viewidtag->triggered(); }), kBadRecordNumber);
  EXPECT_EQ(FailureNumberOf([&] { emit menu2.editviewidtagg->triggered(); }), kBadRecordNumber);
}

TEST_F(TagEditorTest, NoCursorEntryShowsTheMessageAndSaveWritesNothing) {
  ViaLblId();
  ASSERT_TRUE(TagEditor());
  EXPECT_TRUE(Ed().isVisible());
  ExpectBox(prompts, 0, "cannot find mp3 file!", 4112, "error:");
  EXPECT_EQ(Boxes(), Items(6, ""));
  Ed().cmdSave->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(prompts.boxes.size(), 1u);
}

TEST_F(TagEditorTest, SecondOpeningReusesTheWindowAndCancelLeavesTheFile) {
  Pick(Mp3("a.mp3", TagBytes("A", "", "", "", "", 1)));
  ViaLblId();
  FrmIDedit* first = TagEditor();
  first->move(first->pos() + QPoint(37, 21));  // the user moved it
  const QPoint movedTo = first->pos();
  const std::string b = Mp3("b.mp3", TagBytes("B", "", "", "", "", 2));
  Pick(b);
  ViaLblId();
  EXPECT_EQ(TagEditor(), first);
  EXPECT_EQ(first->pos(), movedTo);  // not centred again
  EXPECT_EQ(Boxes(), (Items{"B", "", "", "", "Country", ""}));
  Ed().txtTitle->setText(QStringLiteral("changed"));
  const std::string before = ReadBytes(b);
  Ed().cmdCancel->click();
  Closed();
  EXPECT_EQ(TagEditor(), nullptr);
  EXPECT_EQ(ReadBytes(b), before);
}

TEST_F(TagEditorTest, FileNameThatIsNotUtf8OpensShowsNulPaddedFieldsAndSaves) {
  const std::string a = Mp3("caf\xE9.mp3", TagBytes("Old", "Band", "Disc", "2001", "", 17, '\0'));
  Pick(a);
  ViaLblIdview();
  EXPECT_EQ(Boxes(), (Items{"Old", "Band", "Disc", "2001", "Rock", ""}));
  EXPECT_EQ(Ed().lblPath->Caption(), a);
  Ed().txtTitle->setText(QStringLiteral("New"));
  Ed().cmdSave->click();
  EXPECT_EQ(ReadId3Tag(a).title, "New");
}

TEST_F(TagEditorTest, YearFilterLimitsAndSelectAllOnFocus) {
  Pick(Mp3("a.mp3", TagBytes("T", "A", "Album", "", "", 0)));
  ViaLblId();
  YearTextBox* year = Ed().txtYear;
  year->clear();
  for (const char* k : {"1", "a", "-", "9", "x", "9", "9", "7"}) Key(year, 0, QString::fromLatin1(k));
  EXPECT_EQ(year->text(), "1999");  // letters and minus refused, the fifth digit too
  Key(year, Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(year->text(), "199");
  // Editing keys are no typed characters: Delete, the arrows and Home pass.
  Key(year, Qt::Key_Home);
  Key(year, Qt::Key_Right);
  Key(year, Qt::Key_Delete, QStringLiteral("\x7f"));
  EXPECT_EQ(year->text(), "19");
  year->clear();
  QApplication::clipboard()->setText(QStringLiteral("-7a"));
  year->paste();
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
