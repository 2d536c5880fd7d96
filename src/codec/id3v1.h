#pragma once
// The ID3v1 tag: the fixed 128-byte block at the very end of an MP3 file. The block's parse and
// render work on memory; the file routines open, read or write, and close within each call.
#include <array>
#include <cstdint>
#include <string>

#include "base/id3tag.h"

namespace qc {

using TagBlock = std::array<std::uint8_t, 128>;

// True when the block starts with the exact bytes "TAG".
bool BlockHasTag(const TagBlock& block);

// The record a block holds: fields lose trailing blanks only (NULs stay), bytes are read as
// Windows-1252, the genre byte names a genre or gives "". A block without "TAG" gives six
// empty texts.
Id3Tag ParseTagBlock(const TagBlock& block);

// "TAG", then title, artist, album (30 bytes each), year (4), comment (30) as Windows-1252, cut
// at the right or padded with blanks, then the genre number found from the genre text.
TagBlock RenderTagBlock(const std::string& title, const std::string& artist,
                        const std::string& album, const std::string& year,
                        const std::string& comment, const std::string& genre);

// The last 128 bytes of the file. A file shorter than that raises the bad-record-number
// failure; one that cannot be opened raises file-not-found or path/file-access.
TagBlock ReadTagBlock(const std::string& path);

// False for a missing file and for a path with no "." anywhere (a dot in a folder name is
// enough); otherwise whether the file's last 128 bytes start with "TAG".
bool HasId3Tag(const std::string& path);

// The tag of the file, or six empty texts when the file is missing or has none.
Id3Tag ReadId3Tag(const std::string& path);

// Writes a block over the file's last 128 bytes: never appends, never looks at what stood there.
// A missing file is left alone without a word. The file loses its read-only mark for good. The
// new file replaces the old one whole, so a kill in the midst leaves one or the other.
void WriteId3Tag(const std::string& path, const std::string& title, const std::string& artist,
                 const std::string& album, const std::string& year, const std::string& comment,
                 const std::string& genre);

}  // namespace qc
