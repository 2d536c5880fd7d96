#include "ui/qt_prompts.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

#include "ui/shown_text.h"

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

// The program's texts break lines with carriage returns alone.
QString WithLineBreaks(const std::string& text) {
  QString t = ToQ(text);
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return t;
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

// Runs a dialog made on the heap for `owner`: modal, in front of every window (the forms that
// open prompts all stay on top, and a platform window owned by one stands above it), raised and
// given the keyboard. The dialog goes with its owner should that be unloaded while it runs.
template <class D, class Setup, class Read>
int RunDialog(QWidget* owner, Setup&& setup, Read&& read) {
  QPointer<D> dialog = new D(owner);
  dialog->setWindowModality(Qt::ApplicationModal);
  dialog->setWindowFlag(Qt::WindowStaysOnTopHint, true);
  setup(*dialog);
  Showing showing(dialog);
  dialog->show();
  dialog->raise();
  dialog->activateWindow();
  const int result = dialog->exec();
  if (!dialog) return QDialog::Rejected;
  read(*dialog);
  delete dialog.data();
  return result;
}

}  // namespace

QWidget* QtPrompts::OpenDialog() { return openDialog; }

QWidget* QtPrompts::Owner() const {
  // The form the user is working in opened the prompt; popups and hidden windows own nothing.
  QWidget* active = QApplication::activeWindow();
  if (active && active->isVisible() && active->windowType() != Qt::Popup) return active;
  return owner_;
}

int QtPrompts::MsgBox(const std::string& text, int flags, const std::string& title) {
  const bool yesNo = (flags & 7) == kYesNo;
  const int pressed = RunDialog<QMessageBox>(Owner(), [&](QMessageBox& box) {
    box.setWindowTitle(ToQ(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(WithLineBreaks(text));
    box.setIcon(IconOf(flags));
    if (yesNo) {
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
      box.setDefaultButton(QMessageBox::Yes);
    } else {
      box.setStandardButtons(QMessageBox::Ok);
    }
  }, [](QMessageBox&) {});
  if (!yesNo) return kAnswerOk;
  // Escape or closing the box counts as No.
  return pressed == QMessageBox::Yes ? kAnswerYes : kAnswerNo;
}

std::optional<std::string> QtPrompts::InputBox(const std::string& prompt,
                                               const std::string& title,
                                               const std::string& defaultText, int xTwips,
                                               int yTwips) {
  QString answer;
  const int result = RunDialog<QInputDialog>(
      Owner(),
      [&](QInputDialog& dialog) {
        dialog.setWindowTitle(ToQ(title));
        dialog.setLabelText(WithLineBreaks(prompt));
        dialog.setInputMode(QInputDialog::TextInput);
        dialog.setTextValue(ToQ(defaultText));
        // At its own place on the screen, not centred over the owner.
        dialog.move(xTwips / kTwipsPerPixel, yTwips / kTwipsPerPixel);
      },
      [&](QInputDialog& dialog) { answer = dialog.textValue(); });
  if (result != QDialog::Accepted) return std::nullopt;
  return FromQ(answer);
}

std::string QtPrompts::BrowseForFolder(const std::string& title) {
  QStringList chosen;
  const int result = RunDialog<QFileDialog>(
      Owner(),
      [&](QFileDialog& dialog) {
        dialog.setWindowTitle(ToQ(title));
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly, true);
        // The same dialog on every desktop, and one that tests can drive.
        dialog.setOption(QFileDialog::DontUseNativeDialog, true);
      },
      [&](QFileDialog& dialog) { chosen = dialog.selectedFiles(); });
  if (result != QDialog::Accepted || chosen.isEmpty()) return {};
  return FromQ(chosen.first());
}

}  // namespace qc
