// The settings store: where its file lies, the key table with its defaults, deletes and non-ASCII
// values. How a flag reads its leading number is a program scenario (restore_values_as_stored).
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/files.h"
#include "ui/settings_store.h"

namespace qc::test {
namespace {

class SettingsStoreTest : public ::testing::Test {
 protected:
  TempDir dir;
  SettingsStore settings{dir.path()};
};

TEST_F(SettingsStoreTest, OneIniFileSavedWholeWithKeysInOrder) {
  EXPECT_EQ(settings.FilePath(), dir / "quillcast/quillcast.ini");
  settings.Save("subject", "subject", "kept");
  const auto before = std::filesystem::status(settings.FilePath()).permissions();
  std::vector<SettingValue> values;
  for (int i = 0; i < 13; ++i) values.push_back({"key" + std::to_string(i), std::to_string(i)});
  values.push_back({"key0", "last"});  // written in order: the later one stands
  settings.Save("tagoptions", values);
  EXPECT_EQ(settings.Get("tagoptions", "key0", ""), "last");
  EXPECT_EQ(settings.Get("tagoptions", "key12", ""), "12");
  EXPECT_EQ(settings.Get("subject", "subject", ""), "kept");
  const std::string ini = ReadBytes(settings.FilePath());
  EXPECT_NE(ini.find("[tagoptions]\nkey0=last"), std::string::npos) << ini;
  EXPECT_EQ(std::filesystem::status(settings.FilePath()).permissions(), before);
  // Nothing of the save is left beside the store.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "quillcast"), {}), 1);
  // A missing key gives the caller's default; an empty value is a value.
  EXPECT_EQ(settings.Get("tagoptions", "ups", "dflt"), "dflt");
  settings.Save("tagoptions", "ups", "");
  EXPECT_EQ(settings.Get("tagoptions", "ups", "dflt"), "");
  EXPECT_EQ(settings.Get("subject", "ups", "none"), "none");
}

// Every key with its section, kind and default against data/settings.txt, in the table's order.
TEST_F(SettingsStoreTest, TableHoldsEveryKeyWithItsDefault) {
  std::size_t i = 0;
  for (const TableRow& row : ReadTable(QC_TEST_DATA_DIR "/settings.txt")) {
    const std::string& section = row.words[0];
    const std::string& key = row.words[1];
    SCOPED_TRACE(key);
    ASSERT_LT(i, SettingsTable().size());
    const SettingEntry& entry = SettingsTable()[i++];
    EXPECT_EQ(std::string(entry.section) + " " + entry.key, section + " " + key);
    EXPECT_EQ(entry.isFlag, row.words[2] == "flag");
    EXPECT_EQ(&SettingOf(section, key), &entry);
    EXPECT_EQ(settings.GetTable(section, key, "Brindle 7"), *row.text);
  }
  EXPECT_EQ(i, SettingsTable().size());
  EXPECT_THROW(SettingOf("tagoptions", "subject"), std::out_of_range);
  EXPECT_THROW(SettingOf("tagoptions", "Handle"), std::out_of_range);
  // The screen name defaults follow the name at the moment of reading, until one is stored.
  EXPECT_EQ(settings.GetTable("tagoptions", "rename", ""), "uploaded by ");
  settings.Save("tagoptions", "handle", "stored");
  EXPECT_EQ(settings.GetTable("tagoptions", "handle", "third"), "stored");
}

TEST_F(SettingsStoreTest, DeletesAKeyASectionOrEverythingOfOneStore) {
  TempDir otherDir;
  SettingsStore other(otherDir.path());
  auto all = [&] {
    return settings.Get("tagoptions", "mbs", "-") + settings.Get("tagoptions", "ups", "-") +
           settings.Get("subject", "subject", "-") + other.Get("tagoptions", "mbs", "-");
  };
  auto fill = [&] {
    settings.Save("tagoptions", {{"mbs", "1"}, {"ups", "2"}});
    settings.Save("subject", "subject", "s");
    other.Save("tagoptions", "mbs", "k");
  };
  fill();
  settings.Delete("tagoptions", "mbs");
  EXPECT_EQ(all(), "-2sk");
  fill();
  settings.Delete("tagoptions");
  EXPECT_EQ(all(), "--sk");
  fill();
  settings.DeleteAll();
  EXPECT_EQ(all(), "---k");
  // Deleting what is not there is no failure.
  settings.Delete("tagoptions", "mbs");
  settings.Delete("nosuch");
}

TEST_F(SettingsStoreTest, AwkwardValuesComeBackByteForByteAndHandEditsAreRead) {
  for (const char* v : {"\xC2\xB7\xC2\xB4)\xC2\xB4)", "a, b, c", "\"quoted\"", "semi;colon = equals",
                        "back\\slash", "  padded  "}) {
    settings.Save("subject", "subject", v);
    EXPECT_EQ(settings.Get("subject", "subject", ""), v);
  }
  // The file holds the text as UTF-8 so that a hand edit sees the letters.
  EXPECT_NE(ReadBytes(settings.FilePath()).find("  padded  "), std::string::npos);
  settings.Save("subject", "subject", "\xC3\xB3mbreval\xC3\xA8");
  EXPECT_NE(ReadBytes(settings.FilePath()).find("\xC3\xB3mbreval\xC3\xA8"), std::string::npos);
  TempDir handDir;
  const SettingsStore hand(handDir.path());
  WriteBytes(hand.FilePath(),
             "[tagoptions]\nhandle=Brindle, 7\nfrmmenu.sendlater.Checked=2\n"
             "[subject]\nsubject=\xC3\xB3mbreval\xC3\xA8 idTitle$\n");
  EXPECT_EQ(hand.GetTable("tagoptions", "handle", "x"), "Brindle, 7");
  EXPECT_TRUE(FlagIsOn(hand.GetTable("tagoptions", "frmmenu.sendlater.Checked")));
  EXPECT_EQ(hand.GetTable("subject", "subject"), "\xC3\xB3mbreval\xC3\xA8 idTitle$");
}

}  // namespace
}  // namespace qc::test
