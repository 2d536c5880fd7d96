#pragma once
// frmMenu and frmMenu2: hidden windows that carry every popup menu of the program. The check
// marks of frmMenu's option items are the running program's option store, and its two hidden
// labels hold the user's handle and the comment text. Handlers are connected from outside.
//
// The nine option items are checkable actions: triggering one flips its check mark (Qt's own
// toggle), so a handler connected to them must not flip it again.
#include <QMenu>
#include <QWidget>
#include <array>
#include <string>
#include <string_view>

#include "ui/controls.h"
#include "ui/settings_store.h"

class QAction;

namespace qc {

// Looks up actions and menus by their objectName inside a menu window.
class MenuWindow : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  // The item or submenu head of that name, or nullptr.
  QAction* findAction(std::string_view name) const;
  QMenu* findMenu(std::string_view name) const;
  // As findAction, but an unknown name is a programming error (std::out_of_range).
  QAction* action(std::string_view name) const;

  bool check(std::string_view name) const;
  void setCheck(std::string_view name, bool checked);
  bool check(Option item) const { return check(OptionItemName(item)); }
  void setCheck(Option item, bool checked) { setCheck(OptionItemName(item), checked); }

 protected:
  QMenu* AddMenu(QWidget* owner, const char* name, const char* title);
  QMenu* AddSubmenu(QMenu* parent, const char* name, const char* caption);
  QAction* AddItem(QMenu* menu, const char* name, const char* caption);
  QAction* AddCheckItem(QMenu* menu, const char* name, const char* caption, bool checked);
  QAction* AddSeparator(QMenu* menu);

 private:
  int separators_ = 0;
};

class FrmMenu : public MenuWindow {
  Q_OBJECT

 public:
  explicit FrmMenu(QWidget* parent = nullptr);

  Label* lblHandle;
  Label* lblRename;

  // "file", opened by picMenu1.
  QMenu* mnufile;
  QAction* how2use;
  QAction* weblink1;
  QAction* weblink2;
  QMenu* favss;
  QAction* fav1;
  QAction* fav2;
  QAction* fav3;
  QAction* fav4;
  QMenu* statzz;
  QAction* bragg;
  QAction* resetstat;
  QMenu* imzzz;
  QAction* imzonn;
  QAction* imzzoff;
  QMenu* ghosttt;
  QAction* gonnnnn;
  QAction* gofffff;
  QMenu* mnuupchatt;
  QAction* upchatscrolll;
  QAction* ucon;
  QAction* ucoff;
  QMenu* killzzzz;
  QAction* kwaittt;
  QAction* kmodallll;
  QAction* kglyphhh;
  QAction* aboutmp33;
  QAction* contactzme;
  QAction* endprog;

  // "tag", opened by picMenu2.
  QMenu* mnutag;
  QAction* editmailform;
  QAction* editSubject;
  QAction* editBody;
  QAction* bbcemail;
  QAction* sendlater;
  QAction* makesublcase;
  QAction* autohead;
  QAction* autofoot;
  QAction* headfootopt;
  QAction* deadchecknames;
  QAction* memberlst;
  QAction* uploadlst;
  QAction* renamecomment;
  QAction* renametags;

  // "othermenu", opened by picMenu3.
  QMenu* mnuOther;
  QAction* userHandle;
  QAction* calcMb;
  QAction* compileLog;
  QAction* idtagexplre;

  // "email options", opened by cmdMenu of the mail list window.
  QMenu* mnuEmailto;
  QAction* copyList;
  QAction* copySelected;
  QAction* listSelectall;
  QAction* chkRmvAll;
  QAction* rmvSelected;
  QAction* rmvAll;
  QAction* emailTips;

  // "subject options", opened by cmdMenu of the subject editor.
  QMenu* subjoptions;
  QAction* insrtFile;
  QAction* insrtsize;
  QAction* insrtTitle;
  QAction* insrtartist;
  QAction* insrtalbum;
  QAction* insrtgenre;
  QAction* subjectTips;

  // "body options", opened by cmdMenu of the body editor.
  QMenu* bodyOpt;
  QAction* inserttitle;
  QAction* insertartist;
  QAction* insertalbum;
  QAction* insertyear;
  QAction* insertgenre;
  QAction* insertcomment;
  QAction* insertdate;
  QAction* inserthandle;
  QAction* insertfsize;
  QAction* insertfname;
  QAction* bodytips;

  // The address behind a web item (weblink1, weblink2, fav1 .. fav4); empty for other names.
  static std::string WebAddress(std::string_view name);
};

class FrmMenu2 : public MenuWindow {
  Q_OBJECT

 public:
  explicit FrmMenu2(QWidget* parent = nullptr);

  QMenu* selMp3;
  QAction* addmp3;
  QAction* viewidtag;
  QAction* refreshlist;

  QMenu* delmp3;
  QAction* rmvmp33;
  QAction* editviewidtagg;
};

}  // namespace qc
