#pragma once
// The main window's work against the simulated client, one scenario a file: the
// files chosen, the options, the lists and templates, the tagging run and what the user does
// while it goes on, the chat tools; and everything left behind (the boxes asked, the mails the
// client holds, the chat rooms' lines, instant messages and privacy settings, the main window's
// counters, run panel, recipients, selection and buttons).
//
// File format, one statement a line, "#" starts a comment; texts in quotes (\r \n \" \xNN):
//   client G                  the client's generation, 0 for none
//   counters UPS MBS          the all-runs counters before the run
//   options ITEM...           these options on, every other one off
//   list member|upload TEXT   the bytes of a list file
//   body TEXT                 the body template file
//   decor LEFT RIGHT          the notices' decoration
//   full|unknown ADDRESS      a full mailbox, an address the mail system does not know
//   file NAME BYTES SUBJECT [untagged | tag TITLE ARTIST ALBUM YEAR COMMENT GENRE]
//                             a chosen file (tagged "Song" "Band" "Record" "1998" "old comment"
//                             "Blues" unless told)
//   gone NAME                 the chosen file is deleted before the run
//   at N WHAT                 once the N-th file is counted: stop, start (pressed again during
//                             the next wait), state (written down), error-window (the client
//                             shows one), options +ITEM -ITEM..., body TEXT
//   stop-after PASSES         the stop button, pressed after that many pump passes
//   budget PASSES             before a step counts as hung (default 3,000,000)
//   room CAPTION | transfer FILE PERCENT AMOUNT | member NAME    the client's chat room, file
//                             transfer window, and a member who takes instant messages
//   start                     the tagging run
//   menu ITEM | click CONTROL a menu item of frmMenu, a click on a picture button of frmMain
//   greet | goodbye           the start-up and exit blocks in the chat room
//   note                      writes down the transfer window's state and the show commands it
//                             took since the last note
//   bytes NAME...             writes down the bytes of files in the program's folder ("/NAME")
//                             or beside it ("NAME"), or "missing"
//   WINDOW.CONTROL ACTION... | look CONTROL... | clipboard set TEXT
//                             the controls of the windows on screen (ui/control_steps.h)
//   expect                    then the outcome, line for line
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

#include "base/cp1252.h"
#include "base/failure.h"
#include "base/pump.h"
#include "run/chat.h"
#include "run/tagging_run.h"
#include "run_rig.h"
#include "sim/sim_chat.h"
#include "sim/sim_im.h"
#include "support/script_words.h"
#include "ui/control_steps.h"
#include "ui/window_routines.h"

namespace qc::test {

using Words = std::vector<std::string>;

struct Scenario {
  std::vector<Words> setup;
  std::vector<std::string> expected;
};

inline Scenario Parse(const std::filesystem::path& file) {
  Scenario s;
  std::ifstream in(file, std::ios::binary);
  bool expecting = false;
  for (std::string line; std::getline(in, line);) {
    if (expecting) {
      if (!line.empty()) s.expected.push_back(line);
    } else if (line == "expect") {
      expecting = true;
    } else if (!line.empty() && line[0] != '#') {
      s.setup.push_back(ScriptWords(line));
    }
  }
  return s;
}

class ScenarioPlayer : public RunRig {
 protected:
  // The wiring of the main window's controls and menus; statements and outcome lines of more.
  virtual void Wire() { ConnectChatTools(frm, menu, services); }
  virtual bool Extra(const Words&) { return false; }
  virtual void ExtraOutcome() {}

  void Setup(const Words& w) {
    const std::string& op = w.at(0);
    if (op == "client") {
      im_.reset();
      chat_.reset();
      StopClient();
      if (std::stoi(w.at(1)) == 0) return;
      StartClient(std::stoi(w.at(1)));
      chat_ = std::make_unique<sim::SimChat>(*client);
      im_ = std::make_unique<sim::SimIm>(*client);
    } else if (op == "counters") {
      frm.lblUps->SetCaption(w.at(1));
      frm.lblMBs->SetCaption(w.at(2));
    } else if (op == "options") {
      for (std::size_t i = 1; i < w.size(); ++i) menu.setCheck(w[i], true);
    } else if (op == "list") {
      WriteBytes(app + (w.at(1) == "member" ? "/lstMember.sys" : "/lstUpload.sys"), w.at(2));
    } else if (op == "body") {
      WriteBody(w.at(1));
    } else if (op == "decor") {
      settings.Write(Setting::kAscii1, w.at(1));
      settings.Write(Setting::kAscii2, w.at(2));
    } else if (op == "full" || op == "unknown") {
      op == "full" ? mail->MarkFull(w.at(1)) : mail->MarkUnknown(w.at(1));
    } else if (op == "file") {
      TagFields tag = kTag;
      if (w.size() > 10 && w.at(4) == "tag") tag = {w[5], w[6], w[7], w[8], w[9], w[10]};
      const bool untagged = w.size() > 4 && w.at(4) == "untagged";
      chosen_.push_back({w.at(1), untagged ? "" : tag.comment});
      Choose(w.at(1), std::stoll(w.at(2)), w.at(3), untagged ? nullptr : &tag);
    } else if (op == "gone") {
      std::filesystem::remove(dir / w.at(1));
    } else if (op == "at") {
      at_.push_back(w);
    } else if (op == "stop-after") {
      stopAfter_ = std::stoull(w.at(1));
    } else if (op == "budget") {
      budget_ = std::stoull(w.at(1));
    } else if (op == "room") {
      rooms_.emplace_back(w.at(1), chat_->OpenRoom(ToCodePage(w.at(1))));
    } else if (op == "transfer") {
      chat_->StartTransfer(w.at(1), w.at(2), w.at(3));
    } else if (op == "member") {
      im_->AddMember(w.at(1));
    } else if (op == "note") {
      std::string shows;
      for (const sim::TraceEntry& t : desktop.Trace()) {
        if (t.op == "ShowWindow") shows += " " + t.line.substr(t.line.rfind(' ') + 1);
      }
      desktop.ClearTrace();
      outcome_.push_back("transfer " + TransferState() + ", shown with" + shows);
    } else if (op == "start") {
      counted_ = 0;  // files are counted from the run's start
      Step([this] { TaggingRun(frm, menu, services); });
    } else if (op == "menu" || op == "click") {
      const QString name = QString::fromStdString(w.at(1));
      QAction* item = op == "menu" ? menu.findChild<QAction*>(name) : nullptr;
      Label* control = op == "click" ? frm.findChild<Label*>(name) : nullptr;
      if (!item && !control) {
        ADD_FAILURE() << "no " << op << " " << w[1];
        return;
      }
      // An option item through trigger(), which toggles it; any other by its signal, since a
      // failure unwinding through trigger() leaks what its guard holds.
      Step([&] {
        if (control) {
          emit control->clicked();
        } else if (item->isCheckable()) {
          item->trigger();
        } else {
          emit item->triggered();
        }
      });
    } else if (op == "greet" || op == "goodbye") {
      Step([&] { (op == "greet" ? SendStartBlock : SendEndBlock)(frm, desktop); });
    } else if (op == "bytes") {
      for (std::size_t i = 1; i < w.size(); ++i) {
        const std::string path = app + w[i];
        const bool there = std::filesystem::exists(path);
        outcome_.push_back("bytes " + w[i] + " " + (there ? Quoted(ReadBytes(path)) : "missing"));
      }
    } else if (IsControlStep(op)) {
      Step([&] { ControlStep(w, outcome_); });
    } else if (!Extra(w)) {
      ADD_FAILURE() << "unknown statement " << op;
    }
  }

  // What the user does once the n-th file is counted.
  void AtFile(int n) {
    for (const Words& w : at_) {
      if (std::stoi(w.at(1)) != n) continue;
      const std::string& what = w.at(2);
      if (what == "stop") {
        StopRun(frm);
      } else if (what == "start") {
        pressStart_ = true;
      } else if (what == "state") {
        outcome_.push_back("during " + std::to_string(n) + ": " + Buttons());
      } else if (what == "error-window") {
        errorWindow_ = client->OpenDocument("Error");
      } else if (what == "body") {
        WriteBody(w.at(3));
      } else if (what == "options") {
        for (std::size_t i = 3; i < w.size(); ++i) menu.setCheck(w[i].substr(1), w[i][0] == '+');
      } else {
        ADD_FAILURE() << "unknown action " << what;
      }
    }
  }

  // One thing the user does, with the budget; a failure or a wait that never ends is written down.
  void Step(const std::function<void()>& step) {
    try {
      PumpBudget budget(budget_);
      step();
      Settle();
    } catch (const RuntimeFailure& f) {
      outcome_.push_back("failure " + std::to_string(f.number()));
    } catch (const BudgetExhausted&) {
      outcome_.push_back("hung");
    }
  }

  std::string TransferState() const {
    const Hwnd t = chat_->Transfer();
    return !desktop.Visible(t) ? "hidden" : desktop.Minimised(t) ? "minimised" : "shown";
  }

  std::string Buttons() const {
    const double top = TwipsTop(frm.pnlTag);
    return std::string("start=") + (frm.picBut1->isEnabled() ? "on" : "off") +
           " stop=" + (frm.picBut2->isEnabled() ? "on" : "off") + " tag=" +
           Quoted(frm.picBut1->Tag.toStdString()) + " panel=" +
           (top == kTagPanelIdleTop ? "idle"
            : top == kPanelShownTop ? "shown"
                                    : "at " + std::to_string(static_cast<int>(top)));
  }

  // A mail as the client holds it, with the chosen files by their names.
  std::string Mail(const std::string& head, const sim::MailRecord& r) const {
    std::string files;
    for (const std::string& f : r.attachments) {
      files += (files.empty() ? "" : " ") + std::filesystem::path(f).filename().string();
    }
    return Cp1252ToUtf8(head + " to " + Quoted(r.to) + " subject " + Quoted(r.subject) +
                        " body " + Quoted(r.body) + " files " + Quoted(files));
  }

  void Outcome() {
    if (client) {
      for (const auto& r : mail->Outgoing()) outcome_.push_back(Mail("queued", r));
      for (Hwnd w : mail->MailWindows()) {
        outcome_.push_back(Mail("open " + Quoted(desktop.TextOf(w)), mail->Fields(w)));
      }
      for (const sim::ClientEvent& e : client->Events()) {
        if (e.kind == sim::kEventOutgoingMail || e.kind == sim::kEventMenuItem) {
          outcome_.push_back(Cp1252ToUtf8("client " + e.kind + ": " + e.detail));
        }
      }
      for (const auto& [caption, room] : rooms_) {
        for (const std::string& line : chat_->Transcript(room))
          outcome_.push_back("chat " + Quoted(caption) + " " + Quoted(Cp1252ToUtf8(line)));
      }
      for (const sim::ImRecord& m : im_->Sent()) {
        outcome_.push_back(Cp1252ToUtf8("im to " + Quoted(m.to) + " text " + Quoted(m.text)));
      }
      std::string privacy;
      for (const auto& [box, state] : im_->PrivacyWrites())
        privacy += " " + std::to_string(box) + "=" + std::to_string(state);
      if (!privacy.empty()) outcome_.push_back("privacy" + privacy);
      if (chat_->Transfer()) outcome_.push_back("transfer " + TransferState());
      if (errorWindow_) {
        outcome_.push_back(desktop.Exists(errorWindow_) ? "error window open" : "error window closed");
      }
    }
    for (const auto& [name, comment] : chosen_) {
      if (std::filesystem::exists(dir / name) && ReadId3Tag(dir / name).comment != comment) {
        outcome_.push_back("retagged " + Quoted(name) + " comment " +
                           Quoted(ReadId3Tag(dir / name).comment));
      }
    }
    outcome_.push_back("totals " + Quoted(frm.Label1->Caption()));
    outcome_.push_back("panel " + Quoted(frm.lblTagIndex->Caption()) + " " +
                       Quoted(frm.lblTagMb->Caption()) + " " + Quoted(frm.lblTagTotal->Caption()) +
                       " " + Quoted(frm.lblTagSubj->Caption()));
    std::string recipients = "recipients";
    for (const std::string& r : frm.lstSend->Items()) recipients += " " + Quoted(r);
    outcome_.push_back(recipients);
    outcome_.push_back("selection " + std::to_string(frm.lstUp->ListCount()) + " " +
                       std::to_string(frm.lstPathSelect->ListCount()) + " " +
                       std::to_string(frm.lstSubj->ListCount()));
    outcome_.push_back(Buttons());
    ExtraOutcome();
  }

  void Play(const std::filesystem::path& file) {
    const Scenario s = Parse(file);
    Wire();
    QObject::connect(frm.lblUps, &Label::changed, frm.lblUps, [this] { AtFile(++counted_); });
    std::uint64_t passes = 0;
    const PumpHookId hook = AddPumpHook([&] {
      if (++passes == stopAfter_) StopRun(frm);
      if (pressStart_ && frm.picBut1->isEnabled()) {
        pressStart_ = false;
        TaggingRun(frm, menu, services);
      }
    });
    for (const Words& w : s.setup) {
      Setup(w);
      // Boxes are written down as they are asked.
      for (; boxes_ < prompts.boxes.size(); ++boxes_) {
        const AskedBox& b = prompts.boxes[boxes_];
        outcome_.push_back("box " + std::to_string(b.flags) + " " + Quoted(b.title) + " " +
                           Quoted(b.text));
      }
    }
    RemovePumpHook(hook);
    UnloadSecondaryWindows();
    Outcome();
    std::string shown;
    for (const std::string& line : outcome_) shown += line + "\n";
    EXPECT_EQ(outcome_, s.expected) << "the outcome:\n" << shown;
  }

  std::vector<Words> at_;
  std::vector<std::pair<std::string, std::string>> chosen_;  // name, comment as written
  std::uint64_t stopAfter_ = 0;
  std::uint64_t budget_ = 3000000;
  bool pressStart_ = false;
  int counted_ = 0;
  std::size_t boxes_ = 0;
  Hwnd errorWindow_ = 0;
  std::vector<std::string> outcome_;
  std::unique_ptr<sim::SimChat> chat_;
  std::unique_ptr<sim::SimIm> im_;
  std::vector<std::pair<std::string, Hwnd>> rooms_;
};


}  // namespace qc::test
