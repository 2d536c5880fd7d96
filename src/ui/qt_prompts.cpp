#include "ui/qt_prompts.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

namespace qc {
namespace {

QPointer<QWidget> openDialog;

// Keeps OpenDialog() pointing at the dialog while it runs, nested boxes included.
class Showing {
 public:
  explicit Showing(QWidget* dialog) : previous_(openDialog) { openDialog = dialog; }
  ~Showing() { openDialog = previous_; }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

 private:
  QPointer<QWidget> previous_;
};

void MakeSystemModal(QWidget* dialog, int flags) {
  dialog->setWindowModality(Qt::ApplicationModal);
  if (flags & kSystemModal) dialog->setWindowFlag(Qt::WindowStaysOnTopHint, true);
}

QMessageBox::Icon IconOf(int flags) {
  switch (flags & 0x70) {
    case kCritical: return QMessageBox::Critical;
    case kQuestion: return QMessageBox::Question;
    case kExclamation: return QMessageBox::Warning;
    case kInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
  }
}

}  // namespace

QWidget* QtPrompts::OpenDialog() { return openDialog; }

int QtPrompts::MsgBox(const std::string& text, int flags, const std::string& title) {
  QMessageBox box(parent_);
  box.setWindowTitle(QString::fromStdString(title));
  box.setText(QString::fromStdString(text));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(IconOf(flags));
  MakeSystemModal(&box, flags);
  const bool yesNo = (flags & 7) == kYesNo;
  if (yesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
  } else {
    box.setStandardButtons(QMessageBox::Ok);
  }
  Showing showing(&box);
  const int pressed = box.exec();
  if (!yesNo) return kAnswerOk;
  // Escape or closing the box counts as No.
  return pressed == QMessageBox::Yes ? kAnswerYes : kAnswerNo;
}

std::optional<std::string> QtPrompts::InputBox(const std::string& prompt,
                                               const std::string& title,
                                               const std::string& defaultText, int xTwips,
                                               int yTwips) {
  QInputDialog dialog(parent_);
  dialog.setWindowTitle(QString::fromStdString(title));
  dialog.setLabelText(QString::fromStdString(prompt));
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setTextValue(QString::fromStdString(defaultText));
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.move(xTwips / kTwipsPerPixel, yTwips / kTwipsPerPixel);
  Showing showing(&dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::string QtPrompts::BrowseForFolder(const std::string& title) {
  QFileDialog dialog(parent_, QString::fromStdString(title));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly, true);
  // The same dialog on every desktop, and one that tests can drive.
  dialog.setOption(QFileDialog::DontUseNativeDialog, true);
  dialog.setWindowModality(Qt::ApplicationModal);
  Showing showing(&dialog);
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList chosen = dialog.selectedFiles();
  return chosen.isEmpty() ? std::string() : chosen.first().toStdString();
}

}  // namespace qc
