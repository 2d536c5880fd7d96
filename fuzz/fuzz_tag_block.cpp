// The tag block reader on arbitrary bytes: parsing never fails, the Windows-1252 mapping is its
// own inverse on every byte, and a parsed tag renders to a block that parses back the same.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/failure.h"
#include "base/cp1252.h"
#include "codec/genres.h"
#include "codec/id3v1.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qc::TagBlock block{};
  std::memcpy(block.data(), data, size < block.size() ? size : block.size());
  try {
    const qc::Id3Tag tag = qc::ParseTagBlock(block);
    if (!qc::BlockHasTag(block) && !tag.empty()) std::abort();

    const std::string bytes(reinterpret_cast<const char*>(data), size);
    if (qc::Utf8ToCp1252(qc::Cp1252ToUtf8(bytes)) != bytes) std::abort();
    // Arbitrary text as if typed: never more bytes out than characters in.
    if (qc::Utf8ToCp1252(bytes).size() > bytes.size()) std::abort();
    (void)qc::GenreNumberOf(bytes);
    (void)qc::GenreNameOf(size > 0 ? data[0] : 0u);

    if (qc::BlockHasTag(block)) {
      const qc::TagBlock again = qc::RenderTagBlock(tag.title, tag.artist, tag.album, tag.year,
                                                    tag.comment, tag.genre);
      const qc::Id3Tag back = qc::ParseTagBlock(again);
      if (back.title != tag.title || back.artist != tag.artist || back.album != tag.album ||
          back.year != tag.year || back.comment != tag.comment) {
        std::abort();
      }
    }
  } catch (const qc::RuntimeFailure&) {
    // A modelled run-time failure is the system's own answer, not a crash.
  }
  return 0;
}
