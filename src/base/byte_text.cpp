#include "base/byte_text.h"

namespace qc {
namespace {

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Length of the valid UTF-8 sequence at bytes[i] and its code point; 0 when it is not valid
// (overlong forms, encoded surrogates and values past U+10FFFF included).
std::size_t ValidSequence(std::string_view bytes, std::size_t i, char32_t& cp) {
  const auto b0 = static_cast<unsigned char>(bytes[i]);
  std::size_t len = 0;
  char32_t min = 0;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    len = 2, cp = b0 & 0x1F, min = 0x80;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    len = 3, cp = b0 & 0x0F, min = 0x800;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    len = 4, cp = b0 & 0x07, min = 0x10000;
  } else {
    return 0;
  }
  if (i + len > bytes.size()) return 0;
  for (std::size_t k = 1; k < len; ++k) {
    const auto b = static_cast<unsigned char>(bytes[i + k]);
    if (!IsContinuation(b)) return 0;
    cp = (cp << 6) | (b & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return len;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

}  // namespace

std::u16string Utf16FromBytes(std::string_view bytes) {
  std::u16string out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto b = static_cast<unsigned char>(bytes[i]);
    if (b < 0x80) {
      out.push_back(b);
      ++i;
      continue;
    }
    char32_t cp = 0;
    const std::size_t len = ValidSequence(bytes, i, cp);
    if (len == 0) {
      out.push_back(static_cast<char16_t>(0xDC00 + b));
      ++i;
    } else if (cp < 0x10000) {
      out.push_back(static_cast<char16_t>(cp));
      i += len;
    } else {
      cp -= 0x10000;
      out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
      i += len;
    }
  }
  return out;
}

std::string BytesFromUtf16(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
               text[i + 1] <= 0xDFFF) {
      AppendUtf8(out, 0x10000 + ((static_cast<char32_t>(c) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
      ++i;
    } else if (c >= kByteEscapeFirst && c <= kByteEscapeLast) {
      out.push_back(static_cast<char>(c - 0xDC00));
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      AppendUtf8(out, 0xFFFD);
    } else {
      AppendUtf8(out, c);
    }
  }
  return out;
}

}  // namespace qc
