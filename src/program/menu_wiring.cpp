#include "program/menu_wiring.h"

#include <QPointer>
#include <memory>

#include "ui/qt_glue.h"
#include "ui/services.h"
#include "ui/settings_store.h"
#include "ui/window_routines.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "run/chat.h"
#include "run/runlog.h"
#include "run/stats.h"
#include "run/tagging_run.h"
#include "base/prompts.h"
#include "catalogue/catalogue.h"
#include "client/client_commands.h"
#include "client/window_system.h"
#include "mail/mail_editors.h"
#include "shell/frm_about.h"
#include "shell/help.h"
#include "program/startup.h"


namespace qc {

namespace {

// The first `count` characters of a UTF-8 text.
std::string FirstCharacters(const std::string& text, int count) {
  const QString q = ToQ(text);
  return q.size() > count ? FromQ(q.left(count)) : text;
}

}  // namespace

std::string HandleItemCaption(const std::string& handle) { return "&handle [" + handle + "]"; }

void AskHandle(FrmMenu& frmMenu, Prompts& prompts) {
  const std::optional<std::string> answer =
      prompts.InputBox("please enter your handle/name...", "handle",
                                frmMenu.lblHandle->Caption(), kInputBoxX, kInputBoxY);
  if (!answer || answer->empty()) return;
  frmMenu.lblHandle->SetCaption(*answer);
  frmMenu.userHandle->setText(ToQ(HandleItemCaption(*answer)));
}

void AskCommentText(FrmMenu& frmMenu, Prompts& prompts) {
  const std::optional<std::string> answer = prompts.InputBox(
      "before uploading, rename all mp3 comment tags to...\r\r\r...30 letters max.", "id tags",
      frmMenu.lblRename->Caption(), kInputBoxX, kInputBoxY);
  if (!answer || answer->empty()) return;
  frmMenu.lblRename->SetCaption(FirstCharacters(*answer, kCommentLimit));
}

void ResetStats(FrmMain& frmMain, SettingsStore& settings) {
  settings.DeleteAll();
  frmMain.lblMBs->SetCaption("0");
  frmMain.lblUps->SetCaption("0");
}

void ConnectMenus(FrmMain& frmMain, FrmMenu& frmMenu, FrmMenu2& frmMenu2,
                  const Services& services) {
  FrmMain* m = &frmMain;
  FrmMenu* menu = &frmMenu;
  const Services* s = &services;
  Prompts* p = &services.prompts;
  WindowSystem* ws = &services.windows;

  // Popups under the picture buttons.
  const std::pair<PictureBox*, QMenu*> popups[] = {
      {frmMain.picMenu1, frmMenu.mnufile},
      {frmMain.picMenu2, frmMenu.mnutag},
      {frmMain.picMenu3, frmMenu.mnuOther},
  };
  for (const auto& [button, tree] : popups) {
    QMenu* t = tree;
    PictureBox* b = button;
    QObject::connect(b, &Label::clicked, m, [t, b, m] { PopupUnder(t, b, m); });
  }

  // file
  QObject::connect(frmMenu.how2use, &QAction::triggered, menu, [p] { ShowHowToUse(*p); });
  for (QAction* web : {frmMenu.weblink1, frmMenu.weblink2, frmMenu.fav1, frmMenu.fav2,
                       frmMenu.fav3, frmMenu.fav4}) {
    const std::string address = FrmMenu::WebAddress(FromQ(web->objectName()));
    QObject::connect(web, &QAction::triggered, menu, [s, address] { s->openWebPage(address); });
  }
  QObject::connect(frmMenu.resetstat, &QAction::triggered, menu,
                   [m, s] { ResetStats(*m, s->settings); });
  QObject::connect(frmMenu.kwaittt, &QAction::triggered, menu,
                   [ws] { KillWait(*ws); });
  QObject::connect(frmMenu.kmodallll, &QAction::triggered, menu,
                   [ws] { KillModal(*ws); });
  QObject::connect(frmMenu.kglyphhh, &QAction::triggered, menu,
                   [ws] { KillGlyph(*ws); });
  auto about = std::make_shared<QPointer<FrmAbout>>();
  QObject::connect(frmMenu.aboutmp33, &QAction::triggered, menu,
                   [menu, about] { OpenAbout(*about, menu->lblHandle->text()); });
  QObject::connect(frmMenu.contactzme, &QAction::triggered, menu, [p] { ShowContact(*p); });
  const auto exit = [m, menu, s] { ExitProgram(*m, *menu, *s); };
  QObject::connect(frmMenu.endprog, &QAction::triggered, menu, exit);
  QObject::connect(frmMain.picExit, &Label::clicked, m, exit);
  // Closing the window from the window manager takes the same road.
  QObject::connect(&frmMain, &FrmMain::closeRequested, m, exit);

  // tag: the nine toggles flip their own check marks; nothing else happens on them.
  QObject::connect(frmMenu.renametags, &QAction::triggered, menu, [menu, p] { AskCommentText(*menu, *p); });

  // othermenu
  QObject::connect(frmMenu.userHandle, &QAction::triggered, menu, [menu, p] { AskHandle(*menu, *p); });

  // The tips of the editors' menus.
  QObject::connect(frmMenu.emailTips, &QAction::triggered, menu, [p] { ShowMailListTips(*p); });
  QObject::connect(frmMenu.subjectTips, &QAction::triggered, menu, [p] { ShowSubjectTips(*p); });
  QObject::connect(frmMenu.bodytips, &QAction::triggered, menu, [p] { ShowBodyTips(*p); });

  // The other subsystems bind their own items and buttons.
  ConnectStats(frmMain, frmMenu, services);
  ConnectRunLog(frmMain, frmMenu, services);
  ConnectCatalogue(frmMain, frmMenu2, services);
  ConnectMailEditors(frmMenu, services);
  ConnectChatTools(frmMain, frmMenu, services);
  ConnectTaggingRun(frmMain, frmMenu, services);
}

}  // namespace qc
