#include "program/startup.h"

#include <QDir>
#include <QFontMetrics>
#include <QCloseEvent>
#include <QLockFile>
#include <QStandardPaths>
#include <QTimer>
#include <vector>

#include "run/chat.h"
#include "ui/qt_glue.h"
#include "ui/services.h"
#include "ui/settings_store.h"
#include "ui/window_routines.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "client/window_routines.h"
#include "client/window_system.h"
#include "shell/main_skin.h"
#include "program/menu_wiring.h"
#include "shell/skin_art.h"


namespace qc {

const char* const kGenerationWarningText =
    "QUILL CAST v.qc27e has detected a version of AOL that will not work. QUILL CAST is "
    "programed to work with AOL 95 and AOL 5.0 (32bit) only; using it with other versions of "
    "AOL may cause errors, stalling, and freezing. A version of AOL 5.0 can be found at Keyword: "
    "UPGRADE, and a version of AOL 95 can be found on an AOL software cd; make sure to install "
    "AOL 95 for windows 95.";

namespace {

constexpr const char* kLeftProperty = "twipsLeft";

// The label's Left in twips as last set; pixels alone would lose the odd twips of each step.
double LabelLeft(const Label& label) {
  const QVariant v = label.property(kLeftProperty);
  return v.isValid() ? v.toDouble() : TwipsLeft(&label);
}

void SetLabelLeft(Label& label, double left) {
  label.setProperty(kLeftProperty, left);
  SetTwipsLeft(&label, left);
}

}  // namespace

InstanceLock::InstanceLock(const QString& lockPath) : lock_(std::make_unique<QLockFile>(lockPath)) {
  // A lock left by a crashed instance is taken over; a live one is not.
  lock_->setStaleLockTime(0);
  acquired_ = lock_->tryLock(0);
}

InstanceLock::~InstanceLock() = default;

QString InstanceLock::DefaultPath() {
  // Per user: another user's copy on the same machine is no second instance.
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  const QString dir = runtime.isEmpty() ? QDir::tempPath() : runtime;
  QDir().mkpath(dir);
  return QDir(dir).filePath(QStringLiteral("quillcast.lock"));
}

FrmStart::FrmStart(ProgramWindows windows, const Services& services, QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint), w_(windows), services_(services) {
  setObjectName(QStringLiteral("frmStart"));
  setWindowTitle(QStringLiteral("quill cast"));
  SetTwipsSize(this, 5700, 2400);
  setAutoFillBackground(true);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, QColor(0x1d, 0x1f, 0x26));
  pal.setColor(QPalette::WindowText, QColor(0x9f, 0x86, 0x60));
  setPalette(pal);

  auto* logo = new QLabel(this);
  logo->setObjectName(QStringLiteral("imgLogo"));
  const QPixmap art = SkinArt(QStringLiteral("logo"));
  if (!art.isNull()) logo->setPixmap(art);
  logo->setAlignment(Qt::AlignCenter);
  SetTwipsGeometry(logo, 0, 150, 5700, 1200);

  auto* name = new QLabel(QStringLiteral("quill cast"), this);
  name->setObjectName(QStringLiteral("lblName"));
  QFont big = name->font();
  big.setPointSizeF(big.pointSizeF() * 1.6);
  big.setBold(true);
  name->setFont(big);
  name->setAlignment(Qt::AlignCenter);
  QPalette light = name->palette();
  light.setColor(QPalette::WindowText, QColor(0xcf, 0xe2, 0xee));
  name->setPalette(light);
  SetTwipsGeometry(name, 0, 1350, 5700, 450);
  setStyleSheet(QStringLiteral("#frmStart { background: #1d1f26; border: 1px solid #60869f; }"
                               " #lblVersion { color: #9f8660; } #lblName { color: #cfe2ee; }"));
  setAttribute(Qt::WA_StyledBackground, true);

  lblVersion = new Label(QStringLiteral("lblVersion"), QString::fromLatin1(kVersionCaption), this);
  // As wide as its start lies outside the left edge, so that none of it shows before the
  // slide; the bold face is made small enough to fit.
  SetTwipsGeometry(lblVersion, 0, 1900, -kVersionStartLeft, 300);
  QFont f = lblVersion->font();
  f.setBold(true);
  for (int px = 12; px > 7; --px) {
    f.setPixelSize(px);
    if (QFontMetrics(f).horizontalAdvance(lblVersion->text()) < lblVersion->width()) break;
  }
  lblVersion->setFont(f);

  tmrLoad = new QTimer(this);
  tmrLoad->setObjectName(QStringLiteral("tmrLoad"));
  tmrLoad->setInterval(kLoadIntervalMs);
  connect(tmrLoad, &QTimer::timeout, this, &FrmStart::LoadTick);
}

void FrmStart::Open() {
  WarnOnClientGeneration(services_);
  CenterWindow(this);
  StayOnTop(this);
  SetLabelLeft(*lblVersion, kVersionStartLeft);
  show();
  tmrLoad->start();
}

void FrmStart::LoadTick() {
  // A nested pump inside the slide must not tick a second time.
  tmrLoad->stop();
  SlideVersionLabel(*lblVersion);
  Pause(0.2);
  // Touching frmMain's counters loads it: size, outline, centre, on top.
  LoadMainSkin(*w_.frmMain, services_.deskArea);
  RestoreUserSettings(*w_.frmMain, *w_.frmMenu, services_);
  GreetChatRoom(*w_.frmMain, services_);
  w_.frmMain->show();
  hide();
  emit loaded();
  deleteLater();
}

void FrmStart::closeEvent(QCloseEvent* e) {
  if (e->spontaneous()) {
    e->ignore();
    return;
  }
  QWidget::closeEvent(e);
}

bool WarnOnClientGeneration(const Services& services) {
  const int generation = ClientVersion(services.windows);
  if (generation != 2 && generation != 4) return false;
  services.prompts.MsgBox(kGenerationWarningText, kWarningFlags, kWarningTitle);
  return true;
}

void SlideVersionLabel(Label& label) {
  double left = LabelLeft(label);
  do {
    left += kVersionStep;
    SetLabelLeft(label, left);
    DoEvents();
  } while (left < kVersionStopBelow);
}

void RestoreUserSettings(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services) {
  const std::string screenName = FromCodePage(ClientScreenName(services.windows));
  for (Option item : kOptions)
    frmMenu.setCheck(item, FlagIsOn(services.settings.Read(FlagSetting(item), screenName)));
  frmMenu.lblHandle->SetCaption(services.settings.Read(Setting::kHandle, screenName));
  frmMenu.lblRename->SetCaption(services.settings.Read(Setting::kRename, screenName));
  frmMain.lblMBs->SetCaption(services.settings.Read(Setting::kMbs, screenName));
  frmMain.lblUps->SetCaption(services.settings.Read(Setting::kUps, screenName));
  frmMenu.userHandle->setText(ToQ(HandleItemCaption(frmMenu.lblHandle->Caption())));
}

void SaveUserSettings(const FrmMain& frmMain, const FrmMenu& frmMenu, SettingsStore& settings) {
  // One write of the store for all thirteen keys: the exit ends the program at once after it,
  // and a kill in the midst leaves the last start's values or all the new ones.
  std::vector<SettingValue> values;
  auto add = [&values](Setting s, const std::string& v) { values.push_back({SettingOf(s).key, v}); };
  for (Option item : kOptions) add(FlagSetting(item), FlagText(frmMenu.check(item)));
  add(Setting::kMbs, frmMain.lblMBs->Caption());
  add(Setting::kUps, frmMain.lblUps->Caption());
  add(Setting::kHandle, frmMenu.lblHandle->Caption());
  add(Setting::kRename, frmMenu.lblRename->Caption());
  settings.Save(kOptionsSection, values);
}

void ExitProgram(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services) {
  frmMain.hide();
  SayGoodbyeInChat(frmMain, services);
  SaveUserSettings(frmMain, frmMenu, services.settings);
  // At once: no window, no pending event and no waiting run gets to run code again.
  services.endProgram(0);
}

void GreetChatRoom(const FrmMain& frmMain, const Services& services) {
  SendStartBlock(frmMain, services.windows);
}

void SayGoodbyeInChat(const FrmMain& frmMain, const Services& services) {
  SendEndBlock(frmMain, services.windows);
}

}  // namespace qc
