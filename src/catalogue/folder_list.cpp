#include "catalogue/folder_list.h"

#include <QFont>
#include <algorithm>
#include <filesystem>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

#include "ui/list_box.h"
#include "ui/qt_glue.h"
#include "ui/settings_store.h"
#include "ui/frmmain.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "codec/id3v1.h"
#include "text/template_keys.h"
#include "text/text.h"
#include "text/text_files.h"

namespace qc {

namespace {

const std::string kSep(1, kPathSeparator);

std::string PathText(const std::filesystem::path& p) {
  const std::u8string s = p.u8string();
  return std::string(s.begin(), s.end());
}

bool IsHidden(const std::filesystem::directory_entry& entry, const std::string& name) {
#ifdef _WIN32
  (void)name;
  const DWORD attrs = GetFileAttributesW(entry.path().c_str());
  return attrs != INVALID_FILE_ATTRIBUTES &&
         (attrs & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
#else
  (void)entry;
  return !name.empty() && name.front() == '.';
#endif
}

bool EndsWithMp3(const std::string& name) {
  return name.size() > 4 && LowerCase(name.substr(name.size() - 4)) == ".mp3";
}

// Title and artist of a tagged file, or its name from File1, as a folder choice shows it.
std::string FolderDisplayText(const std::string& path, const std::string& entry) {
  if (!HasId3Tag(path)) return entry;
  const Id3Tag tag = ReadId3Tag(path);
  if (Trim(tag.title).empty()) return entry;
  return tag.title + " - " + tag.artist;
}

void SetBold(QWidget* w, bool bold) {
  QFont font = w->font();
  font.setBold(bold);
  w->setFont(font);
}

// One pass of the add operations: copies entry i of the catalogue into the selection, shows the
// file in the info labels and stores its subject line.
void AddOneMp3(FrmMain& f, long long i, const SettingsStore& settings) {
  const std::string subjectTemplate = settings.Read(Setting::kSubject);
  const std::string path = f.lstPaths->List(i);
  f.lstUp->AddItem(f.lstMp3->List(i));
  f.lstPathSelect->AddItem(path);
  const std::string name = LastPathComponent(path);

  const bool hasTag = HasId3Tag(path);
  const Id3Tag tag = hasTag ? ReadId3Tag(path) : Id3Tag{};
  f.lblTitle->SetCaption("title: " + (hasTag ? tag.title : name));
  f.lblArtist->SetCaption("artist: " + (hasTag ? tag.artist : std::string("unknown")));
  f.lblAlbum->SetCaption("album: " + (hasTag ? tag.album : std::string("unknown")));
  f.lblGenre->SetCaption("genre: " + (hasTag ? tag.genre : std::string("unknown")));
  f.lblYear->SetCaption("yr: " + (hasTag ? tag.year : std::string("1999")));

  const std::string size = SizeText(FileLength(path));
  f.lblMb->SetCaption("mb: " + size);

  const std::string subject = ExpandSubject(subjectTemplate, name, size, tag, hasTag);
  f.txtSubj->SetText(subject);
  f.lstSubj->AddItem(subject);
}

}  // namespace

std::string LastPathComponent(const std::string& path) {
  std::string rest = path;
  while (rest.find(kPathSeparator) != std::string::npos) rest = TextAfter(rest, kSep);
  return rest;
}

std::string CleanDoubledSeparators(std::string path) {
  ReplaceAll(path, kSep + kSep, kSep);
  return path;
}

std::vector<std::string> ScanMp3Folder(const std::string& folder) {
  // Each name with its lower-case form, made once rather than at every comparison.
  std::vector<std::pair<std::string, std::string>> found;
  std::error_code ec;
  std::filesystem::directory_iterator it(std::filesystem::u8path(folder), ec);
  if (ec) return {};
  for (const auto& entry : it) {
    std::error_code typeError;
    if (!entry.is_regular_file(typeError)) continue;
    std::string name = PathText(entry.path().filename());
    if (!EndsWithMp3(name) || IsHidden(entry, name)) continue;
    std::string lower = LowerCase(name);
    found.emplace_back(std::move(lower), std::move(name));
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& f : found) names.push_back(std::move(f.second));
  return names;
}

std::vector<std::string> PointFile1At(ListBox& file1, const std::string& folder) {
  file1.Clear();
  std::vector<std::string> names = ScanMp3Folder(folder);
  for (const std::string& name : names) file1.AddItem(name);
  return names;
}

std::string ExpandSubject(std::string subjectTemplate, const std::string& name,
                          const std::string& sizeText, const Id3Tag& tag, bool hasTag) {
  const std::string unknown = "unknown";
  return ExpandKeys(subjectTemplate, kSubjectKeyOrder, [&](TemplateKey key) -> std::string {
    switch (key) {
      case TemplateKey::kFileName: return name;
      case TemplateKey::kFileSize: return sizeText;
      case TemplateKey::kIdTitle: return hasTag ? tag.title : name;
      case TemplateKey::kIdArtist: return hasTag ? tag.artist : unknown;
      case TemplateKey::kIdAlbum: return hasTag ? tag.album : unknown;
      case TemplateKey::kIdGenre: return hasTag ? tag.genre : unknown;
      default: return {};
    }
  });
}

void ChooseFolder(FrmMain& f, Prompts& prompts) {
  const std::string folder = prompts.BrowseForFolder("Select Mp3 Folder:");
  if (folder.empty()) return;
  // File1's entries, read from the scan that filled it rather than back out of the control.
  const std::vector<std::string> entries = PointFile1At(*f.File1, folder);
  f.lblSetfolder->Tag = ToQ(folder);
  if (f.File1->ListCount() == 0) return;
  const std::int16_t count = f.File1->ListCount();
  for (long long i = 0; i <= count - 1; ++i) {
    const std::string& entry = entries[static_cast<std::size_t>(i)];
    const std::string path = CleanDoubledSeparators(folder + kSep + entry);
    f.lstPaths->AddItem(path);
    f.lstMp3->AddItem(FolderDisplayText(path, entry));
    DoEvents();
  }
}

void AddSelectedMp3s(FrmMain& f, const SettingsStore& settings) {
  const std::int16_t count = f.lstMp3->ListCount();
  for (long long i = 0; i <= count - 1; ++i) {
    if (!f.lstMp3->Selected(i)) continue;
    f.lstMp3->SetSelected(i, false);
    AddOneMp3(f, i, settings);
  }
}

void AddCurrentMp3(FrmMain& f, const SettingsStore& settings) {
  AddOneMp3(f, f.lstMp3->ListIndex(), settings);
}

void ClearFolderList(FrmMain& f, Prompts& prompts) {
  const int answer = prompts.MsgBox("Are you sure you want to clear this list?",
                                    kYesNo | kSystemModal, "Clear");
  if (answer != kAnswerYes) return;
  f.lstPaths->Clear();
  f.lstMp3->Clear();
}

void RefreshFolderList(FrmMain& f) {
  if (f.lstPaths->ListCount() == 0) return;
  f.lstMp3->Clear();
  for (long long i = 0; i <= f.lstPaths->ListCount() - 1; ++i) {
    const std::string stored = f.lstPaths->List(i);
    const std::string path = CleanDoubledSeparators(stored);
    std::string text;
    if (HasId3Tag(path)) {
      const Id3Tag tag = ReadId3Tag(path);
      text = tag.title + " - " + tag.artist;
    } else {
      text = LastPathComponent(stored);
    }
    f.lstMp3->AddItem(text);
    DoEvents();
  }
}

void RemoveSelectedMp3s(FrmMain& f) {
  std::int16_t count = 0;
  SkipOnFailure([&] { count = f.lstUp->ListCount(); });
  for (long long i = count - 1; i >= 0; --i) {
    bool selected = false;
    SkipOnFailure([&] { selected = f.lstUp->Selected(i); });
    if (!selected) continue;
    SkipOnFailure([&] { f.lstUp->RemoveItem(i); });
    SkipOnFailure([&] { f.lstPathSelect->RemoveItem(i); });
    SkipOnFailure([&] { f.lstSubj->RemoveItem(i); });
  }
}

void RemoveCurrentMp3(FrmMain& f) {
  const std::int16_t i = f.lstUp->ListIndex();
  f.lstUp->RemoveItem(i);
  f.lstPathSelect->RemoveItem(i);
  f.lstSubj->RemoveItem(i);
}

namespace {
void SetView(FrmMain& f, bool listView) {
  f.lstMp3->setVisible(listView);
  f.lstUp->setVisible(!listView);
  f.pnlOpt->setVisible(listView);
  f.pnlOpt2->setVisible(!listView);
  f.lblSetfolder->setVisible(listView);
  SetBold(f.lblMp3list, listView);
  SetBold(f.lblSelected, !listView);
  // Bold changes the width of the auto-sizing labels; lblSelected stays where it is.
  for (Label* l : {f.lblMp3list, f.lblSelected, f.lblSep})
    if (l->AutoSize()) l->adjustSize();
  f.LayOutCaptionRow();
}
}  // namespace

void ShowListView(FrmMain& f) { SetView(f, true); }
void ShowSelectedView(FrmMain& f) { SetView(f, false); }

}  // namespace qc
