#pragma once
// The simulated client's chat rooms and file transfer window.
//
// A room is a document window of one of the two recognisable forms, with a RICHCNTL pair (the
// second is the input) or an _AOL_Edit as input. A line typed and entered (WM_CHAR 13) goes to the
// room's transcript and the box empties, after the reaction delay. Windows of the user's own
// ("NAME's ...") are rooms too, as far as their children go.
//
// The transfer window is a top-level _AOL_Modal titled "File Transfer - P%" with two statics:
// "Now uploading FILE" and "Sent: AMOUNT MB of TOTAL MB". Tests may set any texts.
//
// Reaction key: "Chat line".
#include <map>
#include <string>
#include <vector>

#include "sim/sim_client.h"

namespace qc::sim {

inline constexpr char kEventChatLine[] = "chat line";  // detail: the line

enum class RoomForm { kA, kB };  // A: RICHCNTL, list, icon, static, combo; B: view, icon, list
enum class RoomInput { kRichPair, kAolEdit };

class SimChat {
 public:
  explicit SimChat(SimClient& client);
  ~SimChat() = default;
  SimChat(const SimChat&) = delete;
  SimChat& operator=(const SimChat&) = delete;

  // Opens a room in front of the other document windows; its input box is returned by Input.
  Hwnd OpenRoom(const std::string& caption, RoomForm form = RoomForm::kA,
                RoomInput input = RoomInput::kRichPair);
  Hwnd Input(Hwnd room) const;
  // What the user has half typed.
  void Type(Hwnd room, const std::string& text);
  // The lines the room has taken, in order.
  std::vector<std::string> Transcript(Hwnd room) const;
  // A stuck room never takes a line: the box keeps it.
  void SetStuck(Hwnd room, bool stuck) { rooms_[room].stuck = stuck; }

  // --- The file transfer ---
  Hwnd StartTransfer(const std::string& file, const std::string& percent = "0",
                     const std::string& amount = "0.00", const std::string& total = "3.40");
  void Advance(const std::string& percent, const std::string& amount);
  // Raw texts, for odd clients.
  void SetTransferTexts(const std::string& title, const std::string& fileLine,
                        const std::string& amountLine);
  void EndTransfer();
  Hwnd Transfer() const;

 private:
  struct Room {
    Hwnd input = 0;
    bool stuck = false;
    std::vector<std::string> lines;
  };

  SimClient& client_;
  std::map<Hwnd, Room> rooms_;
  Hwnd transfer_ = 0;
  std::string total_;
};

}  // namespace qc::sim
