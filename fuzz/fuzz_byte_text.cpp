// Bytes from outside (file names, tag fields) through the lossless UTF-16 form and back: every
// byte string must come back unchanged, and the UTF-16 form must hold no unpaired surrogate but
// the escapes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/byte_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::u16string text = qc::Utf16FromBytes(bytes);
  if (qc::BytesFromUtf16(text) != bytes) std::abort();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c >= 0xD800 && c <= 0xDBFF) {
      if (i + 1 >= text.size() || text[i + 1] < 0xDC00 || text[i + 1] > 0xDFFF) std::abort();
      ++i;
    } else if (c >= 0xDC00 && c <= 0xDFFF && (c < qc::kByteEscapeFirst || c > qc::kByteEscapeLast)) {
      std::abort();
    }
  }
  return 0;
}
