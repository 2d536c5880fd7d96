#pragma once
// Text held as bytes (file names, tag fields, anything read from outside) and the UTF-16 of the
// user interface. Bytes are read as UTF-8; a byte that is not part of a valid UTF-8 sequence is
// kept as the lone surrogate U+DC00 + byte, so that every byte string comes back unchanged.
// A file named "caf\xE9.mp3" in Latin-1 thus survives a trip through a list control.
#include <string>
#include <string_view>

namespace qc {

inline constexpr char16_t kByteEscapeFirst = 0xDC80;
inline constexpr char16_t kByteEscapeLast = 0xDCFF;

std::u16string Utf16FromBytes(std::string_view bytes);

// The inverse: escaped bytes become the bytes again; any other unpaired surrogate, which no byte
// string gives, becomes U+FFFD.
std::string BytesFromUtf16(std::u16string_view text);

}  // namespace qc
