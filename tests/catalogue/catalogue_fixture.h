#pragma once
// A main window with the catalogue bound, in the sandbox, with a folder in which tests make small
// MP3 files.
#include <QCoreApplication>
#include <QEvent>

#include "base/failure.h"
#include "catalogue/catalogue.h"
#include "catalogue/folder_list.h"
#include "codec/id3v1.h"
#include "support/sandbox.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/settings_store.h"

namespace qc::test {

inline const std::string kSep(1, kPathSeparator);

class CatalogueTest : public SandboxTest {
 protected:
  CatalogueTest() {
    std::filesystem::create_directories(folder_);
    ConnectCatalogue(main, menu2, services);
  }

  // A file of `size` bytes whose last 128 are `tail` (no tag when tail is empty).
  std::string Mp3(const std::string& name, const std::string& tail, std::size_t size = 1000) {
    const std::string path = folder_ + kSep + name;
    WriteBytes(path, std::string(size - tail.size(), '\xFF') + tail);
    return path;
  }
  void SetTemplate(const std::string& t) { settings.Save(kSubjectSection, "subject", t); }

  const std::string folder_ = dir / "mp3";
  FrmMain main;
  FrmMenu2 menu2;
};

}  // namespace qc::test
