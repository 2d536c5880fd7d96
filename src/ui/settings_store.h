#pragma once
// The per-user settings store: text values by application, section and key, held by QSettings
// as an INI file in the user's configuration folder (<config>/<application>/<application>.ini).
#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qc {

inline constexpr const char* kAppName = "quillcast";
inline constexpr const char* kOptionsSection = "tagoptions";
inline constexpr const char* kSubjectSection = "subject";

// The default comes back when the key does not exist.
std::string GetSetting(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& defaultValue);
void SaveSetting(const std::string& application, const std::string& section,
                 const std::string& key, const std::string& value);
struct SettingValue {
  std::string key;
  std::string value;
};
// Writes the keys in the order given as one save of the store: the file is replaced whole, so a
// kill leaves it as it was or with every one of them.
void SaveSettings(const std::string& application, const std::string& section,
                  const std::vector<SettingValue>& values);
// Removes one key; without key the whole section; without section every setting of the
// application.
void DeleteSetting(const std::string& application, const std::string& section,
                   const std::string& key);
void DeleteSetting(const std::string& application, const std::string& section);
void DeleteSetting(const std::string& application);

// Puts the store's files into `folder` from now on (tests use a temporary folder); an empty text
// goes back to the user's configuration folder.
void SetSettingsFolder(const std::string& folder);
// The INI file that holds the application's settings.
std::string SettingsFilePath(const std::string& application);

enum class DefaultKind {
  kFixed,          // the text as it stands
  kScreenName,     // the client's screen name at the moment of reading
  kUploadedByName  // "uploaded by " followed by the screen name
};

struct SettingEntry {
  const char* section;
  const char* key;
  const char* fixedDefault;  // for kFixed
  DefaultKind kind;
  bool isFlag;  // a check mark: "1" or "0" when written
};

// Every key of the store, in the order of the settings table: the check marks of the nine option
// items first, in the order of the items.
enum class Setting {
  kMakeSubLCase, kBbcEmail, kSendLater, kDeadCheckNames, kMemberLst, kUploadLst,
  kRenameComment, kAutoHead, kAutoFoot,
  kHandle, kRename, kMbs, kUps, kAscii1, kAscii2, kSubject,
};
inline constexpr std::size_t kSettingCount = 16;

// frmMenu's nine option items, in the order in which they are restored and saved.
enum class Option {
  kMakeSubLCase, kBbcEmail, kSendLater, kDeadCheckNames, kMemberLst, kUploadLst,
  kRenameComment, kAutoHead, kAutoFoot,
};
inline constexpr std::array<Option, 9> kOptions = {
    Option::kMakeSubLCase, Option::kBbcEmail,      Option::kSendLater,
    Option::kDeadCheckNames, Option::kMemberLst,   Option::kUploadLst,
    Option::kRenameComment, Option::kAutoHead,     Option::kAutoFoot};
// The items' names on frmMenu, by Option.
inline constexpr std::array<const char*, 9> kOptionItems = {
    "makesublcase", "bbcemail",      "sendlater", "deadchecknames", "memberlst",
    "uploadlst",    "renamecomment", "autohead",  "autofoot"};
inline constexpr const char* OptionItemName(Option o) {
  return kOptionItems[static_cast<std::size_t>(o)];
}
// The setting that keeps an option item's check mark.
inline constexpr Setting FlagSetting(Option o) { return static_cast<Setting>(static_cast<int>(o)); }

// Every entry of the store, in the order of Setting.
const std::vector<SettingEntry>& SettingsTable();
const SettingEntry& SettingOf(Setting setting);
// The entry of a stored name; throws std::out_of_range for a name not in the table.
const SettingEntry& SettingOf(const std::string& section, const std::string& key);
// The default of an entry; screenName is used only by the defaults that depend on it.
std::string SettingDefault(const SettingEntry& entry, const std::string& screenName = "");
// Reads a key of the table with its default from the table.
std::string GetTableSetting(const std::string& section, const std::string& key,
                            const std::string& screenName = "");
std::string ReadSetting(Setting setting, const std::string& screenName = "");
void WriteSetting(Setting setting, const std::string& value);
// A stored flag is on for any value whose leading number is not 0 ("2" is on, "x" is off).
bool FlagIsOn(const std::string& storedValue);
inline const char* FlagText(bool on) { return on ? "1" : "0"; }

}  // namespace qc
