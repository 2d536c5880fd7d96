// Folder choice, selection, refresh, clear, removal and the view switch on real files.
#include <QPalette>

#include "base/prompts.h"
#include "catalogue/info_mode.h"
#include "catalogue_fixture.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;
using Items = std::vector<std::string>;

const std::string kHead = "\u00B7\u2022 \u00F3mbreval\u00E8 \u2022\u00B7";

TEST_F(CatalogueTest, ScanMatchesMp3CaseBlindSkipsHiddenAndFoldersSortsCaseBlind) {
  for (const char* n : {"b.MP3", "A.mp3", "c.Mp3", ".hidden.mp3", "x.mp3x", "mp3", "d.txt"})
    Mp3(n, "");
  fs::create_directories(folder_ + kSep + "dir.mp3");
  EXPECT_EQ(ScanMp3Folder(folder_), (Items{"A.mp3", "b.MP3", "c.Mp3"}));
  EXPECT_TRUE(ScanMp3Folder(folder_ + kSep + "missing").empty());
}

TEST_F(CatalogueTest, FolderChoiceAppendsPathsAndDisplayTexts) {
  Mp3("a.mp3", TagBytes("Song", "Band"));
  Mp3("b.mp3", TagBytes("   ", "Band"));  // blank title: the file's name
  Mp3("c.mp3", TagBytes("Solo", ""));      // empty artist: title, " - " and nothing
  Mp3("d.mp3", "");                        // untagged
  Choose(folder_ + kSep);                  // a doubled separator becomes one
  EXPECT_EQ(main.lstMp3->Items(), (Items{"Song - Band", "b.mp3", "Solo - ", "d.mp3"}));
  EXPECT_EQ(main.lstPaths->List(3), folder_ + kSep + "d.mp3");
  // The same folder again doubles every entry in the same order.
  Choose(folder_);
  ASSERT_EQ(main.lstMp3->ListCount(), 8);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(main.lstPaths->List(i + 4), main.lstPaths->List(i));
  EXPECT_EQ(main.lblSetfolder->Tag.toStdString(), folder_);
  // Cancelled or empty: nothing changes, but an empty folder is stored before it is read.
  Choose("");
  const std::string empty = dir / "empty";
  fs::create_directories(empty);
  Choose(empty);
  EXPECT_EQ(main.lstMp3->ListCount(), 8);
  EXPECT_EQ(main.lblSetfolder->Tag.toStdString(), empty);
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_EQ(LastPathComponent(kSep + "x" + kSep + "y.z.mp3"), "y.z.mp3");
}

TEST_F(CatalogueTest, FileNamesThatAreNotUtf8AreFoundReadAndAdded) {
  const std::string tagged = Mp3("caf\xE9.mp3", TagBytes("Caf\xE9", "Band"), 700000);
  const std::string bare = Mp3("n\xE9.mp3", "");
  SetTemplate("fileName$ fileSize$ idTitle$");
  Choose(folder_);
  EXPECT_EQ(main.lstPaths->Items(), (Items{tagged, bare}));
  // The tag's bytes are Windows-1252 text; the untagged file shows its name.
  EXPECT_EQ(main.lstMp3->Items(), (Items{"Caf\u00E9 - Band", "n\xE9.mp3"}));
  Select({0, 1});
  AddSelectedMp3s(main, settings);
  EXPECT_EQ(main.lstPathSelect->Items(), (Items{tagged, bare}));
  EXPECT_EQ(main.lstSubj->Items(), (Items{"caf\xE9.mp3 .7 Caf\u00E9", "n\xE9.mp3 0 n\xE9.mp3"}));
  EXPECT_EQ(main.lblTitle->Caption(), "title: n\xE9.mp3");
  EXPECT_EQ(main.lstMp3->ShownItem(1), QString::fromUtf8("n\u00E9.mp3"));
  RefreshFolderList(main);
  EXPECT_EQ(main.lstMp3->Items(), (Items{"Caf\u00E9 - Band", "n\xE9.mp3"}));
}

TEST_F(CatalogueTest, NulPaddedFieldsShowUpToTheNulAndTheSubjectCarriesThem) {
  Mp3("a.mp3", TagBytes("miracles", "ilona", "quiet", "1999", "", 12, '\0'));
  Choose(folder_);
  const std::string title = "miracles" + std::string(22, '\0');
  const std::string artist = "ilona" + std::string(25, '\0');
  EXPECT_EQ(main.lstMp3->List(0), title + " - " + artist);
  Select({0});
  AddSelectedMp3s(main, settings);
  EXPECT_EQ(main.lstSubj->List(0), kHead + "[" + artist + "]-" + title);
  EXPECT_EQ(main.lblArtist->Caption(), "artist: " + artist);
  EXPECT_EQ(main.txtSubj->Text(), kHead + "[ilona");
  // In info mode the box agrees with the stored line as far as it can hold it.
  GoInfoMode(main);
  EXPECT_EQ(main.txtSubj->Text(), kHead + "[ilona");
  EXPECT_EQ(main.txtSubj->BackColor(), kSubjectUnchangedColour);
}

TEST_F(CatalogueTest, RefreshRebuildsTextsWithItsOwnRuleAndDropsSelection) {
  Mp3("a.mp3", TagBytes("", "Band"));
  Mp3("b.mp3", "");
  Choose(folder_);
  EXPECT_EQ(main.lstMp3->List(0), "a.mp3");
  Select({0, 1});
  WriteId3Tag(main.lstPaths->List(1), "New", "Tag", "", "", "", "");
  RefreshFolderList(main);
  EXPECT_EQ(main.lstMp3->Items(), (Items{" - Band", "New - Tag"}));
  EXPECT_EQ(main.lstMp3->SelCount(), 0);
  EXPECT_EQ(main.lstPaths->ListCount(), 2);
}

TEST_F(CatalogueTest, AddSelectedFillsLabelsSubjectsAndDeselects) {
  Mp3("a.mp3", TagBytes("Song", "Band", "Disc", "2001", "c", 17), 4270000);
  Mp3("b.mp3", "", 700000);
  Mp3("c.mp3", TagBytes("Solo", ""), 3000000);
  Choose(folder_);
  AddSelectedMp3s(main, settings);  // nothing selected: nothing added
  EXPECT_EQ(main.lstUp->ListCount(), 0);
  EXPECT_EQ(main.lblTitle->Caption(), "title:");
  Select({0, 1, 2});
  AddSelectedMp3s(main, settings);
  EXPECT_EQ(main.lstMp3->SelCount(), 0);
  EXPECT_EQ(main.lstMp3->ListCount(), 3);  // entries stay, so a file can be added again
  EXPECT_EQ(main.lstUp->Items(), main.lstMp3->Items());
  EXPECT_EQ(main.lstPathSelect->Items(), main.lstPaths->Items());
  EXPECT_EQ(main.lstSubj->Items(),
            (Items{kHead + "[Band]-Song", kHead + "[unknown]-b.mp3", kHead + "[]-Solo"}));
  EXPECT_EQ(main.txtSubj->Text(), kHead + "[]-Solo");  // the last file added shows
}

TEST_F(CatalogueTest, InfoLabelsOfTaggedAndUntaggedFiles) {
  struct Case {
    std::string tail;
    std::size_t size;
    Items labels;
  } cases[] = {
      {TagBytes("Song", "Band", "Disc", "2001", "", 17), 4270000,
       {"title: Song", "artist: Band", "album: Disc", "genre: Rock", "yr: 2001", "mb: 4.27"}},
      {"", 700000,
       {"title: f.mp3", "artist: unknown", "album: unknown", "genre: unknown", "yr: 1999",
        "mb: .7"}},
      {TagBytes("", "", "", "", "", 255), 4000,
       {"title: ", "artist: ", "album: ", "genre: ", "yr: ", "mb: 0"}},
  };
  for (const Case& c : cases) {
    Mp3("f.mp3", c.tail, c.size);
    AddAll();
    EXPECT_EQ((Items{main.lblTitle->Caption(), main.lblArtist->Caption(), main.lblAlbum->Caption(),
                     main.lblGenre->Caption(), main.lblYear->Caption(), main.lblMb->Caption()}),
              c.labels);
  }
}

TEST_F(CatalogueTest, SubjectTemplateIsReadAtEveryAddAndExpandedInOrder) {
  Mp3("a.mp3", TagBytes("fileSize$", "Band", "Disc", "", "", 0), 700000);
  Choose(folder_);
  SetTemplate("s=fileSize$ t=idTitle$ g=IDGENRE$ y=idYear$ c=idComment$");
  Select({0});
  AddSelectedMp3s(main, settings);
  // The title holds a key that comes earlier in the order, so it stays as typed.
  EXPECT_EQ(main.lstSubj->List(0), "s=.7 t=fileSize$ g=Blues y=idYear$ c=idComment$");
  SetTemplate("fixed");
  main.lstMp3->SetListIndex(0);
  AddCurrentMp3(main, settings);
  EXPECT_EQ(main.lstSubj->List(1), "fixed");
  EXPECT_EQ(main.lstUp->ListCount(), 2);
}

TEST_F(CatalogueTest, FilesGoneOrTooShortFail) {
  const std::string a = Mp3("a.mp3", TagBytes("Song"));
  Choose(folder_);
  fs::remove(a);
  Select({0});
  EXPECT_EQ(FailureNumberOf([&] { AddSelectedMp3s(main, settings); }), kFileNotFound);
  // Two of the three lists grew before the failure.
  EXPECT_EQ(main.lstUp->ListCount() + main.lstPathSelect->ListCount(), 2);
  EXPECT_EQ(main.lstSubj->ListCount(), 0);
  EXPECT_EQ(main.lblArtist->Caption(), "artist: unknown");
  Mp3("short.mp3", "", 100);
  EXPECT_EQ(FailureNumberOf([&] { Choose(folder_); }), kBadRecordNumber);
}

TEST_F(CatalogueTest, ClearAsksAndEmptiesOnlyTheFolderLists) {
  Mp3("a.mp3", "");
  AddAll();
  prompts.boxAnswers = {kAnswerNo, kAnswerYes};
  ClearFolderList(main, prompts);
  EXPECT_EQ(main.lstMp3->ListCount(), 1);
  ClearFolderList(main, prompts);
  EXPECT_EQ(main.lstMp3->ListCount() + main.lstPaths->ListCount(), 0);
  EXPECT_EQ(main.lstUp->ListCount(), 1);
  ExpectBox(prompts, 1, "Are you sure you want to clear this list?", 4100, "Clear");
  RefreshFolderList(main);  // nothing to refresh
  EXPECT_EQ(main.lstMp3->ListCount(), 0);
}

TEST_F(CatalogueTest, RemoveSelectedKeepsCompanionsAligned) {
  for (const char* n : {"a.mp3", "b.mp3", "c.mp3", "d.mp3"}) Mp3(n, "");
  AddAll();
  main.lstUp->SetSelected(1, true);
  main.lstUp->SetSelected(2, true);
  RemoveSelectedMp3s(main);
  EXPECT_EQ(main.lstUp->Items(), (Items{"a.mp3", "d.mp3"}));
  EXPECT_EQ(main.lstPathSelect->List(1), folder_ + kSep + "d.mp3");
  EXPECT_EQ(main.lstSubj->List(1), kHead + "[unknown]-d.mp3");
  main.lstUp->SetListIndex(1);
  RemoveCurrentMp3(main);
  EXPECT_EQ(main.lstSubj->Items(), (Items{kHead + "[unknown]-a.mp3"}));
  main.lstUp->SetSelected(0, true);
  RemoveSelectedMp3s(main);
  EXPECT_EQ(main.lstUp->ListCount() + main.lstPathSelect->ListCount() + main.lstSubj->ListCount(),
            0);
  // The menu's removal with no cursor entry is not caught.
  EXPECT_EQ(FailureNumberOf([&] { RemoveCurrentMp3(main); }), kInvalidArgument);
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

TEST_F(CatalogueTest, ClicksAndPressedColoursAreBound) {
  Mp3("a.mp3", "");
  prompts.folderAnswers.push_back(folder_);
  emit main.lblSetfolder->clicked();
  ASSERT_EQ(main.lstMp3->ListCount(), 1);
  main.lstMp3->SetSelected(0, true);
  emit main.lbl_Add->clicked();
  EXPECT_EQ(main.lstUp->ListCount(), 1);
  main.lstMp3->SetListIndex(0);
  emit menu2.addmp3->triggered();  // the cursor entry, selected or not
  EXPECT_EQ(main.lstUp->ListCount(), 2);
  Label* l = main.lbl_Clr;
  emit l->mouseDown(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), kLabelPressedColour);
  emit l->mouseUp(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), 0u);
}

}  // namespace
}  // namespace qc::test
