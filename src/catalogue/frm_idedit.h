#pragma once
// frmIDedit: the ID3v1 tag of one file in a small window, written back at once on Save.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <string>
#include <vector>

#include "ui/secondary_window.h"
#include "ui/controls.h"

namespace qc {

class FrmMain;
class ListBox;
struct Services;

// The genre names in the box's order: without regard to case, hyphens not counted, blanks and
// other punctuation before letters and digits.
std::vector<std::string> SortedGenreNames();
bool GenreBoxLess(const std::string& a, const std::string& b);

// A text box that selects its whole text whenever it gets the focus.
class TagTextBox : public QLineEdit {
  Q_OBJECT
 public:
  TagTextBox(const QString& name, int maxLength, QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* e) override;
};

// Of typed characters only digits and backspace reach the box; pasted text is not filtered.
class YearTextBox : public TagTextBox {
  Q_OBJECT
 public:
  YearTextBox(const QString& name, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* e) override;
};

class FrmIDedit : public SecondaryWindow {
  Q_OBJECT
 public:
  explicit FrmIDedit(const Services& services, QWidget* parent = nullptr);

  TagTextBox* txtTitle;
  TagTextBox* txtArtist;
  TagTextBox* txtAlbum;
  YearTextBox* txtYear;
  QComboBox* cmbGenre;
  TagTextBox* txtComment;
  Command3D* cmdSave;
  Command3D* cmdCancel;
  Label* lblPath;  // shows the path; its caption is the file Save writes to

  // The box's text can only be one of its names (any case); anything else, "" included, is the
  // invalid-property-value failure.
  void SetGenreText(const std::string& name);
  std::string GenreText() const;

  void Save();    // writes the tag of lblPath's file, then unloads
  void Cancel();  // unloads

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// The editor while it is loaded, else null.
FrmIDedit* TagEditor();

// Fills the boxes from the file named by frmMain's lblPath; stops with a failure at the genre box
// when the tag's genre is no name of the list (an untagged file included).
void FillTagEditor(FrmMain& f, const Services& services);

// Opens the editor on the path at the cursor of `display` taken from `paths`. With
// ignoreFailures every step that fails is skipped and the next one runs (lbl_Id); otherwise a
// failure goes on to the caller.
void OpenTagEditor(FrmMain& f, ListBox& paths, ListBox& display, bool ignoreFailures,
                   const Services& services);

}  // namespace qc
