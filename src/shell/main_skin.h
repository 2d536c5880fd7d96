#pragma once
// frmMain's skin: artwork into the picture store and onto the face, the outline, the picture
// buttons' press and release art, the status label's texts, rolling up and down, and moving the
// window by its bare skin.
#include <QObject>

#include "ui/window_routines.h"

namespace qc {

class FrmMain;
class StatusTexts;

class MainSkin : public QObject {
  Q_OBJECT
 public:
  // Binds the skin to the form; the form owns the binding. A move by the skin snaps the window
  // to the edges of `desk`.
  MainSkin(FrmMain& form, DeskSource desk);

  StatusTexts& statusTexts() { return *texts_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void loadArt();
  void placeFace();
  void bindButtons();
  void bindTexts();

  FrmMain& f_;
  DeskSource desk_;
  StatusTexts* texts_;
};

// frmMain's load, its skin part in order: the window takes its size from Picture1, is cut to
// its outline, centred and put on top. Binds the skin first when it is not bound yet.
MainSkin* LoadMainSkin(FrmMain& form, const DeskSource& desk);

// The texts of the status label, as the window and each control give them.
inline constexpr const char* kWindowStatusText = "quill cast by brindle";

}  // namespace qc
