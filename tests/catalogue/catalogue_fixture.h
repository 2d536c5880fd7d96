#pragma once
// A main window with the catalogue bound, scripted prompts, a private settings store and a
// temporary folder in which tests make small MP3 files.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "ui/settings_store.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "base/failure.h"
#include "catalogue/catalogue.h"
#include "codec/id3v1.h"
#include "catalogue/folder_list.h"
#include "support/scripted_prompts.h"

namespace qc::test {

inline const std::string kSep(1, kPathSeparator);

// A raw tag block; pad fills the fields (blank or NUL).
inline std::string TagBytes(const std::string& title, const std::string& artist = "",
                            const std::string& album = "", const std::string& year = "",
                            const std::string& comment = "", unsigned char genre = 0,
                            char pad = ' ') {
  auto field = [pad](std::string s, std::size_t w) {
    s.resize(w, pad);
    return s;
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + field(year, 4) +
         field(comment, 30) + std::string(1, static_cast<char>(genre));
}

inline std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline int FailureNumberOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeFailure& e) {
    return e.number();
  }
  return 0;
}

class CatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(tmp_.isValid());
    SetSettingsFolder(tmp_.filePath("settings").toStdString());
    folder_ = tmp_.filePath("mp3").toStdString();
    std::filesystem::create_directories(folder_);
    main_ = std::make_unique<FrmMain>();
    menu2_ = std::make_unique<FrmMenu2>();
    ConnectCatalogue(*main_, *menu2_);
  }
  void TearDown() override {
    menu2_.reset();
    main_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetSettingsFolder("");
  }

  // A file of `size` bytes whose last 128 are `tail` (no tag when tail is empty).
  std::string Mp3(const std::string& name, const std::string& tail, std::size_t size = 1000,
                  const std::string& in = "") {
    const std::string dir = in.empty() ? folder_ : in;
    const std::string path = dir + kSep + name;
    std::ofstream out(path, std::ios::binary);
    std::string bytes(size - tail.size(), '\xFF');
    out << bytes << tail;
    return path;
  }

  void SetTemplate(const std::string& t) { SaveSetting(kAppName, kSubjectSection, "subject", t); }

  // Chooses the folder through the scripted folder chooser.
  void Choose(const std::string& folder) {
    prompts_.folderAnswers.push_back(folder);
    ChooseFolder(*main_);
  }
  void SelectMp3(std::initializer_list<int> rows) {
    for (int r : rows) main_->lstMp3->SetSelected(r, true);
  }

  QTemporaryDir tmp_;
  std::string folder_;
  ScriptedPrompts prompts_;
  std::unique_ptr<FrmMain> main_;
  std::unique_ptr<FrmMenu2> menu2_;
};

}  // namespace qc::test
