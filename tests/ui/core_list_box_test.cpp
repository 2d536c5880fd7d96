// The program's folder and the list control with its 16-bit indexes and failures.
#include <gtest/gtest.h>

#include <QDir>

#include "base/failure.h"
#include "support/sandbox.h"
#include "ui/app_path.h"
#include "ui/list_box.h"

namespace qc::test {
namespace {

// Without QUILLCAST_HOME it is the user's data folder: the GUI test finds the lists there.
TEST(AppPath, FollowsQuillcastHomeCleanedAbsoluteAndCreated) {
  TempDir tmp;
  {
    ScopedEnv home("QUILLCAST_HOME", tmp.path() + "/a/../b/./c/");
    EXPECT_EQ(AppPath(), tmp / "b/c");
    EXPECT_TRUE(std::filesystem::is_directory(tmp / "b/c"));
  }
  {
    const QString oldCwd = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(tmp.path()));
    ScopedEnv home("QUILLCAST_HOME", "rel");
    EXPECT_EQ(AppPath(), tmp / "rel");
    QDir::setCurrent(oldCwd);
  }
}

TEST(ListBox, IndexesOutsideTheListRaiseTheirOwnFailures) {
  ListBox list;
  list.AddItem("a");
  list.AddItem("b");
  struct Case {
    const char* what;
    std::function<void()> call;
    int failure;
  } cases[] = {
      {"remove past end", [&] { list.RemoveItem(2); }, kInvalidArgument},
      {"remove -1", [&] { list.RemoveItem(-1); }, kInvalidArgument},
      {"insert past end+1", [&] { list.AddItem("x", 3); }, kInvalidArgument},
      {"insert -1", [&] { list.AddItem("x", -1); }, kInvalidArgument},
      {"set list past end", [&] { list.SetList(2, "x"); }, kInvalidPropertyArrayIndex},
      {"selected past end", [&] { (void)list.Selected(2); }, kInvalidPropertyArrayIndex},
      {"select -1", [&] { list.SetSelected(-1, true); }, kInvalidPropertyArrayIndex},
      {"list index past end", [&] { list.SetListIndex(2); }, kInvalidPropertyValue},
      {"list index -2", [&] { list.SetListIndex(-2); }, kInvalidPropertyValue},
      {"index beyond 16 bits", [&] { (void)list.List(32768); }, kOverflow},
      {"remove beyond 16 bits", [&] { list.RemoveItem(-32769); }, kOverflow},
      {"list index beyond 16 bits", [&] { list.SetListIndex(40000); }, kOverflow},
  };
  for (const Case& c : cases) EXPECT_EQ(FailureNumberOf(c.call), c.failure) << c.what;
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a", "b"}));
  // Reading outside the list is no failure.
  EXPECT_EQ(list.List(2), "");
  EXPECT_EQ(list.List(-1), "");
}

TEST(ListBox, InsertRemoveNewIndexAndSelection) {
  ListBox list;
  EXPECT_EQ(list.NewIndex(), -1);
  list.AddItem("b");
  list.AddItem("a", 0);
  EXPECT_EQ(list.NewIndex(), 0);
  list.AddItem("c", 2);
  EXPECT_EQ(list.NewIndex(), 2);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  list.SetListIndex(1);
  EXPECT_EQ(list.Text(), "b");
  EXPECT_TRUE(list.Selected(1));
  list.SetSelected(2, true);  // single: moves the selection
  EXPECT_FALSE(list.Selected(1));
  EXPECT_EQ(list.SelCount(), 1);
  list.SetSelected(2, false);  // the cursor stays, but with nothing selected there is no index
  EXPECT_EQ(list.ListIndex(), -1);
  list.SetSelected(2, true);
  list.SetListIndex(-1);
  EXPECT_EQ(list.SelCount(), 0);
  list.SetMultiSelect(ListBox::kSimple);
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  EXPECT_EQ(list.SelCount(), 2);
  EXPECT_FALSE(list.Selected(1));
  list.RemoveItem(1);
  list.SetList(1, "z");
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a", "z"}));
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.NewIndex(), -1);
}

TEST(ListBox, CountPastSixteenBitsOverflows) {
  ListBox list;
  QStringList many;
  for (int i = 0; i < 32767; ++i) many << QString::number(i);
  list.addItems(many);
  EXPECT_EQ(list.ListCount(), 32767);
  list.AddItem("one too many");
  EXPECT_EQ(list.NewIndex(), 32767);
  EXPECT_EQ(FailureNumberOf([&] { (void)list.ListCount(); }), kOverflow);
  list.AddItem("two too many");
  EXPECT_EQ(FailureNumberOf([&] { (void)list.NewIndex(); }), kOverflow);
  // The last item itself stays out of reach of a 16-bit index.
  EXPECT_EQ(FailureNumberOf([&] { (void)list.List(32767 + 1); }), kOverflow);
  EXPECT_EQ(list.List(32767), "one too many");
}

}  // namespace
}  // namespace qc::test
