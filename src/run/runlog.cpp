#include "run/runlog.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <filesystem>
#include <system_error>

#include "run/dates.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/prompts.h"
#include "text/text.h"
#include "text/text_files.h"

namespace qc {
namespace {

constexpr char kCrLf[] = "\r\n";
const std::string kRule = "  " + std::string(37, '-');

std::string TrimmedNumber(double value) { return Trim(PaddedNumberText(value)); }

}  // namespace

std::string ShortFileName(const std::string& path) {
  static const std::string separator(1, std::filesystem::path::preferred_separator);
  std::string name = path;
  while (InStr(name, separator) > 0) name = TextAfter(name, separator);
  return name;
}

double RoundedMegabytes(const std::string& path) {
  return RoundTo(static_cast<double>(FileLength(path)) / 1000000.0, 2);
}

std::string BuildRunLog(const FrmMain& frmMain, RunLogForm form, CivilDate today) {
  // Count and total stand above the entries, so the entries come first.
  std::string entries;
  double total = 0;
  const std::int16_t count = frmMain.lstPathSelect->ListCount();
  for (std::int16_t i = 0; i < count; ++i) {
    const std::string path = frmMain.lstPathSelect->List(i);
    const std::string name = ShortFileName(path);
    const double mb = RoundedMegabytes(path);
    total += mb;
    entries += TrimmedNumber(i + 1) + ".\tfile name: " + name + kCrLf;
    if (form == RunLogForm::kMail) {
      // The lone CR before the subject and the lone LF after it are how the log has always
      // been written; readers of old logs expect them.
      entries += "\tfile size: " + TrimmedNumber(mb) + "mb\r\t" + frmMain.lstSubj->List(i) +
                 "\n\r\n\r\n";
    } else {
      entries += "\tfile size: " + TrimmedNumber(mb) + "mb\r\n\r\n";
    }
  }
  std::string log;
  log += "  quill cast : v.qc23e : brindle" + std::string(kCrLf);
  log += kRule + kCrLf;
  log += "  log:" + std::string(kCrLf);
  log += "    number of mp3s: " + TrimmedNumber(count) + kCrLf;
  log += "    total megabytes: " + TrimmedNumber(total) + kCrLf;
  log += "    log created on: " + ShortDateText(today) + kCrLf;
  log += kRule + kCrLf;
  log += "  log in detail:\r\n\r\n";
  return log + entries;
}

std::string CompileRunLog(const FrmMain& frmMain, CivilDate today) {
  return BuildRunLog(frmMain, RunLogForm::kMail, today);
}

std::string SelectedMbTotal(const FrmMain& frmMain) {
  double total = 0;
  const std::int16_t count = frmMain.lstPathSelect->ListCount();
  for (std::int16_t i = 0; i < count; ++i) total += RoundedMegabytes(frmMain.lstPathSelect->List(i));
  return TrimmedNumber(total);
}

void CopyRunLog(const FrmMain& frmMain, const Services& services) {
  if (frmMain.lstPathSelect->ListCount() == 0) {
    services.prompts.MsgBox(
        "cannot compile a log because you have not selected files to upload.",
        kCritical | kSystemModal, "error:");
    return;
  }
  const std::string log = BuildRunLog(frmMain, RunLogForm::kClipboard, services.today());
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->clear();
  clipboard->setText(QString::fromStdString(log));
  services.prompts.MsgBox(
      "log has been copyed to your clipboard. it is recommened that you paste the log into an "
      "email form and send it to the person in your group that is in charge of stats!",
      kInformation | kSystemModal, "log");
}

void ConnectRunLog(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services) {
  QObject::connect(frmMenu.compileLog, &QAction::triggered, &frmMain,
                   [&frmMain, &services] { CopyRunLog(frmMain, services); });
}

}  // namespace qc
