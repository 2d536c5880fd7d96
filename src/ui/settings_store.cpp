#include "ui/settings_store.h"

#include <QSettings>
#include <stdexcept>

#include "base/numbers.h"

namespace qc {
namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

SettingsStore::SettingsStore(const std::string& folder, const std::string& application)
    : path_(folder + "/" + application + "/" + application + ".ini") {}

SettingsStore SettingsStore::UserStore() {
  const QString config =
      qEnvironmentVariable("XDG_CONFIG_HOME", qEnvironmentVariable("HOME") + "/.config");
  return SettingsStore(config.toStdString());
}

namespace {

// Each sync writes a temporary file that QSettings renames over the store (atomic sync is its
// default), so the file is always one whole save.
QSettings Open(const std::string& path) { return QSettings(Q(path), QSettings::IniFormat); }

}  // namespace

std::string SettingsStore::Get(const std::string& section, const std::string& key,
                               const std::string& defaultValue) const {
  QSettings s = Open(path_);
  s.beginGroup(Q(section));
  QVariant v = s.value(Q(key));
  if (!v.isValid()) return defaultValue;
  // A hand-edited value with unquoted commas comes back as a list.
  if (v.typeId() == QMetaType::QStringList) return v.toStringList().join(", ").toStdString();
  return v.toString().toStdString();
}

void SettingsStore::Save(const std::string& section, const std::string& key,
                         const std::string& value) {
  Save(section, {{key, value}});
}

void SettingsStore::Save(const std::string& section, const std::vector<SettingValue>& values) {
  QSettings s = Open(path_);
  s.beginGroup(Q(section));
  for (const auto& v : values) s.setValue(Q(v.key), Q(v.value));
  s.endGroup();
  s.sync();
}

void SettingsStore::Delete(const std::string& section, const std::string& key) {
  QSettings s = Open(path_);
  s.beginGroup(Q(section));
  s.remove(Q(key));
  s.endGroup();
  s.sync();
}

void SettingsStore::Delete(const std::string& section) {
  QSettings s = Open(path_);
  s.remove(Q(section));
  s.sync();
}

void SettingsStore::DeleteAll() {
  QSettings s = Open(path_);
  s.clear();
  s.sync();
}

std::string SettingsStore::GetTable(const std::string& section, const std::string& key,
                                    const std::string& screenName) const {
  return Get(section, key, SettingDefault(SettingOf(section, key), screenName));
}

std::string SettingsStore::Read(Setting setting, const std::string& screenName) const {
  const SettingEntry& e = SettingOf(setting);
  return Get(e.section, e.key, SettingDefault(e, screenName));
}

void SettingsStore::Write(Setting setting, const std::string& value) {
  const SettingEntry& e = SettingOf(setting);
  Save(e.section, e.key, value);
}

const std::vector<SettingEntry>& SettingsTable() {
  using K = DefaultKind;
  static const std::vector<SettingEntry> table = {
      {kOptionsSection, "frmmenu.makesublcase.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.bbcemail.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.sendlater.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.deadchecknames.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.memberlst.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.uploadlst.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.renamecomment.Checked", "0", K::kFixed, true},
      {kOptionsSection, "frmmenu.autohead.Checked", "1", K::kFixed, true},
      {kOptionsSection, "frmmenu.autofoot.Checked", "1", K::kFixed, true},
      {kOptionsSection, "handle", "", K::kScreenName, false},
      {kOptionsSection, "rename", "", K::kUploadedByName, false},
      {kOptionsSection, "mbs", "0", K::kFixed, false},
      {kOptionsSection, "ups", "0", K::kFixed, false},
      {kOptionsSection, "ascii1", "\u00B7\u2022(`(`\u00B7", K::kFixed, false},
      {kOptionsSection, "ascii2", "\u00B7\u00B4)\u00B4)\u2022\u00B7", K::kFixed, false},
      {kSubjectSection, "subject", "\u00B7\u2022 \u00F3mbreval\u00E8 \u2022\u00B7[idArtist$]-idTitle$",
       K::kFixed, false},
  };
  return table;
}

const SettingEntry& SettingOf(Setting setting) {
  static_assert(kSettingCount == static_cast<std::size_t>(Setting::kSubject) + 1);
  return SettingsTable().at(static_cast<std::size_t>(setting));
}

const SettingEntry& SettingOf(const std::string& section, const std::string& key) {
  for (const auto& entry : SettingsTable()) {
    if (section == entry.section && key == entry.key) return entry;
  }
  throw std::out_of_range("no setting " + section + "/" + key);
}

std::string SettingDefault(const SettingEntry& entry, const std::string& screenName) {
  switch (entry.kind) {
    case DefaultKind::kScreenName: return screenName;
    case DefaultKind::kUploadedByName: return "uploaded by " + screenName;
    case DefaultKind::kFixed: break;
  }
  return entry.fixedDefault;
}

bool FlagIsOn(const std::string& storedValue) { return LeadingNumber(storedValue) != 0; }

}  // namespace qc
