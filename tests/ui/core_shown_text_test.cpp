// What the controls show of a value and what they keep: NUL-padded tag fields, markup-like
// subjects and file names that are not UTF-8.
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

#include "ui/list_box.h"
#include "ui/shown_text.h"
#include "ui/controls.h"

namespace qc {
namespace {

const std::string kPadded = "miracles" + std::string(22, '\0');
const std::string kLatin1 = "/music/caf\xE9.mp3";

TEST(ShownText, CutAtTheFirstNulWithStrayBytesReadAsLatin1) {
  struct Case {
    std::string value;
    QString shown;
  } cases[] = {
      {kPadded, QStringLiteral("miracles")},
      {"a" + std::string(1, '\0') + "b", QStringLiteral("a")},
      {std::string(1, '\0'), QString()},
      {"caf\xE9", QString::fromUtf8("caf\xC3\xA9")},
      {"\x85!", QString::fromUtf8("\xEF\xBF\xBD!")},  // a C1 byte has no face
      {"<b>loud</b> song", QStringLiteral("<b>loud</b> song")},
  };
  for (const Case& c : cases) EXPECT_EQ(ShownText(ToQ(c.value)), c.shown) << c.value;
  EXPECT_EQ(FromQ(ToQ(kLatin1)), kLatin1);
  EXPECT_EQ(FromQ(ToQ(kPadded)), kPadded);
}

TEST(ShownText, EntriesReachAVisibleListInBatchesButEveryOperationSeesThem) {
  ListBox list;
  list.show();
  list.SetMultiSelect(ListBox::kExtended);
  for (int i = 0; i < 5; ++i) list.AddItem("entry " + std::to_string(i));
  EXPECT_EQ(list.count(), 0);  // not yet handed to the view
  EXPECT_EQ(list.ListCount(), 5);
  EXPECT_EQ(list.NewIndex(), 4);
  EXPECT_EQ(list.List(3), "entry 3");
  EXPECT_FALSE(list.Selected(4));
  list.SetSelected(4, true);  // selecting hands them over first
  EXPECT_EQ(list.count(), 5);
  EXPECT_TRUE(list.Selected(4));
  list.AddItem("late");
  QTRY_COMPARE_WITH_TIMEOUT(list.count(), 6, 2000);
  list.AddItem("gone");
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  QTest::qWait(100);
  EXPECT_EQ(list.count(), 0);
}

TEST(ShownText, LabelAndTextBoxShowPlainTextUpToTheNulAndKeepTheValue) {
  QWidget parent;
  Label label(QStringLiteral("lblTitle"), QStringLiteral("title:"), &parent);
  label.SetCaption("title: " + kPadded);
  EXPECT_EQ(label.Caption(), "title: " + kPadded);
  EXPECT_EQ(static_cast<QLabel&>(label).text(), QStringLiteral("title: miracles"));
  label.SetCaption("<b>loud</b> song");
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  EXPECT_EQ(static_cast<QLabel&>(label).text(), QStringLiteral("<b>loud</b> song"));
  label.SetCaption(kLatin1);
  EXPECT_EQ(label.Caption(), kLatin1);
  TextBox box(QStringLiteral("txtSubj"), QString(), &parent);
  const std::string subject = "[ilona" + std::string(25, '\0') + "]-miracles";
  box.SetText(subject);
  EXPECT_EQ(box.Text(), "[ilona");
  EXPECT_TRUE(box.Holds(subject));
  EXPECT_FALSE(box.Holds("[ilona]-miracles"));
}

}  // namespace
}  // namespace qc
