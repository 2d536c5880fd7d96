#pragma once
// A main window with chosen files of given sizes in a temporary folder.
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "ui/frmmain.h"
#include "support/scripted_prompts.h"

namespace qc::test {

class ChosenFiles : public ::testing::Test {
 protected:
  // Writes a file of `bytes` bytes and chooses it with the given subject line.
  std::string Choose(const std::string& name, std::int64_t bytes, const std::string& subject) {
    const std::string path = dir_.filePath(QString::fromStdString(name)).toStdString();
    {
      std::ofstream out(path, std::ios::binary);
      out.seekp(bytes > 0 ? bytes - 1 : 0);
      if (bytes > 0) out.put('\0');
    }
    frm.lstUp->AddItem(name);
    frm.lstPathSelect->AddItem(path);
    frm.lstSubj->AddItem(subject);
    return path;
  }

  QTemporaryDir dir_;
  FrmMain frm;
  ScriptedPrompts prompts;
};

}  // namespace qc::test
