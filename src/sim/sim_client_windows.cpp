// The client's built-in reactions: the keyword box and Keyword window, the about box, the
// toolbar popup menu, the outgoing mail list, and bare mail and message windows that the mail and
// message modules replace with working ones.
#include <memory>

#include "client/vocabulary.h"
#include "sim/sim_client.h"

namespace qc::sim {
namespace {

constexpr std::int32_t kKeyLeft = 37;
constexpr std::int32_t kKeyEscape = 27;

std::string TrimBlanks(const std::string& s) {
  auto b = s.find_first_not_of(' ');
  if (b == std::string::npos) return "";
  return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

}  // namespace

void SimClient::InstallBuiltins() {
  OnMenuItem(aol::kMenuKeyword, [this] { OpenKeywordWindow(); });
  OnMenuItem(aol::kMenuAbout, [this] { OpenAboutBox(); });
  OnMenuItem(aol::kMenuOutgoingMail, [this] { OpenOutgoingMailList(); });
  OnMenuItem(kPopupOutgoingEntry, [this] { OpenOutgoingMailList(); });
  OnMenuItem(aol::kMenuComposeMail, [this] { OpenComposeMailPlaceholder(); });
  OnMenuItem(aol::kMenuSendIm, [this] { OpenInstantMessagePlaceholder(""); });
  OnKeywordPrefix(aol::kImKeywordPrefix, [this](const std::string& keyword) {
    OpenInstantMessagePlaceholder(keyword.substr(std::string(aol::kImKeywordPrefix).size()));
  });
  if (options_.generation >= 4) {
    OnToolbarIcon(2, [this] { OpenWriteMailPlaceholder(); });
    OnToolbarIcon(3, [this] { OpenToolbarPopup(); });
  }
}

// ---------------------------------------------------------------- keywords

std::optional<std::int32_t> SimClient::KeywordEditMessage(const SimMessage& m) {
  if (m.message != aol::kWmChar) return std::nullopt;
  if (m.wParam == aol::kKeyEnter) {
    std::string keyword = TrimBlanks(desktop_.TextOf(keywordEdit_));
    desktop_.SetText(keywordEdit_, "");
    if (!keyword.empty()) RunKeyword(keyword);
  } else {
    desktop_.SetText(keywordEdit_, desktop_.TextOf(keywordEdit_) + static_cast<char>(m.wParam));
  }
  return 0;
}

void SimClient::OpenKeywordWindow() {
  if (Hwnd open = Document(aol::kKeywordCaption)) {
    desktop_.BringToTop(open);
    return;
  }
  Hwnd w = OpenDocument(aol::kKeywordCaption);
  auto edit = std::make_shared<Hwnd>(0);
  BuildInStages(w, aol::kKeywordCaption,
                {{"edits",
                  [this, w, edit] {
                    AddControl(w, aol::kStaticClass, "Type a keyword and click Go");
                    *edit = AddControl(w, aol::kAolEditClass);
                  }},
                 {"icons", [this, w, edit] {
                    Hwnd go = AddControl(w, aol::kIconClass);
                    AddControl(w, aol::kIconClass);  // Search
                    OnClick(go, "Keyword go", [this, w, edit] {
                      if (!desktop_.Exists(w)) return;
                      std::string keyword = TrimBlanks(desktop_.TextOf(*edit));
                      desktop_.DestroyWindow(w);
                      if (!keyword.empty()) RunKeyword(keyword);
                    });
                  }}},
                [this, edit] { desktop_.SetText(*edit, ""); });
}

// ---------------------------------------------------------------- about box

void SimClient::OpenAboutBox() {
  Log(kEventAboutBox, "");
  Hwnd box = OpenTopLevel(aol::kModalClass, "", frame_);
  AddControl(box, aol::kStaticClass, "America Online");
  Hwnd ok = AddControl(box, aol::kIconClass);
  AddControl(box, aol::kIconClass);
  OnClick(ok, "about box close", [this, box] { desktop_.DestroyWindow(box); });
}

// ---------------------------------------------------------------- toolbar popup menu

void SimClient::OpenToolbarPopup() {
  if (popup_ && desktop_.Exists(popup_)) return;  // one popup at a time
  popupEntries_ = ToolbarPopupEntries();
  popupLevels_ = {{&popupEntries_, -1}};
  Hwnd popup = OpenTopLevel(aol::kPopupMenuClass, "");
  popup_ = popup;
  BusyAfter("toolbar popup");
  desktop_.SetHandler(popup, [this, popup](const SimMessage& m) { return PopupMessage(popup, m); });
  desktop_.OnDestroy(popup, [this, popup] {
    if (popup_ == popup) {
      popup_ = 0;
      popupLevels_.clear();
    }
  });
}

std::optional<std::int32_t> SimClient::PopupMessage(Hwnd popup, const SimMessage& m) {
  if (m.message == aol::kWmKeyUp) return 0;
  if (m.message != aol::kWmKeyDown || popupLevels_.empty()) return std::nullopt;
  PopupLevel& level = popupLevels_.back();
  const int count = static_cast<int>(level.entries->size());
  const PopupEntry* chosen =
      level.selected >= 0 ? &(*level.entries)[static_cast<std::size_t>(level.selected)] : nullptr;
  switch (m.wParam) {
    case aol::kKeyDown:
      level.selected = (level.selected + 1) % count;
      break;
    case aol::kKeyUp:
      level.selected = level.selected <= 0 ? count - 1 : level.selected - 1;
      break;
    case aol::kKeyRight:
      if (chosen && !chosen->children.empty()) popupLevels_.push_back({&chosen->children, 0});
      break;
    case kKeyLeft:
      if (popupLevels_.size() > 1) popupLevels_.pop_back();
      break;
    case kKeyEscape:
      if (popupLevels_.size() > 1) {
        popupLevels_.pop_back();
      } else {
        desktop_.DestroyWindow(popup);
      }
      break;
    case aol::kKeyEnter:
      if (!chosen) {
        desktop_.DestroyWindow(popup);
      } else if (!chosen->children.empty()) {
        popupLevels_.push_back({&chosen->children, 0});
      } else {
        std::string text = chosen->text;
        desktop_.DestroyWindow(popup);
        RunCommand(text, kEventPopupEntry);
      }
      break;
    default:
      break;
  }
  return 0;
}

// ---------------------------------------------------------------- outgoing mail

void SimClient::OpenOutgoingMailList() {
  Log(kEventOutgoingMail, kOutgoingListCaption);
  if (Hwnd open = Document(kOutgoingListCaption)) {
    desktop_.BringToTop(open);
    return;
  }
  Hwnd w = OpenDocument(kOutgoingListCaption);
  AddControl(w, aol::kListboxClass);
  AddControls(w, aol::kIconClass, 4);
}

// ---------------------------------------------------------------- bare windows

void SimClient::OpenWriteMailPlaceholder() {
  Hwnd w = OpenDocument(aol::kWriteMailCaption);
  AddControls(w, aol::kAolEditClass, 3);
  AddControl(w, aol::kRichTextClass);
  AddControl(w, aol::kComboboxClass);
  AddControl(w, aol::kFontcomboClass);
  AddControls(w, aol::kIconClass, options_.generation == 5 ? 17 : 15);
}

void SimClient::OpenComposeMailPlaceholder() {
  Hwnd w = OpenDocument(aol::kComposeMailCaption);
  AddControls(w, aol::kIconClass, 3);
  AddControls(w, aol::kAolEditClass, 3);
  AddControl(w, aol::kRichTextClass);
}

void SimClient::OpenInstantMessagePlaceholder(const std::string& to) {
  Hwnd w = OpenDocument(aol::kSendImCaption);
  if (options_.generation == 2) {
    AddControls(w, aol::kAolEditClass, 2);
    AddControl(w, aol::kAolButtonClass);
    return;
  }
  AddControl(w, aol::kAolEditClass, to);
  AddControl(w, aol::kRichTextClass);
  AddControls(w, aol::kIconClass, 10);
}

}  // namespace qc::sim
