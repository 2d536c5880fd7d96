#include "shell/frm_about.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>

#include "ui/secondary_window.h"
#include "ui/window_routines.h"
#include "ui/shown_text.h"
#include "shell/skin_art.h"

namespace qc {
namespace {

QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent, double left,
                  double top, double width, double height, bool bold = false) {
  auto* l = new QLabel(text, parent);
  l->setObjectName(name);
  l->setTextFormat(Qt::PlainText);  // a handle is text, never markup
  SetTwipsGeometry(l, left, top, width, height);
  if (bold) {
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
  }
  return l;
}

}  // namespace

FrmAbout::FrmAbout(const QString& handle, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("about quill cast"));
  setAttribute(Qt::WA_DeleteOnClose);
  InitSkinResources();

  auto* face = new Panel3D(this, QStringLiteral("pnlAbout"));
  face->setBevel(Panel3D::Bevel::kRaised, 2);
  SetTwipsGeometry(face, 0, 0, 4800, 1980);
  SetTwipsSize(this, 4800, 1980);

  Frame1 = new Frame3D(QString(), face, QStringLiteral("Frame1"));
  SetTwipsGeometry(Frame1, 120, 90, 4560, 1800);
  Image1 = new QLabel(Frame1);
  Image1->setObjectName(QStringLiteral("Image1"));
  Image1->setPixmap(SkinArt(QStringLiteral("logo")));
  SetTwipsGeometry(Image1, 180, 300, 960, 960);

  Label1 = MakeLabel(QStringLiteral("Label1"), QStringLiteral("QUILL CAST v.qc23e"), Frame1, 1320,
                     240, 3120, 300, true);
  Label2 = MakeLabel(QStringLiteral("Label2"),
                     QStringLiteral("For all 32bit AOLs(aol 95, aol 5.0)."), Frame1, 1320, 600,
                     3120, 255);
  Label7 = MakeLabel(QStringLiteral("Label7"), QStringLiteral("Public Release 2 : Version qc23e :"),
                     Frame1, 1320, 900, 3120, 255);
  lblName = MakeLabel(QStringLiteral("lblName"), QString(), Frame1, 1320, 1260, 3120, 300, true);
  QPalette pal = lblName->palette();
  pal.setColor(QPalette::WindowText, skin::kAccent.darker(130));
  lblName->setPalette(pal);

  // At load: centred, on top, and the handle as it stands now.
  CenterWindow(this);
  StayOnTop(this);
  lblName->setText(ShownText(handle.toLower()));

  for (QWidget* w : findChildren<QWidget*>()) w->installEventFilter(this);
}

bool FrmAbout::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    close();
    return true;
  }
  return false;
}

void FrmAbout::mousePressEvent(QMouseEvent*) { close(); }

FrmAbout* OpenAbout(QPointer<FrmAbout>& slot, const QString& handle) {
  if (!slot) slot = new FrmAbout(handle);
  slot->show();
  slot->raise();
  return slot;
}

}  // namespace qc
