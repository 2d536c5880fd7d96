#include "shell/main_skin.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPalette>

#include "ui/secondary_window.h"
#include "ui/window_routines.h"
#include "ui/frmmain.h"
#include "base/pump.h"
#include "shell/region.h"
#include "shell/roll.h"
#include "shell/skin_art.h"
#include "shell/skin_layout.h"
#include "shell/status_texts.h"

namespace qc {
namespace {

QSize ArtSizeOf(int number) {
  for (const skin::ArtSize& a : skin::kArtSizes)
    if (a.number == number) return {a.width, a.height};
  return {};
}

void SetTextColour(QWidget* w, const QColor& c) {
  QPalette pal = w->palette();
  pal.setColor(QPalette::WindowText, c);
  w->setPalette(pal);
}

QString ItemCount(const ListBox* list) { return QString::number(list->EntryCount()); }

}  // namespace

MainSkin::MainSkin(FrmMain& form, DeskSource desk)
    : QObject(&form), f_(form), desk_(std::move(desk)) {
  setObjectName(QStringLiteral("mainSkin"));
  loadArt();
  placeFace();
  bindButtons();
  bindTexts();
  // Presses on the bare skin move the window.
  f_.installEventFilter(this);
}

void MainSkin::loadArt() {
  f_.Picture1->setPixmap(SkinArt(QStringLiteral("picture1")));
  for (int i = 1; i <= 16; ++i) {
    f_.p[i]->setPixmap(ButtonArt(i));
    f_.p[i]->resize(ArtSizeOf(i));
  }
  QPalette pal = f_.palette();
  pal.setBrush(QPalette::Window, QBrush(SkinArt(QStringLiteral("background"))));
  f_.setPalette(pal);
  f_.setAutoFillBackground(true);
}

void MainSkin::placeFace() {
  for (const skin::Place& pl : skin::kFacePlaces) {
    if (auto* b = f_.findChild<PictureBox*>(QLatin1String(pl.control))) {
      const QSize s = ArtSizeOf(pl.releaseArt);
      SetTwipsGeometry(b, ToTwipsX(pl.x), ToTwipsY(pl.y), ToTwipsX(s.width()),
                       ToTwipsY(s.height()));
    }
  }
  for (const skin::Place& pl : skin::kPanelPlaces) {
    if (auto* b = f_.findChild<PictureBox*>(QLatin1String(pl.control)))
      b->resize(ArtSizeOf(pl.releaseArt));
  }
  // Light text on the two dark displays.
  const QColor displayText(0xCF, 0xE2, 0xEE);
  SetTwipsGeometry(f_.Label1, ToTwipsX(skin::kCounterX), ToTwipsY(skin::kCounterY),
                   ToTwipsX(skin::kCounterW), ToTwipsY(skin::kCounterH));
  f_.Label1->setAlignment(Qt::AlignCenter);
  SetTextColour(f_.Label1, displayText);
  f_.lblShow->setAlignment(Qt::AlignCenter);
  SetTextColour(f_.lblShow, displayText);
  f_.lblShow->raise();
  // The panels share the steel face the artwork leaves for them.
  for (QWidget* panel : {static_cast<QWidget*>(f_.pnlSelect), static_cast<QWidget*>(f_.pnlInfo),
                         static_cast<QWidget*>(f_.pnlTag)}) {
    QPalette pal = panel->palette();
    pal.setColor(QPalette::Window, skin::kFace);
    pal.setColor(QPalette::WindowText, skin::kText);
    panel->setPalette(pal);
    panel->setAutoFillBackground(true);
  }
}

void MainSkin::bindButtons() {
  // Press shows the first picture of the pair and release the second, taken from the store.
  auto bind = [this](const skin::Place& pl) {
    auto* b = f_.findChild<PictureBox*>(QLatin1String(pl.control));
    if (!b) return;
    PictureBox* press = f_.p[pl.pressArt];
    PictureBox* release = f_.p[pl.releaseArt];
    b->setPixmap(release->pixmap());
    connect(b, &Label::mouseDown, b, [b, press] { b->setPixmap(press->pixmap()); });
    connect(b, &Label::mouseUp, b, [b, release] { b->setPixmap(release->pixmap()); });
  };
  for (const skin::Place& pl : skin::kFacePlaces) bind(pl);
  for (const skin::Place& pl : skin::kPanelPlaces) bind(pl);

  if (f_.picMini->toolTip().isEmpty()) f_.picMini->setToolTip(QLatin1String(kRollUp));
  connect(f_.picMini, &Label::clicked, this,
          [this] { RollUpOrDown(&f_, f_.picMini, f_.picMini->Tag); });
}

void MainSkin::bindTexts() {
  Label* show = f_.lblShow;
  texts_ = new StatusTexts([show](const QString& t) { show->setText(t); }, this);
  StatusTexts& t = *texts_;
  t.hover(&f_, QLatin1String(kWindowStatusText));
  const std::pair<QWidget*, const char*> fixed[] = {
      {f_.picBut1, "start tagging selected mp3s"},
      {f_.picBut2, "cancel tagging"},
      {f_.picBut3, "upchat"},
      {f_.picBut4, "upchat off"},
      {f_.picBut5, "scroll current upchat stats"},
      {f_.picExit, "exit"},
      {f_.picMini, "roll up/down"},
      {f_.picMenu1, "'file' menu"},
      {f_.picMenu2, "'setup' menu"},
      {f_.picMenu3, "'other' menu"},
      {f_.picInfo, "info mode - view mp3s selected"},
      {f_.picSelect, "select mode - choose mp3s to upload"},
      {f_.picUp, "previous index"},
      {f_.picDown, "next index"},
      {f_.lblIndex, "current index"},
      {f_.lblTitle, "mp3 title"},
      {f_.lblArtist, "mp3 artists"},
      {f_.lblAlbum, "mp3 album"},
      {f_.lblYear, "mp3 year"},
      {f_.lblMb, "mp3 size"},
      {f_.txtSubj, "to edit, make changes and hit 'enter'"},
      {f_.lblSetfolder, "click here to select mp3 folder"},
      {f_.lblMp3list, "view mp3 folder contents"},
      {f_.lblSelected, "view mp3s selected to be uploaded"},
      {f_.lbl_Add, "add selected mp3s"},
      {f_.lbl_Clr, "clear list"},
      {f_.lbl_Id, "view id"},
      {f_.lbl_refresh, "refresh list"},
      {f_.lblIdview, "view id"},
      {f_.lblRemove, "remove selected"},
  };
  for (const auto& [control, text] : fixed) t.hover(control, QString::fromLatin1(text));
  // The genre speaks on a click, not on moves.
  t.onClick(f_.lblGenre, QStringLiteral("mp3 genre"));
  ListBox* mp3 = f_.lstMp3;
  ListBox* up = f_.lstUp;
  t.hover(mp3, [mp3] { return QStringLiteral("select mp3s to up : ") + ItemCount(mp3); });
  t.hover(up, [up] { return QStringLiteral("mp3s choosen to be uploaded : ") + ItemCount(up); });
}

bool MainSkin::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &f_ || event->type() != QEvent::MouseButtonPress) return false;
  auto* e = static_cast<QMouseEvent*>(event);
  // Only the bare skin: a press that a panel passes up is no press on the window.
  if (f_.childAt(e->position().toPoint())) return false;
  f_.setCursor(Qt::SizeAllCursor);
  DoEvents();
  DragAndSnap(&f_, desk_);
  f_.unsetCursor();
  return true;
}

MainSkin* LoadMainSkin(FrmMain& form, const DeskSource& desk) {
  auto* skin = form.findChild<MainSkin*>(QStringLiteral("mainSkin"), Qt::FindDirectChildrenOnly);
  if (!skin) skin = new MainSkin(form, desk);
  SetTwipsSize(&form, TwipsWidth(form.Picture1), TwipsHeight(form.Picture1));
  ApplySkin(&form, *form.Picture1);
  CenterWindow(&form);
  StayOnTop(&form);
  return skin;
}

}  // namespace qc
