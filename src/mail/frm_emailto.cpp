#include <QApplication>
#include <QClipboard>
#include <QFont>
#include <QKeyEvent>

#include "ui/app_path.h"
#include "ui/qt_glue.h"
#include "ui/settings_store.h"
#include "ui/window_routines.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "ui/list_addresses.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "client/full_box.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"
#include "client/window_system.h"
#include "mail/mail_editors.h"
#include "text/address_entry.h"
#include "text/text.h"

namespace qc {

namespace {

constexpr double kFrontTop = 675;
constexpr double kBackTop = 2750;  // below the visible face

void TakeBackColor(QWidget* w, const QColor& c) {
  QPalette p = w->palette();
  p.setColor(QPalette::Base, c);
  w->setPalette(p);
}

void UseSmallFont(QWidget* w) {
  QFont f = w->font();
  f.setPixelSize(10);
  w->setFont(f);
}

// A list control as the address entry sees it.
class ListBoxEntries : public EntryList {
 public:
  explicit ListBoxEntries(ListBox& list) : list_(list) {}
  long long Count() const override { return list_.ListCount(); }
  std::string Item(long long index) const override { return list_.List(index); }
  void Add(const std::string& item) override { list_.AddItem(item); }
  void MakeCurrent(long long index) override { list_.SetListIndex(index); }

 private:
  ListBox& list_;
};

}  // namespace


EntryBox::EntryBox(QWidget* parent, const QString& name) : QLineEdit(parent) {
  setObjectName(name);
}

void EntryBox::InsertRaw(const std::string& text) {
  const QString whole = this->text();
  int at = cursorPosition();
  int len = 0;
  if (hasSelectedText()) {
    at = selectionStart();
    len = static_cast<int>(selectedText().size());
  }
  const QString piece = ToQ(text);
  setText(whole.left(at) + piece + whole.mid(at + len));
  setCursorPosition(at + static_cast<int>(piece.size()));
}

void EntryBox::PressKey(int character) {
  emit keyPressed(character);
  if (character == 13) {
    InsertRaw("\r\n");
  } else if (character >= 32 && character < 127) {
    InsertRaw(std::string(1, static_cast<char>(character)));
  }
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    PressKey(13);
    event->accept();
    return;
  }
  if (event->matches(QKeySequence::Paste)) {
    // Pasted lines keep their breaks; the change handler decides what stays.
    InsertRaw(FromQ(QGuiApplication::clipboard()->text()));
    event->accept();
    return;
  }
  const QString t = event->text();
  if (!t.isEmpty()) emit keyPressed(t.at(0).unicode());
  QLineEdit::keyPressEvent(event);
}

FrmEmailto::FrmEmailto(const Services& services, FrmMenu* menu, QWidget* parent)
    : SecondaryWindow(QStringLiteral("frmEmailto"), QStringLiteral("mail lists"), 2430, 2505,
                      services.deskArea, parent),
      services_(services),
      menu_(menu) {
  Panel3D* face = pnlFrame();
  UseSmallFont(this);
  optMember = new Option3D(QStringLiteral("&member list"), face, QStringLiteral("optMember"));
  SetTwipsGeometry(optMember, 60, 375, 1170, 255);
  optUpload = new Option3D(QStringLiteral("&upload list"), face, QStringLiteral("optUpload"));
  SetTwipsGeometry(optUpload, 1245, 375, 1125, 255);

  auto makeFrame = [face](const QString& caption, const QString& name, const QString& boxName,
                          const QString& listName, EntryBox*& box, ListBox*& list) {
    auto* frame = new Frame3D(caption, face, name);
    SetTwipsGeometry(frame, 120, kFrontTop, 2190, 1365);
    box = new EntryBox(frame, boxName);
    SetTwipsGeometry(box, 90, 240, 2010, 285);
    list = new ListBox(frame);
    list->setObjectName(listName);
    list->SetMultiSelect(ListBox::kExtended);
    SetTwipsGeometry(list, 90, 570, 2010, 705);
    return frame;
  };
  frmMember = makeFrame(QStringLiteral("member list"), QStringLiteral("frmMember"),
                        QStringLiteral("txtMember"), QStringLiteral("lstMember"), txtMember,
                        lstMember);
  frmUpload = makeFrame(QStringLiteral("upload list"), QStringLiteral("frmUpload"),
                        QStringLiteral("txtUpload"), QStringLiteral("lstUpload"), txtUpload,
                        lstUpload);
  SetTwipsTop(frmUpload, kBackTop);

  panelSep = new Panel3D(face, QStringLiteral("panelSep"));
  panelSep->setBevel(Panel3D::Bevel::kInset, 1);
  SetTwipsGeometry(panelSep, 120, 2085, 2190, 30);
  // The two option buttons share one line of the narrow face.
  for (Option3D* o : {optMember, optUpload}) {
    QFont f = o->font();
    f.setPixelSize(9);
    o->setFont(f);
  }
  cmdMenu = new Command3D(QStringLiteral("&options"), face, QStringLiteral("cmdMenu"));
  SetTwipsGeometry(cmdMenu, 120, 2160, 1035, 285);
  cmdExit = addSaveExit(QStringLiteral("cmdExit"), QStringLiteral("save && e&xit"), 1275, 2160,
                        1035, 285);
  setSaveHook([this] { SaveLists(); });

  optMember->setChecked(true);
  connect(optMember, &QRadioButton::clicked, this, [this] { ShowList(true); });
  connect(optUpload, &QRadioButton::clicked, this, [this] { ShowList(false); });
  connect(txtMember, &EntryBox::keyPressed, this, [this](int c) { EntryKey(txtMember, c); });
  connect(txtUpload, &EntryBox::keyPressed, this, [this](int c) { EntryKey(txtUpload, c); });
  connect(txtMember, &QLineEdit::textChanged, this, [this] { EntryChanged(txtMember); });
  connect(txtUpload, &QLineEdit::textChanged, this, [this] { EntryChanged(txtUpload); });
  connect(cmdMenu, &QPushButton::clicked, this, [this] {
    if (menu_) PopupUnder(menu_->mnuEmailto, cmdMenu, this);
  });

  memberAddresses_ = std::make_unique<ListBoxAddresses>(*lstMember);
  uploadAddresses_ = std::make_unique<ListBoxAddresses>(*lstUpload);

  // Load: size, on top, centred, the member list, the upload list, the face colour.
  sizeFromFrame();
  StayOnTop(this);
  CenterWindow(this);
  LoadListFile(MemberListPath(), *lstMember);
  DoEvents();
  LoadListFile(UploadListPath(), *lstUpload);
  DoEvents();
  const QColor back = face->backColor();
  for (QWidget* w : {static_cast<QWidget*>(lstMember), static_cast<QWidget*>(txtMember),
                     static_cast<QWidget*>(lstUpload), static_cast<QWidget*>(txtUpload)}) {
    TakeBackColor(w, back);
  }
}

ListBox& FrmEmailto::ActiveList() { return optMember->isChecked() ? *lstMember : *lstUpload; }

AddressList& FrmEmailto::ActiveAddresses() {
  return optMember->isChecked() ? *memberAddresses_ : *uploadAddresses_;
}

void FrmEmailto::ShowList(bool member) {
  SetTwipsTop(member ? frmMember : frmUpload, kFrontTop);
  SetTwipsTop(member ? frmUpload : frmMember, kBackTop);
  (member ? txtMember : txtUpload)->setFocus();
}

void FrmEmailto::EntryKey(EntryBox* box, int character) {
  if (character != 13) return;
  const bool member = box == txtMember;
  const std::string typed = FromQ(box->text());
  box->setText(QString());
  ListBoxEntries list(member ? *lstMember : *lstUpload);
  EnterAddresses(typed, member, list);
}

void FrmEmailto::EntryChanged(EntryBox* box) {
  const std::string text = FromQ(box->text());
  const bool cr = text.find('\r') != std::string::npos;
  const bool lf = text.find('\n') != std::string::npos;
  if (box == txtMember ? !cr : !(cr || lf)) return;
  std::string t = text;
  ReplaceAll(t, "\r", "");
  box->setText(ToQ(t));
  t = FromQ(box->text());
  ReplaceAll(t, "\n", "");
  box->setText(ToQ(t));
}

void FrmEmailto::CopyList() {
  ListBox& list = ActiveList();
  std::string text;
  for (long long i = 0; i < list.ListCount(); ++i) text += list.List(i) + ", ";
  QClipboard* clip = QGuiApplication::clipboard();
  clip->clear();
  clip->setText(ToQ(text));
}

void FrmEmailto::CopySelected() {
  ListBox& list = ActiveList();
  std::string text;
  for (long long i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) text += list.List(i) + ", ";
  }
  QClipboard* clip = QGuiApplication::clipboard();
  clip->clear();
  clip->setText(ToQ(text));
}

void FrmEmailto::SelectAll() {
  ListBox& list = ActiveList();
  for (long long i = 0; i < list.ListCount(); ++i) {
    list.SetSelected(i, true);
    DoEvents();
  }
}

void FrmEmailto::RemoveSelected() {
  ListBox& list = ActiveList();
  for (long long i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) {
      list.RemoveItem(i);
      --i;  // the item that moved up is looked at too
    }
  }
}

void FrmEmailto::RemoveAll() { ActiveList().Clear(); }

void FrmEmailto::CheckAndRemoveFullBoxes() {
  // The active list is taken anew at the removal: the user may switch lists during the wait.
  bool reachedRemoval = false;
  const std::string removed = FromCodePage(RemoveFullBoxes(
      services_.windows, [this]() -> AddressList& { return ActiveAddresses(); },
      &reachedRemoval));
  // The check ended early, before any report, on generation 2 or without the client's frame.
  if (!reachedRemoval) return;
  if (removed.empty()) {
    services_.prompts.MsgBox("there are no full boxes", kSystemModal | kInformation, kAppName);
  } else {
    services_.prompts.MsgBox("email addresses that were full or invalid are:\r\r" + removed +
                                "\rthey have been removed!",
                            kSystemModal | kInformation, kAppName);
  }
}

void FrmEmailto::SaveLists() {
  SaveListFile(MemberListPath(), *lstMember);
  DoEvents();
  SaveListFile(UploadListPath(), *lstUpload);
  DoEvents();
}

}  // namespace qc
