// The settings store: where its file lies, the key table with its defaults, flags, deletes and
// non-ASCII values.
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/core/settings_store.h"

namespace qc {
namespace {

std::string FileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

class SettingsStore : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    SetSettingsFolder(dir_.path().toStdString());
  }
  void TearDown() override { SetSettingsFolder(""); }
  std::string Folder() const { return dir_.path().toStdString(); }
  QTemporaryDir dir_;
};

TEST_F(SettingsStore, LivesInOneIniFileNamedAfterTheApplication) {
  EXPECT_EQ(SettingsFilePath(kAppName), Folder() + "/quillcast/quillcast.ini");
  SaveSetting(kAppName, "tagoptions", "mbs", "12.5");
  const std::string ini = FileBytes(Folder() + "/quillcast/quillcast.ini");
  EXPECT_NE(ini.find("[tagoptions]"), std::string::npos) << ini;
  EXPECT_NE(ini.find("mbs=12.5"), std::string::npos) << ini;
}

TEST_F(SettingsStore, ASaveOfManyKeysReplacesTheFileOnceAndKeepsTheOtherKeys) {
  SaveSetting(kAppName, "subject", "subject", "kept");
  const std::string ini = Folder() + "/quillcast/quillcast.ini";
  const auto before = std::filesystem::status(ini).permissions();
  std::vector<SettingValue> values;
  for (int i = 0; i < 13; ++i) values.push_back({"key" + std::to_string(i), std::to_string(i)});
  values.push_back({"key0", "last"});  // written in order: the later one stands
  SaveSettings(kAppName, "tagoptions", values);
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "key0", ""), "last");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "key12", ""), "12");
  EXPECT_EQ(GetSetting(kAppName, "subject", "subject", ""), "kept");
  EXPECT_EQ(std::filesystem::status(ini).permissions(), before);
  // Nothing of the save is left beside the store.
  int files = 0;
  for ([[maybe_unused]] auto& e : std::filesystem::directory_iterator(Folder() + "/quillcast")) ++files;
  EXPECT_EQ(files, 1);
}

TEST_F(SettingsStore, MissingKeyGivesTheCallersDefaultAndWritingCreatesIt) {
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "dflt"), "dflt");
  SaveSetting(kAppName, "tagoptions", "ups", "");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "dflt"), "");  // exists, though empty
  SaveSetting(kAppName, "tagoptions", "ups", "7");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "dflt"), "7");
  // Section and key spelled differently are different entries.
  EXPECT_EQ(GetSetting(kAppName, "subject", "ups", "none"), "none");
}

TEST_F(SettingsStore, TableHoldsEveryKeyWithItsDefault) {
  struct Row {
    const char* section;
    const char* key;
    const char* dflt;
    bool flag;
  };
  const Row rows[] = {
      {"tagoptions", "frmmenu.makesublcase.Checked", "1", true},
      {"tagoptions", "frmmenu.bbcemail.Checked", "1", true},
      {"tagoptions", "frmmenu.sendlater.Checked", "1", true},
      {"tagoptions", "frmmenu.deadchecknames.Checked", "1", true},
      {"tagoptions", "frmmenu.memberlst.Checked", "1", true},
      {"tagoptions", "frmmenu.uploadlst.Checked", "1", true},
      {"tagoptions", "frmmenu.renamecomment.Checked", "0", true},
      {"tagoptions", "frmmenu.autohead.Checked", "1", true},
      {"tagoptions", "frmmenu.autofoot.Checked", "1", true},
      {"tagoptions", "handle", "Brindle 7", false},
      {"tagoptions", "rename", "uploaded by Brindle 7", false},
      {"tagoptions", "mbs", "0", false},
      {"tagoptions", "ups", "0", false},
      {"tagoptions", "ascii1", "\xC2\xB7\xE2\x80\xA2(`(`\xC2\xB7", false},
      {"tagoptions", "ascii2", "\xC2\xB7\xC2\xB4)\xC2\xB4)\xE2\x80\xA2\xC2\xB7", false},
      {"subject", "subject",
       "\xC2\xB7\xE2\x80\xA2 \xC3\xB3mbreval\xC3\xA8 \xE2\x80\xA2\xC2\xB7[idArtist$]-idTitle$",
       false},
  };
  ASSERT_EQ(SettingsTable().size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const Row& r = rows[i];
    const SettingEntry& entry = SettingsTable()[i];
    SCOPED_TRACE(r.key);
    EXPECT_STREQ(entry.section, r.section);
    EXPECT_STREQ(entry.key, r.key);
    EXPECT_EQ(entry.isFlag, r.flag);
    EXPECT_EQ(&SettingOf(r.section, r.key), &entry);
    EXPECT_EQ(SettingDefault(entry, "Brindle 7"), r.dflt);
    EXPECT_EQ(GetTableSetting(r.section, r.key, "Brindle 7"), r.dflt);
  }
  EXPECT_THROW(SettingOf("tagoptions", "subject"), std::out_of_range);
  EXPECT_THROW(SettingOf("tagoptions", "Handle"), std::out_of_range);
}

TEST_F(SettingsStore, ScreenNameDefaultsFollowTheNameAtTheMomentOfReading) {
  EXPECT_EQ(GetTableSetting("tagoptions", "handle", "first"), "first");
  EXPECT_EQ(GetTableSetting("tagoptions", "rename", "second"), "uploaded by second");
  EXPECT_EQ(GetTableSetting("tagoptions", "rename", ""), "uploaded by ");
  SaveSetting(kAppName, "tagoptions", "handle", "stored");
  EXPECT_EQ(GetTableSetting("tagoptions", "handle", "third"), "stored");
}

TEST_F(SettingsStore, FlagsReadThroughTheLeadingNumber) {
  const std::pair<const char*, bool> cases[] = {
      {"1", true},  {"0", false}, {"2", true},   {"x", false}, {"", false},
      {" 1", true}, {"0.5", true}, {"00", false}, {"1x", true}, {"-1", false},
  };
  for (const auto& [stored, on] : cases) {
    SCOPED_TRACE(stored);
    SaveSetting(kAppName, "tagoptions", "frmmenu.bbcemail.Checked", stored);
    EXPECT_EQ(FlagIsOn(GetTableSetting("tagoptions", "frmmenu.bbcemail.Checked")), on);
  }
  EXPECT_STREQ(FlagText(true), "1");
  EXPECT_STREQ(FlagText(false), "0");
}

TEST_F(SettingsStore, DeletesAKeyASectionOrTheWholeApplication) {
  SaveSetting(kAppName, "tagoptions", "mbs", "1");
  SaveSetting(kAppName, "tagoptions", "ups", "2");
  SaveSetting(kAppName, "subject", "subject", "s");
  SaveSetting("other", "tagoptions", "mbs", "kept");

  DeleteSetting(kAppName, "tagoptions", "mbs");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "mbs", "gone"), "gone");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "gone"), "2");

  SaveSetting(kAppName, "tagoptions", "mbs", "1");
  DeleteSetting(kAppName, "tagoptions");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "mbs", "gone"), "gone");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "gone"), "gone");
  EXPECT_EQ(GetSetting(kAppName, "subject", "subject", "gone"), "s");

  SaveSetting(kAppName, "tagoptions", "ups", "2");
  DeleteSetting(kAppName);
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "gone"), "gone");
  EXPECT_EQ(GetSetting(kAppName, "subject", "subject", "gone"), "gone");
  EXPECT_EQ(GetSetting("other", "tagoptions", "mbs", "gone"), "kept");
  // Deleting what is not there is no failure.
  DeleteSetting(kAppName, "tagoptions", "mbs");
  DeleteSetting(kAppName, "nosuch");
}

TEST_F(SettingsStore, NonAsciiAndAwkwardValuesComeBackByteForByte) {
  const std::string values[] = {
      "\xC3\xB3mbreval\xC3\xA8",
      SettingDefault(SettingOf("subject", "subject")),
      SettingDefault(SettingOf("tagoptions", "ascii1")),
      SettingDefault(SettingOf("tagoptions", "ascii2")),
      "a, b, c",
      "\"quoted\"",
      "@atsign",
      "semi;colon = equals",
      "back\\slash",
      "  padded  ",
  };
  for (const std::string& v : values) {
    SCOPED_TRACE(v);
    SaveSetting(kAppName, "subject", "subject", v);
    EXPECT_EQ(GetSetting(kAppName, "subject", "subject", ""), v);
  }
  // The file holds the text as UTF-8 so that a hand edit sees the letters.
  SaveSetting(kAppName, "subject", "subject", "\xC3\xB3mbreval\xC3\xA8");
  EXPECT_NE(FileBytes(SettingsFilePath(kAppName)).find("\xC3\xB3mbreval\xC3\xA8"),
            std::string::npos);
}

TEST_F(SettingsStore, HandEditedFileIsReadAsWritten) {
  // The folder of a fresh settings path: no QSettings has cached this file yet.
  QTemporaryDir other;
  SetSettingsFolder(other.path().toStdString());
  std::filesystem::create_directories(other.path().toStdString() + "/quillcast");
  std::ofstream(SettingsFilePath(kAppName), std::ios::binary)
      << "[tagoptions]\nhandle=Brindle, 7\nfrmmenu.sendlater.Checked=2\n"
         "[subject]\nsubject=\xC3\xB3mbreval\xC3\xA8 idTitle$\n";
  EXPECT_EQ(GetTableSetting("tagoptions", "handle", "x"), "Brindle, 7");
  EXPECT_TRUE(FlagIsOn(GetTableSetting("tagoptions", "frmmenu.sendlater.Checked")));
  EXPECT_EQ(GetTableSetting("subject", "subject"), "\xC3\xB3mbreval\xC3\xA8 idTitle$");
}

}  // namespace
}  // namespace qc
