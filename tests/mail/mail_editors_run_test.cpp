// What the editors save reaches a tagging run: the body file is read for each mail, an emptied
// body gives the run's fallback, and the decoration is read for each notice.
#include <QCoreApplication>

#include "run/run_drivers.h"
#include "run/run_fixture.h"
#include "run/tagging_run.h"
#include "mail/mail_editors.h"

namespace qc::test {
namespace {

const TagFields kTag{"Song", "Band", "Record", "1998", "", "Blues"};

class EditorsAndRun : public RunFixture {
 protected:
  struct Mail {
    std::string subject, body;
  };
  EditorsAndRun() {
    RunDrivers d;
    d.clientScreenName = [] { return std::string("Brindle Rose"); };
    d.clientVersion = [] { return static_cast<std::int16_t>(5); };
    d.checkFullBoxes = [](AddressList&) {};
    d.sendFileMail50 = [this](const std::string&, const std::string& subject,
                              const std::string& body, const std::string&, bool) {
      files.push_back({subject, body});
      if (onFile) onFile();
    };
    d.sendNoticeMail50 = [this](const std::string&, const std::string& subject,
                                const std::string& body) { notices.push_back({subject, body}); };
    d.runMainMenu = [](const std::string&) {};
    d.runToolbarMenu = [](std::int16_t, std::int16_t) {};
    d.openOutgoingMail40 = [] {};
    drivers_ = std::make_unique<ScopedRunDrivers>(std::move(d));
  }
  void Run() {
    PumpBudget budget(1000000);
    TaggingRun(frm, menu);
  }
  static void Close(SecondaryWindow* w) {
    w->saveAndExit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::vector<Mail> files;
  std::vector<Mail> notices;
  std::function<void()> onFile;

 private:
  std::unique_ptr<ScopedRunDrivers> drivers_;
};

TEST_F(EditorsAndRun, EmptiedBodyGivesTheFallbackAndASaveDuringTheRunReachesTheNextMail) {
  auto* body = new FrmBody();
  body->txtBody->clear();
  Close(body);

  Choose("one.mp3", 10000, "one", &kTag);
  Choose("two.mp3", 10000, "two", &kTag);
  Choose("three.mp3", 10000, "three", &kTag);
  int sent = 0;
  onFile = [&sent] {
    // While the first mail goes out the user saves a new body.
    if (++sent != 1) return;
    auto* w = new FrmBody();
    // The two-byte file gave no text, so the editor offers its own default first.
    EXPECT_EQ(w->txtBody->toPlainText().toStdString().rfind("paste your group tag here!", 0), 0u);
    w->txtBody->setPlainText("by idArtist$");
    Close(w);
  };
  Run();
  ASSERT_EQ(files.size(), 3u);
  EXPECT_EQ(files[0].body.rfind("quill cast : v.qc23e : brindle\r\n\r\ntitle: Song\r\n", 0), 0u);
  EXPECT_EQ(files[1].body, "by Band\r\n\r\n\r\n" + BodyClosingLine());
  EXPECT_EQ(files[2].body, files[1].body);
}

TEST_F(EditorsAndRun, DecorationFromTheEditorFramesTheNextNotice) {
  menu.setCheck("autohead", true);
  menu.setCheck("autofoot", true);
  Choose("one.mp3", 1500000, "one", &kTag);
  auto* head = new FrmHead();
  head->asciiFront->setText(QString::fromUtf8("\u00B7\u2022"));
  head->asciiBack->setText(QString::fromUtf8("\u00B4\u00B7"));
  Close(head);
  Run();
  ASSERT_EQ(notices.size(), 2u);
  EXPECT_EQ(notices[0].subject, "\u00B7\u2022 start: brindle 1.5mb \u00B4\u00B7");

  // Emptied in the editor: the notices go out with no decoration at all.
  head = new FrmHead();
  head->asciiFront->clear();
  head->asciiBack->clear();
  Close(head);
  notices.clear();
  Choose("two.mp3", 1500000, "two", &kTag);
  Run();
  ASSERT_EQ(notices.size(), 2u);
  EXPECT_EQ(notices[0].subject, " start: brindle 1.5mb ");
}

}  // namespace
}  // namespace qc::test
