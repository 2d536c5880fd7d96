// The text routines on arbitrary strings. The input is cut into text, key and replacement at the
// first two 0x00 bytes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/failure.h"
#include "text/text.h"

namespace {

std::string Take(const std::string& all, std::size_t& pos) {
  if (pos > all.size()) return {};
  std::size_t end = all.find('\0', pos);
  if (end == std::string::npos) end = all.size();
  std::string part = all.substr(pos, end - pos);
  pos = end + 1;
  return part;
}

bool EndsWith(const std::string& s, const std::string& suffix) {
  return s.size() >= suffix.size() && s.compare(s.size() - suffix.size(), suffix.size(), suffix) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  std::size_t pos = 0;
  const std::string text = Take(all, pos);
  const std::string key = Take(all, pos);
  const std::string replacement = Take(all, pos);

  try {
    std::string target = text;
    const std::string result = qc::ReplaceAll(target, key, replacement);
    if (result != target) std::abort();
    if (key.empty() && result != text) std::abort();
  } catch (const qc::RuntimeFailure&) {
  }
  try {
    const std::string before = qc::TextBefore(text, key);
    if (before.size() > text.size()) std::abort();
  } catch (const qc::RuntimeFailure&) {
  }
  try {
    const std::string after = qc::TextAfter(text, key);
    if (after.size() > text.size()) std::abort();
  } catch (const qc::RuntimeFailure&) {
  }
  try {
    const std::string trimmed = qc::TrimTrailing(text, key);
    if (text.compare(0, trimmed.size(), trimmed) != 0) std::abort();
    if (!key.empty() && EndsWith(trimmed, key)) std::abort();
    const std::string stripped = qc::StripBlanks(text);
    if (stripped.find(' ') != std::string::npos) std::abort();
  } catch (const qc::RuntimeFailure&) {
  }
  return 0;
}
