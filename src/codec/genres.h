#pragma once
// The 148 genre names, numbered from 0, held as a reading list ("|" around every name) and a
// writing list ("|" between names only).
#include <array>
#include <string>
#include <string_view>

namespace qc {

inline constexpr int kGenreCount = 148;

const std::array<std::string_view, kGenreCount>& GenreNames();
const std::string& GenreReadingList();
const std::string& GenreWritingList();

// The name between the (g+1)-th and (g+2)-th "|" of the reading list; "" for 148..255.
std::string GenreNameOf(unsigned genreByte);

// The count of "|" in the blank-stripped, lower-cased writing list before the first place where
// the blank-stripped, lower-cased genre occurs as a substring. So "Rock" gives 1 (inside
// "Classic Rock"), "Folk" 53 (inside "Pop-Folk"), and an unknown or empty text 0.
int GenreNumberOf(const std::string& genre);

}  // namespace qc
