// The simulated instant message windows, buddy lists and privacy page.
#include "sim/sim_im.h"

#include <memory>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

constexpr char kImSentKey[] = "Instant Message sent";
constexpr char kPrivacyKey[] = "Privacy Preferences";
constexpr char kSavedKey[] = "Privacy saved";
constexpr char kBuddyKey[] = "Buddy List";
constexpr int kPrivacyControls = 7;

}  // namespace

SimIm::SimIm(SimClient& client) : client_(client) {
  client_.OnMenuItem(aol::kMenuSendIm, [this] { OpenImWindow(""); });
  client_.OnKeywordPrefix(aol::kImKeywordPrefix, [this](const std::string& keyword) {
    OpenImWindow(keyword.substr(std::string(aol::kImKeywordPrefix).size()));
  });
  client_.OnKeyword(aol::kKeywordBuddylist, [this](const std::string&) { OpenBuddyList(); });
  client_.OnKeyword(aol::kKeywordBuddy, [this](const std::string&) { OpenBuddyList(); });
}

void SimIm::OpenImWindow(const std::string& to) {
  SimDesktop& d = client_.desktop();
  const Hwnd w = client_.OpenDocument(aol::kSendImCaption);
  imWindow_ = w;
  auto toEdit = std::make_shared<Hwnd>(0);
  auto text = std::make_shared<Hwnd>(0);
  std::vector<SimClient::Part> parts;
  if (client_.generation() == 2) {
    parts = {{"edits",
              [this, w, toEdit, text] {
                *toEdit = client_.AddControl(w, aol::kAolEditClass);
                *text = client_.AddControl(w, aol::kAolEditClass);
              }},
             {"button", [this, w, toEdit, text, &d] {
                const Hwnd send = client_.AddControl(w, aol::kAolButtonClass, "Send");
                client_.OnSpacePress(send, kImSentKey, [this, w, toEdit, text, &d] {
                  Deliver(w, d.TextOf(*toEdit), d.TextOf(*text));
                });
              }}};
  } else {
    parts = {{"edits", [this, w, toEdit] { *toEdit = client_.AddControl(w, aol::kAolEditClass); }},
             {"rich", [this, w, text] { *text = client_.AddControl(w, aol::kRichTextClass); }},
             {"icons", [this, w, toEdit, text, &d] {
                const Hwnd send = client_.AddControls(w, aol::kIconClass, 9);
                client_.AddControl(w, aol::kIconClass);
                client_.OnClick(send, kImSentKey, [this, w, toEdit, text, &d] {
                  Deliver(w, d.TextOf(*toEdit), d.TextOf(*text));
                });
              }}};
  }
  // Set up once built: the recipient the keyword named, an empty message.
  client_.BuildInStages(w, kImSentKey, std::move(parts), [toEdit, text, to, &d] {
    d.SetText(*toEdit, to);
    d.SetText(*text, "");
  });
}

void SimIm::Deliver(Hwnd window, const std::string& to, const std::string& text) {
  SimDesktop& d = client_.desktop();
  if (!d.Exists(window)) return;
  const bool command = to == "$im_on" || to == "$im_off";
  if (!command && members_.count(to) == 0) {
    client_.Log(kEventImRefused, to);
    client_.ShowDialog(aol::kAolDialogCaption, to + " is not currently signed on.", {"OK"});
    return;
  }
  if (command) imsOn_ = to == "$im_on";
  sent_.push_back({to, text});
  client_.Log(kEventImSent, to + ": " + text);
  d.DestroyWindow(window);
}

void SimIm::OpenBuddyList() {
  SimDesktop& d = client_.desktop();
  std::vector<std::string> captions;
  const std::string name = client_.screenName();
  if (buddyCaption_ != BuddyCaption::kLists) captions.push_back(name + aol::kBuddyListMark);
  if (buddyCaption_ != BuddyCaption::kList) captions.push_back(name + aol::kBuddyListsSuffix);
  for (const std::string& caption : captions) {
    if (Hwnd open = client_.Document(caption)) {
      d.BringToTop(open);
      continue;
    }
    const Hwnd w = client_.OpenDocument(caption);
    buddies_.push_back(w);
    // The older clients take the first click on the list as its activation.
    auto clicks = std::make_shared<int>(client_.generation() >= 4 ? 1 : 0);
    client_.BuildInStages(w, kBuddyKey,
                          {{"list", [this, w] { client_.AddControl(w, aol::kListboxClass); }},
                           {"icons", [this, w, clicks] {
                              const Hwnd icon5 = client_.AddControls(w, aol::kIconClass, 5);
                              client_.AddControl(w, aol::kIconClass);
                              client_.OnClick(icon5, kPrivacyKey, [this, clicks] {
                                if (++*clicks >= 2) OpenPrivacy();
                              });
                            }}});
  }
}

void SimIm::OpenPrivacy() {
  SimDesktop& d = client_.desktop();
  if (d.Exists(privacy_)) {
    d.BringToTop(privacy_);
    return;
  }
  const Hwnd page = client_.OpenDocument(aol::kPrivacyCaption);
  privacy_ = page;
  states_.assign(kPrivacyControls, std::nullopt);
  const char* cls = client_.generation() >= 4 ? aol::kCheckboxClass : aol::kAolButtonClass;
  auto controls = [this, page, cls] {
    for (int i = 0; i < kPrivacyControls; ++i) {
      const Hwnd c = client_.AddControl(page, cls);
      client_.OnMessage(c, [this, i](const SimMessage& m) -> std::optional<std::int32_t> {
        if (m.message != aol::kBmSetCheck) return std::nullopt;
        writes_.emplace_back(i + 1, m.wParam);
        states_[static_cast<std::size_t>(i)] = m.wParam;
        return 0;
      });
    }
  };
  auto icons = [this, page, &d] {
    const Hwnd save = client_.AddControls(page, aol::kIconClass, 4);
    client_.OnClick(save, kSavedKey, [this, page, &d] {
      saves_.push_back(states_);
      client_.Log(kEventPrivacySaved, "");
      client_.ShowDialog(aol::kAolDialogCaption, "Your preferences have been saved.", {"OK"},
                         [this, page, &d](const std::string&) {
                           if (d.Exists(page)) d.DestroyWindow(page);
                           client_.BusyAfter(kSavedKey);
                         });
    });
  };
  client_.BuildInStages(page, kPrivacyKey, {{"controls", controls}, {"icons", icons}});
}

std::vector<Hwnd> SimIm::BuddyWindows() const {
  std::vector<Hwnd> open;
  for (Hwnd w : buddies_) {
    if (client_.desktop().Exists(w)) open.push_back(w);
  }
  return open;
}

Hwnd SimIm::Privacy() const { return client_.desktop().Exists(privacy_) ? privacy_ : 0; }

}  // namespace qc::sim
