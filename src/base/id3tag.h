#pragma once
#include <string>

namespace qc {

// Six texts in block order. Six empty texts mean the file has no tag.
struct Id3Tag {
  std::string title;
  std::string artist;
  std::string album;
  std::string year;
  std::string comment;
  std::string genre;

  bool empty() const {
    return title.empty() && artist.empty() && album.empty() && year.empty() && comment.empty() &&
           genre.empty();
  }
  bool operator==(const Id3Tag&) const = default;
};

}  // namespace qc
