#pragma once
// Several texts from one fuzz input: its pieces between 0x00 bytes, at most `most` of them.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

inline std::vector<std::string> Pieces(const std::uint8_t* data, std::size_t size,
                                       std::size_t most) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> pieces;
  for (std::size_t at = 0; at <= all.size() && pieces.size() < most;) {
    std::size_t end = all.find('\0', at);
    if (end == std::string::npos) end = all.size();
    pieces.push_back(all.substr(at, end - at));
    at = end + 1;
  }
  return pieces;
}
