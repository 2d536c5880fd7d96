#include "support/driver_routines.h"

#include <gtest/gtest.h>

#include "client/chat_room.h"
#include "client/client_commands.h"
#include "client/compose_mail.h"
#include "client/full_box.h"
#include "client/ghost.h"
#include "client/instant_message.h"
#include "client/upchat.h"
#include "client/window_routines.h"
#include "client/write_mail.h"
#include "support/budget.h"
#include "support/scripted_prompts.h"

namespace qc::test {
namespace {

std::string Cp(const Words& a, std::size_t i) { return ToCodePage(a.at(i)); }

// A routine that gives nothing back.
template <typename F>
DriverRoutine Void(F f) {
  return [f](WindowSystem& ws, const Words& a, AddressVector&) {
    f(ws, a);
    return std::string();
  };
}

template <auto Routine>
DriverRoutine FileMail() {
  return Void([](WindowSystem& ws, const Words& a) {
    Routine(ws, Cp(a, 0), Cp(a, 1), Cp(a, 2), Cp(a, 3), a.at(4) == "later");
  });
}

template <auto Routine>
DriverRoutine ToSubjectBody() {
  return Void([](WindowSystem& ws, const Words& a) { Routine(ws, Cp(a, 0), Cp(a, 1), Cp(a, 2)); });
}

template <auto Routine>
DriverRoutine Bare() {
  return Void([](WindowSystem& ws, const Words&) { Routine(ws); });
}

// Upchat asks nothing of the user when the client is there.
template <auto Routine>
DriverRoutine Unasked() {
  return Void([](WindowSystem& ws, const Words&) {
    ScriptedPrompts prompts;
    Routine(ws, prompts);
    EXPECT_TRUE(prompts.boxes.empty()) << "message box: " << prompts.boxes.front().text;
  });
}

}  // namespace

const std::map<std::string, DriverRoutine>& DriverRoutines() {
  using W = WindowSystem;
  static const std::map<std::string, DriverRoutine> table = {
      {"SendFileMail50", FileMail<SendFileMail50>()},
      {"SendFileMail40", FileMail<SendFileMail40>()},
      {"SendFileMail95", FileMail<SendFileMail95>()},
      {"SendNoticeMail50", ToSubjectBody<SendNoticeMail50>()},
      {"SendNoticeMail95", ToSubjectBody<SendNoticeMail95>()},
      {"WriteProbe50", ToSubjectBody<WriteProbe50>()},
      {"WriteProbe40", ToSubjectBody<WriteProbe40>()},
      {"ComposeProbe95", ToSubjectBody<ComposeProbe95>()},
      {"OpenOutgoingMail40", Bare<OpenOutgoingMail40>()},
      {"KillGlyph", Bare<KillGlyph>()},
      {"KillModal", Bare<KillModal>()},
      {"KillWait", Bare<KillWait>()},
      {"DismissOkBox", Bare<DismissOkBox>()},
      {"GhostOnOld", Bare<GhostOnOld>()},
      {"GhostOffOld", Bare<GhostOffOld>()},
      {"GhostOnNew", Bare<GhostOnNew>()},
      {"GhostOffNew", Bare<GhostOffNew>()},
      {"RunMainMenu", Void([](W& ws, const Words& a) { RunMainMenu(ws, Cp(a, 0)); })},
      {"KeywordToolbar", Void([](W& ws, const Words& a) { KeywordToolbar(ws, Cp(a, 0)); })},
      {"KeywordWindow", Void([](W& ws, const Words& a) { KeywordWindow(ws, Cp(a, 0)); })},
      {"SendInstantMessage",
       Void([](W& ws, const Words& a) { SendInstantMessage(ws, Cp(a, 0), Cp(a, 1)); })},
      {"SendImKeyword", Void([](W& ws, const Words& a) { SendImKeyword(ws, Cp(a, 0), Cp(a, 1)); })},
      {"RunToolbarMenu", Void([](W& ws, const Words& a) {
         RunToolbarMenu(ws, static_cast<std::int16_t>(std::stoi(a.at(0))),
                        static_cast<std::int16_t>(std::stoi(a.at(1))));
       })},
      // The program's own text, which the routine may change (the cut, the tail).
      {"ChatSend", Void([](W& ws, const Words& a) {
         std::string text = a.at(0);
         bool tail = a.at(1) == "tail";
         bool cut = a.at(2) == "cut";
         ChatSend(ws, text, tail, cut);
       })},
      // A counts block of the word, with the counters the main window shows.
      {"CountsBlock", Void([](W& ws, const Words& a) {
         SendChatBlock(ws, [&a] { return CountsLine(a.at(0), a.at(1), a.at(2)); });
       })},
      {"UpchatOn", Unasked<UpchatOn>()},
      {"UpchatOff", Unasked<UpchatOff>()},
      {"ClientVersion",
       [](W& ws, const Words&, AddressVector&) { return std::to_string(ClientVersion(ws)); }},
      {"ClientScreenName",
       [](W& ws, const Words&, AddressVector&) { return FromCodePage(ClientScreenName(ws)); }},
      {"CheckFullBoxes", [](W& ws, const Words&, AddressVector& list) {
         CheckFullBoxes(ws, list);
         std::string left;
         for (const std::string& item : list.items) left += (left.empty() ? "" : " ") + item;
         return left;
       }},
  };
  return table;
}

std::string RunRoutine(WindowSystem& ws, const Words& run, AddressVector& list, bool& hung) {
  hung = false;
  const auto routine = DriverRoutines().find(run.at(0));
  if (routine == DriverRoutines().end()) {
    ADD_FAILURE() << "unknown routine " << run.at(0);
    return "";
  }
  try {
    return routine->second(ws, Words(run.begin() + 1, run.end()), list);
  } catch (const BudgetExhausted&) {
    hung = true;
    return "";
  }
}

}  // namespace qc::test
