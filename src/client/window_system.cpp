#include "client/window_system.h"

#include "base/cp1252.h"

namespace qc {

LParam LParam::Word(std::int32_t& word) {
  LParam p;
  p.kind_ = Kind::kWord;
  p.word_ = &word;
  return p;
}

LParam LParam::Text(std::string text) {
  LParam p;
  p.kind_ = Kind::kText;
  p.text_ = std::move(text);
  return p;
}

LParam LParam::Buffer(std::string& buffer) {
  LParam p;
  p.kind_ = Kind::kBuffer;
  p.buffer_ = &buffer;
  return p;
}

std::string LParam::Describe() const {
  switch (kind_) {
    case Kind::kZero: return "0";
    case Kind::kWord: return "&" + std::to_string(*word_);
    case Kind::kText: return "\"" + text_ + "\"";
    case Kind::kBuffer: return "buf[" + std::to_string(buffer_->size()) + "]";
  }
  return "?";
}

namespace {

// A desktop with no windows, no menus and a screen of 1024 x 768 pixels.
class EmptyDesktop : public WindowSystem {
 public:
  Hwnd FindWindowA(const OptText&, const OptText&) override { return 0; }
  Hwnd FindWindowExA(Hwnd, Hwnd, const OptText&, const OptText&) override { return 0; }
  std::int32_t SendMessageA(Hwnd, std::uint32_t, std::int32_t, LParam) override { return 0; }
  std::int32_t PostMessageA(Hwnd, std::uint32_t, std::int32_t, LParam) override { return 0; }
  Hmenu GetMenu(Hwnd) override { return 0; }
  Hmenu GetSubMenu(Hmenu, std::int32_t) override { return 0; }
  std::int32_t GetMenuItemCount(Hmenu) override { return -1; }
  std::int32_t GetMenuItemID(Hmenu, std::int32_t) override { return -1; }
  std::int32_t GetMenuStringA(Hmenu, std::int32_t, std::string&, std::int32_t,
                              std::int32_t) override {
    return 0;
  }
  std::int32_t GetWindowTextLengthA(Hwnd) override { return 0; }
  std::int32_t GetWindowTextA(Hwnd, std::string&, std::int32_t) override { return 0; }
  std::int32_t IsWindowVisible(Hwnd) override { return 0; }
  std::int32_t ShowWindow(Hwnd, std::int32_t) override { return 0; }
  std::int32_t GetCursorPos(Point& point) override {
    point = cursor_;
    return 1;
  }
  std::int32_t SetCursorPos(std::int32_t x, std::int32_t y) override {
    cursor_ = {x < 0 ? 0 : (x > 1023 ? 1023 : x), y < 0 ? 0 : (y > 767 ? 767 : y)};
    return 1;
  }
  std::int32_t ScreenWidthTwips() override { return 1024 * 15; }
  std::int32_t ScreenHeightTwips() override { return 768 * 15; }

 private:
  Point cursor_;
};

WindowSystem* gWindowSystem = nullptr;

EmptyDesktop& TheEmptyDesktop() {
  static EmptyDesktop d;
  return d;
}

}  // namespace

// Bytes that are not UTF-8 come from file names of another encoding: they pass as they are.
std::string ToCodePage(std::string_view programText) { return Utf8ToCp1252(programText, true); }
std::string FromCodePage(std::string_view codePageText) { return Cp1252ToUtf8(codePageText); }

WindowSystem& CurrentWindowSystem() { return gWindowSystem ? *gWindowSystem : TheEmptyDesktop(); }

void SetWindowSystem(WindowSystem* windowSystem) { gWindowSystem = windowSystem; }

}  // namespace qc
