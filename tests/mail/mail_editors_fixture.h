#pragma once
// The editors under a temporary program folder and settings store.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "ui/app_path.h"
#include "ui/settings_store.h"
#include "mail/mail_editors.h"
#include "support/scripted_prompts.h"

namespace qc::test {

inline std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}
inline void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}
inline bool Exists(const std::string& path) { return std::ifstream(path).good(); }

class EditorTest : public ::testing::Test {
 protected:
  QTemporaryDir dir_;
  std::string root = dir_.path().toStdString();
  std::string app = root + "/app";
  ScriptedPrompts prompts;
  std::string oldHome_;
  bool hadHome_ = false;

  EditorTest() {
    if (const char* old = std::getenv("QUILLCAST_HOME")) {
      oldHome_ = old;
      hadHome_ = true;
    }
    setenv("QUILLCAST_HOME", app.c_str(), 1);
    SetSettingsFolder(root + "/settings");
    AppPath();  // creates the folder
  }
  ~EditorTest() override {
    SetSettingsFolder("");
    if (hadHome_) {
      setenv("QUILLCAST_HOME", oldHome_.c_str(), 1);
    } else {
      unsetenv("QUILLCAST_HOME");
    }
  }
};

}  // namespace qc::test
