// Chat lines and the way they are typed into the client's chat room.
#include "client/chat_room.h"

#include <functional>
#include <optional>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/pump.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"
#include "text/text.h"

namespace qc {
namespace {

constexpr char kOpen[] = "\u2039";  // ‹
constexpr char kBang[] = "\u00A1";  // ¡
constexpr char kTail[] = "</b></i></u><font face=arial>";
constexpr std::size_t kChatCut = 92;
constexpr char kNone[] = "none";
constexpr char kNa[] = "na";

std::string TwoNbsp() { return std::string(kNbsp) + kNbsp; }

bool HasChildOf(WindowSystem& ws, Hwnd parent, const char* className) {
  return ws.FindWindowExA(parent, 0, std::string(className), std::nullopt) != 0;
}

bool IsRoomFormA(WindowSystem& ws, Hwnd w) {
  for (const char* c : {aol::kRichTextClass, aol::kListboxClass, aol::kIconClass,
                        aol::kStaticClass, aol::kComboboxClass}) {
    if (!HasChildOf(ws, w, c)) return false;
  }
  return true;
}

bool IsRoomFormB(WindowSystem& ws, Hwnd w) {
  for (const char* c : {aol::kViewClass, aol::kIconClass, aol::kListboxClass}) {
    if (!HasChildOf(ws, w, c)) return false;
  }
  return true;
}

// The platform's numeric test: a number with optional sign, blanks around, one point.
bool IsNumeric(const std::string& text) {
  const std::string t = Trim(text);
  std::size_t i = 0;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
  bool digits = false;
  bool point = false;
  for (; i < t.size(); ++i) {
    if (t[i] >= '0' && t[i] <= '9') {
      digits = true;
    } else if (t[i] == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  return digits;
}

void SendLine(WindowSystem& ws, std::string line) {
  bool tail = true;
  bool cut = false;
  ChatSend(ws, line, tail, cut);
}

}  // namespace

std::string ChatLine1() {
  return TwoNbsp() + kOpen + kBang + "! quill cast : v.qc23e : brindle";
}

std::string ChatLine3() {
  return TwoNbsp() + TwoNbsp() + "`\u00B7\u2013\u203A \u00F3mbreval\u00E8 productions";
}

std::string CountsLine(const std::string& word, const std::string& ups,
                       const std::string& sizeText) {
  return TwoNbsp() + kOpen + "!" + kBang + " " + word + " : " + ups + "tgs : " + sizeText;
}

std::string ScrollLine(const TransferStatus& s, bool byMenu) {
  const std::string mark = byMenu ? std::string(kOpen) + kBang : std::string(kOpen) + "!" + kBang;
  return TwoNbsp() + mark + "  " + LowerCase(Trim(s.file)) + " : " + s.percent + "% : " +
         s.amount;
}

Hwnd FindChatRoom(WindowSystem& ws) {
  const Hwnd frame = ws.FindWindowA(std::string(aol::kFrameClass), std::nullopt);
  const Hwnd mdi = ws.FindWindowExA(frame, 0, std::string(aol::kMdiClientClass), std::nullopt);
  Hwnd child = ws.FindWindowExA(mdi, 0, std::string(aol::kChildClass), std::nullopt);
  while (child != 0) {
    if (IsRoomFormA(ws, child) || IsRoomFormB(ws, child)) {
      // A window of the user's own that looks like a room ends the search: nothing is sent.
      const std::string own = LowerCodePage(ClientScreenName(ws)) + "'s";
      if (InStr(LowerCodePage(ControlText(ws, child)), own) > 0) return 0;
      return child;
    }
    child = ws.FindWindowExA(mdi, child, std::string(aol::kChildClass), std::nullopt);
  }
  return 0;
}

void ChatSend(WindowSystem& ws, std::string& text, bool& withTail, bool& withCut) {
  const Hwnd room = FindChatRoom(ws);
  Hwnd rich1 = 0;
  Hwnd rich2 = 0;
  Hwnd edit = 0;
  if (room != 0) {
    rich1 = ws.FindWindowExA(room, 0, std::string(aol::kRichTextClass), std::nullopt);
    if (rich1 != 0) {
      rich2 = ws.FindWindowExA(room, rich1, std::string(aol::kRichTextClass), std::nullopt);
    }
    edit = ws.FindWindowExA(room, 0, std::string(aol::kAolEditClass), std::nullopt);
  }
  if (text.empty() || room == 0) return;
  // The cut counts characters of the client's code page. The length is tested before the tail
  // goes on, so a cut line may exceed 92 with its tail.
  std::string line = ToCodePage(text);
  if (withCut && line.size() >= kChatCut) {
    line.resize(kChatCut);
    text = FromCodePage(line);
  }

  const bool richPair = rich1 != 0 && rich2 != 0;
  const Hwnd box = richPair ? rich2 : edit;
  if (richPair && withTail) {
    line += kTail;
    text += kTail;
  }
  const std::string saved = ControlText(ws, box);
  if (richPair && !saved.empty()) ws.SendMessageA(box, aol::kWmSetText, 0, LParam::Text(""));
  ws.SendMessageA(box, aol::kWmSetText, 0, LParam::Text(line));
  // The client empties the box once it has taken the line; there is no limit to the tries.
  std::int32_t zero = 0;
  do {
    WaitEvents();
    ws.SendMessageA(box, aol::kWmChar, aol::kKeyEnter, LParam());
  } while (ws.SendMessageA(box, aol::kWmGetTextLength, 0, LParam::Word(zero)) != 0);
  if (!saved.empty()) ws.SendMessageA(box, aol::kWmSetText, 0, LParam::Text(saved));
}

TransferStatus ReadTransferStatus(WindowSystem& ws) {
  const TransferStatus none{kNone, kNone, kNone};
  const Hwnd modal = ws.FindWindowA(std::string(aol::kModalClass), std::nullopt);
  if (modal == 0) return none;
  const Hwnd static1 = ws.FindWindowExA(modal, 0, std::string(aol::kStaticClass), std::nullopt);
  const Hwnd static2 =
      ws.FindWindowExA(modal, static1, std::string(aol::kStaticClass), std::nullopt);
  const std::string a = ControlText(ws, modal);
  if (InStr(a, " - ") == 0) return none;
  const std::string b = ControlText(ws, static1);
  const std::string c = ControlText(ws, static2);

  TransferStatus s;
  // The title's word ending in r, " - ", the number and one more character.
  const std::string afterDash = Mid(a, static_cast<long long>(InStr(a, "r - ")) + 4);
  s.percent = Left(afterDash, static_cast<long long>(afterDash.size()) - 1);
  // The word ending in "ing" goes; the blank after it stays.
  s.file = Mid(b, static_cast<long long>(InStr(b, "ing")) + 3);
  // The start comes from the file text's first blank, not from the amount's line.
  const std::string rest =
      Mid(Mid(c, 7), static_cast<long long>(InStr(s.file, " ")));
  s.amount = Left(rest, static_cast<long long>(InStr(rest, " ")) - 1);
  if (!IsNumeric(s.percent)) s.percent = kNa;
  if (!IsNumeric(s.amount)) s.amount = kNa;
  return {FromCodePage(s.percent), FromCodePage(s.amount), FromCodePage(s.file)};
}

void SendChatBlock(WindowSystem& ws, const std::function<std::string()>& line2) {
  SendLine(ws, ChatLine1());
  SendLine(ws, line2());
  SendLine(ws, ChatLine3());
}

void ScrollStats(WindowSystem& ws, bool byMenu) {
  const TransferStatus status = ReadTransferStatus(ws);
  SendLine(ws, ChatLine1());
  SendLine(ws, ScrollLine(status, byMenu));
  SendLine(ws, ChatLine3());
}

}  // namespace qc
