// The list-file field reader on arbitrary bytes: it always ends, every field is shorter than the
// data, and a field that was not quoted holds no delimiter.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/failure.h"
#include "text/text_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    qc::ListFieldReader reader(bytes);
    std::size_t fields = 0;
    while (!reader.AtEnd()) {
      const std::string field = reader.Next();
      if (field.size() > size) std::abort();
      if (field.find_first_of("\r\n") != std::string::npos && bytes.find('"') == std::string::npos) {
        std::abort();
      }
      // Every field takes at least one byte of the data.
      if (++fields > size) std::abort();
    }
  } catch (const qc::RuntimeFailure&) {
  }
  return 0;
}
