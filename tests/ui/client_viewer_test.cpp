#include "ui/viewer/client_viewer.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTreeWidget>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

// The tree as indented "class | caption | mark" lines.
QStringList TreeLines(const QTreeWidget& tree) {
  QStringList out;
  std::function<void(QTreeWidgetItem*, int)> walk = [&](QTreeWidgetItem* item, int depth) {
    out << QString(depth * 2, QLatin1Char(' ')) + item->text(0) + " | " + item->text(1) + " | " +
               item->text(2);
    for (int i = 0; i < item->childCount(); ++i) walk(item->child(i), depth + 1);
  };
  for (int i = 0; i < tree.topLevelItemCount(); ++i) walk(tree.topLevelItem(i), 0);
  return out;
}

class ClientViewerTest : public ::testing::Test {
 protected:
  SimDesktop d;
};

TEST_F(ClientViewerTest, ShowsTheWindowTreeWithCaptionsAndHiddenMarks) {
  SimClient c(d, {.generation = 5, .screenName = "Ann Lee"});
  ClientViewer v(d, &c);
  EXPECT_EQ(v.windowTitle(), "simulated AOL client");
  const QStringList lines = TreeLines(*v.tree());
  ASSERT_FALSE(lines.isEmpty());
  EXPECT_EQ(lines.front(), "AOL Frame25 | America  Online | ");
  EXPECT_TRUE(lines.contains("  AOL Toolbar |  | "));
  EXPECT_TRUE(lines.contains("    AOL Child#2 | Welcome, Ann Lee! | "));
  EXPECT_TRUE(lines.contains("        Edit |  | "));  // keyword box, under its combo box
  // Numbered within their siblings, as the trace names them.
  EXPECT_TRUE(lines.contains("      _AOL_Icon#14 |  | "));
  EXPECT_FALSE(lines.contains("      _AOL_Icon#15 |  | "));
  // Front to back: the channels window comes before the welcome window.
  EXPECT_LT(lines.indexOf("    AOL Child | AOL Channels | "),
            lines.indexOf("    AOL Child#2 | Welcome, Ann Lee! | "));

  d.SetVisible(c.welcome(), false);
  v.Refresh();
  EXPECT_TRUE(TreeLines(*v.tree()).contains("    AOL Child#2 | Welcome, Ann Lee! | hidden"));
  EXPECT_EQ(v.status()->text(), "AOL 5.0, signed on as Ann Lee");
  c.SignOff();
  v.Refresh();
  EXPECT_EQ(v.status()->text(), "AOL 5.0, signed off");
}

TEST_F(ClientViewerTest, ShowsClientEventsAndTheLastTraceLines) {
  SimClient c(d, {.generation = 5});
  ClientViewer v(d, &c);
  c.RunCommand("Keyword...");
  c.RunKeyword("Buddy");
  v.Refresh();
  EXPECT_EQ(v.events()->toPlainText(), "menu item: Keyword...\nkeyword: Buddy");
  c.ClearEvents();
  c.Log("click", "x");
  v.Refresh();
  EXPECT_EQ(v.events()->toPlainText(), "click: x");
  // Repeats fold into one line with their count; the dead check's refusal says what it is.
  for (int i = 0; i < 3; ++i) c.Log("click ignored", "Send");
  c.Log("mail refused", "-");
  c.Log("mail refused", "bob");
  v.Refresh();
  c.Log("click ignored", "Send");
  c.Log("click ignored", "Send");
  v.Refresh();
  EXPECT_EQ(v.events()->toPlainText(),
            "click: x\nclick ignored: Send (x3)\nmail refused: - (the dead check's probe)\n"
            "mail refused: bob\nclick ignored: Send (x2)");

  for (int i = 0; i < 300; ++i) d.FindWindowA("#32768", std::nullopt);
  d.FindWindowA("_AOL_Modal", std::nullopt);
  v.Refresh();
  const QStringList trace = v.trace()->toPlainText().split('\n');
  EXPECT_EQ(static_cast<std::size_t>(trace.size()), ClientViewer::kTraceLines);
  EXPECT_EQ(trace.back(), "FindWindowA \"_AOL_Modal\" * -> 0");
}

TEST_F(ClientViewerTest, FollowsTheDesktopOnItsOwnRebuildingOnlyOnAChangeAndLetsGoOfTheTrace) {
  SimClient c(d, {.generation = 3});
  {
    ClientViewer v(d, &c);
    const int builds = v.treeBuilds();
    d.FindWindowA("#32768", std::nullopt);  // a lookup changes nothing
    v.Refresh();
    EXPECT_EQ(v.treeBuilds(), builds);
    v.show();
    c.OpenDocument("Send Later");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return TreeLines(*v.tree()).contains("    AOL Child | Send Later | "); }, 2000));
    c.Quit();
    v.Refresh();
    EXPECT_EQ(v.tree()->topLevelItemCount(), 0);
    EXPECT_EQ(v.status()->text(), "AOL 95, not running");
  }
  // The viewer is gone: the desktop goes on tracing without it.
  d.FindWindowA("x", std::nullopt);
  EXPECT_EQ(d.Trace().back().op, "FindWindowA");
  EXPECT_EQ(ClientViewer(d).status()->text(), "no simulated client");
}

}  // namespace
}  // namespace qc::sim
