// The subject, body and decoration editors, the opening of all four editors, and their menus.
#include <QFont>
#include <QTextCursor>
#include <memory>

#include "ui/app_path.h"
#include "ui/qt_glue.h"
#include "ui/settings_store.h"
#include "ui/window_routines.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "mail/mail_editors.h"

namespace qc {

namespace {

void TakeBackColor(QWidget* w, const QColor& c) {
  QPalette p = w->palette();
  p.setColor(QPalette::Base, c);
  w->setPalette(p);
}

void UseSmallFont(QWidget* w) {
  QFont f = w->font();
  f.setPixelSize(10);
  w->setFont(f);
}

}  // namespace

std::string EditorDefaultBody() {
  return "paste your group tag here!\r\n"
         "\r\n"
         "title:\t\t\tidTitle$\r\n"
         "artist:\t\t\tidArtist$\r\n"
         "album:\t\t\tidAlbum$\r\n"
         "release year:\t\tidYear$\r\n"
         "genre:\t\t\tidGenre$\r\n"
         "upload date:\t\tsysDate$\r\n"
         "uploaded by:\t\tmyHandle$\r\n"
         "file size:\t\t\tfileSize$\r\n"
         "file name:\t\tfileName$\r\n"
         "comment:\t\tidComment$";
}

void InsertTemplateKey(QWidget* box, TemplateKey key) {
  const QString text = ToQ(KeyText(key));
  if (auto* line = qobject_cast<QLineEdit*>(box)) {
    line->insert(text);  // replaces the selection
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(box)) {
    plain->insertPlainText(text);
  }
  box->setFocus();
}

FrmSubject::FrmSubject(const Services& services, FrmMenu* menu, QWidget* parent)
    : SecondaryWindow(QStringLiteral("frmSubject"), QStringLiteral("edit subject line"), 4095,
                      1590, services.deskArea, parent) {
  Panel3D* face = pnlFrame();
  UseSmallFont(this);
  txtSubj = new QLineEdit(face);
  txtSubj->setObjectName(QStringLiteral("txtSubj"));
  QFont arial(QStringLiteral("Arial"));
  arial.setPixelSize(12);
  txtSubj->setFont(arial);
  txtSubj->setText(ToQ(SettingOf(Setting::kSubject).fixedDefault));
  SetTwipsGeometry(txtSubj, 120, 420, 3855, 315);
  pnlInfo = new Panel3D(face, QStringLiteral("pnlInfo"));
  pnlInfo->setBevel(Panel3D::Bevel::kInset, 1);
  pnlInfo->setCaptionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  SetTwipsGeometry(pnlInfo, 120, 795, 3855, 255);
  panelSep = new Panel3D(face, QStringLiteral("panelSep"));
  panelSep->setBevel(Panel3D::Bevel::kInset, 1);
  SetTwipsGeometry(panelSep, 120, 1110, 3855, 30);
  cmdMenu = new Command3D(QStringLiteral("&tags"), face, QStringLiteral("cmdMenu"));
  SetTwipsGeometry(cmdMenu, 120, 1185, 1800, 285);
  cmdExit = addSaveExit(QStringLiteral("cmdExit"), QStringLiteral("save && e&xit"), 2175, 1185,
                        1800, 285);
  SettingsStore* settings = &services.settings;
  setSaveHook([this, settings] { settings->Write(Setting::kSubject, FromQ(txtSubj->text())); });
  connect(txtSubj, &QLineEdit::textChanged, this, [this] { UpdateLetterCount(); });
  QPointer<FrmMenu> m(menu);
  connect(cmdMenu, &QPushButton::clicked, this, [this, m] {
    if (m) PopupUnder(m->subjoptions, cmdMenu, this);
  });

  sizeFromFrame();
  CenterWindow(this);
  StayOnTop(this);
  TakeBackColor(txtSubj, face->backColor());
  txtSubj->setText(ToQ(services.settings.Read(Setting::kSubject)));
  UpdateLetterCount();
}

void FrmSubject::UpdateLetterCount() {
  pnlInfo->setCaption(QStringLiteral(" letter count: ") + QString::number(txtSubj->text().size()));
}

FrmBody::FrmBody(const Services& services, FrmMenu* menu, QWidget* parent)
    : SecondaryWindow(QStringLiteral("frmBody"), QStringLiteral("edit body"), 4095, 2880,
                      services.deskArea, parent) {
  Panel3D* face = pnlFrame();
  UseSmallFont(this);
  txtBody = new QPlainTextEdit(face);
  txtBody->setObjectName(QStringLiteral("txtBody"));
  txtBody->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  txtBody->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  txtBody->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtBody->setTabStopDistance(36);
  SetTwipsGeometry(txtBody, 120, 420, 3855, 1920);
  panelSep = new Panel3D(face, QStringLiteral("panelSep"));
  panelSep->setBevel(Panel3D::Bevel::kInset, 1);
  SetTwipsGeometry(panelSep, 120, 2400, 3855, 30);
  cmdMenu = new Command3D(QStringLiteral("&tags"), face, QStringLiteral("cmdMenu"));
  SetTwipsGeometry(cmdMenu, 120, 2475, 1800, 285);
  cmdExit = addSaveExit(QStringLiteral("cmdExit"), QStringLiteral("save && e&xit"), 2175, 2475,
                        1800, 285);
  setSaveHook([this] { SaveTextFrom(txtBody, BodyTemplatePath()); });
  QPointer<FrmMenu> m(menu);
  connect(cmdMenu, &QPushButton::clicked, this, [this, m] {
    if (m) PopupUnder(m->bodyOpt, cmdMenu, this);
  });

  sizeFromFrame();
  CenterWindow(this);
  StayOnTop(this);
  TakeBackColor(txtBody, face->backColor());
  LoadTextInto(txtBody, BodyTemplatePath());
  if (BoxText(txtBody).empty()) {
    // Opening the window is enough to create the file.
    SetBoxText(txtBody, EditorDefaultBody());
    SaveTextFrom(txtBody, BodyTemplatePath());
  }
}

FrmHead::FrmHead(const Services& services, QWidget* parent)
    : SecondaryWindow(QStringLiteral("frmHead"), QStringLiteral("head/footer options"), 2400,
                      1290, services.deskArea, parent) {
  Panel3D* face = pnlFrame();
  UseSmallFont(this);
  SSFrame1 = new Frame3D(QStringLiteral("ascii:"), face, QStringLiteral("SSFrame1"));
  SetTwipsGeometry(SSFrame1, 120, 360, 2160, 480);
  Label1 = new QLabel(QStringLiteral("start:"), SSFrame1);
  Label1->setObjectName(QStringLiteral("Label1"));
  SetTwipsGeometry(Label1, 90, 195, 435, 225);
  asciiFront = new QLineEdit(SSFrame1);
  asciiFront->setObjectName(QStringLiteral("asciiFront"));
  asciiFront->setText(ToQ(SettingOf(Setting::kAscii1).fixedDefault));
  SetTwipsGeometry(asciiFront, 510, 180, 585, 255);
  Label2 = new QLabel(QStringLiteral("end:"), SSFrame1);
  Label2->setObjectName(QStringLiteral("Label2"));
  SetTwipsGeometry(Label2, 1140, 195, 375, 225);
  asciiBack = new QLineEdit(SSFrame1);
  asciiBack->setObjectName(QStringLiteral("asciiBack"));
  asciiBack->setText(ToQ(SettingOf(Setting::kAscii2).fixedDefault));
  SetTwipsGeometry(asciiBack, 1500, 180, 585, 255);
  SSCommand1 = addSaveExit(QStringLiteral("SSCommand1"), QStringLiteral("save && exit"), 120, 900,
                           2160, 285);
  SettingsStore* settings = &services.settings;
  setSaveHook([this, settings] {
    settings->Write(Setting::kAscii1, FromQ(asciiFront->text()));
    settings->Write(Setting::kAscii2, FromQ(asciiBack->text()));
  });

  sizeFromFrame();
  TakeBackColor(asciiFront, face->backColor());
  TakeBackColor(asciiBack, face->backColor());
  asciiFront->setText(ToQ(services.settings.Read(Setting::kAscii1)));
  asciiBack->setText(ToQ(services.settings.Read(Setting::kAscii2)));
}

const MailEditors& ConnectMailEditors(FrmMenu& frmMenu, const Services& services) {
  FrmMenu* menu = &frmMenu;
  const Services* s = &services;
  // Held by the connections below: gone with frmMenu's.
  const auto e = std::make_shared<MailEditors>();
  QObject::connect(frmMenu.editmailform, &QAction::triggered, menu,
                   [s, menu, e] { OpenSecondary(e->mailList, *s, menu); });
  QObject::connect(frmMenu.editSubject, &QAction::triggered, menu,
                   [s, menu, e] { OpenSecondary(e->subject, *s, menu); });
  QObject::connect(frmMenu.editBody, &QAction::triggered, menu,
                   [s, menu, e] { OpenSecondary(e->body, *s, menu); });
  QObject::connect(frmMenu.headfootopt, &QAction::triggered, menu,
                   [s, e] { OpenSecondary(e->head, *s); });

  // The list commands work on the open editor's active list.
  const std::pair<QAction*, void (FrmEmailto::*)()> listCommands[] = {
      {frmMenu.copyList, &FrmEmailto::CopyList},
      {frmMenu.copySelected, &FrmEmailto::CopySelected},
      {frmMenu.listSelectall, &FrmEmailto::SelectAll},
      {frmMenu.chkRmvAll, &FrmEmailto::CheckAndRemoveFullBoxes},
      {frmMenu.rmvSelected, &FrmEmailto::RemoveSelected},
      {frmMenu.rmvAll, &FrmEmailto::RemoveAll},
  };
  for (const auto& [action, command] : listCommands) {
    auto c = command;
    QObject::connect(action, &QAction::triggered, menu, [c, e] {
      if (FrmEmailto* w = e->mailList) (w->*c)();
    });
  }

  const std::pair<QAction*, TemplateKey> subjectKeys[] = {
      {frmMenu.insrtFile, TemplateKey::kFileName},   {frmMenu.insrtsize, TemplateKey::kFileSize},
      {frmMenu.insrtTitle, TemplateKey::kIdTitle},   {frmMenu.insrtartist, TemplateKey::kIdArtist},
      {frmMenu.insrtalbum, TemplateKey::kIdAlbum},   {frmMenu.insrtgenre, TemplateKey::kIdGenre},
  };
  for (const auto& [action, key] : subjectKeys) {
    const TemplateKey k = key;
    QObject::connect(action, &QAction::triggered, menu, [k, e] {
      if (FrmSubject* w = e->subject) InsertTemplateKey(w->txtSubj, k);
    });
  }

  const std::pair<QAction*, TemplateKey> bodyKeys[] = {
      {frmMenu.inserttitle, TemplateKey::kIdTitle},     {frmMenu.insertartist, TemplateKey::kIdArtist},
      {frmMenu.insertalbum, TemplateKey::kIdAlbum},     {frmMenu.insertyear, TemplateKey::kIdYear},
      {frmMenu.insertgenre, TemplateKey::kIdGenre},     {frmMenu.insertcomment, TemplateKey::kIdComment},
      {frmMenu.insertdate, TemplateKey::kSysDate},      {frmMenu.inserthandle, TemplateKey::kMyHandle},
      {frmMenu.insertfsize, TemplateKey::kFileSize},    {frmMenu.insertfname, TemplateKey::kFileName},
  };
  for (const auto& [action, key] : bodyKeys) {
    const TemplateKey k = key;
    QObject::connect(action, &QAction::triggered, menu, [k, e] {
      if (FrmBody* w = e->body) InsertTemplateKey(w->txtBody, k);
    });
  }
  return *e;
}

}  // namespace qc
