#include "ui/app_path.h"

#include <QDir>
#include <QStandardPaths>

namespace qc {

std::string AppPath() {
  QString home = qEnvironmentVariable("QUILLCAST_HOME");
  QString path;
  if (!home.isEmpty()) {
    path = QDir::cleanPath(QDir(home).absolutePath());
  } else {
    // Spelled out rather than AppDataLocation, which follows whatever application name the
    // running QApplication carries.
    path = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quillcast";
  }
  QDir().mkpath(path);
  return path.toStdString();
}

std::string MemberListPath() { return AppPath() + "/lstMember.sys"; }
std::string UploadListPath() { return AppPath() + "/lstUpload.sys"; }
std::string BodyTemplatePath() { return AppPath() + "txtBody.sys"; }

}  // namespace qc
