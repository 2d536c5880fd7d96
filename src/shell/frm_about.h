#pragma once
// frmAbout: the program's name, version and the user's handle. A press of any mouse button on
// any part of it unloads it; it has no button.
#include <QPointer>
#include <QWidget>

class QLabel;

namespace qc {

class Frame3D;

class FrmAbout : public QWidget {
  Q_OBJECT
 public:
  // The handle is the caption of the hidden handle label; it is shown lower-cased, as it stood
  // when the window was loaded.
  explicit FrmAbout(const QString& handle, QWidget* parent = nullptr);

  Frame3D* Frame1;
  QLabel* Image1;
  QLabel* Label1;
  QLabel* Label2;
  QLabel* Label7;
  QLabel* lblName;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

// aboutmp33: shows the about window without blocking, loading it anew if it was unloaded.
FrmAbout* OpenAbout(QPointer<FrmAbout>& slot, const QString& handle);

}  // namespace qc
