#include "catalogue/catalogue.h"

#include <QAction>
#include <QPalette>

#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "catalogue/folder_list.h"
#include "catalogue/frm_idedit.h"
#include "catalogue/info_mode.h"

namespace qc {

namespace {

void SetForeColor(QWidget* w, unsigned bgr) {
  QPalette pal = w->palette();
  pal.setColor(QPalette::WindowText, ColorFromBgr(bgr));
  w->setPalette(pal);
}

}  // namespace

void ConnectCatalogue(FrmMain& frmMain, FrmMenu2& frmMenu2, const Services& services) {
  FrmMain* f = &frmMain;
  const Services* s = &services;
  Prompts* p = &services.prompts;
  f->lstMp3->SetMultiSelect(ListBox::kExtended);
  f->lstUp->SetMultiSelect(ListBox::kExtended);

  const std::pair<Label*, void (*)(FrmMain&)> clicks[] = {
      {f->lbl_refresh, RefreshFolderList},
      {f->lblRemove, RemoveSelectedMp3s},
      {f->lblMp3list, ShowListView},
      {f->lblSelected, ShowSelectedView},
      {f->picSelect, GoSelectMode},
      {f->picInfo, GoInfoMode},
      {f->picDown, ShowNextFile},
      {f->picUp, ShowPreviousFile},
  };
  for (const auto& [control, handler] : clicks)
    QObject::connect(control, &Label::clicked, control, [f, h = handler] { h(*f); });
  QObject::connect(f->lbl_Add, &Label::clicked, f->lbl_Add,
                   [f, s] { AddSelectedMp3s(*f, s->settings); });
  QObject::connect(f->lblSetfolder, &Label::clicked, f->lblSetfolder,
                   [f, p] { ChooseFolder(*f, *p); });
  QObject::connect(f->lbl_Clr, &Label::clicked, f->lbl_Clr, [f, p] { ClearFolderList(*f, *p); });
  QObject::connect(f->lbl_Id, &Label::clicked, f->lbl_Id,
                   [f, s] { OpenTagEditor(*f, *f->lstPaths, *f->lstMp3, true, *s); });
  QObject::connect(f->lblIdview, &Label::clicked, f->lblIdview,
                   [f, s] { OpenTagEditor(*f, *f->lstPathSelect, *f->lstUp, false, *s); });

  // The small labels show that they are held down.
  for (Label* l : {f->lblSetfolder, f->lbl_Add, f->lbl_Clr, f->lbl_refresh, f->lbl_Id,
                   f->lblRemove, f->lblIdview, f->lblMp3list, f->lblSelected}) {
    QObject::connect(l, &Label::mouseDown, l, [l] { SetForeColor(l, kLabelPressedColour); });
    QObject::connect(l, &Label::mouseUp, l, [l] { SetForeColor(l, 0); });
  }

  QObject::connect(f->txtSubj, &QLineEdit::textChanged, f->txtSubj,
                   [f] { SubjectTextChanged(*f); });
  QObject::connect(f->txtSubj, &TextBox::keyPress, f->txtSubj,
                   [f](int key) { SubjectKeyPress(*f, key); });

  FrmMenu2* m = &frmMenu2;
  QObject::connect(m->addmp3, &QAction::triggered, m, [f, s] { AddCurrentMp3(*f, s->settings); });
  QObject::connect(m->viewidtag, &QAction::triggered, m,
                   [f, s] { OpenTagEditor(*f, *f->lstPaths, *f->lstMp3, false, *s); });
  QObject::connect(m->refreshlist, &QAction::triggered, m, [f] { RefreshFolderList(*f); });
  QObject::connect(m->rmvmp33, &QAction::triggered, m, [f] { RemoveCurrentMp3(*f); });
  QObject::connect(m->editviewidtagg, &QAction::triggered, m,
                   [f, s] { OpenTagEditor(*f, *f->lstPathSelect, *f->lstUp, false, *s); });
}

}  // namespace qc
