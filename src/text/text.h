#pragma once
// Text routines on plain strings. Positions are 1-based and a failed search gives 0.
// Text is UTF-8; lower-casing keeps every byte length so that positions found in a lower-cased
// copy stay valid in the original.
#include <cstddef>
#include <string>

namespace qc {

// Lower case for ASCII and the letters of the Windows-1252 set (as UTF-8), byte length kept.
std::string LowerCase(const std::string& text);

// Position of `find` in `text` from `start` (1-based), exact comparison; 0 when absent or when
// text is empty; `start` when `find` is empty. A start below 1 is the invalid-argument failure.
std::size_t InStr(std::size_t start, const std::string& text, const std::string& find);
inline std::size_t InStr(const std::string& text, const std::string& find) {
  return InStr(1, text, find);
}

// The string cuts of the platform. A negative length or a start below 1 raise the
// invalid-argument failure; lengths past the end are cut short.
std::string Left(const std::string& text, long long length);
std::string Right(const std::string& text, long long length);
std::string Mid(const std::string& text, long long start);
std::string Mid(const std::string& text, long long start, long long length);

// Replaces every occurrence of key, found without regard to case, by replacement. The inserted
// replacement is never searched again. Pumps events once after every search, so handlers can run
// inside. The caller's text holds the result as each replacement is made, and it is returned.
// An empty key leaves the text as it is.
std::string ReplaceAll(std::string& text, const std::string& key, const std::string& replacement);

// The part before / behind the marker. Presence is tested without regard to case, the position
// then with case: a marker that occurs only in another case makes TextBefore raise the
// invalid-argument failure and TextAfter return the text from the marker's length on.
std::string TextBefore(const std::string& text, const std::string& marker);
std::string TextAfter(const std::string& text, const std::string& marker);

// Cuts every run of suffix off the end (exact comparison). An empty suffix changes nothing.
std::string TrimTrailing(const std::string& text, const std::string& suffix);

// Drops every blank (U+0020); tabs and other white space stay.
std::string StripBlanks(const std::string& text);

}  // namespace qc
