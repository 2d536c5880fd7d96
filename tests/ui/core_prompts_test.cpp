// The Qt prompts, answered from a timer while their dialogs run.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
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

TEST(QtPrompts, MessageBoxShowsTextTitleIconAndButtonsOnTopAndGivesTheAnswer) {
  QtPrompts prompts;
  using Box = QMessageBox;
  const struct {
    int flags;
    Box::Icon icon;
    Box::StandardButtons buttons;
    Box::StandardButton press;  // none: the box is closed
    int answer;
  } cases[] = {
      {kOkOnly, Box::NoIcon, Box::Ok, Box::Ok, kAnswerOk},
      {kCritical | kSystemModal, Box::Critical, Box::Ok, Box::Ok, kAnswerOk},
      {kExclamation, Box::Warning, Box::Ok, Box::Ok, kAnswerOk},
      {kInformation | kSystemModal, Box::Information, Box::Ok, Box::Ok, kAnswerOk},
      {kYesNo | kQuestion, Box::Question, Box::Yes | Box::No, Box::Yes, kAnswerYes},
      {kYesNo, Box::NoIcon, Box::Yes | Box::No, Box::No, kAnswerNo},
      {kYesNo, Box::NoIcon, Box::Yes | Box::No, Box::NoButton, kAnswerNo},
  };
  for (const auto& c : cases) {
    QString text, title;
    Box::Icon icon = Box::NoIcon;
    Box::StandardButtons buttons;
    bool onTop = false;
    WhenOpen([&](QWidget* w) {
      auto* box = qobject_cast<Box*>(w);
      ASSERT_NE(box, nullptr);
      text = box->text();
      title = box->windowTitle();
      icon = box->icon();
      buttons = box->standardButtons();
      onTop = box->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
      c.press == Box::NoButton ? void(box->close()) : box->button(c.press)->click();
    });
    EXPECT_EQ(prompts.MsgBox("no files\xC3\xA8 chosen", c.flags, "error:"), c.answer) << c.flags;
    EXPECT_EQ(text, QString::fromUtf8("no files\xC3\xA8 chosen"));
    EXPECT_EQ(title, "error:");
    EXPECT_EQ(icon, c.icon) << c.flags;
    EXPECT_EQ(buttons, c.buttons) << c.flags;
    if (c.flags & kSystemModal) {
      EXPECT_TRUE(onTop);
    }
    EXPECT_EQ(QtPrompts::OpenDialog(), nullptr);
  }
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
  QWidget* owner = nullptr;
  bool onTop = false;
  QString text;
  auto ask = [&](const std::function<void()>& prompt) {
    owner = nullptr;
    onTop = false;
    WhenOpen([&](QWidget* w) {
      owner = w->parentWidget();
      onTop = w->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
      if (auto* input = qobject_cast<QInputDialog*>(w)) text = input->labelText();
      if (auto* box = qobject_cast<QMessageBox*>(w)) {
        text = box->text();
        box->button(QMessageBox::Ok)->click();
      }
      if (w->isVisible()) static_cast<QDialog*>(w)->reject();
    });
    prompt();
  };
  ask([&] { prompts.InputBox("rename to...\r\r\r...30 letters max.", "id tags", "", 15, 15); });
  EXPECT_EQ(owner, &mainForm);  // nothing of ours active: the main window
  EXPECT_TRUE(onTop);
  EXPECT_EQ(text, "rename to...\n\n\n...30 letters max.");
  // An editor the user works in owns what it asks, message boxes of any flags included.
  QWidget editor;
  editor.show();
  const std::function<void()> asked[] = {
      [&] { prompts.MsgBox("line one\rline two\r\n", kOkOnly, "contact"); },
      [&] { prompts.BrowseForFolder("Select Mp3 Folder:"); }};
  for (const auto& prompt : asked) {
    editor.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
    ask(prompt);
    EXPECT_EQ(owner, &editor);
    EXPECT_TRUE(onTop);
  }
  EXPECT_EQ(text, "line one\nline two\n");
}

// A folder chosen under the chooser's title is the GUI test's (the sample folder typed in).
TEST(QtPrompts, FolderChooserTakesFoldersOnlyAndGivesNothingOnACancel) {
  QtPrompts prompts;
  QFileDialog::FileMode mode = QFileDialog::AnyFile;
  WhenOpen([&](QWidget* w) {
    auto* dialog = qobject_cast<QFileDialog*>(w);
    ASSERT_NE(dialog, nullptr);
    mode = dialog->fileMode();
    static_cast<QDialog*>(dialog)->reject();
  });
  EXPECT_EQ(prompts.BrowseForFolder("Select Mp3 Folder:"), "");
  EXPECT_EQ(mode, QFileDialog::Directory);
}

}  // namespace
}  // namespace qc
