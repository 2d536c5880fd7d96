// The ID tag editor where the catalogue scenarios cannot reach: genre box order, the window's
// make-up, where a second opening leaves it, the year filter, limits and focus selection.
// Opening, filling, Save and Cancel are scenarios (tag_editor_*); a file name that is not UTF-8
// is the folder test's.
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
  FrmIDedit& Ed() { return *TagEditor(); }
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

TEST_F(TagEditorTest, SecondOpeningReusesTheWindowWhereTheUserLeftIt) {
  Pick(Mp3("a.mp3", TagBytes("A", "", "", "", "", 1)));
  ViaLblId();
  FrmIDedit* first = TagEditor();
  first->move(first->pos() + QPoint(37, 21));  // the user moved it
  const QPoint movedTo = first->pos();
  Pick(Mp3("b.mp3", TagBytes("B", "", "", "", "", 2)));
  ViaLblId();
  EXPECT_EQ(TagEditor(), first);
  EXPECT_EQ(first->pos(), movedTo);  // not centred again
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
