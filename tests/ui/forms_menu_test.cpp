// frmMenu and frmMenu2: every tree in screen order, captions, design check marks, the hidden
// labels, and the check marks read and written by name.
#include <QAction>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "ui/frmmenu.h"

namespace qc {
namespace {

std::vector<std::string> Names(const QMenu* m) {
  std::vector<std::string> names;
  for (const QAction* a : m->actions()) names.push_back(a->objectName().toStdString());
  return names;
}

using V = std::vector<std::string>;

TEST(FrmMenu, TreesHoldTheirItemsInScreenOrder) {
  FrmMenu m;
  const std::pair<const char*, V> trees[] = {
      {"mnufile",
       {"how2use", "sep1", "weblink1", "weblink2", "favss", "sep2", "statzz", "imzzz", "ghosttt",
        "mnuupchatt", "killzzzz", "sep5", "aboutmp33", "contactzme", "sep6", "endprog"}},
      {"favss", {"fav1", "fav2", "fav3", "fav4"}},
      {"statzz", {"bragg", "sep3", "resetstat"}},
      {"imzzz", {"imzonn", "imzzoff"}},
      {"ghosttt", {"gonnnnn", "gofffff"}},
      {"mnuupchatt", {"upchatscrolll", "sep4", "ucon", "ucoff"}},
      {"killzzzz", {"kwaittt", "kmodallll", "kglyphhh"}},
      {"mnutag",
       {"editmailform", "editSubject", "editBody", "sep7", "bbcemail", "sendlater", "sep8",
        "makesublcase", "sep9", "autohead", "autofoot", "headfootopt", "sep10", "deadchecknames",
        "memberlst", "uploadlst", "sep11", "renamecomment", "renametags"}},
      {"mnuOther", {"userHandle", "sep12", "calcMb", "compileLog", "sep13", "idtagexplre"}},
      {"mnuEmailto",
       {"copyList", "copySelected", "listSelectall", "sep14", "chkRmvAll", "sep15", "rmvSelected",
        "rmvAll", "sep16", "emailTips"}},
      {"subjoptions",
       {"insrtFile", "insrtsize", "insrtTitle", "insrtartist", "insrtalbum", "insrtgenre", "sep17",
        "subjectTips"}},
      {"bodyOpt",
       {"inserttitle", "insertartist", "insertalbum", "insertyear", "insertgenre", "insertcomment",
        "insertdate", "inserthandle", "insertfsize", "insertfname", "sep18", "bodytips"}},
  };
  for (const auto& [tree, items] : trees) {
    SCOPED_TRACE(tree);
    QMenu* menu = m.findMenu(tree);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Names(menu), items);
  }
  EXPECT_EQ(m.mnufile->title(), "file");
  EXPECT_EQ(m.mnutag->title(), "tag");
  EXPECT_EQ(m.mnuOther->title(), "othermenu");
  EXPECT_EQ(m.mnuEmailto->title(), "email options");
  EXPECT_EQ(m.subjoptions->title(), "subject options");
  EXPECT_EQ(m.bodyOpt->title(), "body options");
}

TEST(FrmMenu, CaptionsCarryTheirAccessKeys) {
  FrmMenu m;
  const std::pair<const char*, const char*> captions[] = {
      {"how2use", "&how to use..."},
      {"favss", "favorites"},
      {"statzz", "&stats"},
      {"bragg", "&brag"},
      {"resetstat", "&reset stats"},
      {"imzzz", "&ims"},
      {"imzonn", "o&n"},
      {"imzzoff", "o&ff"},
      {"ghosttt", "&ghost"},
      {"gonnnnn", "o&n"},
      {"gofffff", "o&ff"},
      {"mnuupchatt", "&upchat"},
      {"upchatscrolll", "&scroll stats"},
      {"ucon", "o&n"},
      {"ucoff", "o&ff"},
      {"killzzzz", "&kill"},
      {"kwaittt", "&wait"},
      {"kmodallll", "&modal"},
      {"kglyphhh", "&glyph"},
      {"aboutmp33", "&about quill cast..."},
      {"contactzme", "&contact: email me"},
      {"endprog", "e&xit"},
      {"editmailform", "edit &mail lists"},
      {"editSubject", "edit &subject line"},
      {"editBody", "edit &body"},
      {"bbcemail", "bb&c emails"},
      {"sendlater", "use send &later"},
      {"makesublcase", "&make subject lowercase"},
      {"autohead", "auto mail &header"},
      {"autofoot", "auto mail &footer"},
      {"headfootopt", "head/footer options"},
      {"deadchecknames", "&dead check before tag"},
      {"memberlst", "send to: &member list"},
      {"uploadlst", "send to: &upload list"},
      {"renamecomment", "enable mp3 comment renaming"},
      {"renametags", "rename mp3 comment &tags to:"},
      {"userHandle", "&handle []"},
      {"calcMb", "&calculate mb"},
      {"compileLog", "compile &log"},
      {"idtagexplre", "&mp3 idtag explorer"},
      {"copyList", "&copy list to clipboard"},
      {"copySelected", "copy selected to c&lipboard"},
      {"listSelectall", "s&elect all"},
      {"chkRmvAll", "check and remove &full boxes"},
      {"rmvSelected", "&remove selected"},
      {"rmvAll", "r&emove all"},
      {"emailTips", "&tips"},
      {"insrtFile", "insert file &name"},
      {"insrtsize", "insert file &size"},
      {"insrtTitle", "insert mp3 &title"},
      {"insrtartist", "insert mp3 &artist"},
      {"insrtalbum", "insert mp3 a&lbum"},
      {"insrtgenre", "insert mp3 &genre"},
      {"subjectTips", "&tips"},
      {"inserttitle", "insert &title"},
      {"insertartist", "insert &artist"},
      {"insertalbum", "insert a&lbum"},
      {"insertyear", "insert &year"},
      {"insertgenre", "insert &genre"},
      {"insertcomment", "insert &comment"},
      {"insertdate", "insert current &date"},
      {"inserthandle", "insert &handle"},
      {"insertfsize", "insert file &size"},
      {"insertfname", "insert file &name"},
      {"bodytips", "&tips"},
  };
  for (const auto& [name, caption] : captions) {
    SCOPED_TRACE(name);
    EXPECT_EQ(m.action(name)->text().toStdString(), caption);
  }
  // The web items begin with their own access keys; the sites are ours to choose.
  EXPECT_TRUE(m.weblink1->text().startsWith("&web: "));
  EXPECT_TRUE(m.weblink2->text().startsWith("w&eb: "));
  for (const char* web : {"weblink1", "weblink2", "fav1", "fav2", "fav3", "fav4"})
    EXPECT_EQ(FrmMenu::WebAddress(web).rfind("https://", 0), 0u) << web;
  EXPECT_EQ(FrmMenu::WebAddress("bragg"), "");
  // Separators are entries captioned "-".
  EXPECT_TRUE(m.action("sep3")->isSeparator());
  EXPECT_EQ(m.action("sep3")->text(), "-");
}

TEST(FrmMenu, DesignCheckMarksAndStates) {
  FrmMenu m;
  for (const char* on : {"bbcemail", "sendlater", "makesublcase", "autohead", "autofoot",
                         "deadchecknames", "memberlst", "uploadlst"})
    EXPECT_TRUE(m.check(on)) << on;
  EXPECT_FALSE(m.check("renamecomment"));
  int checkable = 0;
  for (const QAction* a : m.findChildren<QAction*>()) checkable += a->isCheckable();
  EXPECT_EQ(checkable, 9);
  EXPECT_EQ(kOptionItems.size(), 9u);
  for (const char* item : kOptionItems) EXPECT_TRUE(m.action(item)->isCheckable()) << item;
  EXPECT_FALSE(m.idtagexplre->isEnabled());
  EXPECT_TRUE(m.compileLog->isEnabled());
  EXPECT_FALSE(m.isVisible());
  EXPECT_TRUE(m.lblHandle->isHidden());
  EXPECT_TRUE(m.lblRename->isHidden());
  EXPECT_EQ(m.lblHandle->objectName(), "lblHandle");
  EXPECT_EQ(m.lblRename->objectName(), "lblRename");
  EXPECT_EQ(m.lblHandle->Caption(), "");
}

TEST(FrmMenu, OptionItemsToggleWhenTriggeredAndAreWritableByName) {
  FrmMenu m;
  m.sendlater->trigger();
  EXPECT_FALSE(m.check("sendlater"));
  m.sendlater->trigger();
  EXPECT_TRUE(m.check("sendlater"));
  m.renamecomment->trigger();
  EXPECT_TRUE(m.check("renamecomment"));
  m.setCheck("memberlst", false);
  EXPECT_FALSE(m.memberlst->isChecked());
  // memberlst and uploadlst are independent.
  EXPECT_TRUE(m.check("uploadlst"));
  EXPECT_THROW(m.check("nosuchitem"), std::out_of_range);
  EXPECT_THROW(m.setCheck("nosuchitem", true), std::out_of_range);
  EXPECT_EQ(m.findAction("nosuchitem"), nullptr);
}

TEST(FrmMenu2, TwoTreesOverTheFileLists) {
  FrmMenu2 m;
  EXPECT_EQ(m.objectName(), "frmMenu2");
  EXPECT_EQ(m.windowTitle(), "menu 2");
  EXPECT_EQ(m.selMp3->title(), "sellist");
  EXPECT_EQ(Names(m.selMp3), (V{"addmp3", "viewidtag", "sep1", "refreshlist"}));
  EXPECT_EQ(m.delmp3->title(), "delmp3");
  EXPECT_EQ(Names(m.delmp3), (V{"rmvmp33", "editviewidtagg"}));
  EXPECT_EQ(m.addmp3->text(), "&add mp3 to list");
  EXPECT_EQ(m.viewidtag->text(), "&edit/view id tag");
  EXPECT_EQ(m.refreshlist->text(), "&refresh list");
  EXPECT_EQ(m.rmvmp33->text(), "&remove mp3 from list");
  EXPECT_EQ(m.editviewidtagg->text(), "&edit/view id tag");
}

}  // namespace
}  // namespace qc
