// The simulated chat rooms and file transfer window.
#include "sim/sim_chat.h"

#include <memory>
#include <optional>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

constexpr char kChatKey[] = "Chat line";

}  // namespace

SimChat::SimChat(SimClient& client) : client_(client) {}

Hwnd SimChat::OpenRoom(const std::string& caption, RoomForm form, RoomInput input) {
  Hwnd room = client_.OpenDocument(caption);
  Hwnd box = 0;
  if (form == RoomForm::kA) {
    client_.AddControl(room, aol::kRichTextClass);  // the transcript
    if (input == RoomInput::kRichPair) box = client_.AddControl(room, aol::kRichTextClass);
    client_.AddControl(room, aol::kListboxClass);
    client_.AddControls(room, aol::kIconClass, 4);
    client_.AddControl(room, aol::kStaticClass, "people here");
    client_.AddControl(room, aol::kComboboxClass);
  } else {
    client_.AddControl(room, aol::kViewClass);  // the transcript
    client_.AddControls(room, aol::kIconClass, 4);
    client_.AddControl(room, aol::kListboxClass);
    if (input == RoomInput::kRichPair) {
      client_.AddControl(room, aol::kRichTextClass);
      box = client_.AddControl(room, aol::kRichTextClass);
    }
  }
  if (input == RoomInput::kAolEdit) box = client_.AddControl(room, aol::kAolEditClass);
  rooms_[room].input = box;

  SimDesktop& desktop = client_.desktop();
  auto pending = std::make_shared<bool>(false);
  client_.OnMessage(box, [this, room, box, pending, &desktop](
                             const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message != aol::kWmChar) return std::nullopt;
    if (m.wParam != aol::kKeyEnter) {
      desktop.SetText(box, desktop.TextOf(box) + static_cast<char>(m.wParam));
      return 0;
    }
    if (rooms_[room].stuck || *pending || desktop.TextOf(box).empty()) return 0;
    *pending = true;
    client_.Later(kChatKey, [this, room, box, pending, &desktop] {
      *pending = false;
      if (!desktop.Exists(box) || rooms_[room].stuck) return;
      const std::string line = desktop.TextOf(box);
      rooms_[room].lines.push_back(line);
      client_.Log(kEventChatLine, line);
      desktop.SetText(box, "");
    });
    return 0;
  });
  return room;
}

Hwnd SimChat::Input(Hwnd room) const {
  auto it = rooms_.find(room);
  return it == rooms_.end() ? 0 : it->second.input;
}

void SimChat::Type(Hwnd room, const std::string& text) {
  client_.desktop().SetText(Input(room), text);
}

std::vector<std::string> SimChat::Transcript(Hwnd room) const {
  auto it = rooms_.find(room);
  return it == rooms_.end() ? std::vector<std::string>{} : it->second.lines;
}

Hwnd SimChat::StartTransfer(const std::string& file, const std::string& percent,
                            const std::string& amount, const std::string& total) {
  EndTransfer();
  total_ = total;
  transfer_ = client_.OpenTopLevel(aol::kModalClass, "File Transfer - " + percent + "%");
  client_.AddControl(transfer_, aol::kStaticClass, "Now uploading " + file);
  client_.AddControl(transfer_, aol::kStaticClass, "Sent: " + amount + " MB of " + total + " MB");
  client_.AddControls(transfer_, aol::kIconClass, 2);  // cancel, finish later
  return transfer_;
}

void SimChat::Advance(const std::string& percent, const std::string& amount) {
  SimDesktop& d = client_.desktop();
  if (!d.Exists(transfer_)) return;
  d.SetText(transfer_, "File Transfer - " + percent + "%");
  d.SetText(d.ChildOfClass(transfer_, aol::kStaticClass, 2),
            "Sent: " + amount + " MB of " + total_ + " MB");
}

void SimChat::SetTransferTexts(const std::string& title, const std::string& fileLine,
                               const std::string& amountLine) {
  SimDesktop& d = client_.desktop();
  if (!d.Exists(transfer_)) StartTransfer("");
  d.SetText(transfer_, title);
  d.SetText(d.ChildOfClass(transfer_, aol::kStaticClass, 1), fileLine);
  d.SetText(d.ChildOfClass(transfer_, aol::kStaticClass, 2), amountLine);
}

void SimChat::EndTransfer() {
  if (client_.desktop().Exists(transfer_)) client_.desktop().DestroyWindow(transfer_);
  transfer_ = 0;
}

Hwnd SimChat::Transfer() const {
  return client_.desktop().Exists(transfer_) ? transfer_ : 0;
}

}  // namespace qc::sim
