#pragma once
// Tag bytes are Windows-1252 on every platform; the program's text is UTF-8.
#include <string>
#include <string_view>

namespace qc {

// Every byte maps to one code point; the five bytes Windows-1252 leaves unassigned (0x81, 0x8D,
// 0x8F, 0x90, 0x9D) map to the control characters of the same number, so all 256 come back.
std::string Cp1252ToUtf8(std::string_view bytes);

// The inverse. Characters outside Windows-1252 become '?'; so do bytes that are not valid UTF-8,
// unless keepStrayBytes, where each such byte stands for itself (a file name of another encoding
// then reaches the code page unchanged).
std::string Utf8ToCp1252(std::string_view text, bool keepStrayBytes = false);

}  // namespace qc
