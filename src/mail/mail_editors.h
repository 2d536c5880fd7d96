#pragma once
// The mail editors: the two address lists (frmEmailto), the subject and body templates
// (frmSubject, frmBody) and the notice decoration (frmHead). Each is a secondary window that is
// opened without blocking and left only by its save-and-exit button; nothing reaches the files or
// the store before that.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <memory>
#include <string>

#include "ui/list_box.h"
#include "ui/secondary_window.h"
#include "client/address_list.h"
#include "text/template_keys.h"

class QMenu;

namespace qc {

class FrmMenu;
struct Services;

// The body frmBody offers when the file gives no text: tab-aligned, lines joined by CR LF, no
// line end behind the last line.
std::string EditorDefaultBody();

// The address entry box: one line high, yet it takes line breaks. Enter is reported to the key
// handler first and then goes into the box as CR LF, where the change handler removes it.
class EntryBox : public QLineEdit {
  Q_OBJECT
 public:
  explicit EntryBox(QWidget* parent = nullptr, const QString& name = {});
  // Inserts text as it stands at the caret (a paste keeps its line breaks).
  void InsertRaw(const std::string& text);
  // A key press as the platform hands it: the handler sees the character code, then the box
  // takes the key (13 goes in as CR LF).
  void PressKey(int character);

 signals:
  void keyPressed(int character);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

class FrmEmailto : public SecondaryWindow {
  Q_OBJECT
 public:
  explicit FrmEmailto(const Services& services, FrmMenu* menu = nullptr,
                      QWidget* parent = nullptr);

  Option3D* optMember;
  Option3D* optUpload;
  Frame3D* frmMember;
  Frame3D* frmUpload;
  EntryBox* txtMember;
  EntryBox* txtUpload;
  ListBox* lstMember;
  ListBox* lstUpload;
  Panel3D* panelSep;
  Command3D* cmdMenu;
  Command3D* cmdExit;

  // lstMember when optMember is on, otherwise lstUpload.
  ListBox& ActiveList();
  AddressList& ActiveAddresses();

  // The key handler of either entry box; acts on Enter (13) only. A member entry that leaves
  // fewer than two characters for the comma step fails with the invalid-argument failure.
  void EntryKey(EntryBox* box, int character);
  // The change handler: removes CR, then LF (member box: only when it holds a CR).
  void EntryChanged(EntryBox* box);

  // The popup's commands on the active list.
  void CopyList();
  void CopySelected();
  void SelectAll();
  void RemoveSelected();
  void RemoveAll();
  // The full-box check against the client, with the user's message at the end.
  void CheckAndRemoveFullBoxes();

  // Writes both list files (the save hook of cmdExit).
  void SaveLists();

 private:
  void ShowList(bool member);
  const Services& services_;
  QPointer<FrmMenu> menu_;
  std::unique_ptr<AddressList> memberAddresses_;
  std::unique_ptr<AddressList> uploadAddresses_;
};

class FrmSubject : public SecondaryWindow {
  Q_OBJECT
 public:
  explicit FrmSubject(const Services& services, FrmMenu* menu = nullptr,
                      QWidget* parent = nullptr);

  QLineEdit* txtSubj;
  Panel3D* pnlInfo;
  Panel3D* panelSep;
  Command3D* cmdMenu;
  Command3D* cmdExit;

  void UpdateLetterCount();
};

class FrmBody : public SecondaryWindow {
  Q_OBJECT
 public:
  explicit FrmBody(const Services& services, FrmMenu* menu = nullptr, QWidget* parent = nullptr);

  QPlainTextEdit* txtBody;
  Panel3D* panelSep;
  Command3D* cmdMenu;
  Command3D* cmdExit;
};

class FrmHead : public SecondaryWindow {
  Q_OBJECT
 public:
  explicit FrmHead(const Services& services, QWidget* parent = nullptr);

  Frame3D* SSFrame1;
  QLabel* Label1;
  QLineEdit* asciiFront;
  QLabel* Label2;
  QLineEdit* asciiBack;
  Command3D* SSCommand1;
};

// Replaces the box's selection with the key, or inserts it at the caret, and gives the box the
// focus again. The box is a QLineEdit or a QPlainTextEdit.
void InsertTemplateKey(QWidget* box, TemplateKey key);

// The editor windows of one frmMenu: one of each at a time, null while unloaded.
struct MailEditors {
  QPointer<FrmEmailto> mailList;
  QPointer<FrmSubject> subject;
  QPointer<FrmBody> body;
  QPointer<FrmHead> head;
};

// Binds editmailform, editSubject, editBody, headfootopt and the items of mnuEmailto,
// subjoptions and bodyOpt (the tips are the shell's). The editors it opens live as long as
// frmMenu's connections.
const MailEditors& ConnectMailEditors(FrmMenu& frmMenu, const Services& services);

}  // namespace qc
