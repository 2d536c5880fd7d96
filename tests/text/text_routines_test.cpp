#include <gtest/gtest.h>

#include "base/pump.h"
#include "support/cases.h"
#include "text/address_entry.h"
#include "text/template_keys.h"
#include "text/text.h"

namespace qc {
namespace {

// A list holding "old", as the mail-list window's entry sees it.
class Entries : public EntryList {
 public:
  long long Count() const override { return static_cast<long long>(items.size()); }
  std::string Item(long long i) const override { return items.at(static_cast<std::size_t>(i)); }
  void Add(const std::string& item) override { items.push_back(item); }
  void MakeCurrent(long long index) override { current = std::to_string(index); }
  std::vector<std::string> items{"old"};
  std::string current = "-";
};

// data/routines.txt; ReplaceAll's result is also what the caller's text holds.
TEST(TextRoutines, GoldenCases) {
  using test::Args;
  auto ll = [](const std::string& number) { return std::stoll(number); };
  test::RunCases(
      QC_TEST_DATA_DIR "/routines.txt",
      {{"LowerCase", [](const Args& a) { return LowerCase(a[0]); }},
       {"InStr", [](const Args& a) { return std::to_string(InStr(std::stoul(a[0]), a[1], a[2])); }},
       {"Left", [&](const Args& a) { return Left(a[0], ll(a[1])); }},
       {"Right", [&](const Args& a) { return Right(a[0], ll(a[1])); }},
       {"Mid", [&](const Args& a) { return a.size() == 2 ? Mid(a[0], ll(a[1])) : Mid(a[0], ll(a[1]), ll(a[2])); }},
       {"ReplaceAll",
        [](const Args& a) {
          std::string text = a[0];
          const std::string result = ReplaceAll(text, a[1], a[2]);
          return text == result ? result : "the caller's text differs";
        }},
       {"TextBefore", [](const Args& a) { return TextBefore(a[0], a[1]); }},
       {"TextAfter", [](const Args& a) { return TextAfter(a[0], a[1]); }},
       {"TrimTrailing", [](const Args& a) { return TrimTrailing(a[0], a[1]); }},
       {"StripBlanks", [](const Args& a) { return StripBlanks(a[0]); }},
       {"Enter", [](const Args& a) {
          Entries list;
          EnterAddresses(a[1], a[0] == "member", list);
          std::string out;
          for (const std::string& item : list.items) out += item + " ";
          return out + "| " + list.current;
        }}});
}

TEST(ReplaceAll, PumpsOncePerSearchAndHandlersSeeTheTextSoFar) {
  std::string text = "k-k-k";
  std::vector<std::string> seen;
  PumpHookId id = AddPumpHook([&] { seen.push_back(text); });
  ReplaceAll(text, "K", "value");
  // Three finds and the failing search.
  EXPECT_EQ(seen, (std::vector<std::string>{"k-k-k", "value-k-k", "value-value-k",
                                            "value-value-value"}));
  std::string none = "abc";
  ReplaceAll(none, "zz", "y");
  EXPECT_EQ(seen.size(), 5u);
  RemovePumpHook(id);
}

// Each template asks for its keys' values in its own order, and replaces each key in turn: a
// value that holds a key still to come is expanded, one that holds a key already done stays.
TEST(TemplateKeys, EachTemplateExpandsItsKeysInItsOrder) {
  auto asked = [](std::span<const TemplateKey> order) {
    std::string text = "x", names;
    ExpandKeys(text, order, [&](TemplateKey k) {
      names += KeyText(k) + " ";
      return std::string();
    });
    return names;
  };
  EXPECT_EQ(asked(kBodyKeyOrder), "idTitle$ idArtist$ idAlbum$ idYear$ idGenre$ sysDate$ "
                                  "myHandle$ fileSize$ fileName$ idComment$ ");
  EXPECT_EQ(asked(kSubjectKeyOrder), "fileName$ fileSize$ idTitle$ idArtist$ idAlbum$ idGenre$ ");
  auto values = [](TemplateKey k) -> std::string {
    switch (k) {
      case TemplateKey::kIdTitle: return "t-FILENAME$";  // fileName$ comes later in the body
      case TemplateKey::kFileName: return "song.mp3";
      case TemplateKey::kIdComment: return "by idTitle$";  // idTitle$ came earlier: stays
      case TemplateKey::kFileSize: return "3.25mb";
      default: return "v";
    }
  };
  std::string body = "idTitle$|fileSize$|idComment$|IDYEAR$";
  EXPECT_EQ(ExpandKeys(body, kBodyKeyOrder, values), "t-song.mp3|3.25mb|by idTitle$|v");
  EXPECT_EQ(body, "t-song.mp3|3.25mb|by idTitle$|v");
  std::string subject = "idTitle$ idYear$ sysDate$ myHandle$ idComment$";
  EXPECT_EQ(ExpandKeys(subject, kSubjectKeyOrder, values),
            "t-FILENAME$ idYear$ sysDate$ myHandle$ idComment$");
}

}  // namespace
}  // namespace qc
