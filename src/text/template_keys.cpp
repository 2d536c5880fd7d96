#include "text/template_keys.h"

#include "text/text.h"

namespace qc {

const std::string& KeyText(TemplateKey key) {
  static const std::array<std::string, 10> texts = {
      "fileName$", "fileSize$", "idTitle$",   "idArtist$", "idAlbum$",
      "idGenre$",  "idYear$",   "idComment$", "sysDate$",  "myHandle$",
  };
  return texts.at(static_cast<std::size_t>(key));
}

std::string ExpandKeys(std::string& text, std::span<const TemplateKey> order,
                       const std::function<std::string(TemplateKey)>& valueOf) {
  for (TemplateKey key : order) {
    std::string value = valueOf(key);
    ReplaceAll(text, KeyText(key), value);
  }
  return text;
}

}  // namespace qc
