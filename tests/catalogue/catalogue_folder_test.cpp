// Folder choice, selection, refresh, clear, removal and the view switch on real files.
#include <QFont>
#include <QPalette>

#include "app/core/application.h"
#include "app/core/window_routines.h"
#include "base/prompts.h"
#include "catalogue/catalogue_fixture.h"
#include "catalogue/info_mode.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

const std::string kDefaultHead = "\u00B7\u2022 \u00F3mbreval\u00E8 \u2022\u00B7";

TEST_F(CatalogueTest, ScanMatchesMp3CaseBlindSkipsHiddenAndFoldersSortsCaseBlind) {
  for (const char* n : {"b.MP3", "A.mp3", "c.Mp3", ".hidden.mp3", "x.mp3x", "mp3", "d.txt"})
    Mp3(n, "");
  fs::create_directories(folder_ + kSep + "dir.mp3");
  EXPECT_EQ(ScanMp3Folder(folder_), (std::vector<std::string>{"A.mp3", "b.MP3", "c.Mp3"}));
  EXPECT_TRUE(ScanMp3Folder(folder_ + kSep + "missing").empty());
}

TEST_F(CatalogueTest, FolderChoiceAppendsPathsAndDisplayTexts) {
  Mp3("a.mp3", TagBytes("Song", "Band"));
  Mp3("b.mp3", TagBytes("   ", "Band"));  // blank title: the file's name
  Mp3("c.mp3", TagBytes("Solo", ""));      // empty artist: title, " - " and nothing
  Mp3("d.mp3", "");                        // untagged
  Choose(folder_);
  EXPECT_EQ(main_->lstMp3->Items(),
            (std::vector<std::string>{"Song - Band", "b.mp3", "Solo - ", "d.mp3"}));
  EXPECT_EQ(main_->lstPaths->List(3), folder_ + kSep + "d.mp3");
  EXPECT_EQ(main_->lblSetfolder->Tag.toStdString(), folder_);
  ASSERT_EQ(prompts_.boxes.size(), 0u);

  // The same folder again doubles every entry in the same order.
  Choose(folder_);
  ASSERT_EQ(main_->lstMp3->ListCount(), 8);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(main_->lstMp3->List(i + 4), main_->lstMp3->List(i));
    EXPECT_EQ(main_->lstPaths->List(i + 4), main_->lstPaths->List(i));
  }
}

TEST_F(CatalogueTest, FileNamesThatAreNotUtf8AreFoundReadAndAdded) {
  const std::string tagged = Mp3("caf\xE9.mp3", TagBytes("Caf\xE9", "Band"), 700000);
  const std::string bare = Mp3("n\xE9.mp3", "");
  SetTemplate("fileName$ fileSize$ idTitle$");
  Choose(folder_);
  EXPECT_EQ(main_->lstPaths->Items(), (std::vector<std::string>{tagged, bare}));
  // The tag's bytes are Windows-1252 text; the untagged file shows its name.
  EXPECT_EQ(main_->lstMp3->Items(),
            (std::vector<std::string>{"Caf\u00E9 - Band", "n\xE9.mp3"}));
  SelectMp3({0, 1});
  AddSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstPathSelect->Items(), (std::vector<std::string>{tagged, bare}));
  EXPECT_EQ(main_->lstSubj->Items(), (std::vector<std::string>{"caf\xE9.mp3 .7 Caf\u00E9",
                                                               "n\xE9.mp3 0 n\xE9.mp3"}));
  EXPECT_EQ(main_->lblTitle->Caption(), "title: n\xE9.mp3");
  EXPECT_EQ(main_->lstMp3->ShownItem(1), QString::fromUtf8("n\u00E9.mp3"));
  RefreshFolderList(*main_);
  EXPECT_EQ(main_->lstMp3->Items(), (std::vector<std::string>{"Caf\u00E9 - Band", "n\xE9.mp3"}));
}

TEST_F(CatalogueTest, NulPaddedFieldsShowUpToTheNulAndTheSubjectCarriesThem) {
  Mp3("a.mp3", TagBytes("miracles", "ilona", "quiet", "1999", "", 12, '\0'));
  Choose(folder_);
  const std::string title = "miracles" + std::string(22, '\0');
  const std::string artist = "ilona" + std::string(25, '\0');
  EXPECT_EQ(main_->lstMp3->List(0), title + " - " + artist);
  EXPECT_EQ(main_->lstMp3->ShownItem(0), QStringLiteral("miracles"));
  SelectMp3({0});
  AddSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstSubj->List(0), kDefaultHead + "[" + artist + "]-" + title);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: " + artist);
  EXPECT_EQ(static_cast<QLabel*>(main_->lblArtist)->text(), QStringLiteral("artist: ilona"));
  EXPECT_EQ(main_->txtSubj->Text(), kDefaultHead + "[ilona");
  // In info mode the box agrees with the stored line as far as it can hold it.
  GoInfoMode(*main_);
  EXPECT_EQ(main_->txtSubj->Text(), kDefaultHead + "[ilona");
  EXPECT_EQ(main_->txtSubj->BackColor(), kSubjectUnchangedColour);
}

TEST_F(CatalogueTest, FolderChoiceCancelledOrEmptyChangesNothing) {
  Mp3("a.mp3", "");
  Choose(folder_);
  Choose("");  // cancelled
  const std::string empty = tmp_.filePath("empty").toStdString();
  fs::create_directories(empty);
  Choose(empty);
  EXPECT_EQ(main_->lstMp3->ListCount(), 1);
  EXPECT_EQ(main_->lstPaths->ListCount(), 1);
  EXPECT_TRUE(prompts_.boxes.empty());
  EXPECT_EQ(main_->lblSetfolder->Tag.toStdString(), empty);  // stored before the folder is read
}

TEST_F(CatalogueTest, DoubledSeparatorsBecomeOne) {
  // A folder that already ends in the separator, as a drive root does.
  Mp3("a.mp3", "");
  Choose(folder_ + kSep);
  EXPECT_EQ(main_->lstPaths->List(0), folder_ + kSep + "a.mp3");
  EXPECT_EQ(CleanDoubledSeparators(kSep + kSep + "a.mp3"), kSep + "a.mp3");
  EXPECT_EQ(LastPathComponent(kSep + "x" + kSep + "y.z.mp3"), "y.z.mp3");
  EXPECT_EQ(LastPathComponent("plain.mp3"), "plain.mp3");
}

TEST_F(CatalogueTest, RefreshRebuildsTextsWithItsOwnRuleAndDropsSelection) {
  const std::string a = Mp3("a.mp3", TagBytes("", "Band"));
  Mp3("b.mp3", "");
  Choose(folder_);
  EXPECT_EQ(main_->lstMp3->List(0), "a.mp3");
  SelectMp3({0, 1});
  WriteId3Tag(main_->lstPaths->List(1), "New", "Tag", "", "", "", "");
  RefreshFolderList(*main_);
  EXPECT_EQ(main_->lstMp3->Items(), (std::vector<std::string>{" - Band", "New - Tag"}));
  EXPECT_EQ(main_->lstMp3->SelCount(), 0);
  EXPECT_EQ(main_->lstPaths->ListCount(), 2);
}

TEST_F(CatalogueTest, AddSelectedFillsLabelsSubjectsAndDeselects) {
  Mp3("a.mp3", TagBytes("Song", "Band", "Disc", "2001", "c", 17), 4270000);
  Mp3("b.mp3", "", 700000);
  Mp3("c.mp3", TagBytes("Solo", ""), 3000000);
  Choose(folder_);
  SelectMp3({0, 1, 2});
  AddSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstMp3->SelCount(), 0);
  EXPECT_EQ(main_->lstMp3->ListCount(), 3);  // entries stay, so a file can be added again
  EXPECT_EQ(main_->lstUp->Items(), main_->lstMp3->Items());
  EXPECT_EQ(main_->lstPathSelect->Items(), main_->lstPaths->Items());
  EXPECT_EQ(main_->lstSubj->Items(),
            (std::vector<std::string>{kDefaultHead + "[Band]-Song",
                                      kDefaultHead + "[unknown]-b.mp3",
                                      kDefaultHead + "[]-Solo"}));
  // The labels show the last file added.
  EXPECT_EQ(main_->lblTitle->Caption(), "title: Solo");
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: ");
  EXPECT_EQ(main_->lblMb->Caption(), "mb: 3");
  EXPECT_EQ(main_->txtSubj->Text(), kDefaultHead + "[]-Solo");
}

TEST_F(CatalogueTest, InfoLabelsOfTaggedAndUntaggedFiles) {
  struct Case {
    std::string tail;
    std::size_t size;
    std::vector<std::string> labels;
  };
  const Case cases[] = {
      {TagBytes("Song", "Band", "Disc", "2001", "", 17), 4270000,
       {"title: Song", "artist: Band", "album: Disc", "genre: Rock", "yr: 2001", "mb: 4.27"}},
      {"", 700000,
       {"title: f.mp3", "artist: unknown", "album: unknown", "genre: unknown", "yr: 1999",
        "mb: .7"}},
      {TagBytes("", "", "", "", "", 255), 4000,
       {"title: ", "artist: ", "album: ", "genre: ", "yr: ", "mb: 0"}},
  };
  for (const Case& c : cases) {
    fs::remove(folder_ + kSep + "f.mp3");
    Mp3("f.mp3", c.tail, c.size);
    main_->lstPaths->Clear();
    main_->lstMp3->Clear();
    Choose(folder_);
    SelectMp3({0});
    AddSelectedMp3s(*main_);
    const std::vector<std::string> got = {
        main_->lblTitle->Caption(), main_->lblArtist->Caption(), main_->lblAlbum->Caption(),
        main_->lblGenre->Caption(), main_->lblYear->Caption(),   main_->lblMb->Caption()};
    EXPECT_EQ(got, c.labels);
  }
}

TEST_F(CatalogueTest, SubjectTemplateIsReadAtEveryAddAndExpandedInOrder) {
  Mp3("a.mp3", TagBytes("fileSize$", "Band", "Disc", "", "", 0), 700000);
  Choose(folder_);
  SetTemplate("s=fileSize$ t=idTitle$ g=IDGENRE$ y=idYear$ c=idComment$");
  SelectMp3({0});
  AddSelectedMp3s(*main_);
  // The title holds a key that comes earlier in the order, so it stays as typed.
  EXPECT_EQ(main_->lstSubj->List(0), "s=.7 t=fileSize$ g=Blues y=idYear$ c=idComment$");
  SetTemplate("fixed");
  main_->lstMp3->SetListIndex(0);
  AddCurrentMp3(*main_);
  EXPECT_EQ(main_->lstSubj->ListCount(), 2);
  EXPECT_EQ(main_->lstSubj->List(1), "fixed");
  EXPECT_EQ(main_->lstUp->ListCount(), 2);

  SetTemplate("idArtist$ fileName$");
  Mp3("b.mp3", TagBytes("x", "fileName$"));
  main_->lstPaths->Clear();
  main_->lstMp3->Clear();
  Choose(folder_);
  SelectMp3({1});
  AddSelectedMp3s(*main_);
  // A value that holds a later key is expanded in turn.
  EXPECT_EQ(main_->lstSubj->List(2), "fileName$ b.mp3");
}

TEST_F(CatalogueTest, AddWithNothingSelectedDoesNothing) {
  Mp3("a.mp3", "");
  Choose(folder_);
  AddSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstUp->ListCount(), 0);
  EXPECT_EQ(main_->lblTitle->Caption(), "title:");
}

TEST_F(CatalogueTest, FileGoneBeforeAddFailsAfterTwoOfThreeListsGrew) {
  const std::string a = Mp3("a.mp3", TagBytes("Song"));
  Choose(folder_);
  fs::remove(a);
  SelectMp3({0});
  EXPECT_EQ(FailureNumberOf([&] { AddSelectedMp3s(*main_); }), kFileNotFound);
  EXPECT_EQ(main_->lstUp->ListCount(), 1);
  EXPECT_EQ(main_->lstPathSelect->ListCount(), 1);
  EXPECT_EQ(main_->lstSubj->ListCount(), 0);
  EXPECT_EQ(main_->lblArtist->Caption(), "artist: unknown");
}

TEST_F(CatalogueTest, ShortFileInFolderFails) {
  Mp3("a.mp3", "", 100);
  prompts_.folderAnswers.push_back(folder_);
  EXPECT_EQ(FailureNumberOf([&] { ChooseFolder(*main_); }), kBadRecordNumber);
}

TEST_F(CatalogueTest, ClearAsksAndEmptiesOnlyTheFolderLists) {
  Mp3("a.mp3", "");
  Choose(folder_);
  SelectMp3({0});
  AddSelectedMp3s(*main_);
  prompts_.boxAnswers = {kAnswerNo, kAnswerYes};
  ClearFolderList(*main_);
  EXPECT_EQ(main_->lstMp3->ListCount(), 1);
  ClearFolderList(*main_);
  EXPECT_EQ(main_->lstMp3->ListCount(), 0);
  EXPECT_EQ(main_->lstPaths->ListCount(), 0);
  EXPECT_EQ(main_->lstUp->ListCount(), 1);
  ASSERT_EQ(prompts_.boxes.size(), 2u);
  EXPECT_EQ(prompts_.boxes[0].text, "Are you sure you want to clear this list?");
  EXPECT_EQ(prompts_.boxes[0].flags, 4100);
  EXPECT_EQ(prompts_.boxes[0].title, "Clear");
  RefreshFolderList(*main_);  // nothing to refresh
  EXPECT_EQ(main_->lstMp3->ListCount(), 0);
}

TEST_F(CatalogueTest, RemoveSelectedKeepsCompanionsAligned) {
  for (const char* n : {"a.mp3", "b.mp3", "c.mp3", "d.mp3"}) Mp3(n, "");
  Choose(folder_);
  SelectMp3({0, 1, 2, 3});
  AddSelectedMp3s(*main_);
  main_->lstUp->SetSelected(1, true);
  main_->lstUp->SetSelected(3, true);
  RemoveSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstUp->Items(), (std::vector<std::string>{"a.mp3", "c.mp3"}));
  EXPECT_EQ(main_->lstPathSelect->List(1), folder_ + kSep + "c.mp3");
  EXPECT_EQ(main_->lstSubj->List(1), kDefaultHead + "[unknown]-c.mp3");

  main_->lstUp->SetListIndex(1);
  RemoveCurrentMp3(*main_);
  EXPECT_EQ(main_->lstSubj->Items(), (std::vector<std::string>{kDefaultHead + "[unknown]-a.mp3"}));

  main_->lstUp->SetSelected(0, true);
  RemoveSelectedMp3s(*main_);
  EXPECT_EQ(main_->lstUp->ListCount(), 0);
  EXPECT_EQ(main_->lstPathSelect->ListCount(), 0);
  EXPECT_EQ(main_->lstSubj->ListCount(), 0);
  // The menu's removal with no cursor entry is not caught.
  EXPECT_EQ(FailureNumberOf([&] { RemoveCurrentMp3(*main_); }), kInvalidArgument);
}

TEST_F(CatalogueTest, ViewSwitchShowsOneListAndKeepsTheAnchor) {
  main_->show();
  const double anchor = TwipsLeft(main_->lblSelected);
  ShowSelectedView(*main_);
  EXPECT_FALSE(main_->lstMp3->isVisible());
  EXPECT_TRUE(main_->lstUp->isVisible());
  EXPECT_FALSE(main_->pnlOpt->isVisible());
  EXPECT_TRUE(main_->pnlOpt2->isVisible());
  EXPECT_FALSE(main_->lblSetfolder->isVisible());
  EXPECT_TRUE(main_->lblSelected->font().bold());
  EXPECT_FALSE(main_->lblMp3list->font().bold());
  EXPECT_EQ(TwipsLeft(main_->lblSelected), anchor);
  EXPECT_EQ(TwipsLeft(main_->lblSep) + TwipsWidth(main_->lblSep), anchor);
  EXPECT_EQ(TwipsLeft(main_->lblMp3list) + TwipsWidth(main_->lblMp3list),
            TwipsLeft(main_->lblSep));
  // The bold caption, closing bracket and all, ends inside the panel.
  EXPECT_LE(anchor + TwipsWidth(main_->lblSelected), TwipsWidth(main_->pnlSelect) - 45);
  ShowListView(*main_);
  EXPECT_TRUE(main_->lstMp3->isVisible());
  EXPECT_FALSE(main_->lstUp->isVisible());
  EXPECT_TRUE(main_->lblMp3list->font().bold());
  EXPECT_EQ(TwipsLeft(main_->lblSelected), anchor);
  EXPECT_EQ(TwipsLeft(main_->lblSep) + TwipsWidth(main_->lblSep), anchor);
}

TEST_F(CatalogueTest, ClicksAndPressedColoursAreBound) {
  Mp3("a.mp3", "");
  prompts_.folderAnswers.push_back(folder_);
  emit main_->lblSetfolder->clicked();
  ASSERT_EQ(main_->lstMp3->ListCount(), 1);
  ASSERT_EQ(prompts_.boxes.size(), 0u);
  main_->lstMp3->SetSelected(0, true);
  emit main_->lbl_Add->clicked();
  EXPECT_EQ(main_->lstUp->ListCount(), 1);
  main_->lstMp3->SetListIndex(0);
  emit menu2_->addmp3->triggered();  // the cursor entry, selected or not
  EXPECT_EQ(main_->lstUp->ListCount(), 2);

  Label* l = main_->lbl_Clr;
  emit l->mouseDown(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), kLabelPressedColour);
  emit l->mouseUp(Qt::LeftButton);
  EXPECT_EQ(BgrFromColor(l->palette().color(QPalette::WindowText)), 0u);
}

TEST_F(CatalogueTest, FolderOf32768FilesOverflowsTheIndexAndEndsTheProgram) {
  for (int i = 0; i < 32768; ++i) std::ofstream(folder_ + kSep + std::to_string(i) + ".mp3");
  Mp3("a.mp3", "");
  std::optional<RuntimeFailure> failure;
  try {
    Choose(folder_);
  } catch (const RuntimeFailure& e) {
    failure = e;
  }
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), kOverflow);
  EXPECT_EQ(main_->lstMp3->ListCount(), 0);  // nothing is silently cut short

  // What the handler boundary then does with it: the error box, then the end.
  int status = -1;
  SetEndProgramHook([&](int s) { status = s; });
  ReportUnhandledFailure(*failure);
  SetEndProgramHook({});
  ASSERT_EQ(prompts_.boxes.size(), 1u);
  EXPECT_EQ(prompts_.boxes[0].text, "Run-time error '6':\n\nOverflow");
  EXPECT_EQ(prompts_.boxes[0].flags, 16);
  EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace qc::test
