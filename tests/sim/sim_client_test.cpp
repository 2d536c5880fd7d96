// The simulated client's own strictness, which a careless driver would otherwise get away with:
// what counts as a click, when sent and posted input is taken, windows built in stages, busy
// spells and the noise windows. Its tree is exercised by every golden script, its modal windows
// by the driver scenarios.
#include "sim/sim_client.h"

#include <gtest/gtest.h>

#include "client/vocabulary.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
#include "support/budget.h"

namespace qc::sim {
namespace {

using test::PumpBudget;
using test::VirtualTime;
using Lines = std::vector<std::string>;

class SimClientTest : public ::testing::Test {
 protected:
  void Settle(int passes = 100) {
    for (int i = 0; i < passes; ++i) WaitEvents();
  }
  void Post(Hwnd h, std::uint32_t message) { d.PostMessageA(h, message, 0, LParam()); }

  VirtualTime vt;
  SimDesktop d;
};

TEST_F(SimClientTest, AClickIsAPressAndAReleaseOnOneControlTakenWhenTheReleaseArrives) {
  SimClient c(d, {.generation = 5});
  const Hwnd icon3 = c.ToolbarIcon(3);
  Post(icon3, aol::kWmLButtonUp);  // a release alone
  Post(c.ToolbarIcon(4), aol::kWmLButtonDown);
  Post(icon3, aol::kWmLButtonUp);  // released on another control
  Settle();
  EXPECT_TRUE(c.Events().empty());
  // Posted: taken on the next pump. Sent: inside the send.
  Post(icon3, aol::kWmLButtonDown);
  Post(icon3, aol::kWmLButtonUp);
  EXPECT_TRUE(c.Events().empty());
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventClick), Lines{"toolbar icon 3"});
  std::int32_t zero = 0;
  d.SendMessageA(icon3, aol::kWmLButtonDown, 0, LParam::Word(zero));
  d.SendMessageA(icon3, aol::kWmLButtonUp, 0, LParam::Word(zero));
  EXPECT_EQ(c.EventDetails(kEventClick).size(), 2u);
}

TEST_F(SimClientTest, WindowsComeInStagesAndTextTypedBeforeTheLastIsLost) {
  SimClient c(d, {.generation = 5, .lastDelay = 1.0, .lastPart = "combo"});
  SimMail mail(c);
  Post(c.ToolbarIcon(2), aol::kWmLButtonDown);
  Post(c.ToolbarIcon(2), aol::kWmLButtonUp);
  PumpBudget budget(2000);
  while (d.ChildOfClass(c.Document("Write Mail"), aol::kIconClass, 17) == 0) WaitEvents();
  const Hwnd w = c.Document("Write Mail");
  EXPECT_NE(d.ChildOfClass(w, aol::kAolEditClass, 3), 0);
  EXPECT_EQ(d.ChildOfClass(w, aol::kComboboxClass), 0);
  d.SendMessageA(d.ChildOfClass(w, aol::kAolEditClass), aol::kWmSetText, 0, LParam::Text("a"));
  while (d.ChildOfClass(w, aol::kComboboxClass) == 0) WaitEvents();
  EXPECT_EQ(mail.Fields(w).to, "");
}

TEST_F(SimClientTest, ABusyClientRefusesInput) {
  SimClient c(d, {.generation = 5});
  SimIm im(c);
  c.RunKeyword("Buddy");
  PumpBudget budget(3000);
  while (d.ChildOfClass(c.Document("Brindle Rose's Buddy List"), aol::kIconClass, 5) == 0) {
    WaitEvents();
  }
  const Hwnd icon5 = d.ChildOfClass(c.Document("Brindle Rose's Buddy List"), aol::kIconClass, 5);
  Post(icon5, aol::kWmLButtonDown);
  Post(icon5, aol::kWmLButtonUp);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventRefused).size(), 2u);
  EXPECT_EQ(c.EventDetails(kEventRefused)[0].rfind("busy 513 ", 0), 0u);
  Settle(400);  // the busy spell is over
  c.ClearEvents();
  Post(icon5, aol::kWmLButtonDown);
  Post(icon5, aol::kWmLButtonUp);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventClick), Lines{"Privacy Preferences"});
}

TEST_F(SimClientTest, NoiseStandsInFrontOfTheClientsWindows) {
  SimClient c(d, {.generation = 5, .noise = true});
  EXPECT_EQ(d.TextOf(d.FindWindowA("#32770", std::nullopt)), "Save As");
  const Hwnd opened = c.OpenDocument("Keyword");
  EXPECT_EQ(d.TextOf(d.Children(c.mdi()).front()), "Instant Message From: Pat");
  EXPECT_EQ(d.FindWindowExA(c.mdi(), 0, "AOL Child", "Keyword"), opened);
  c.ShowDialog("America Online", "", {"OK"});
  EXPECT_EQ(d.TextOf(d.FindWindowA("#32770", std::nullopt)), "Save As");
}

TEST_F(SimClientTest, ReactionsOfAClientThatQuitAreDropped) {
  SimClient c(d, {.generation = 5});
  bool ran = false;
  c.Later("x", [&] { ran = true; });
  c.Quit();
  Settle();
  EXPECT_FALSE(ran);
  EXPECT_TRUE(d.Children(0).empty());  // all its windows went with it
}

}  // namespace
}  // namespace qc::sim
