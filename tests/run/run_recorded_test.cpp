// The tagging run with the client operations recorded: what each driver is given, in which order,
// and what the run's controls show.
#include <QAction>

#include <filesystem>
#include <functional>
#include <memory>

#include "run/run_drivers.h"
#include "run/runlog.h"
#include "run/tagging_run.h"
#include "base/failure.h"
#include "base/pump.h"
#include "ui/window_routines.h"
#include "run_fixture.h"

namespace qc {
namespace {

using test::TagFields;

struct Call {
  std::string kind;  // "file95", "file50", "file40", "notice95", "notice50", "outgoing95" ...
  std::string to, subject, body, path;
  bool sendLater = false;
};

const TagFields kTag{"Song", "Band", "Record", "1998", "old comment", "Blues"};

std::string ExpectedDefaultBody(const TagFields& t, const std::string& size,
                                const std::string& name, const std::string& handle = "brindle") {
  return "quill cast : v.qc23e : brindle\r\n\r\ntitle: " + t.title + "\r\nartist: " + t.artist +
         "\r\nalbum: " + t.album + "\r\nrelease year: " + t.year + "\r\ngenre: " + t.genre +
         "\r\nupload date: friday, jan. 01, 1999\r\nuploaded by: " + handle +
         "\r\nfile size: " + size + "\r\nfile name: " + name + "\r\ncomment: " + t.comment +
         "\r\n\r\n\r\n" + BodyClosingLine();
}

class RecordedRun : public test::RunFixture {
 protected:
  RecordedRun() {
    RunDrivers d;
    d.clientScreenName = [this] { return screenName; };
    d.clientVersion = [this] {
      ++versionAsks;
      return static_cast<std::int16_t>(generation);
    };
    d.checkFullBoxes = [this](AddressList& list) {
      calls.push_back({"deadcheck", "", "", "", "", false});
      if (list.Count() > 1) list.Remove(1);
    };
    auto file = [this](const char* kind) {
      return [this, kind](const std::string& to, const std::string& subject,
                          const std::string& body, const std::string& path, bool later) {
        calls.push_back({kind, to, subject, body, path, later});
        ++filesSent;
        if (onFile) onFile(filesSent);
      };
    };
    auto notice = [this](const char* kind) {
      return [this, kind](const std::string& to, const std::string& subject,
                          const std::string& body) {
        calls.push_back({kind, to, subject, body, "", false});
      };
    };
    d.sendFileMail95 = file("file95");
    d.sendFileMail50 = file("file50");
    d.sendFileMail40 = file("file40");
    d.sendNoticeMail95 = notice("notice95");
    d.sendNoticeMail50 = notice("notice50");
    d.runMainMenu = [this](const std::string& text) {
      calls.push_back({"mainmenu", "", text, "", "", false});
    };
    d.runToolbarMenu = [this](std::int16_t icon, std::int16_t down) {
      calls.push_back({"toolbar", "", std::to_string(icon) + "," + std::to_string(down), "", "",
                       false});
    };
    d.openOutgoingMail40 = [this] { calls.push_back({"outgoing40", "", "", "", "", false}); };
    drivers_ = std::make_unique<ScopedRunDrivers>(std::move(d));
  }

  void Run() {
    test::PumpBudget budget(1000000);
    TaggingRun(frm, menu);
  }
  std::vector<std::string> Kinds() const {
    std::vector<std::string> out;
    for (const Call& c : calls) out.push_back(c.kind);
    return out;
  }
  void ExpectIdle() {
    EXPECT_EQ(TwipsTop(frm.pnlTag), kTagPanelIdleTop);
    EXPECT_TRUE(frm.picBut1->isEnabled());
    EXPECT_FALSE(frm.picBut2->isEnabled());
    EXPECT_EQ(frm.lstUp->ListCount(), 0);
    EXPECT_EQ(frm.lstPathSelect->ListCount(), 0);
    EXPECT_EQ(frm.lstSubj->ListCount(), 0);
  }

  int generation = 5;
  int versionAsks = 0;
  int filesSent = 0;
  std::string screenName = "Brindle Rose";
  std::vector<Call> calls;
  std::function<void(int)> onFile;

 private:
  std::unique_ptr<ScopedRunDrivers> drivers_;
};

TEST_F(RecordedRun, EmptySelectionShowsTheErrorAndChangesNothing) {
  frm.lblTagIndex->SetCaption("4/ 9");
  frm.lblTagTotalMb->SetCaption("12.5");
  const double top = TwipsTop(frm.pnlTag);
  Run();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text, "you have not selected files to upload.");
  EXPECT_EQ(prompts.boxes[0].flags, 4112);
  EXPECT_EQ(prompts.boxes[0].title, "error:");
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(versionAsks, 0);
  EXPECT_EQ(TwipsTop(frm.pnlTag), top);
  EXPECT_TRUE(frm.picBut1->isEnabled());
  EXPECT_FALSE(frm.picBut2->isEnabled());
  EXPECT_EQ(frm.lblTagIndex->Caption(), "4/ 9");
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "12.5");
  EXPECT_TRUE(frm.picBut1->Tag.isEmpty());
}

TEST_F(RecordedRun, OneFileOfThreePointFiveTwoMegabytesOnGenerationFive) {
  frm.lblUps->SetCaption("10");
  frm.lblMBs->SetCaption("100.5");
  const std::string path = Choose("Band - Song.mp3", 3520000, "Band - Song [3.52]", &kTag);
  Run();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].kind, "file50");
  EXPECT_EQ(calls[0].to, "Brindle Rose, ");
  EXPECT_EQ(calls[0].subject, "Band - Song [3.52]");
  EXPECT_EQ(calls[0].body, ExpectedDefaultBody(kTag, "3.52mb", "Band - Song.mp3"));
  EXPECT_EQ(calls[0].path, path);
  EXPECT_FALSE(calls[0].sendLater);
  // Asked afresh for each of the three driver tests, and never at the end with sendlater off.
  EXPECT_EQ(versionAsks, 3);
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 1");
  EXPECT_EQ(frm.lblTagMb->Caption(), "3.52 mb");
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "3.52");
  EXPECT_EQ(frm.lblTagTotalUps->Caption(), "1");
  EXPECT_EQ(frm.lblTagSubj->Caption(), "Band - Song [3.52]");
  EXPECT_EQ(frm.lblTagTotal->text().toStdString(), "total: 3.52 mb : 1 ups");
  EXPECT_EQ(frm.lblUps->Caption(), "11");
  EXPECT_EQ(frm.lblMBs->Caption(), "104.02");
  EXPECT_EQ(frm.Label1->text().toStdString(), "11 ups : 104.02 mb");
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "tag");
  EXPECT_EQ(frm.lstSend->Items(), std::vector<std::string>{"Brindle Rose"});
  ExpectIdle();
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(RecordedRun, RunPanelAndControlsWhileRunning) {
  Choose("a.mp3", 1000, "a", &kTag);
  frm.lblTagSubj->SetCaption("old");
  bool checked = false;
  onFile = [&](int) {
    checked = true;
    EXPECT_EQ(TwipsTop(frm.pnlTag), kPanelShownTop);
    EXPECT_FALSE(frm.picBut1->isEnabled());
    EXPECT_TRUE(frm.picBut2->isEnabled());
    EXPECT_EQ(frm.picBut1->Tag.toStdString(), "tag");
  };
  Run();
  EXPECT_TRUE(checked);
  ExpectIdle();
}

TEST_F(RecordedRun, HalfAMegabyteHasNoZeroBeforeThePointExceptInTheCounter) {
  Choose("half.mp3", 500000, "half", &kTag);
  Run();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_NE(calls[0].body.find("file size: .5mb\r\n"), std::string::npos);
  EXPECT_EQ(frm.lblTagMb->Caption(), ".5 mb");
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "0.5");
}

TEST_F(RecordedRun, TinyFileCountsAsAFileButAddsNoMegabytes) {
  Choose("tiny.mp3", 4000, "tiny", &kTag);
  Run();
  EXPECT_EQ(frm.lblTagMb->Caption(), "0 mb");
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "0");
  EXPECT_EQ(frm.lblUps->Caption(), "1");
  EXPECT_EQ(frm.lblMBs->Caption(), "0");
}

TEST_F(RecordedRun, IndexLabelShowsTheBlankAfterTheStroke) {
  std::vector<std::string> seen;
  for (int i = 0; i < 12; ++i) Choose("f" + std::to_string(i) + ".mp3", 1000, "s", &kTag);
  onFile = [&](int) { seen.push_back(frm.lblTagIndex->Caption()); };
  Run();
  ASSERT_EQ(seen.size(), 12u);
  EXPECT_EQ(seen[2], "3/ 12");
  EXPECT_EQ(seen[11], "12/ 12");
}

TEST_F(RecordedRun, RecipientsFromTheListsAndTheBlindCopyForm) {
  WriteList("lstMember.sys", {"ann", "bob"});
  WriteList("lstUpload.sys", {"cy", "ann"});
  struct Case {
    bool member, upload, bbc, dead;
    const char* to;
  } cases[] = {
      {false, false, false, false, "Brindle Rose, "},
      {false, false, true, false, "(Brindle Rose), "},
      {true, false, false, false, "Brindle Rose, ann, bob, "},
      {false, true, false, false, "Brindle Rose, cy, ann, "},
      {true, true, false, false, "Brindle Rose, ann, bob, cy, ann, "},
      {true, true, true, false, "(Brindle Rose), (ann), (bob), (cy), (ann), "},
      // The fake check removes the second entry.
      {true, false, false, true, "Brindle Rose, bob, "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.to);
    calls.clear();
    Choose("a.mp3", 1000, "a", &kTag);
    menu.setCheck("memberlst", c.member);
    menu.setCheck("uploadlst", c.upload);
    menu.setCheck("bbcemail", c.bbc);
    menu.setCheck("deadchecknames", c.dead);
    Run();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back().to, c.to);
    EXPECT_EQ(calls.front().kind, c.dead ? "deadcheck" : "file50");
  }
}

TEST_F(RecordedRun, NoticesAndOutgoingMailPerGeneration) {
  const std::string decor = "\u00B7\u2022(`(`\u00B7";
  const std::string decorRight = "\u00B7\u00B4)\u00B4)\u2022\u00B7";
  struct Case {
    int generation;
    std::vector<std::string> kinds;
    const char* outgoing;
  } cases[] = {
      {3, {"notice95", "file95", "file95", "notice95", "mainmenu"}, "Read &Outgoing Flashmail"},
      {5, {"notice50", "file50", "file50", "notice50", "toolbar"}, "3,15"},
      {4, {"file40", "file40", "outgoing40"}, ""},
      {2, {}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.generation);
    calls.clear();
    generation = c.generation;
    frm.lblUps->SetCaption("0");
    frm.lblMBs->SetCaption("0");
    Choose("one.mp3", 1500000, "One", &kTag);
    Choose("two.mp3", 500000, "Two", &kTag);
    menu.setCheck("autohead", true);
    menu.setCheck("autofoot", true);
    menu.setCheck("sendlater", true);
    const std::string log = CompileRunLog(frm);
    Run();
    EXPECT_EQ(Kinds(), c.kinds);
    EXPECT_EQ(frm.lblUps->Caption(), "2");
    EXPECT_EQ(frm.lblMBs->Caption(), "2");
    if (c.generation == 3 || c.generation == 5) {
      EXPECT_EQ(calls[0].subject, decor + " start: brindle 2mb " + decorRight);
      EXPECT_EQ(calls[3].subject, decor + " end: brindle 2mb " + decorRight);
      EXPECT_EQ(calls[0].body, log);
      EXPECT_EQ(calls[3].body, log);
      EXPECT_EQ(calls[0].to, "Brindle Rose, ");
      EXPECT_TRUE(calls[1].sendLater);
    }
    if (!calls.empty() && c.outgoing[0]) {
      EXPECT_EQ(calls.back().subject, c.outgoing);
    }
    ExpectIdle();
  }
}

TEST_F(RecordedRun, DecorationComesFromTheSettings) {
  SaveSetting(kAppName, kOptionsSection, "ascii1", "<<");
  SaveSetting(kAppName, kOptionsSection, "ascii2", ">>");
  menu.setCheck("autohead", true);
  Choose("one.mp3", 1500000, "One", &kTag);
  Run();
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].subject, "<< start: brindle 1.5mb >>");
}

TEST_F(RecordedRun, StopDuringTheFirstFileSkipsTheRestButTheEndNoticeCoversAll) {
  Choose("one.mp3", 1500000, "One", &kTag);
  Choose("two.mp3", 500000, "Two", &kTag);
  Choose("three.mp3", 1000000, "Three", &kTag);
  menu.setCheck("autofoot", true);
  onFile = [&](int n) {
    if (n == 1) StopRun(frm);
  };
  const std::string log = CompileRunLog(frm);
  Run();
  EXPECT_EQ(Kinds(), (std::vector<std::string>{"file50", "notice50"}));
  EXPECT_EQ(calls[1].subject.find(" end: brindle 3mb "), calls[1].subject.find(" end: "));
  EXPECT_NE(calls[1].subject.find(" end: brindle 3mb "), std::string::npos);
  EXPECT_EQ(calls[1].body, log);
  // The stopped file still counted in full.
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 3");
  EXPECT_EQ(frm.lblTagTotalUps->Caption(), "1");
  EXPECT_EQ(frm.lblUps->Caption(), "1");
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "stop");
  ExpectIdle();
}

TEST_F(RecordedRun, StopDuringTheLastFileStillSendsTheEndNoticeAndClears) {
  Choose("one.mp3", 1500000, "One", &kTag);
  Choose("two.mp3", 500000, "Two", &kTag);
  menu.setCheck("autofoot", true);
  menu.setCheck("sendlater", true);
  onFile = [&](int n) {
    if (n == 2) StopRun(frm);
  };
  Run();
  EXPECT_EQ(Kinds(), (std::vector<std::string>{"file50", "file50", "notice50", "toolbar"}));
  ExpectIdle();
}

TEST_F(RecordedRun, OptionsAreReadWhenUsed) {
  Choose("one.mp3", 1000, "Mixed CASE", &kTag);
  Choose("two.mp3", 1000, "Mixed CASE", &kTag);
  menu.setCheck("sendlater", true);
  menu.setCheck("makesublcase", true);
  onFile = [&](int n) {
    if (n == 1) {
      menu.setCheck("sendlater", false);
      menu.setCheck("makesublcase", false);
    }
  };
  Run();
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_TRUE(calls[0].sendLater);
  EXPECT_EQ(calls[0].subject, "mixed case");
  EXPECT_FALSE(calls[1].sendLater);
  EXPECT_EQ(calls[1].subject, "Mixed CASE");
}

TEST_F(RecordedRun, BodyTemplateExpansion) {
  struct Case {
    const char* name;
    std::string body;  // "" means the default
    TagFields tag;
    std::string expected;  // before the closing part
  } cases[] = {
      {"no keys", "plain words\r\nsecond line", kTag, "plain words\r\nsecond line"},
      {"case of keys ignored", "IDTITLE$ by idartist$", kTag, "Song by Band"},
      {"later key in a value is expanded",
       "t=idTitle$",
       {"myHandle$ fileName$", "", "", "", "", ""},
       "t=brindle k.mp3"},
      {"earlier key in a value stays",
       "a=idArtist$",
       {"", "idTitle$", "", "", "", ""},
       "a=idTitle$"},
      {"all keys", "idTitle$|idArtist$|idAlbum$|idYear$|idGenre$|sysDate$|myHandle$|fileSize$|"
                   "fileName$|idComment$",
       kTag, "Song|Band|Record|1998|Blues|friday, jan. 01, 1999|brindle|.01mb|k.mp3|old comment"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    calls.clear();
    WriteBody(c.body);
    Choose("k.mp3", 10000, "k", &c.tag);
    Run();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].body, c.expected + "\r\n\r\n\r\n" + BodyClosingLine());
  }
}

TEST_F(RecordedRun, MissingTagAndMissingTemplateGiveTheDefaultWithEmptyFields) {
  Choose("untagged.mp3", 2000, "u");
  Run();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].body, ExpectedDefaultBody({}, "0mb", "untagged.mp3"));
}

TEST_F(RecordedRun, EmptySubjectGoesToTheDriverEmpty) {
  Choose("a.mp3", 1000, "", &kTag);
  Run();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].subject, "");
  EXPECT_EQ(frm.lblTagSubj->Caption(), "");
}

TEST_F(RecordedRun, CommentRenamingRewritesTheTagBeforeTheBodyIsBuilt) {
  const std::string path = Choose("a.mp3", 1000, "a", &kTag);
  menu.setCheck("renamecomment", true);
  Run();
  const Id3Tag after = ReadId3Tag(path);
  EXPECT_EQ(after.comment, "renamed comment");
  EXPECT_EQ(after.title, "Song");
  EXPECT_EQ(after.genre, "Blues");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_NE(calls[0].body.find("comment: renamed comment\r\n"), std::string::npos);
}

TEST_F(RecordedRun, AVanishedFileEndsTheProgramAtItsTurn) {
  Choose("one.mp3", 1000, "One", &kTag);
  const std::string gone = Choose("two.mp3", 1000, "Two", &kTag);
  std::filesystem::remove(gone);
  try {
    Run();
    FAIL() << "the run went on";
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.number(), kFileNotFound);
  }
  EXPECT_EQ(calls.size(), 1u);
  EXPECT_EQ(frm.lblUps->Caption(), "1");
  // Nothing was cleared or restored.
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 2);
  EXPECT_FALSE(frm.picBut1->isEnabled());
}

// The user stops during a file and presses start again while the run waits behind it.
class NestedRun : public RecordedRun {
 protected:
  void PressStartDuringTheNextWait() {
    onFile = [this](int n) {
      if (n != 1) return;
      StopRun(frm);
      hook_ = AddPumpHook([this] {
        if (!pressed_ && frm.picBut1->isEnabled()) {
          pressed_ = true;
          TaggingRun(frm, menu);
        }
      });
    };
  }
  ~NestedRun() override {
    if (hook_) RemovePumpHook(hook_);
  }
  PumpHookId hook_ = 0;
  bool pressed_ = false;
};

TEST_F(NestedRun, InnerRunResetsTheFlagAndTheOuterOneEndsOnEmptyLists) {
  Choose("one.mp3", 1500000, "One", &kTag);
  menu.setCheck("autofoot", true);
  PressStartDuringTheNextWait();
  Run();
  // The inner run sends the file again and its end notice; the outer run then ends on the
  // emptied selection.
  EXPECT_EQ(Kinds(), (std::vector<std::string>{"file50", "file50", "notice50", "notice50"}));
  EXPECT_NE(calls[2].subject.find(" end: brindle 1.5mb "), std::string::npos);
  EXPECT_NE(calls[3].subject.find(" end: brindle 0mb "), std::string::npos);
  EXPECT_NE(calls[3].body.find("    number of mp3s: 0\r\n"), std::string::npos);
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "tag");
  EXPECT_EQ(frm.lblUps->Caption(), "2");
  ExpectIdle();
}

TEST_F(NestedRun, OuterRunOnTheEmptiedListsEndsTheProgram) {
  Choose("one.mp3", 1000, "One", &kTag);
  Choose("two.mp3", 1000, "Two", &kTag);
  PressStartDuringTheNextWait();
  try {
    Run();
    FAIL() << "the outer run went on";
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.number(), kFileNotFound);
  }
  EXPECT_EQ(Kinds(), (std::vector<std::string>{"file50", "file50", "file50"}));
}

TEST_F(RecordedRun, PictureButtonsStartAndStop) {
  ConnectTaggingRun(frm, menu);
  emit frm.picBut1->clicked();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  frm.picBut2->setEnabled(true);
  emit frm.picBut2->clicked();
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "stop");
  EXPECT_FALSE(frm.picBut2->isEnabled());
  Choose("a.mp3", 1000, "a", &kTag);
  emit frm.picBut1->clicked();
  EXPECT_EQ(calls.size(), 1u);
}

}  // namespace
}  // namespace qc
