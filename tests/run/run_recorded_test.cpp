// The tagging run with the client operations recorded: what each driver is given, in which order,
// and what the run's controls show.
#include <QAction>
#include <QCoreApplication>

#include <filesystem>
#include <functional>
#include <memory>

#include "base/failure.h"
#include "base/pump.h"
#include "client/run_drivers.h"
#include "mail/mail_editors.h"
#include "run/runlog.h"
#include "run/tagging_run.h"
#include "run_rig.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

struct Call {
  std::string kind;  // "file95", "file50", "file40", "notice95", "notice50", "mainmenu" ...
  std::string to, subject, body, path;
  bool sendLater = false;
};

const std::string kDecor = "\u00B7\u2022(`(`\u00B7";
const std::string kDecorRight = "\u00B7\u00B4)\u00B4)\u2022\u00B7";

void CloseEditor(SecondaryWindow* w) {
  w->saveAndExit();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::string DefaultBody(const TagFields& t, const std::string& size, const std::string& name) {
  return "quill cast : v.qc23e : brindle\r\n\r\ntitle: " + t.title + "\r\nartist: " + t.artist +
         "\r\nalbum: " + t.album + "\r\nrelease year: " + t.year + "\r\ngenre: " + t.genre +
         "\r\nupload date: friday, jan. 01, 1999\r\nuploaded by: brindle\r\nfile size: " + size +
         "\r\nfile name: " + name + "\r\ncomment: " + t.comment + "\r\n\r\n\r\n" +
         BodyClosingLine();
}

class RecordedRun : public RunRig {
 protected:
  RecordedRun() {
    RunDrivers& d = services.drivers;
    d.clientScreenName = [] { return std::string("Brindle Rose"); };
    d.clientVersion = [this] {
      ++versionAsks;
      return static_cast<std::int16_t>(generation);
    };
    d.checkFullBoxes = [this](AddressList& list) {
      calls.push_back({"deadcheck"});
      if (list.Count() > 1) list.Remove(1);
    };
    auto file = [this](const char* kind) {
      return [this, kind](const std::string& to, const std::string& subject,
                          const std::string& body, const std::string& path, bool later) {
        calls.push_back({kind, to, subject, body, path, later});
        if (onFile) onFile(++filesSent);
      };
    };
    auto notice = [this](const char* kind) {
      return [this, kind](const std::string& to, const std::string& subject,
                          const std::string& body) { calls.push_back({kind, to, subject, body}); };
    };
    d.sendFileMail95 = file("file95");
    d.sendFileMail50 = file("file50");
    d.sendFileMail40 = file("file40");
    d.sendNoticeMail95 = notice("notice95");
    d.sendNoticeMail50 = notice("notice50");
    d.runMainMenu = [this](const std::string& text) { calls.push_back({"mainmenu", "", text}); };
    d.runToolbarMenu = [this](std::int16_t icon, std::int16_t down) {
      calls.push_back({"toolbar", "", std::to_string(icon) + "," + std::to_string(down)});
    };
    d.openOutgoingMail40 = [this] { calls.push_back({"outgoing40"}); };
  }

  void Run() {
    PumpBudget budget(1000000);
    TaggingRun(frm, menu, services);
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
    EXPECT_EQ(frm.lstUp->ListCount() + frm.lstPathSelect->ListCount() + frm.lstSubj->ListCount(),
              0);
  }

  int generation = 5;
  int versionAsks = 0;
  int filesSent = 0;
  std::vector<Call> calls;
  std::function<void(int)> onFile;
};

TEST_F(RecordedRun, EmptySelectionShowsTheErrorAndChangesNothing) {
  frm.lblTagIndex->SetCaption("4/ 9");
  const double top = TwipsTop(frm.pnlTag);
  Run();
  ExpectBox(prompts, 0, "you have not selected files to upload.", 4112, "error:");
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(versionAsks, 0);
  EXPECT_EQ(TwipsTop(frm.pnlTag), top);
  EXPECT_FALSE(frm.picBut2->isEnabled());
  EXPECT_EQ(frm.lblTagIndex->Caption(), "4/ 9");
  EXPECT_TRUE(frm.picBut1->Tag.isEmpty());
}

TEST_F(RecordedRun, OneFileOfThreePointFiveTwoMegabytesOnGenerationFive) {
  frm.lblUps->SetCaption("10");
  frm.lblMBs->SetCaption("100.5");
  const std::string path = Choose("Band - Song.mp3", 3520000, "Band - Song [3.52]");
  bool checked = false;
  onFile = [&](int) {
    checked = true;
    EXPECT_EQ(TwipsTop(frm.pnlTag), kPanelShownTop);
    EXPECT_FALSE(frm.picBut1->isEnabled());
    EXPECT_TRUE(frm.picBut2->isEnabled());
  };
  Run();
  EXPECT_TRUE(checked);
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].kind, "file50");
  EXPECT_EQ(calls[0].to, "Brindle Rose, ");
  EXPECT_EQ(calls[0].subject, "Band - Song [3.52]");
  EXPECT_EQ(calls[0].body, DefaultBody(kTag, "3.52mb", "Band - Song.mp3"));
  EXPECT_EQ(calls[0].path, path);
  EXPECT_FALSE(calls[0].sendLater);
  // Asked afresh for each of the three driver tests, and never at the end with sendlater off.
  EXPECT_EQ(versionAsks, 3);
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 1");
  EXPECT_EQ(frm.lblTagMb->Caption(), "3.52 mb");
  EXPECT_EQ(frm.lblTagTotal->text().toStdString(), "total: 3.52 mb : 1 ups");
  EXPECT_EQ(frm.lblTagSubj->Caption(), "Band - Song [3.52]");
  EXPECT_EQ(frm.Label1->text().toStdString(), "11 ups : 104.02 mb");
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "tag");
  EXPECT_EQ(frm.lstSend->Items(), std::vector<std::string>{"Brindle Rose"});
  ExpectIdle();
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(RecordedRun, SizesAndSubjectsAsTheyShow) {
  struct Case {
    std::int64_t bytes;
    const char* subject;
    const char* bodySize;  // in the body and the run panel
    const char* total;     // the counter keeps its zero
  } cases[] = {
      {500000, "half", ".5", "0.5"},
      {4000, "", "0", "0"},  // counts as a file but adds nothing; an empty subject stays empty
  };
  for (const Case& c : cases) {
    calls.clear();
    frm.lblUps->SetCaption("0");
    frm.lblMBs->SetCaption("0");
    Choose("f.mp3", c.bytes, c.subject);
    Run();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_NE(calls[0].body.find(std::string("file size: ") + c.bodySize + "mb\r\n"),
              std::string::npos);
    EXPECT_EQ(calls[0].subject, c.subject);
    EXPECT_EQ(frm.lblTagSubj->Caption(), c.subject);
    EXPECT_EQ(frm.lblTagMb->Caption(), std::string(c.bodySize) + " mb");
    EXPECT_EQ(frm.lblTagTotalMb->Caption(), c.total);
    EXPECT_EQ(frm.lblMBs->Caption(), c.total);
    EXPECT_EQ(frm.lblUps->Caption(), "1");
  }
}

TEST_F(RecordedRun, RecipientsFromTheListsAndTheBlindCopyForm) {
  WriteList("lstMember.sys", "ann\r\nbob\r\n");
  WriteList("lstUpload.sys", "cy\r\nann\r\n");
  struct Case {
    bool member, upload, bbc, dead;
    const char* to;
  } cases[] = {
      {false, false, false, false, "Brindle Rose, "},
      {false, false, true, false, "(Brindle Rose), "},
      {true, false, false, false, "Brindle Rose, ann, bob, "},
      {false, true, false, false, "Brindle Rose, cy, ann, "},
      {true, true, true, false, "(Brindle Rose), (ann), (bob), (cy), (ann), "},
      {true, false, false, true, "Brindle Rose, bob, "},  // the fake check removes the second
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.to);
    calls.clear();
    Choose("a.mp3", 1000, "a");
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
    Choose("one.mp3", 1500000, "One");
    Choose("two.mp3", 500000, "Two");
    Check({"autohead", "autofoot", "sendlater"});
    const std::string log = CompileRunLog(frm, services.today());
    Run();
    ASSERT_EQ(Kinds(), c.kinds);
    EXPECT_EQ(frm.Label1->text().toStdString(), "2 ups : 2 mb");
    if (c.kinds.size() == 5) {
      EXPECT_EQ(calls[0].subject, kDecor + " start: brindle 2mb " + kDecorRight);
      EXPECT_EQ(calls[3].subject, kDecor + " end: brindle 2mb " + kDecorRight);
      EXPECT_EQ(calls[0].body, log);
      EXPECT_EQ(calls[3].body, log);
      EXPECT_EQ(calls[0].to, "Brindle Rose, ");
      EXPECT_TRUE(calls[1].sendLater);
      EXPECT_EQ(calls.back().subject, c.outgoing);
    }
    ExpectIdle();
  }
}

TEST_F(RecordedRun, StopSkipsTheRestButTheEndNoticeCoversAll) {
  struct Case {
    int stopAt;
    std::vector<std::string> kinds;
  } cases[] = {
      {1, {"file50", "notice50"}},
      {3, {"file50", "file50", "file50", "notice50", "toolbar"}},  // the last file: all goes on
  };
  for (const Case& c : cases) {
    calls.clear();
    filesSent = 0;
    frm.lblUps->SetCaption("0");
    Choose("one.mp3", 1500000, "One");
    Choose("two.mp3", 500000, "Two");
    Choose("three.mp3", 1000000, "Three");
    Check({"autofoot"});
    menu.setCheck("sendlater", c.stopAt == 3);
    onFile = [&](int n) {
      if (n == c.stopAt) StopRun(frm);
    };
    const std::string log = CompileRunLog(frm, services.today());
    Run();
    ASSERT_EQ(Kinds(), c.kinds);
    EXPECT_NE(calls[c.stopAt].subject.find(" end: brindle 3mb "), std::string::npos);
    EXPECT_EQ(calls[c.stopAt].body, log);
    // The stopped file still counted in full.
    EXPECT_EQ(frm.lblTagIndex->Caption(), std::to_string(c.stopAt) + "/ 3");
    EXPECT_EQ(frm.lblUps->Caption(), std::to_string(c.stopAt));
    EXPECT_EQ(frm.picBut1->Tag.toStdString(), "stop");
    ExpectIdle();
  }
}

TEST_F(RecordedRun, OptionsAreReadWhenUsed) {
  Choose("one.mp3", 1000, "Mixed CASE");
  Choose("two.mp3", 1000, "Mixed CASE");
  Check({"sendlater", "makesublcase"});
  onFile = [&](int n) {
    if (n == 1) Check({"sendlater", "makesublcase"}, false);
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
      {"later key in a value is expanded", "t=idTitle$", {"myHandle$ fileName$"}, "t=brindle k.mp3"},
      {"earlier key in a value stays", "a=idArtist$", {"", "idTitle$"}, "a=idTitle$"},
      {"all keys",
       "idTitle$|idArtist$|idAlbum$|idYear$|idGenre$|sysDate$|myHandle$|fileSize$|fileName$|"
       "idComment$",
       kTag, "Song|Band|Record|1998|Blues|friday, jan. 01, 1999|brindle|.01mb|k.mp3|old comment"},
      {"no tag, no template", "", {}, DefaultBody({}, ".01mb", "k.mp3")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    calls.clear();
    WriteBody(c.body);
    Choose("k.mp3", 10000, "k", c.tag.title.empty() && c.tag.artist.empty() ? nullptr : &c.tag);
    Run();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].body, c.body.empty() ? c.expected
                                            : c.expected + "\r\n\r\n\r\n" + BodyClosingLine());
  }
}

TEST_F(RecordedRun, CommentRenamingRewritesTheTagBeforeTheBodyIsBuilt) {
  const std::string path = Choose("a.mp3", 1000, "a");
  Check({"renamecomment"});
  Run();
  EXPECT_EQ(ReadId3Tag(path), (Id3Tag{"Song", "Band", "Record", "1998", "renamed comment", "Blues"}));
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_NE(calls[0].body.find("comment: renamed comment\r\n"), std::string::npos);
}

TEST_F(RecordedRun, AVanishedFileEndsTheProgramAtItsTurn) {
  Choose("one.mp3", 1000, "One");
  std::filesystem::remove(Choose("two.mp3", 1000, "Two"));
  EXPECT_EQ(FailureNumberOf([&] { Run(); }), kFileNotFound);
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
          TaggingRun(frm, menu, services);
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
  Choose("one.mp3", 1500000, "One");
  Check({"autofoot"});
  PressStartDuringTheNextWait();
  Run();
  // The inner run sends the file again and its end notice; the outer run then ends on the
  // emptied selection.
  ASSERT_EQ(Kinds(), (std::vector<std::string>{"file50", "file50", "notice50", "notice50"}));
  EXPECT_NE(calls[2].subject.find(" end: brindle 1.5mb "), std::string::npos);
  EXPECT_NE(calls[3].subject.find(" end: brindle 0mb "), std::string::npos);
  EXPECT_NE(calls[3].body.find("    number of mp3s: 0\r\n"), std::string::npos);
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "tag");
  EXPECT_EQ(frm.lblUps->Caption(), "2");
  ExpectIdle();
}

TEST_F(NestedRun, OuterRunOnTheEmptiedListsEndsTheProgram) {
  Choose("one.mp3", 1000, "One");
  Choose("two.mp3", 1000, "Two");
  PressStartDuringTheNextWait();
  EXPECT_EQ(FailureNumberOf([&] { Run(); }), kFileNotFound);
  EXPECT_EQ(Kinds(), (std::vector<std::string>{"file50", "file50", "file50"}));
}

TEST_F(RecordedRun, PictureButtonsStartAndStop) {
  ConnectTaggingRun(frm, menu, services);
  emit frm.picBut1->clicked();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  frm.picBut2->setEnabled(true);
  emit frm.picBut2->clicked();
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "stop");
  EXPECT_FALSE(frm.picBut2->isEnabled());
  Choose("a.mp3", 1000, "a");
  emit frm.picBut1->clicked();
  EXPECT_EQ(calls.size(), 1u);
}

// What the editors save reaches the run at the next file or notice.
TEST_F(RecordedRun, EmptiedBodyGivesTheFallbackAndASaveDuringTheRunReachesTheNextMail) {
  auto* body = new FrmBody(services);
  body->txtBody->clear();
  CloseEditor(body);
  for (const char* name : {"one.mp3", "two.mp3", "three.mp3"}) Choose(name, 10000, name);
  onFile = [this](int n) {
    // While the first mail goes out the user saves a new body.
    if (n != 1) return;
    auto* w = new FrmBody(services);
    w->txtBody->setPlainText("by idArtist$");
    CloseEditor(w);
  };
  Run();
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[0].body.rfind("quill cast : v.qc23e : brindle\r\n\r\ntitle: Song\r\n", 0), 0u);
  EXPECT_EQ(calls[1].body, "by Band\r\n\r\n\r\n" + BodyClosingLine());
  EXPECT_EQ(calls[2].body, calls[1].body);
}

TEST_F(RecordedRun, DecorationFromTheEditorFramesTheNextNotice) {
  Check({"autohead", "autofoot"});
  for (const char* front : {"\u00B7\u2022", ""}) {
    auto* head = new FrmHead(services);
    head->asciiFront->setText(QString::fromUtf8(front));
    head->asciiBack->setText(QString::fromUtf8(front[0] ? "\u00B4\u00B7" : ""));
    CloseEditor(head);
    calls.clear();
    Choose("one.mp3", 1500000, "one");
    Run();
    ASSERT_EQ(Kinds(), (std::vector<std::string>{"notice50", "file50", "notice50"}));
    // Emptied in the editor: the notices go out with no decoration at all.
    EXPECT_EQ(calls[0].subject, front[0] ? "\u00B7\u2022 start: brindle 1.5mb \u00B4\u00B7"
                                         : " start: brindle 1.5mb ");
  }
}

}  // namespace
}  // namespace qc::test
