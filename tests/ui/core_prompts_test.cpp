// The Qt prompts, answered from a timer while their dialogs run.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QApplication>
#include <QTimer>
#include <functional>

#include "ui/qt_prompts.h"

namespace qc {
namespace {

// Runs `act` on the dialog once it is open (polling, since exec() starts its own loop).
void WhenOpen(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(5);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    if (QWidget* dialog = QtPrompts::OpenDialog(); dialog && dialog->isVisible()) {
      timer->stop();
      timer->deleteLater();
      act(dialog);
    }
  });
  timer->start();
}

TEST(QtPrompts, MessageBoxShowsTextTitleIconOnTopAndAnswersOk) {
  QtPrompts prompts;
  const std::pair<int, QMessageBox::Icon> cases[] = {
      {kOkOnly, QMessageBox::NoIcon},
      {kCritical | kSystemModal, QMessageBox::Critical},
      {kQuestion, QMessageBox::Question},
      {kExclamation, QMessageBox::Warning},
      {kInformation | kSystemModal, QMessageBox::Information},
  };
  for (const auto& [flags, expected] : cases) {
    QString text, title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool onTop = false;
    WhenOpen([&](QWidget* w) {
      auto* box = qobject_cast<QMessageBox*>(w);
      ASSERT_NE(box, nullptr);
      text = box->text();
      title = box->windowTitle();
      icon = box->icon();
      onTop = box->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
      EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
      box->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(prompts.MsgBox("no files\xC3\xA8 chosen", flags, "error:"), kAnswerOk);
    EXPECT_EQ(text, QString::fromUtf8("no files\xC3\xA8 chosen"));
    EXPECT_EQ(title, "error:");
    EXPECT_EQ(icon, expected) << flags;
    if (flags & kSystemModal) {
      EXPECT_TRUE(onTop);
    }
    EXPECT_EQ(QtPrompts::OpenDialog(), nullptr);
  }
}

TEST(QtPrompts, YesNoBoxAnswersYesOrNo) {
  QtPrompts prompts;
  for (auto [button, answer] : {std::pair{QMessageBox::Yes, kAnswerYes},
                                std::pair{QMessageBox::No, kAnswerNo}}) {
    WhenOpen([button = button](QWidget* w) {
      auto* box = static_cast<QMessageBox*>(w);
      EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
      box->button(button)->click();
    });
    EXPECT_EQ(prompts.MsgBox("sure?", kYesNo | kQuestion, "quill cast"), answer);
  }
  WhenOpen([](QWidget* w) { w->close(); });
  EXPECT_EQ(prompts.MsgBox("sure?", kYesNo, "t"), kAnswerNo);
}

TEST(QtPrompts, InputBoxStandsAtTheTwipPositionAndGivesTheText) {
  QtPrompts prompts;
  QPoint at;
  QString label, shownDefault;
  WhenOpen([&](QWidget* w) {
    auto* dialog = qobject_cast<QInputDialog*>(w);
    ASSERT_NE(dialog, nullptr);
    at = dialog->pos();
    label = dialog->labelText();
    shownDefault = dialog->textValue();
    dialog->setTextValue(QString::fromUtf8("new \xC3\xB3"));
    dialog->accept();
  });
  auto answer = prompts.InputBox("handle?", "set handle", "old", 1500, 3015);
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(*answer, "new \xC3\xB3");
  EXPECT_EQ(at, QPoint(100, 201));
  EXPECT_EQ(label, "handle?");
  EXPECT_EQ(shownDefault, "old");

  WhenOpen([](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
  EXPECT_EQ(prompts.InputBox("handle?", "set handle", "old", 0, 0), std::nullopt);

  // Accepting an emptied box gives the empty text, which is not a cancel.
  WhenOpen([](QWidget* w) {
    static_cast<QInputDialog*>(w)->setTextValue("");
    static_cast<QDialog*>(w)->accept();
  });
  EXPECT_EQ(prompts.InputBox("p", "t", "d", 0, 0), std::optional<std::string>(""));
}

TEST(QtPrompts, PromptsBelongToTheFormInUseStandInFrontAndBreakLinesAtCarriageReturns) {
  QWidget mainForm;
  QtPrompts prompts(&mainForm);
  ASSERT_EQ(QApplication::activeWindow(), nullptr);
  struct Seen {
    QWidget* owner = nullptr;
    bool onTop = false;
    QString text;
  };
  auto seen = [](QWidget* w, const QString& text) {
    return Seen{w->parentWidget(), w->windowFlags().testFlag(Qt::WindowStaysOnTopHint), text};
  };
  Seen input, box, folder;
  WhenOpen([&](QWidget* w) {
    input = seen(w, static_cast<QInputDialog*>(w)->labelText());
    static_cast<QDialog*>(w)->reject();
  });
  prompts.InputBox("rename to...\r\r\r...30 letters max.", "id tags", "", 15, 15);
  EXPECT_EQ(input.owner, &mainForm);  // nothing of ours active: the main window
  EXPECT_TRUE(input.onTop);
  EXPECT_EQ(input.text, "rename to...\n\n\n...30 letters max.");

  // An editor the user works in owns what it asks, message boxes of any flags included.
  QWidget editor;
  editor.show();
  editor.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
  WhenOpen([&](QWidget* w) {
    box = seen(w, static_cast<QMessageBox*>(w)->text());
    static_cast<QMessageBox*>(w)->button(QMessageBox::Ok)->click();
  });
  prompts.MsgBox("line one\rline two\r\n", kOkOnly, "contact");
  EXPECT_EQ(box.owner, &editor);
  EXPECT_TRUE(box.onTop);
  EXPECT_EQ(box.text, "line one\nline two\n");
  editor.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
  WhenOpen([&](QWidget* w) {
    folder = seen(w, w->windowTitle());
    static_cast<QDialog*>(w)->reject();
  });
  prompts.BrowseForFolder("Select Mp3 Folder:");
  EXPECT_EQ(folder.owner, &editor);
  EXPECT_TRUE(folder.onTop);
}

TEST(QtPrompts, FolderChooserGivesAFolderOrNothing) {
  QtPrompts prompts;
  QTemporaryDir dir;
  QFileDialog::FileMode mode = QFileDialog::AnyFile;
  QString title;
  WhenOpen([&](QWidget* w) {
    auto* dialog = qobject_cast<QFileDialog*>(w);
    ASSERT_NE(dialog, nullptr);
    mode = dialog->fileMode();
    title = dialog->windowTitle();
    dialog->setDirectory(dir.path());
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(prompts.BrowseForFolder("pick a folder of mp3s"), dir.path().toStdString());
  EXPECT_EQ(mode, QFileDialog::Directory);
  EXPECT_EQ(title, "pick a folder of mp3s");

  WhenOpen([](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
  EXPECT_EQ(prompts.BrowseForFolder("again"), "");
}

}  // namespace
}  // namespace qc
