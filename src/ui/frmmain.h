#pragma once
// frmMain: the main window's controls under their system names. The controls are the program's
// working data (lists, counters, flags in tags), read and written directly by every subsystem.
// Skin, hover texts and handlers are bound from outside; this class only builds and lays out.
#include <QWidget>

#include "ui/controls.h"
#include "ui/list_box.h"

namespace qc {

class FrmMain : public QWidget {
  Q_OBJECT

 public:
  explicit FrmMain(QWidget* parent = nullptr);

  // Window face and artwork store.
  PictureBox* Picture1;
  PictureBox* p[17];  // p[1] .. p[16]; p[0] is unused so that the numbers match the names

  // Picture buttons on the face.
  PictureBox* picBut1;  // start; its Tag holds the run flag ("tag" / "stop")
  PictureBox* picBut2;  // stop
  PictureBox* picBut3;
  PictureBox* picBut4;
  PictureBox* picBut5;
  PictureBox* picMenu1;
  PictureBox* picMenu2;
  PictureBox* picMenu3;
  PictureBox* picMini;  // tool tip "roll up"/"roll down" is the roll state; Tag the saved top
  PictureBox* picExit;
  PictureBox* picInfo;
  PictureBox* picSelect;

  Label* lblShow;
  Label* Label1;  // all-runs sum line
  Label* lblMBs;  // hidden counters of all runs
  Label* lblUps;
  Label* lblPath;  // hidden hand-over to the tag editor

  // Hidden lists and the hidden folder listing.
  ListBox* lstPaths;
  ListBox* lstPathSelect;  // its Tag holds the index shown in info mode
  ListBox* lstSubj;
  ListBox* lstSend;
  ListBox* File1;

  // Select panel.
  Panel* pnlSelect;
  Label* lblSetfolder;
  Label* lblMp3list;
  Label* lblSep;
  Label* lblSelected;
  ListBox* lstMp3;
  ListBox* lstUp;
  Panel* pnlOpt;
  Label* lbl_Add;
  Label* lbl_Id;
  Label* lbl_Clr;
  Label* lbl_refresh;
  Panel* pnlOpt2;
  Label* lblRemove;
  Label* lblIdview;

  // Info panel.
  Panel* pnlInfo;
  Label* lblIndex;
  PictureBox* picUp;
  PictureBox* picDown;
  Label* lblTitle;
  Label* lblArtist;
  Label* lblAlbum;
  Label* lblGenre;
  Label* lblYear;
  Label* lblMb;
  TextBox* txtSubj;

  // Run panel.
  Panel* pnlTag;
  Label* lblLogo;
  Label* lblTagIndex;
  Label* lblTagSubj;
  Label* lblTagMb;
  Label* lblTagTotal;     // shown sum line of this run
  Label* lblTagTotalMb;   // hidden counters of this run
  Label* lblTagTotalUps;

  // Lays the caption row of the select panel out from lblSelected leftwards, as auto-sizing
  // labels change width when they turn bold.
  void LayOutCaptionRow();

 signals:
  // Something asked to close the window (the window manager's Alt+F4): the window stays, and
  // whoever listens takes the exit road.
  void closeRequested();

 protected:
  void closeEvent(QCloseEvent* e) override;
};

// Design-time values that other parts compare against.
inline constexpr unsigned kSubjectUnchangedColour = 0x9F8660;
inline constexpr int kPanelShownTop = 330;
inline constexpr int kPanelHiddenTop = 3000;
inline constexpr int kTagPanelStartTop = 2430;
inline constexpr int kTagPanelIdleTop = 3300;

}  // namespace qc
