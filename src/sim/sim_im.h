#pragma once
// The simulated client's instant message windows, buddy lists and privacy page.
//
// "Send Instant Message" opens by the keyword "aol://9293:" + name on generations 4 and 5
// (_AOL_Edit with the name, RICHCNTL, ten _AOL_Icon; the 9th sends) and by the main-menu entry
// "Send An Instant Message" on 3 (the same, name empty) and 2 (two _AOL_Edit and an _AOL_Button
// pressed with Space). A message to a known name, "$im_on" or "$im_off" is taken and the window
// closes; "$im_on" / "$im_off" switch the client's instant messages. Any other name gets a
// #32770 "America Online" complaint box, and the window stays.
//
// Buddy lists: the keyword "Buddylist" (generations 2, 3) or "Buddy" (4, 5) opens
// "NAME's Buddy List" (or "NAME's Buddy Lists", or both) with six _AOL_Icon; its 5th opens the
// "Privacy Preferences" page with seven _AOL_Button (2, 3) or _AOL_Checkbox (4, 5) and four
// _AOL_Icon; the 4th icon saves: an "America Online" box with an "OK" button.
//
// Reaction keys: "Send Instant Message", "Instant Message sent", "Buddy List", "Privacy
// Preferences", "Privacy saved".
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "sim/sim_client.h"

namespace qc::sim {

inline constexpr char kEventImSent[] = "im sent";          // detail: "to: text"
inline constexpr char kEventImRefused[] = "im refused";    // detail: to
inline constexpr char kEventPrivacySaved[] = "privacy saved";

struct ImRecord {
  std::string to;
  std::string text;
  bool operator==(const ImRecord&) const = default;
};

enum class BuddyCaption { kList, kLists, kBoth };

class SimIm {
 public:
  explicit SimIm(SimClient& client);
  ~SimIm() = default;
  SimIm(const SimIm&) = delete;
  SimIm& operator=(const SimIm&) = delete;

  // --- Instant messages ---
  void AddMember(const std::string& name) { members_.insert(name); }
  const std::vector<ImRecord>& Sent() const { return sent_; }
  bool ImsOn() const { return imsOn_; }
  // The last Send Instant Message window opened (0 before any).
  Hwnd ImWindow() const { return imWindow_; }

  // --- Buddy lists and privacy ---
  void SetBuddyCaption(BuddyCaption which) { buddyCaption_ = which; }
  std::vector<Hwnd> BuddyWindows() const;  // those still open
  Hwnd Privacy() const;
  // Each control's state as last set by message 241; nullopt for untouched.
  std::vector<std::optional<int>> PrivacyStates() const { return states_; }
  // Every 241 message in order: control number (from 1) and state.
  const std::vector<std::pair<int, int>>& PrivacyWrites() const { return writes_; }
  // Saved states, one vector per press of the page's save icon.
  const std::vector<std::vector<std::optional<int>>>& Saves() const { return saves_; }

 private:
  void OpenImWindow(const std::string& to);
  void Deliver(Hwnd window, const std::string& to, const std::string& text);
  void OpenBuddyList();
  void OpenPrivacy();

  SimClient& client_;
  std::set<std::string> members_;
  std::vector<ImRecord> sent_;
  bool imsOn_ = true;
  Hwnd imWindow_ = 0;
  BuddyCaption buddyCaption_ = BuddyCaption::kList;
  std::vector<Hwnd> buddies_;
  Hwnd privacy_ = 0;
  std::vector<std::optional<int>> states_;
  std::vector<std::pair<int, int>> writes_;
  std::vector<std::vector<std::optional<int>>> saves_;
};

}  // namespace qc::sim
