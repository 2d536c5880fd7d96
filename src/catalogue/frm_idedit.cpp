#include "catalogue/frm_idedit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <cctype>

#include "ui/list_box.h"
#include "ui/qt_glue.h"
#include "ui/window_routines.h"
#include "ui/frmmain.h"
#include "ui/services.h"
#include "base/failure.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "codec/genres.h"
#include "codec/id3v1.h"
#include "catalogue/folder_list.h"
#include "text/text.h"
#include "text/text_files.h"

namespace qc {

namespace {

QPointer<FrmIDedit> gEditor;

// Sort key of one character: hyphens are dropped before this; blanks and punctuation come
// before letters and digits, and letters compare without regard to case.
std::pair<int, int> CharRank(unsigned char c) {
  const bool alnum = std::isalnum(c) != 0 || c >= 0x80;
  return {alnum ? 1 : 0, std::tolower(c)};
}

std::string WithoutHyphens(const std::string& s) {
  std::string out;
  for (char c : s)
    if (c != '-') out.push_back(c);
  return out;
}

QLabel* CaptionLabel(const QString& caption, QWidget* buddy, QWidget* parent, double left,
                     double top) {
  auto* l = new QLabel(caption, parent);
  l->setBuddy(buddy);
  SetTwipsGeometry(l, left, top, 900, 255);
  return l;
}

}  // namespace

bool GenreBoxLess(const std::string& a, const std::string& b) {
  const std::string x = WithoutHyphens(a), y = WithoutHyphens(b);
  return std::lexicographical_compare(
      x.begin(), x.end(), y.begin(), y.end(),
      [](char p, char q) { return CharRank(static_cast<unsigned char>(p)) <
                                  CharRank(static_cast<unsigned char>(q)); });
}

std::vector<std::string> SortedGenreNames() {
  std::vector<std::string> names;
  for (std::string_view n : GenreNames()) names.emplace_back(n);
  std::stable_sort(names.begin(), names.end(), GenreBoxLess);
  return names;
}

TagTextBox::TagTextBox(const QString& name, int maxLength, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setMaxLength(maxLength);
}

void TagTextBox::focusInEvent(QFocusEvent* e) {
  QLineEdit::focusInEvent(e);
  setSelection(0, static_cast<int>(text().size()));
}

YearTextBox::YearTextBox(const QString& name, QWidget* parent) : TagTextBox(name, 4, parent) {}

void YearTextBox::keyPressEvent(QKeyEvent* e) {
  const QString t = e->text();
  if (!t.isEmpty()) {
    const char16_t c = t.at(0).unicode();
    const bool passes = (c >= u'0' && c <= u'9') || c == 8;
    // Control characters of shortcuts (paste, copy, undo) and Delete (127) are no typed keys:
    // only characters reach the platform's key filter.
    if (!passes && c >= 32 && c != 127) {
      e->accept();
      return;
    }
  }
  TagTextBox::keyPressEvent(e);
}

FrmIDedit::FrmIDedit(const Services& services, QWidget* parent)
    : SecondaryWindow(QStringLiteral("frmIDedit"),
                      QStringLiteral("MPEG file info box + ID3 tag editor"), 5100, 3330,
                      services.deskArea, parent) {
  QWidget* face = pnlFrame();
  const double boxLeft = 1080, boxWidth = 3840;
  txtTitle = new TagTextBox(QStringLiteral("txtTitle"), 30, face);
  txtArtist = new TagTextBox(QStringLiteral("txtArtist"), 30, face);
  txtAlbum = new TagTextBox(QStringLiteral("txtAlbum"), 30, face);
  txtYear = new YearTextBox(QStringLiteral("txtYear"), face);
  cmbGenre = new QComboBox(face);
  cmbGenre->setObjectName(QStringLiteral("cmbGenre"));
  cmbGenre->setEditable(false);
  for (const std::string& name : SortedGenreNames()) cmbGenre->addItem(ToQ(name));
  cmbGenre->setCurrentIndex(-1);
  txtComment = new TagTextBox(QStringLiteral("txtComment"), 30, face);

  struct Row {
    QWidget* box;
    const char* caption;
    double width;
  };
  const Row rows[] = {{txtTitle, "&Title", boxWidth},     {txtArtist, "&Artist", boxWidth},
                      {txtAlbum, "A&lbum", boxWidth},     {txtYear, "&Year", 720},
                      {cmbGenre, "&Genre", 2400},         {txtComment, "&Comment", boxWidth}};
  double top = 420;
  for (const Row& r : rows) {
    CaptionLabel(QString::fromUtf8(r.caption), r.box, face, 120, top + 30);
    SetTwipsGeometry(r.box, boxLeft, top, r.width, 300);
    top += 375;
  }

  cmdSave = new Command3D(QStringLiteral("&Save"), face, QStringLiteral("cmdSave"));
  cmdSave->setDefault(true);
  SetTwipsGeometry(cmdSave, 2640, top + 30, 1080, 345);
  cmdCancel = new Command3D(QStringLiteral("Ca&ncel"), face, QStringLiteral("cmdCancel"));
  SetTwipsGeometry(cmdCancel, 3840, top + 30, 1080, 345);
  lblPath = new Label(QStringLiteral("lblPath"), QString(), face);
  SetTwipsGeometry(lblPath, 120, top + 60, 2400, 255);

  QWidget* order[] = {txtTitle, txtArtist, txtAlbum, txtYear, cmbGenre, txtComment, cmdSave,
                      cmdCancel};
  for (std::size_t i = 0; i + 1 < std::size(order); ++i) setTabOrder(order[i], order[i + 1]);
  for (QWidget* w : order) w->installEventFilter(this);

  connect(cmdSave, &QPushButton::clicked, this, &FrmIDedit::Save);
  connect(cmdCancel, &QPushButton::clicked, this, &FrmIDedit::Cancel);
}

bool FrmIDedit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && watched != cmdSave && watched != cmdCancel) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // Enter in any box of the window presses the default button.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      cmdSave->click();
      return true;
    }
  }
  return SecondaryWindow::eventFilter(watched, event);
}

void FrmIDedit::SetGenreText(const std::string& name) {
  const int i = cmbGenre->findText(ToQ(name), Qt::MatchFixedString);
  if (name.empty() || i < 0) RaiseFailure(kInvalidPropertyValue);
  cmbGenre->setCurrentIndex(i);
}

std::string FrmIDedit::GenreText() const { return FromQ(cmbGenre->currentText()); }

void FrmIDedit::Save() {
  WriteId3Tag(FromQ(lblPath->text()), FromQ(txtTitle->text()), FromQ(txtArtist->text()),
              FromQ(txtAlbum->text()), FromQ(txtYear->text()), FromQ(txtComment->text()),
              GenreText());
  DoEvents();
  close();
}

void FrmIDedit::Cancel() { close(); }

FrmIDedit* TagEditor() { return gEditor.data(); }

namespace {
// Loads the window when needed: pump, then centred and on top, shown without blocking.
FrmIDedit* LoadTagEditor(const Services& services) {
  if (!gEditor) {
    gEditor = new FrmIDedit(services);
    DoEvents();
  }
  return gEditor.data();
}

// Fields padded with NULs show up to the first NUL, as the boxes take C strings.
QString BoxText(const std::string& field) { return ToQ(field.substr(0, field.find('\0'))); }
}  // namespace

void FillTagEditor(FrmMain& f, const Services& services) {
  FrmIDedit* ed = LoadTagEditor(services);
  DoEvents();
  ed->lblPath->setText(f.lblPath->text());
  DoEvents();
  const std::string path = f.lblPath->Caption();
  if (!FileExists(path)) {
    services.prompts.MsgBox("cannot find mp3 file!", kCritical | kSystemModal, "error:");
    return;
  }
  const Id3Tag tag = ReadId3Tag(path);
  ed->txtTitle->setText(BoxText(tag.title));
  DoEvents();
  ed->txtArtist->setText(BoxText(tag.artist));
  DoEvents();
  ed->txtAlbum->setText(BoxText(tag.album));
  DoEvents();
  ed->txtYear->setText(BoxText(tag.year));
  DoEvents();
  ed->SetGenreText(tag.genre);
  DoEvents();
  ed->txtComment->setText(BoxText(tag.comment));
  DoEvents();
}

void OpenTagEditor(FrmMain& f, ListBox& paths, ListBox& display, bool ignoreFailures,
                   const Services& services) {
  auto step = [ignoreFailures](auto&& statement) {
    if (ignoreFailures) {
      SkipOnFailure(statement);
    } else {
      statement();
    }
  };
  std::string path;
  step([&] { path = paths.List(display.ListIndex()); });
  step([&] { path = CleanDoubledSeparators(path); });
  step([&] {
    LoadTagEditor(services)->lblPath->setText(ToQ(path));
    f.lblPath->SetCaption(path);
    DoEvents();
  });
  step([&] {
    LoadTagEditor(services)->open();
    DoEvents();
  });
  step([&] { FillTagEditor(f, services); });
}

}  // namespace qc
