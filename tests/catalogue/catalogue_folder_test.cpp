// What the catalogue scenarios cannot write down: file names that are not UTF-8 (listed, added
// and tagged), the view switch's layout, the pressed labels' colour and the subject box's painted
// colour.
#include <QImage>
#include <QPalette>

#include "base/prompts.h"
#include "catalogue/frm_idedit.h"
#include "catalogue/info_mode.h"
#include "catalogue_fixture.h"
#include "support/qt_events.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;

TEST_F(CatalogueTest, FileNamesThatAreNotUtf8AreFoundReadAndAdded) {
  const std::string tagged = Mp3("caf\xE9.mp3", TagBytes("Caf\xE9", "Band"), 700000);
  const std::string bare = Mp3("n\xE9.mp3", "");
  SetTemplate("fileName$ fileSize$ idTitle$");
  prompts.folderAnswers.push_back(folder_);
  emit main.lblSetfolder->clicked();
  EXPECT_EQ(main.lstPaths->Items(), (Items{tagged, bare}));
  // The tag's bytes are Windows-1252 text; the untagged file shows its name.
  EXPECT_EQ(main.lstMp3->Items(), (Items{"Caf\u00E9 - Band", "n\xE9.mp3"}));
  main.lstMp3->SetSelected(0, true);
  main.lstMp3->SetSelected(1, true);
  emit main.lbl_Add->clicked();
  EXPECT_EQ(main.lstPathSelect->Items(), (Items{tagged, bare}));
  EXPECT_EQ(main.lstSubj->Items(), (Items{"caf\xE9.mp3 .7 Caf\u00E9", "n\xE9.mp3 0 n\xE9.mp3"}));
  EXPECT_EQ(main.lblTitle->Caption(), "title: n\xE9.mp3");
  EXPECT_EQ(main.lstMp3->ShownItem(1), QString::fromUtf8("n\u00E9.mp3"));
  RefreshFolderList(main);
  EXPECT_EQ(main.lstMp3->Items(), (Items{"Caf\u00E9 - Band", "n\xE9.mp3"}));
  main.lstUp->SetListIndex(0);
  emit main.lblIdview->clicked();
  ASSERT_NE(TagEditor(), nullptr);
  EXPECT_EQ(TagEditor()->txtTitle->text(), QString::fromUtf8("Caf\u00E9"));
  EXPECT_EQ(TagEditor()->lblPath->Caption(), tagged);
  TagEditor()->txtTitle->setText(QStringLiteral("New"));
  TagEditor()->cmdSave->click();
  EXPECT_EQ(ReadId3Tag(tagged).title, "New");
}

TEST_F(CatalogueTest, ViewSwitchShowsOneListAndKeepsTheAnchor) {
  main.show();
  const double anchor = TwipsLeft(main.lblSelected);
  for (bool selected : {true, false}) {
    (selected ? ShowSelectedView : ShowListView)(main);
    EXPECT_EQ(main.lstMp3->isVisible(), !selected);
    EXPECT_EQ(main.lstUp->isVisible(), selected);
    EXPECT_EQ(main.pnlOpt->isVisible(), !selected);
    EXPECT_EQ(main.pnlOpt2->isVisible(), selected);
    EXPECT_EQ(main.lblSetfolder->isVisible(), !selected);
    EXPECT_EQ(main.lblSelected->font().bold(), selected);
    EXPECT_EQ(main.lblMp3list->font().bold(), !selected);
    EXPECT_EQ(TwipsLeft(main.lblSelected), anchor);
    EXPECT_EQ(TwipsLeft(main.lblSep) + TwipsWidth(main.lblSep), anchor);
    EXPECT_EQ(TwipsLeft(main.lblMp3list) + TwipsWidth(main.lblMp3list), TwipsLeft(main.lblSep));
    // The bold caption, closing bracket and all, ends inside the panel.
    if (selected) {
      EXPECT_LE(anchor + TwipsWidth(main.lblSelected), TwipsWidth(main.pnlSelect) - 45);
    }
  }
}

// The clicks themselves are bound as the catalogue scenarios use them.
TEST_F(CatalogueTest, PressedLabelsShowTheirColour) {
  Label* l = main.lbl_Clr;
  emit l->mouseDown(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), kLabelPressedColour);
  emit l->mouseUp(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), 0u);
}

// What a person sees: the box's painted background, not only its palette.
TEST_F(CatalogueTest, SubjectBoxIsPaintedInTheAccentOrWhite) {
  Mp3("a.mp3", TagBytes("A"));
  prompts.folderAnswers.push_back(folder_);
  emit main.lblSetfolder->clicked();
  main.lstMp3->SetSelected(0, true);
  emit main.lbl_Add->clicked();
  GoInfoMode(main);
  main.show();
  auto painted = [&] {
    const QImage img = main.txtSubj->grab().toImage();
    return img.pixelColor(img.width() - 4, img.height() / 2);
  };
  EXPECT_EQ(painted(), QColor(0x60, 0x86, 0x9F));
  test::Type(main.txtSubj, QStringLiteral("!"));
  EXPECT_EQ(painted(), QColor(Qt::white));
}

}  // namespace
}  // namespace qc::test
