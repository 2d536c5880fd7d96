#pragma once
// The folder catalogue (lstMp3 with lstPaths) and the selection (lstUp with lstPathSelect and
// lstSubj) on the main window. The list controls are the data: companions change together at
// the same index, and nothing here checks for duplicates.
#include <string>
#include <vector>

#include "base/id3tag.h"

namespace qc {

class FrmMain;
class ListBox;
class Prompts;
class SettingsStore;

// Paths are joined and split with the platform's separator.
#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

// The name with its extension: what follows the last separator.
std::string LastPathComponent(const std::string& path);
// Every doubled separator made single (a drive root's folder already ends in one).
std::string CleanDoubledSeparators(std::string path);

// The folder's "*.mp3" files (extension without regard to case), names only, hidden files left
// out, sorted by name without regard to case.
std::vector<std::string> ScanMp3Folder(const std::string& folder);
// Points File1 at the folder: it holds the scan's names afterwards, which are also returned.
std::vector<std::string> PointFile1At(ListBox& file1, const std::string& folder);

// The subject template expanded for one file (fileName$, fileSize$, idTitle$, idArtist$,
// idAlbum$, idGenre$ in that order); a file without a tag gives its name and "unknown".
std::string ExpandSubject(std::string subjectTemplate, const std::string& name,
                          const std::string& sizeText, const Id3Tag& tag, bool hasTag);

// Click handlers of the select panel.
void ChooseFolder(FrmMain& f, Prompts& prompts);   // lblSetfolder: appends a folder's files to lstMp3/lstPaths
void AddSelectedMp3s(FrmMain& f, const SettingsStore& settings);  // lbl_Add
void AddCurrentMp3(FrmMain& f, const SettingsStore& settings);  // the menu's addmp3: the cursor entry, nothing deselected
void ClearFolderList(FrmMain& f, Prompts& prompts);   // lbl_Clr, after a Yes
void RefreshFolderList(FrmMain& f); // lbl_refresh: display texts made anew from the paths
void RemoveSelectedMp3s(FrmMain& f);  // lblRemove, downward, failures skipped
void RemoveCurrentMp3(FrmMain& f);    // the menu's rmvmp33
void ShowListView(FrmMain& f);      // lblMp3list
void ShowSelectedView(FrmMain& f);  // lblSelected

}  // namespace qc
