#pragma once
// The per-user settings store and the table of its keys, names and defaults.
#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qc {

inline constexpr const char* kAppName = "quillcast";
inline constexpr const char* kOptionsSection = "tagoptions";
inline constexpr const char* kSubjectSection = "subject";

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
// A stored flag is on for any value whose leading number is not 0 ("2" is on, "x" is off).
bool FlagIsOn(const std::string& storedValue);
inline const char* FlagText(bool on) { return on ? "1" : "0"; }

struct SettingValue {
  std::string key;
  std::string value;
};

// One user's store of text values by section and key: an INI file held by QSettings. The program
// builds one over the user's configuration folder and hands it to the features; tests put theirs
// in a folder of their own.
class SettingsStore {
 public:
  // The store of `application` in `folder` (<folder>/<application>/<application>.ini).
  explicit SettingsStore(const std::string& folder, const std::string& application = kAppName);
  // The store in the user's configuration folder ($XDG_CONFIG_HOME, else ~/.config).
  static SettingsStore UserStore();

  const std::string& FilePath() const { return path_; }

  // The default comes back when the key does not exist.
  std::string Get(const std::string& section, const std::string& key,
                  const std::string& defaultValue) const;
  void Save(const std::string& section, const std::string& key, const std::string& value);
  // Writes the keys in the order given as one save of the store: the file is replaced whole, so
  // a kill leaves it as it was or with every one of them.
  void Save(const std::string& section, const std::vector<SettingValue>& values);
  void Delete(const std::string& section, const std::string& key);
  void Delete(const std::string& section);
  // Every setting of the application.
  void DeleteAll();

  // A key of the table, with its default from the table.
  std::string GetTable(const std::string& section, const std::string& key,
                       const std::string& screenName = "") const;
  std::string Read(Setting setting, const std::string& screenName = "") const;
  void Write(Setting setting, const std::string& value);

 private:
  std::string path_;
};

}  // namespace qc
