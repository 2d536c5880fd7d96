#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/pump.h"
#include "text/template_keys.h"
#include "support/files.h"
#include "text/text.h"

namespace qc {
namespace {

using test::FailureNumberOf;

TEST(LowerCase, KeepsByteLengthsForWindows1252Letters) {
  EXPECT_EQ(LowerCase("IDTITLE$ ÀÉÎÕÜÞ×ŠŒŽŸ"), "idtitle$ àéîõüþ×šœžÿ");
  const std::string upper = "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";
  EXPECT_EQ(LowerCase(upper).size(), upper.size());
  EXPECT_EQ(LowerCase(upper), "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ");
  // Already lower, other scripts, stray and truncated bytes pass through.
  for (std::string s : {std::string("ß ÿ ω Ω €"), std::string("\xC3"), std::string("\xC3\x41"), std::string("a\xC5")}) {
    EXPECT_EQ(LowerCase(s).size(), s.size()) << s;
  }
  EXPECT_EQ(LowerCase(std::string("\xC3\x41")), std::string("\xC3\x61"));
}

TEST(InStrAndCuts, OneBasedLikeThePlatform) {
  EXPECT_EQ(InStr("abcabc", "c"), 3u);
  EXPECT_EQ(InStr(4, "abcabc", "c"), 6u);
  EXPECT_EQ(InStr(7, "abcabc", "c"), 0u);
  EXPECT_EQ(InStr("abc", ""), 1u);
  EXPECT_EQ(InStr("", ""), 0u);
  EXPECT_EQ(InStr("abc", "C"), 0u);
  EXPECT_EQ(FailureNumberOf([] { InStr(0, "a", "a"); }), kInvalidArgument);
  EXPECT_EQ(Left("abc", 5), "abc");
  EXPECT_EQ(Right("abc", 2), "bc");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
  EXPECT_EQ(FailureNumberOf([] { Left("abc", -1); }), kInvalidArgument);
  EXPECT_EQ(FailureNumberOf([] { Mid("abc", 0); }), kInvalidArgument);
}

TEST(ReplaceAll, Cases) {
  struct Case {
    std::string text, key, replacement, result;
  } cases[] = {
      {"IDTITLE$ - idtitle$", "idTitle$", "x", "x - x"},
      {"aaa", "a", "aa", "aaaaaa"},               // no rescan of the replacement: ends
      {"aabb", "ab", "", "ab"},                   // removal restarts at p, never before it
      {"abab", "AB", "", ""},
      {"nothing here", "idTitle$", "x", "nothing here"},
      {"Keep CASE around idArtist$!", "IDARTIST$", "Mixed Case", "Keep CASE around Mixed Case!"},
      {"ÉTÉ été", "été", "summer", "summer summer"},
      {"", "a", "b", ""},
      {"x$y$", "$", "$$", "x$$y$$"},
  };
  for (auto& c : cases) {
    std::string text = c.text;
    EXPECT_EQ(ReplaceAll(text, c.key, c.replacement), c.result) << c.text << " / " << c.key;
    EXPECT_EQ(text, c.result) << "the caller's text holds the result";
  }
}

TEST(ReplaceAll, PumpsOncePerSearchAndHandlersSeeTheTextSoFar) {
  std::string text = "k-k-k";
  std::vector<std::string> seen;
  PumpHookId id = AddPumpHook([&] { seen.push_back(text); });
  auto before = PumpCount();
  ReplaceAll(text, "K", "value");
  EXPECT_EQ(PumpCount() - before, 4u);  // three finds and the failing one
  EXPECT_EQ(seen, (std::vector<std::string>{"k-k-k", "value-k-k", "value-value-k",
                                            "value-value-value"}));
  before = PumpCount();
  std::string none = "abc";
  ReplaceAll(none, "zz", "y");
  EXPECT_EQ(PumpCount() - before, 1u);
  RemovePumpHook(id);
}

TEST(ReplaceAll, EmptyKeyLeavesTheTextAlone) {
  std::string text = "abc";
  EXPECT_EQ(ReplaceAll(text, "", "x"), "abc");
}

TEST(TextBeforeAfter, TwoSearchesThatDiffer) {
  EXPECT_EQ(TextBefore("a,b", ","), "a");
  EXPECT_EQ(TextAfter("a,b", ","), "b");
  EXPECT_EQ(TextBefore("ab", ","), "");
  EXPECT_EQ(TextAfter("ab", ","), "");
  EXPECT_EQ(TextAfter(",", ","), "");
  EXPECT_EQ(TextBefore(",", ","), "");
  EXPECT_EQ(TextAfter("a::b::c", "::"), "b::c");
  EXPECT_EQ(TextBefore("a::b::c", "::"), "a");
  // Present only in another case: the exact search gives 0.
  EXPECT_EQ(TextAfter("aXYb", "xy"), "XYb");  // from position 2, the marker's length
  EXPECT_EQ(TextAfter("aXb", "x"), "aXb");
  EXPECT_EQ(FailureNumberOf([] { TextBefore("aXb", "x"); }), kInvalidArgument);
  // An empty marker is always present and stands at position 1.
  EXPECT_EQ(TextBefore("abc", ""), "");
  EXPECT_EQ(TextAfter("abc", ""), "abc");
}

TEST(TrimTrailingAndStripBlanks, Cases) {
  EXPECT_EQ(TrimTrailing("x\r\r\r", "\r"), "x");
  EXPECT_EQ(TrimTrailing("x\r\n\r\n", "\r\n"), "x");
  EXPECT_EQ(TrimTrailing("x\r\n\r", "\r\n"), "x\r\n\r");
  EXPECT_EQ(TrimTrailing("abab", "ab"), "");
  EXPECT_EQ(TrimTrailing("aAB", "ab"), "aAB");
  EXPECT_EQ(TrimTrailing("x", ""), "x");
  const std::string arg = "keep  ";
  EXPECT_EQ(TrimTrailing(arg, " "), "keep");
  EXPECT_EQ(arg, "keep  ");
  EXPECT_EQ(StripBlanks(" Trip Hop  "), "TripHop");
  EXPECT_EQ(StripBlanks("a\tb\n c"), "a\tb\nc");
  EXPECT_EQ(StripBlanks("none"), "none");
}

TEST(TemplateKeys, TableAndOrders) {
  EXPECT_EQ(KeyText(TemplateKey::kFileName), "fileName$");
  EXPECT_EQ(KeyText(TemplateKey::kMyHandle), "myHandle$");
  std::vector<std::string> body;
  for (auto k : kBodyKeyOrder) body.push_back(KeyText(k));
  EXPECT_EQ(body, (std::vector<std::string>{"idTitle$", "idArtist$", "idAlbum$", "idYear$",
                                            "idGenre$", "sysDate$", "myHandle$", "fileSize$",
                                            "fileName$", "idComment$"}));
  std::vector<std::string> subject;
  for (auto k : kSubjectKeyOrder) subject.push_back(KeyText(k));
  EXPECT_EQ(subject, (std::vector<std::string>{"fileName$", "fileSize$", "idTitle$", "idArtist$",
                                               "idAlbum$", "idGenre$"}));
}

TEST(TemplateKeys, ValuesHoldingLaterKeysExpandInTurn) {
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

TEST(TemplateKeys, ValuesAreAskedInOrderJustBeforeTheirTurn) {
  std::vector<TemplateKey> asked;
  std::string text = "x";
  ExpandKeys(text, kSubjectKeyOrder, [&](TemplateKey k) {
    asked.push_back(k);
    return std::string();
  });
  EXPECT_EQ(asked, std::vector<TemplateKey>(kSubjectKeyOrder.begin(), kSubjectKeyOrder.end()));
}

}  // namespace
}  // namespace qc
