#include "ui/frmmenu.h"

#include <QAction>
#include <QApplication>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>
#include <stdexcept>

namespace qc {
namespace {

struct WebItem {
  const char* name;
  const char* label;
  const char* address;
};

constexpr WebItem kWebItems[] = {
    {"weblink1", "quill cast", "https://quillcast.example.org/"},
    {"weblink2", "ómbrevalè productions", "https://ombrevale.example.org/"},
    {"fav1", "id3v1 tag format", "https://id3.org/ID3v1"},
    {"fav2", "aol", "https://www.aol.com/"},
    {"fav3", "winamp", "https://www.winamp.com/"},
    {"fav4", "internet archive: audio", "https://archive.org/details/audio"},
};

const WebItem& Web(std::string_view name) {
  for (const WebItem& w : kWebItems)
    if (name == w.name) return w;
  throw std::out_of_range("no web item " + std::string(name));
}

std::string WebCaption(const char* prefix, const char* name) {
  return std::string(prefix) + Web(name).label;
}

QString Name(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

QAction* MenuWindow::findAction(std::string_view name) const {
  return findChild<QAction*>(Name(name));
}

QMenu* MenuWindow::findMenu(std::string_view name) const { return findChild<QMenu*>(Name(name)); }

QAction* MenuWindow::action(std::string_view name) const {
  QAction* a = findAction(name);
  if (!a) throw std::out_of_range("no menu item " + std::string(name));
  return a;
}

bool MenuWindow::check(std::string_view name) const { return action(name)->isChecked(); }

void MenuWindow::setCheck(std::string_view name, bool checked) {
  action(name)->setChecked(checked);
}

namespace {

// Separators keep their "-" caption as data, but are drawn as plain lines: some styles would
// draw a separator's caption as a section heading.
class SeparatorStyle : public QProxyStyle {
 public:
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_MenuItem) {
      if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
          item && item->menuItemType == QStyleOptionMenuItem::Separator && !item->text.isEmpty()) {
        QStyleOptionMenuItem plain(*item);
        plain.text.clear();
        QProxyStyle::drawControl(element, &plain, painter, widget);
        return;
      }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
  }
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    if (type == CT_MenuItem) {
      if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
          item && item->menuItemType == QStyleOptionMenuItem::Separator && !item->text.isEmpty()) {
        QStyleOptionMenuItem plain(*item);
        plain.text.clear();
        return QProxyStyle::sizeFromContents(type, &plain, size, widget);
      }
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
  }
};

QStyle* MenuStyle() {
  // Lives as long as the program; it follows the application's style.
  static SeparatorStyle* style = nullptr;
  if (!style) {
    style = new SeparatorStyle;
    style->setParent(qApp);
    QObject::connect(style, &QObject::destroyed, [] { style = nullptr; });
  }
  return style;
}

}  // namespace

QMenu* MenuWindow::AddMenu(QWidget* owner, const char* name, const char* title) {
  auto* m = new QMenu(QString::fromUtf8(title), owner);
  m->setStyle(MenuStyle());
  m->setObjectName(QString::fromLatin1(name));
  // The head's own action carries the name too, so that action(name) finds every entry.
  m->menuAction()->setObjectName(QString::fromLatin1(name));
  return m;
}

QMenu* MenuWindow::AddSubmenu(QMenu* parent, const char* name, const char* caption) {
  QMenu* m = AddMenu(parent, name, caption);
  parent->addMenu(m);
  return m;
}

QAction* MenuWindow::AddItem(QMenu* menu, const char* name, const char* caption) {
  auto* a = new QAction(QString::fromUtf8(caption), this);
  a->setObjectName(QString::fromLatin1(name));
  menu->addAction(a);
  return a;
}

QAction* MenuWindow::AddCheckItem(QMenu* menu, const char* name, const char* caption,
                                  bool checked) {
  QAction* a = AddItem(menu, name, caption);
  a->setCheckable(true);
  a->setChecked(checked);
  return a;
}

QAction* MenuWindow::AddSeparator(QMenu* menu) {
  const QByteArray name = "sep" + QByteArray::number(++separators_);
  QAction* a = AddItem(menu, name.constData(), "-");
  a->setSeparator(true);
  return a;
}

std::string FrmMenu::WebAddress(std::string_view name) {
  for (const WebItem& w : kWebItems)
    if (name == w.name) return w.address;
  return {};
}

FrmMenu::FrmMenu(QWidget* parent) : MenuWindow(parent) {
  setObjectName(QStringLiteral("frmMenu"));
  setWindowTitle(QStringLiteral("menu"));
  lblHandle = new Label(QStringLiteral("lblHandle"), QString(), this);
  lblRename = new Label(QStringLiteral("lblRename"), QString(), this);
  lblHandle->hide();
  lblRename->hide();

  mnufile = AddMenu(this, "mnufile", "file");
  how2use = AddItem(mnufile, "how2use", "&how to use...");
  AddSeparator(mnufile);
  weblink1 = AddItem(mnufile, "weblink1", WebCaption("&web: ", "weblink1").c_str());
  weblink2 = AddItem(mnufile, "weblink2", WebCaption("w&eb: ", "weblink2").c_str());
  favss = AddSubmenu(mnufile, "favss", "favorites");
  fav1 = AddItem(favss, "fav1", Web("fav1").label);
  fav2 = AddItem(favss, "fav2", Web("fav2").label);
  fav3 = AddItem(favss, "fav3", Web("fav3").label);
  fav4 = AddItem(favss, "fav4", Web("fav4").label);
  AddSeparator(mnufile);
  statzz = AddSubmenu(mnufile, "statzz", "&stats");
  bragg = AddItem(statzz, "bragg", "&brag");
  AddSeparator(statzz);
  resetstat = AddItem(statzz, "resetstat", "&reset stats");
  imzzz = AddSubmenu(mnufile, "imzzz", "&ims");
  imzonn = AddItem(imzzz, "imzonn", "o&n");
  imzzoff = AddItem(imzzz, "imzzoff", "o&ff");
  ghosttt = AddSubmenu(mnufile, "ghosttt", "&ghost");
  gonnnnn = AddItem(ghosttt, "gonnnnn", "o&n");
  gofffff = AddItem(ghosttt, "gofffff", "o&ff");
  mnuupchatt = AddSubmenu(mnufile, "mnuupchatt", "&upchat");
  upchatscrolll = AddItem(mnuupchatt, "upchatscrolll", "&scroll stats");
  AddSeparator(mnuupchatt);
  ucon = AddItem(mnuupchatt, "ucon", "o&n");
  ucoff = AddItem(mnuupchatt, "ucoff", "o&ff");
  killzzzz = AddSubmenu(mnufile, "killzzzz", "&kill");
  kwaittt = AddItem(killzzzz, "kwaittt", "&wait");
  kmodallll = AddItem(killzzzz, "kmodallll", "&modal");
  kglyphhh = AddItem(killzzzz, "kglyphhh", "&glyph");
  AddSeparator(mnufile);
  aboutmp33 = AddItem(mnufile, "aboutmp33", "&about quill cast...");
  contactzme = AddItem(mnufile, "contactzme", "&contact: email me");
  AddSeparator(mnufile);
  endprog = AddItem(mnufile, "endprog", "e&xit");

  mnutag = AddMenu(this, "mnutag", "tag");
  editmailform = AddItem(mnutag, "editmailform", "edit &mail lists");
  editSubject = AddItem(mnutag, "editSubject", "edit &subject line");
  editBody = AddItem(mnutag, "editBody", "edit &body");
  AddSeparator(mnutag);
  bbcemail = AddCheckItem(mnutag, "bbcemail", "bb&c emails", true);
  sendlater = AddCheckItem(mnutag, "sendlater", "use send &later", true);
  AddSeparator(mnutag);
  makesublcase = AddCheckItem(mnutag, "makesublcase", "&make subject lowercase", true);
  AddSeparator(mnutag);
  autohead = AddCheckItem(mnutag, "autohead", "auto mail &header", true);
  autofoot = AddCheckItem(mnutag, "autofoot", "auto mail &footer", true);
  headfootopt = AddItem(mnutag, "headfootopt", "head/footer options");
  AddSeparator(mnutag);
  deadchecknames = AddCheckItem(mnutag, "deadchecknames", "&dead check before tag", true);
  memberlst = AddCheckItem(mnutag, "memberlst", "send to: &member list", true);
  uploadlst = AddCheckItem(mnutag, "uploadlst", "send to: &upload list", true);
  AddSeparator(mnutag);
  renamecomment = AddCheckItem(mnutag, "renamecomment", "enable mp3 comment renaming", false);
  renametags = AddItem(mnutag, "renametags", "rename mp3 comment &tags to:");

  mnuOther = AddMenu(this, "mnuOther", "othermenu");
  userHandle = AddItem(mnuOther, "userHandle", "&handle []");
  AddSeparator(mnuOther);
  calcMb = AddItem(mnuOther, "calcMb", "&calculate mb");
  compileLog = AddItem(mnuOther, "compileLog", "compile &log");
  AddSeparator(mnuOther);
  idtagexplre = AddItem(mnuOther, "idtagexplre", "&mp3 idtag explorer");
  idtagexplre->setEnabled(false);

  mnuEmailto = AddMenu(this, "mnuEmailto", "email options");
  copyList = AddItem(mnuEmailto, "copyList", "&copy list to clipboard");
  copySelected = AddItem(mnuEmailto, "copySelected", "copy selected to c&lipboard");
  listSelectall = AddItem(mnuEmailto, "listSelectall", "s&elect all");
  AddSeparator(mnuEmailto);
  chkRmvAll = AddItem(mnuEmailto, "chkRmvAll", "check and remove &full boxes");
  AddSeparator(mnuEmailto);
  rmvSelected = AddItem(mnuEmailto, "rmvSelected", "&remove selected");
  rmvAll = AddItem(mnuEmailto, "rmvAll", "r&emove all");
  AddSeparator(mnuEmailto);
  emailTips = AddItem(mnuEmailto, "emailTips", "&tips");

  subjoptions = AddMenu(this, "subjoptions", "subject options");
  insrtFile = AddItem(subjoptions, "insrtFile", "insert file &name");
  insrtsize = AddItem(subjoptions, "insrtsize", "insert file &size");
  insrtTitle = AddItem(subjoptions, "insrtTitle", "insert mp3 &title");
  insrtartist = AddItem(subjoptions, "insrtartist", "insert mp3 &artist");
  insrtalbum = AddItem(subjoptions, "insrtalbum", "insert mp3 a&lbum");
  insrtgenre = AddItem(subjoptions, "insrtgenre", "insert mp3 &genre");
  AddSeparator(subjoptions);
  subjectTips = AddItem(subjoptions, "subjectTips", "&tips");

  bodyOpt = AddMenu(this, "bodyOpt", "body options");
  inserttitle = AddItem(bodyOpt, "inserttitle", "insert &title");
  insertartist = AddItem(bodyOpt, "insertartist", "insert &artist");
  insertalbum = AddItem(bodyOpt, "insertalbum", "insert a&lbum");
  insertyear = AddItem(bodyOpt, "insertyear", "insert &year");
  insertgenre = AddItem(bodyOpt, "insertgenre", "insert &genre");
  insertcomment = AddItem(bodyOpt, "insertcomment", "insert &comment");
  insertdate = AddItem(bodyOpt, "insertdate", "insert current &date");
  inserthandle = AddItem(bodyOpt, "inserthandle", "insert &handle");
  insertfsize = AddItem(bodyOpt, "insertfsize", "insert file &size");
  insertfname = AddItem(bodyOpt, "insertfname", "insert file &name");
  AddSeparator(bodyOpt);
  bodytips = AddItem(bodyOpt, "bodytips", "&tips");
}

FrmMenu2::FrmMenu2(QWidget* parent) : MenuWindow(parent) {
  setObjectName(QStringLiteral("frmMenu2"));
  setWindowTitle(QStringLiteral("menu 2"));

  selMp3 = AddMenu(this, "selMp3", "sellist");
  addmp3 = AddItem(selMp3, "addmp3", "&add mp3 to list");
  viewidtag = AddItem(selMp3, "viewidtag", "&edit/view id tag");
  AddSeparator(selMp3);
  refreshlist = AddItem(selMp3, "refreshlist", "&refresh list");

  delmp3 = AddMenu(this, "delmp3", "delmp3");
  rmvmp33 = AddItem(delmp3, "rmvmp33", "&remove mp3 from list");
  editviewidtagg = AddItem(delmp3, "editviewidtagg", "&edit/view id tag");
}

}  // namespace qc
