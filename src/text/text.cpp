#include "text/text.h"

#include "base/failure.h"
#include "base/pump.h"

namespace qc {

std::string LowerCase(const std::string& text) {
  std::string s = text;
  const std::size_t n = s.size();
  for (std::size_t i = 0; i < n; ++i) {
    auto c = static_cast<unsigned char>(s[i]);
    if (c >= 'A' && c <= 'Z') {
      s[i] = static_cast<char>(c + 32);
      continue;
    }
    if (i + 1 >= n) break;
    auto d = static_cast<unsigned char>(s[i + 1]);
    if (d < 0x80 || d > 0xBF) continue;
    if (c == 0xC3) {  // U+00C0..U+00DE, except the multiplication sign
      if (d <= 0x9E && d != 0x97) s[i + 1] = static_cast<char>(d + 0x20);
      ++i;
    } else if (c == 0xC5) {  // the Windows-1252 letters of Latin Extended-A
      if (d == 0x92 || d == 0xA0 || d == 0xBD) {
        s[i + 1] = static_cast<char>(d + 1);
      } else if (d == 0xB8) {  // Y with diaeresis lower-cases to U+00FF, also two bytes
        s[i] = static_cast<char>(0xC3);
        s[i + 1] = static_cast<char>(0xBF);
      }
      ++i;
    }
  }
  return s;
}

std::size_t InStr(std::size_t start, const std::string& text, const std::string& find) {
  if (start < 1) RaiseFailure(kInvalidArgument);
  if (text.empty() || start > text.size()) return 0;
  if (find.empty()) return start;
  std::size_t p = text.find(find, start - 1);
  return p == std::string::npos ? 0 : p + 1;
}

std::string Left(const std::string& text, long long length) {
  if (length < 0) RaiseFailure(kInvalidArgument);
  return text.substr(0, static_cast<std::size_t>(length));
}

std::string Right(const std::string& text, long long length) {
  if (length < 0) RaiseFailure(kInvalidArgument);
  auto n = static_cast<std::size_t>(length);
  return n >= text.size() ? text : text.substr(text.size() - n);
}

std::string Mid(const std::string& text, long long start) {
  if (start < 1) RaiseFailure(kInvalidArgument);
  auto s = static_cast<std::size_t>(start);
  return s > text.size() ? std::string() : text.substr(s - 1);
}

std::string Mid(const std::string& text, long long start, long long length) {
  if (start < 1 || length < 0) RaiseFailure(kInvalidArgument);
  auto s = static_cast<std::size_t>(start);
  return s > text.size() ? std::string() : text.substr(s - 1, static_cast<std::size_t>(length));
}

std::string ReplaceAll(std::string& text, const std::string& key, const std::string& replacement) {
  if (key.empty()) {
    DoEvents();
    return text;
  }
  const std::string lowerKey = LowerCase(key);
  std::size_t p = InStr(1, LowerCase(text), lowerKey);
  DoEvents();
  while (p != 0) {
    text = text.substr(0, p - 1) + replacement + text.substr(p - 1 + key.size());
    // Search on from behind the replacement: it is never rescanned.
    std::size_t from = p + replacement.size();
    p = from > text.size() ? 0 : InStr(from, LowerCase(text), lowerKey);
    DoEvents();
  }
  return text;
}

std::string TextBefore(const std::string& text, const std::string& marker) {
  if (InStr(LowerCase(text), LowerCase(marker)) == 0) return "";
  long long p = static_cast<long long>(InStr(text, marker));
  return Left(text, p - 1);
}

std::string TextAfter(const std::string& text, const std::string& marker) {
  if (InStr(LowerCase(text), LowerCase(marker)) == 0) return "";
  long long p = static_cast<long long>(InStr(text, marker));
  return Mid(text, p + static_cast<long long>(marker.size()));
}

std::string TrimTrailing(const std::string& text, const std::string& suffix) {
  if (suffix.empty()) return text;
  std::string s = text;
  while (s.size() >= suffix.size() && s.compare(s.size() - suffix.size(), suffix.size(), suffix) == 0) {
    s.resize(s.size() - suffix.size());
  }
  return s;
}

std::string StripBlanks(const std::string& text) {
  if (text.find(' ') == std::string::npos) return text;
  std::string s;
  s.reserve(text.size());
  for (char c : text) {
    if (c != ' ') s += c;
  }
  return s;
}

}  // namespace qc
