#include "ui/frmmain.h"

#include <QCloseEvent>
#include <QFont>

#include "ui/window_routines.h"

namespace qc {
namespace {

// The skin picture is 245 by 136 pixels; the window takes its size from it.
constexpr int kFaceWidth = 3675;
constexpr int kFaceHeight = 2040;
constexpr int kPanelLeft = 465;
constexpr int kPanelWidth = 2790;
constexpr int kPanelHeight = 1170;
constexpr int kCaptionMargin = 60;  // the caption row's margin from the panel's sides

template <class W>
W* Place(W* w, int left, int top, int width, int height) {
  SetTwipsGeometry(w, left, top, width, height);
  return w;
}

Label* MakeLabel(const char* name, const char* text, QWidget* parent, int left, int top, int width,
                 int height) {
  return Place(new Label(QString::fromLatin1(name), QString::fromUtf8(text), parent), left, top,
               width, height);
}

PictureBox* MakePicture(const char* name, QWidget* parent, int left, int top, int width,
                        int height) {
  return Place(new PictureBox(QString::fromLatin1(name), parent), left, top, width, height);
}

ListBox* MakeList(const char* name, QWidget* parent, int left, int top, int width, int height,
                  bool visible) {
  auto* l = Place(new ListBox(parent), left, top, width, height);
  l->setObjectName(QString::fromLatin1(name));
  l->setVisible(visible);
  return l;
}

Label* Hidden(Label* l) {
  l->hide();
  return l;
}

}  // namespace

FrmMain::FrmMain(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("quill cast"));
  setWindowFlag(Qt::FramelessWindowHint, true);
  QFont small(QStringLiteral("Tahoma"));
  small.setPixelSize(10);
  setFont(small);
  SetTwipsSize(this, kFaceWidth, kFaceHeight);

  Picture1 = MakePicture("Picture1", this, 0, 0, kFaceWidth, kFaceHeight);
  Picture1->hide();
  p[0] = nullptr;
  for (int i = 1; i <= 16; ++i) {
    const QByteArray name = "p" + QByteArray::number(i);
    p[i] = MakePicture(name.constData(), this, 0, 0, 240, 240);
    p[i]->hide();
  }

  // Three panels of one size take turns on the face; the one in use has its top at 330.
  pnlSelect = Place(new Panel(QStringLiteral("pnlSelect"), this), kPanelLeft, kPanelShownTop,
                    kPanelWidth, kPanelHeight);
  pnlInfo = Place(new Panel(QStringLiteral("pnlInfo"), this), kPanelLeft, kPanelHiddenTop,
                  kPanelWidth, kPanelHeight);
  pnlTag = Place(new Panel(QStringLiteral("pnlTag"), this), kPanelLeft, kTagPanelStartTop,
                 kPanelWidth, kPanelHeight);

  // Places follow the skin's artwork: menu triangles and the roll and exit buttons along the
  // top, the mode buttons down the left, the five round command buttons along the bottom.
  picMenu1 = MakePicture("picMenu1", this, 120, 135, 180, 135);
  picMenu2 = MakePicture("picMenu2", this, 600, 135, 180, 135);
  picMenu3 = MakePicture("picMenu3", this, 1170, 135, 180, 135);
  picMini = MakePicture("picMini", this, 3090, 150, 180, 180);
  picMini->setToolTip(QStringLiteral("roll up"));
  picExit = MakePicture("picExit", this, 3360, 150, 180, 180);
  picSelect = MakePicture("picSelect", this, 105, 420, 300, 300);
  picInfo = MakePicture("picInfo", this, 105, 810, 300, 300);
  picBut1 = MakePicture("picBut1", this, 180, 1755, 210, 210);
  picBut2 = MakePicture("picBut2", this, 870, 1755, 210, 210);
  picBut2->setEnabled(false);
  picBut3 = MakePicture("picBut3", this, 1560, 1755, 210, 210);
  picBut4 = MakePicture("picBut4", this, 2250, 1755, 210, 210);
  picBut5 = MakePicture("picBut5", this, 2940, 1755, 210, 210);

  lblShow = MakeLabel("lblShow", "quill cast by brindle", this, 615, 1485, 2475, 210);
  lblUps = Hidden(MakeLabel("lblUps", "0", this, 1830, 120, 600, 195));
  lblMBs = Hidden(MakeLabel("lblMBs", "0", this, 2430, 120, 600, 195));
  Label1 = MakeLabel("Label1", "", this, 1830, 120, 1230, 195);
  Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblPath = Hidden(MakeLabel("lblPath", "", this, 615, 1485, 2475, 210));

  lstPaths = MakeList("lstPaths", this, 0, 0, 1200, 600, false);
  lstPathSelect = MakeList("lstPathSelect", this, 0, 0, 1200, 600, false);
  lstSubj = MakeList("lstSubj", this, 0, 0, 1200, 600, false);
  lstSend = MakeList("lstSend", this, 0, 0, 1200, 600, false);
  File1 = MakeList("File1", this, 0, 0, 1200, 600, false);

  // Select panel: list view and selected view share one spot.
  lblSetfolder = MakeLabel("lblSetfolder", "[add folder]", pnlSelect, 60, 15, 900, 210);
  lblSetfolder->SetAutoSize(true);
  lblMp3list = MakeLabel("lblMp3list", "[list", pnlSelect, 1500, 15, 300, 210);
  lblSep = MakeLabel("lblSep", "|", pnlSelect, 1800, 15, 75, 210);
  lblSelected = MakeLabel("lblSelected", "selected]", pnlSelect, 2070, 15, 600, 210);
  QFont bold = lblMp3list->font();
  bold.setBold(true);
  lblMp3list->setFont(bold);
  for (Label* l : {lblMp3list, lblSep, lblSelected}) l->SetAutoSize(true);
  // The anchor of the row stands where its bold form still ends inside the panel's margin.
  const QFont plain = lblSelected->font();
  lblSelected->setFont(bold);
  lblSelected->adjustSize();
  const double boldWidth = TwipsWidth(lblSelected);
  lblSelected->setFont(plain);
  lblSelected->adjustSize();
  SetTwipsLeft(lblSelected, kPanelWidth - kCaptionMargin - boldWidth);
  LayOutCaptionRow();

  lstMp3 = MakeList("lstMp3", pnlSelect, 60, 255, 2385, 870, true);
  lstUp = MakeList("lstUp", pnlSelect, 60, 255, 2385, 870, false);
  for (ListBox* l : {lstMp3, lstUp}) l->setSelectionMode(QAbstractItemView::ExtendedSelection);

  pnlOpt = Place(new Panel(QStringLiteral("pnlOpt"), pnlSelect), 2490, 255, 240, 870);
  lbl_Add = MakeLabel("lbl_Add", "a", pnlOpt, 0, 0, 240, 210);
  lbl_Id = MakeLabel("lbl_Id", "id", pnlOpt, 0, 210, 240, 210);
  lbl_Clr = MakeLabel("lbl_Clr", "c", pnlOpt, 0, 420, 240, 210);
  lbl_refresh = MakeLabel("lbl_refresh", "r", pnlOpt, 0, 630, 240, 210);
  pnlOpt2 = Place(new Panel(QStringLiteral("pnlOpt2"), pnlSelect), 2490, 255, 240, 870);
  lblRemove = MakeLabel("lblRemove", "r", pnlOpt2, 0, 0, 240, 210);
  lblIdview = MakeLabel("lblIdview", "id", pnlOpt2, 0, 210, 240, 210);
  pnlOpt2->hide();
  for (Label* l : {lbl_Add, lbl_Id, lbl_Clr, lbl_refresh, lblRemove, lblIdview})
    l->setAlignment(Qt::AlignCenter);

  // Info panel: one selected file at a time.
  lblTitle = MakeLabel("lblTitle", "title:", pnlInfo, 60, 15, 1860, 210);
  lblArtist = MakeLabel("lblArtist", "artist:", pnlInfo, 60, 240, 1860, 210);
  lblAlbum = MakeLabel("lblAlbum", "album:", pnlInfo, 60, 465, 1860, 210);
  lblGenre = MakeLabel("lblGenre", "genre:", pnlInfo, 60, 690, 1080, 210);
  lblYear = MakeLabel("lblYear", "yr: 0000", pnlInfo, 1170, 690, 720, 210);
  lblMb = MakeLabel("lblMb", "mb: 0", pnlInfo, 1950, 690, 780, 210);
  lblIndex = MakeLabel("lblIndex", "0/0", pnlInfo, 1890, 15, 600, 210);
  lblIndex->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  picUp = MakePicture("picUp", pnlInfo, 2535, 15, 240, 180);
  picDown = MakePicture("picDown", pnlInfo, 2535, 240, 240, 180);
  txtSubj = Place(new TextBox(QStringLiteral("txtSubj"),
                              QString::fromUtf8("·• ómbrevalè •·[artist]-title"), pnlInfo),
                  60, 915, 2670, 225);
  txtSubj->SetBackColor(kSubjectUnchangedColour);

  // Run panel.
  lblLogo = MakeLabel("lblLogo", "ómbrevalè 97-00", pnlTag, 60, 15, 2670, 210);
  lblTagIndex = MakeLabel("lblTagIndex", "0/0", pnlTag, 60, 255, 900, 210);
  lblTagMb = MakeLabel("lblTagMb", "0 mb", pnlTag, 990, 255, 1740, 210);
  lblTagSubj = MakeLabel("lblTagSubj", "", pnlTag, 60, 480, 2670, 210);
  lblTagTotal = MakeLabel("lblTagTotal", "", pnlTag, 60, 705, 2670, 210);
  lblTagTotalMb = Hidden(MakeLabel("lblTagTotalMb", "0", pnlTag, 60, 930, 900, 210));
  lblTagTotalUps = Hidden(MakeLabel("lblTagTotalUps", "0", pnlTag, 990, 930, 900, 210));

  // The status line overlaps the panels' lower edge by a pixel; keep it readable.
  lblShow->raise();
}

void FrmMain::LayOutCaptionRow() {
  SetTwipsLeft(lblSep, TwipsLeft(lblSelected) - TwipsWidth(lblSep));
  SetTwipsLeft(lblMp3list, TwipsLeft(lblSep) - TwipsWidth(lblMp3list));
}

}  // namespace qc

namespace qc {

void FrmMain::closeEvent(QCloseEvent* e) {
  // The program never closes this window itself (exit hides it and ends): a close comes from
  // outside. Hidden, it would keep the program and its instance lock with nothing on screen.
  e->ignore();
  emit closeRequested();
}

}  // namespace qc
