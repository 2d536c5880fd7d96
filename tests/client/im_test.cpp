// Instant messages on every generation: the cut at 512, the quiet path, the complaint path and
// the client commands of the ims menu.
#include "client/instant_message.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "support/budget.h"

namespace qc {
namespace {

using sim::ImRecord;
using Records = std::vector<ImRecord>;

class ImTest : public ::testing::TestWithParam<int> {
 protected:
  void Send(const std::string& to, const std::string& text) {
    test::PumpBudget budget(20000);
    SendInstantMessage(d, to, text);
  }
  std::vector<std::string> TraceOf(const std::string& op) {
    std::vector<std::string> out;
    for (const auto& t : d.Trace()) {
      if (t.op == op) out.push_back(t.line);
    }
    return out;
  }

  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client{d, {.generation = GetParam()}};
  sim::SimIm im{client};
};

TEST_P(ImTest, QuietPathReturnsWhenTheWindowHasGone) {
  im.AddMember("Jo Bob");
  Send("Jo Bob", "hello");
  EXPECT_EQ(im.Sent(), (Records{{"Jo Bob", "hello"}}));
  EXPECT_EQ(client.Document(aol::kSendImCaption), 0);
  EXPECT_EQ(d.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption), 0);
}

TEST_P(ImTest, TextIsCutTo512) {
  im.AddMember("Jo Bob");
  Send("Jo Bob", std::string(512, 'a'));
  Send("Jo Bob", std::string(513, 'b'));
  ASSERT_EQ(im.Sent().size(), 2u);
  EXPECT_EQ(im.Sent()[0].text, std::string(512, 'a'));
  EXPECT_EQ(im.Sent()[1].text, std::string(512, 'b'));
}

TEST_P(ImTest, ComplaintBoxIsPressedAndTheWindowClosed) {
  Send("Nobody Here", "hi");
  EXPECT_TRUE(im.Sent().empty());
  EXPECT_TRUE(client.HasEvent(sim::kEventImRefused, "Nobody Here"));
  // Settle what was posted: the Space press and the close.
  {
    test::PumpBudget budget(500);
    for (int i = 0; i < 100; ++i) WaitEvents();
  }
  EXPECT_EQ(d.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption), 0);
  EXPECT_EQ(client.Document(aol::kSendImCaption), 0);
  const auto posts = TraceOf("PostMessageA");
  ASSERT_GE(posts.size(), 3u);
  EXPECT_EQ(posts[posts.size() - 3], "PostMessageA #32770/Button 256 32 0");
  EXPECT_EQ(posts[posts.size() - 2], "PostMessageA #32770/Button 257 32 0");
  EXPECT_EQ(posts.back(), "PostMessageA AOL Frame25/MDIClient/AOL Child 16 0 0");
}

TEST_P(ImTest, ImCommandsSwitchTheClient) {
  Send(kImOff, kImCommandText);
  EXPECT_FALSE(im.ImsOn());
  Send(kImOn, kImCommandText);
  EXPECT_TRUE(im.ImsOn());
  EXPECT_EQ(im.Sent(), (Records{{"$im_off", "\xA0"}, {"$im_on", "\xA0"}}));
}

INSTANTIATE_TEST_SUITE_P(Generations, ImTest, ::testing::Values(2, 3, 4, 5));

// The route's own messages, generation by generation.
TEST(ImRoutes, KeywordRouteHidesTheWindowAndClicksBySending) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 5});
  sim::SimIm im(client);
  im.AddMember("jo");
  {
    test::PumpBudget budget(20000);
    SendInstantMessage(d, "jo", "x");
  }
  std::vector<std::string> lines;
  for (const auto& t : d.Trace()) {
    if (t.op == "ShowWindow" ||
        (t.op == "SendMessageA" && t.line.find("_AOL_Icon#9") != std::string::npos)) {
      lines.push_back(t.line);
    }
  }
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].rfind("ShowWindow ", 0), 0u);
  EXPECT_NE(lines[0].find(" 0"), std::string::npos);
  EXPECT_EQ(lines[1].substr(lines[1].size() - 9), " 513 0 &0");
  EXPECT_EQ(lines[2].substr(lines[2].size() - 9), " 514 0 &0");
  EXPECT_TRUE(client.HasEvent(sim::kEventKeyword, "aol://9293:jo"));
}

TEST(ImRoutes, GenerationTwoPressesTheButtonWithSpace) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 2});
  sim::SimIm im(client);
  im.AddMember("jo");
  {
    test::PumpBudget budget(20000);
    SendInstantMessage(d, "jo", "x");
  }
  std::vector<std::string> sends;
  for (const auto& t : d.Trace()) {
    if (t.op == "SendMessageA" && t.line.find("_AOL_Button") != std::string::npos) {
      sends.push_back(t.line);
    }
  }
  ASSERT_EQ(sends.size(), 2u);
  EXPECT_EQ(sends[0].substr(sends[0].size() - 10), " 256 32 &0");
  EXPECT_EQ(sends[1].substr(sends[1].size() - 10), " 257 32 &0");
  EXPECT_TRUE(client.HasEvent(sim::kEventMenuItem, aol::kMenuSendIm));
}

TEST(ImRoutes, BoxAfterTheWindowHasGoneIsStillPressed) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 4});
  client.OnKeywordPrefix(aol::kImKeywordPrefix, [&](const std::string&) {
    const Hwnd w = client.OpenDocument(aol::kSendImCaption);
    client.AddControl(w, aol::kRichTextClass);
    const Hwnd send = client.AddControls(w, aol::kIconClass, 9);
    client.OnClick(send, "send", [&client, &d, w] {
      d.DestroyWindow(w);
      client.ShowDialog(aol::kAolDialogCaption, "That name is not signed on.", {"OK"});
    });
  });
  {
    test::PumpBudget budget(20000);
    SendInstantMessage(d, "ghost", "x");
    for (int i = 0; i < 100; ++i) WaitEvents();
  }
  EXPECT_EQ(d.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption), 0);
  std::vector<const sim::TraceEntry*> posts;
  for (const auto& t : d.Trace()) {
    if (t.op == "PostMessageA") posts.push_back(&t);
  }
  ASSERT_GE(posts.size(), 3u);
  EXPECT_EQ(posts[posts.size() - 3]->line, "PostMessageA #32770/Button 256 32 0");
  EXPECT_EQ(posts.back()->message, aol::kWmClose);
  EXPECT_EQ(posts.back()->window, 0);
}

TEST(ImRoutes, NoWindowMeansTheWaitNeverEnds) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 5});  // no SimIm: the client opens a window without icons
  client.OnKeywordPrefix(aol::kImKeywordPrefix, [](const std::string&) {});
  test::PumpBudget budget(2000);
  EXPECT_THROW(SendInstantMessage(d, "jo", "x"), test::BudgetExhausted);
}

}  // namespace
}  // namespace qc
