#pragma once
// A main window and its option menu with tagged files chosen, the program's folder, the settings
// store and today's date fixed, under virtual time.
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "app/core/settings_store.h"
#include "app/dates.h"
#include "app/forms/frmmain.h"
#include "app/forms/frmmenu.h"
#include "app/stats.h"
#include "catalogue/codec/id3v1.h"
#include "mail/text/text_files.h"
#include "support/budget.h"
#include "support/scripted_prompts.h"

namespace qc::test {

struct TagFields {
  std::string title, artist, album, year, comment, genre;
};

class RunFixture : public ::testing::Test {
 protected:
  RunFixture() {
    const std::string root = dir_.path().toStdString();
    const char* old = std::getenv("QUILLCAST_HOME");
    if (old) oldHome_ = old;
    hadHome_ = old != nullptr;
    appFolder = root + "/app";
    setenv("QUILLCAST_HOME", appFolder.c_str(), 1);
    SetSettingsFolder(root + "/settings");
    // Every option off: each test turns on what it is about.
    for (const char* item : kOptionItems) menu.setCheck(item, false);
    menu.lblHandle->SetCaption("brindle");
    menu.lblRename->SetCaption("renamed comment");
    ConnectStats(frm, menu);
  }
  ~RunFixture() override {
    SetSettingsFolder("");
    if (hadHome_) {
      setenv("QUILLCAST_HOME", oldHome_.c_str(), 1);
    } else {
      unsetenv("QUILLCAST_HOME");
    }
  }

  // Writes a file of `bytes` bytes (a tag block at its end when the fields are given) and
  // chooses it with the subject line.
  std::string Choose(const std::string& name, std::int64_t bytes, const std::string& subject,
                     const TagFields* tag = nullptr) {
    // Joined as bytes: a name need not be UTF-8.
    const std::string path = dir_.path().toStdString() + "/" + name;
    {
      std::ofstream out(path, std::ios::binary | std::ios::trunc);
      out.seekp(bytes > 0 ? bytes - 1 : 0);
      if (bytes > 0) out.put('\0');
    }
    if (tag) {
      WriteId3Tag(path, tag->title, tag->artist, tag->album, tag->year, tag->comment,
                  tag->genre);
    }
    frm.lstUp->AddItem(name);
    frm.lstPathSelect->AddItem(path);
    frm.lstSubj->AddItem(subject);
    return path;
  }
  void WriteBody(const std::string& text) { SaveTextFile(appFolder + "txtBody.sys", text); }
  void WriteList(const std::string& name, const std::vector<std::string>& items) {
    std::filesystem::create_directories(appFolder);
    SaveListFile(appFolder + "/" + name, items);
  }

  QTemporaryDir dir_;
  std::string appFolder;
  VirtualTime vt;
  ScopedToday today{{1999, 1, 1}};  // a Friday
  FrmMain frm;
  FrmMenu menu;
  ScriptedPrompts prompts;

 private:
  std::string oldHome_;
  bool hadHome_ = false;
};

}  // namespace qc::test
