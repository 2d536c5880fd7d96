// The settings store: where its file lies, the key table with its defaults, flags, deletes and
// non-ASCII values.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/files.h"
#include "ui/settings_store.h"

namespace qc::test {
namespace {

class SettingsStore : public ::testing::Test {
 protected:
  SettingsStore() { SetSettingsFolder(dir.path()); }
  ~SettingsStore() override { SetSettingsFolder(""); }
  TempDir dir;
};

TEST_F(SettingsStore, LivesInOneIniFileNamedAfterTheApplication) {
  EXPECT_EQ(SettingsFilePath(kAppName), dir / "quillcast/quillcast.ini");
  SaveSetting(kAppName, "tagoptions", "mbs", "12.5");
  const std::string ini = ReadBytes(dir / "quillcast/quillcast.ini");
  EXPECT_NE(ini.find("[tagoptions]"), std::string::npos) << ini;
  EXPECT_NE(ini.find("mbs=12.5"), std::string::npos) << ini;
}

TEST_F(SettingsStore, ASaveOfManyKeysReplacesTheFileOnceAndKeepsTheOtherKeys) {
  SaveSetting(kAppName, "subject", "subject", "kept");
  const std::string ini = dir / "quillcast/quillcast.ini";
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
  for ([[maybe_unused]] auto& e : std::filesystem::directory_iterator(dir / "quillcast")) ++files;
  EXPECT_EQ(files, 1);
}

TEST_F(SettingsStore, MissingKeyGivesTheCallersDefaultAndWritingCreatesIt) {
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "dflt"), "dflt");
  SaveSetting(kAppName, "tagoptions", "ups", "");
  EXPECT_EQ(GetSetting(kAppName, "tagoptions", "ups", "dflt"), "");  // exists, though empty
  // Section and key spelled differently are different entries.
  EXPECT_EQ(GetSetting(kAppName, "subject", "ups", "none"), "none");
}

TEST_F(SettingsStore, TableHoldsEveryKeyWithItsDefault) {
  struct Row {
    const char* section;
    const char* key;
    const char* dflt;
    bool flag;
  } rows[] = {
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
    EXPECT_EQ(GetTableSetting(r.section, r.key, "Brindle 7"), r.dflt);
  }
  EXPECT_THROW(SettingOf("tagoptions", "subject"), std::out_of_range);
  EXPECT_THROW(SettingOf("tagoptions", "Handle"), std::out_of_range);
  // The screen name defaults follow the name at the moment of reading, until one is stored.
  EXPECT_EQ(GetTableSetting("tagoptions", "rename", ""), "uploaded by ");
  SaveSetting(kAppName, "tagoptions", "handle", "stored");
  EXPECT_EQ(GetTableSetting("tagoptions", "handle", "third"), "stored");
}

TEST_F(SettingsStore, FlagsReadThroughTheLeadingNumber) {
  const std::pair<const char*, bool> cases[] = {
      {"1", true},  {"0", false},  {"2", true},   {"x", false}, {"", false},
      {" 1", true}, {"0.5", true}, {"00", false}, {"1x", true}, {"-1", false},
  };
  for (const auto& [stored, on] : cases) {
    SaveSetting(kAppName, "tagoptions", "frmmenu.bbcemail.Checked", stored);
    EXPECT_EQ(FlagIsOn(GetTableSetting("tagoptions", "frmmenu.bbcemail.Checked")), on) << stored;
  }
  EXPECT_STREQ(FlagText(true), "1");
  EXPECT_STREQ(FlagText(false), "0");
}

TEST_F(SettingsStore, DeletesAKeyASectionOrTheWholeApplication) {
  auto all = [] {
    return GetSetting(kAppName, "tagoptions", "mbs", "-") + GetSetting(kAppName, "tagoptions", "ups", "-") +
           GetSetting(kAppName, "subject", "subject", "-") + GetSetting("other", "tagoptions", "mbs", "-");
  };
  auto fill = [] {
    SaveSetting(kAppName, "tagoptions", "mbs", "1");
    SaveSetting(kAppName, "tagoptions", "ups", "2");
    SaveSetting(kAppName, "subject", "subject", "s");
    SaveSetting("other", "tagoptions", "mbs", "k");
  };
  fill();
  DeleteSetting(kAppName, "tagoptions", "mbs");
  EXPECT_EQ(all(), "-2sk");
  fill();
  DeleteSetting(kAppName, "tagoptions");
  EXPECT_EQ(all(), "--sk");
  fill();
  DeleteSetting(kAppName);
  EXPECT_EQ(all(), "---k");
  // Deleting what is not there is no failure.
  DeleteSetting(kAppName, "tagoptions", "mbs");
  DeleteSetting(kAppName, "nosuch");
}

TEST_F(SettingsStore, AwkwardValuesComeBackByteForByteAndHandEditsAreRead) {
  for (const std::string& v : {std::string("\xC3\xB3mbreval\xC3\xA8"),
                              SettingDefault(SettingOf("tagoptions", "ascii2")), std::string("a, b, c"),
                              std::string("\"quoted\""), std::string("@atsign"),
                              std::string("semi;colon = equals"), std::string("back\\slash"),
                              std::string("  padded  ")}) {
    SaveSetting(kAppName, "subject", "subject", v);
    EXPECT_EQ(GetSetting(kAppName, "subject", "subject", ""), v);
  }
  // The file holds the text as UTF-8 so that a hand edit sees the letters.
  SaveSetting(kAppName, "subject", "subject", "\xC3\xB3mbreval\xC3\xA8");
  EXPECT_NE(ReadBytes(SettingsFilePath(kAppName)).find("\xC3\xB3mbreval\xC3\xA8"),
            std::string::npos);
  // A fresh settings path: no cached copy of this file yet.
  TempDir other;
  SetSettingsFolder(other.path());
  WriteBytes(SettingsFilePath(kAppName),
             "[tagoptions]\nhandle=Brindle, 7\nfrmmenu.sendlater.Checked=2\n"
             "[subject]\nsubject=\xC3\xB3mbreval\xC3\xA8 idTitle$\n");
  EXPECT_EQ(GetTableSetting("tagoptions", "handle", "x"), "Brindle, 7");
  EXPECT_TRUE(FlagIsOn(GetTableSetting("tagoptions", "frmmenu.sendlater.Checked")));
  EXPECT_EQ(GetTableSetting("subject", "subject"), "\xC3\xB3mbreval\xC3\xA8 idTitle$");
}

}  // namespace
}  // namespace qc::test
