// The program's folder and the list control with its 16-bit indexes and failures.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>

#include "ui/app_path.h"
#include "ui/list_box.h"
#include "base/failure.h"

namespace qc {
namespace {

int FailureOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeFailure& e) {
    return e.number();
  }
  return 0;
}

class EnvVar {
 public:
  EnvVar(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ~EnvVar() {
    if (old_) {
      setenv(name_, old_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(AppPath, FollowsQuillcastHomeCleanedAbsoluteAndCreated) {
  QTemporaryDir tmp;
  const std::string base = tmp.path().toStdString();
  {
    EnvVar home("QUILLCAST_HOME", base + "/a/../b/./c/");
    EXPECT_EQ(AppPath(), base + "/b/c");
    EXPECT_TRUE(std::filesystem::is_directory(base + "/b/c"));
  }
  {
    const QString oldCwd = QDir::currentPath();
    QDir::setCurrent(tmp.path());
    EnvVar home("QUILLCAST_HOME", "rel");
    EXPECT_EQ(AppPath(), base + "/rel");
    QDir::setCurrent(oldCwd);
  }
}

TEST(AppPath, WithoutQuillcastHomeUsesTheUsersDataFolder) {
  QTemporaryDir tmp;
  EnvVar home("QUILLCAST_HOME", "");
  EnvVar data("XDG_DATA_HOME", tmp.path().toStdString());
  EXPECT_EQ(AppPath(), tmp.path().toStdString() + "/quillcast");
  EXPECT_TRUE(std::filesystem::is_directory(tmp.path().toStdString() + "/quillcast"));
  // The body file is joined bare, the lists with a separator.
  EXPECT_EQ(AppPath() + "txtBody.sys", tmp.path().toStdString() + "/quillcasttxtBody.sys");
}

TEST(ListBox, IndexesOutsideTheListRaiseTheirOwnFailures) {
  ListBox list;
  list.AddItem("a");
  list.AddItem("b");
  struct Case {
    const char* what;
    std::function<void()> call;
    int failure;
  };
  const Case cases[] = {
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
  for (const Case& c : cases) {
    EXPECT_EQ(FailureOf(c.call), c.failure) << c.what;
  }
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a", "b"}));
  // Reading outside the list is no failure.
  EXPECT_EQ(list.List(2), "");
  EXPECT_EQ(list.List(-1), "");
}

TEST(ListBox, InsertRemoveAndNewIndex) {
  ListBox list;
  EXPECT_EQ(list.NewIndex(), -1);
  list.AddItem("b");
  list.AddItem("a", 0);
  EXPECT_EQ(list.NewIndex(), 0);
  list.AddItem("c", 2);
  EXPECT_EQ(list.NewIndex(), 2);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a", "b", "c"}));
  list.RemoveItem(1);
  EXPECT_EQ(list.ListCount(), 2);
  list.SetList(1, "z");
  EXPECT_EQ(list.List(1), "z");
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.NewIndex(), -1);
}

TEST(ListBox, SingleAndMultiSelection) {
  ListBox list;
  for (const char* s : {"a", "b", "c"}) list.AddItem(s);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  list.SetListIndex(1);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.Text(), "b");
  EXPECT_TRUE(list.Selected(1));
  list.SetSelected(2, true);  // single: moves the selection
  EXPECT_FALSE(list.Selected(1));
  EXPECT_EQ(list.SelCount(), 1);
  list.SetListIndex(-1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.SelCount(), 0);

  list.SetMultiSelect(ListBox::kSimple);
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  EXPECT_EQ(list.SelCount(), 2);
  EXPECT_TRUE(list.Selected(0));
  EXPECT_FALSE(list.Selected(1));
  list.SetSelected(0, false);
  EXPECT_EQ(list.SelCount(), 1);
}

TEST(ListBox, CountPastSixteenBitsOverflows) {
  ListBox list;
  QStringList many;
  for (int i = 0; i < 32767; ++i) many << QString::number(i);
  list.addItems(many);
  EXPECT_EQ(list.ListCount(), 32767);
  list.AddItem("one too many");
  EXPECT_EQ(list.NewIndex(), 32767);
  EXPECT_EQ(FailureOf([&] { (void)list.ListCount(); }), kOverflow);
  list.AddItem("two too many");
  EXPECT_EQ(FailureOf([&] { (void)list.NewIndex(); }), kOverflow);
  // The last item itself stays out of reach of a 16-bit index.
  EXPECT_EQ(FailureOf([&] { (void)list.List(32767 + 1); }), kOverflow);
  EXPECT_EQ(list.List(32767), "one too many");
}

}  // namespace
}  // namespace qc
