#include "base/cp1252.h"

#include <array>
#include <cstdint>

namespace qc {
namespace {

// Code points of bytes 0x80..0x9F.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

char ToByte(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (std::size_t i = 0; i < kHigh.size(); ++i) {
    if (kHigh[i] == cp) return static_cast<char>(0x80 + i);
  }
  return '?';
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 2);
  for (char ch : bytes) {
    auto b = static_cast<unsigned char>(ch);
    AppendUtf8(out, b >= 0x80 && b <= 0x9F ? kHigh[b - 0x80] : char32_t{b});
  }
  return out;
}

std::string Utf8ToCp1252(std::string_view text, bool keepStrayBytes) {
  std::string out;
  out.reserve(text.size());
  const std::size_t n = text.size();
  std::size_t i = 0;
  while (i < n) {
    auto b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
      out += static_cast<char>(b);
      ++i;
      continue;
    }
    int extra = b >= 0xF0 && b <= 0xF4 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 && b <= 0xDF ? 1 : -1;
    if (b >= 0xF5) extra = -1;
    char32_t cp = extra == 1 ? (b & 0x1F) : extra == 2 ? (b & 0x0F) : (b & 0x07);
    bool ok = extra > 0;
    for (int k = 1; ok && k <= extra; ++k) {
      if (i + static_cast<std::size_t>(k) >= n) {
        ok = false;
        break;
      }
      auto c = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
      if ((c & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      cp = (cp << 6) | (c & 0x3F);
    }
    // Overlong forms and surrogates are not valid text.
    if (ok && ((extra == 2 && (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF))) ||
               (extra == 3 && (cp < 0x10000 || cp > 0x10FFFF)))) {
      ok = false;
    }
    if (!ok) {
      out += keepStrayBytes ? static_cast<char>(b) : '?';
      ++i;
      continue;
    }
    out += ToByte(cp);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

}  // namespace qc
