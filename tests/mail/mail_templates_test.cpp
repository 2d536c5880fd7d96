// The template editors where the program scenarios cannot reach: where a key goes in either kind
// of box, and the popup each editor's options button opens. What the editors show, store and write
// are scenarios of the program (tests/program/scenarios/mail_*_editor); what they save reaching a
// run is the run scenarios' business.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTextCursor>
#include <QTimer>

#include "mail/mail_editors.h"
#include "support/sandbox.h"
#include "ui/frmmenu.h"

namespace qc::test {
namespace {

using TemplateTest = SandboxTest;

TEST(InsertTemplateKey, ReplacesTheSelectionOrGoesInAtTheCaret) {
  QLineEdit line(QStringLiteral("[a - b]"));
  line.setSelection(5, 1);  // "b"
  InsertTemplateKey(&line, TemplateKey::kIdTitle);
  EXPECT_EQ(line.text(), QString("[a - idTitle$]"));
  line.setCursorPosition(1);
  InsertTemplateKey(&line, TemplateKey::kFileName);
  EXPECT_EQ(line.text(), QString("[fileName$a - idTitle$]"));
  QPlainTextEdit body(QStringLiteral("x[sel]y"));
  QTextCursor c = body.textCursor();
  c.setPosition(1);
  c.setPosition(6, QTextCursor::KeepAnchor);
  body.setTextCursor(c);
  InsertTemplateKey(&body, TemplateKey::kIdYear);
  EXPECT_EQ(body.toPlainText(), QString("xidYear$y"));
}

TEST_F(TemplateTest, MenuItemsOpenEachEditorOnceWithItsPopupUnderItsButton) {
  FrmMenu menu;
  const MailEditors& editors = ConnectMailEditors(menu, services);
  menu.editmailform->trigger();
  FrmEmailto* lists = editors.mailList.data();
  ASSERT_NE(lists, nullptr);
  menu.editmailform->trigger();
  EXPECT_EQ(editors.mailList.data(), lists);
  EXPECT_TRUE(lists->isVisible());
  menu.editSubject->trigger();
  menu.editBody->trigger();
  // Each editor's options button opens its popup under it (the body's, as one of three).
  const std::tuple<SecondaryWindow*, Command3D*, QMenu*> cases[] = {
      {lists, lists->cmdMenu, menu.mnuEmailto},
      {editors.subject.data(), editors.subject.data()->cmdMenu, menu.subjoptions},
      {editors.body.data(), editors.body.data()->cmdMenu, menu.bodyOpt},
  };
  for (const auto& [window, button, tree] : cases) {
    QMenu* shown = nullptr;
    QTimer::singleShot(0, [&] {
      shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (shown) shown->close();
    });
    button->click();
    EXPECT_EQ(shown, tree);
    window->saveAndExit();
  }
}

}  // namespace
}  // namespace qc::test
