#pragma once
// The keys users write into subject and body templates, and the order in which each template
// expands them. Keys are replaced one after the other in one string, so a value holding a key
// that comes later in the order is expanded in turn.
#include <array>
#include <functional>
#include <span>
#include <string>

namespace qc {

enum class TemplateKey {
  kFileName,
  kFileSize,
  kIdTitle,
  kIdArtist,
  kIdAlbum,
  kIdGenre,
  kIdYear,
  kIdComment,
  kSysDate,
  kMyHandle,
};

// The key as users write it, e.g. "fileName$". Matched without regard to case.
const std::string& KeyText(TemplateKey key);

inline constexpr std::array<TemplateKey, 10> kBodyKeyOrder = {
    TemplateKey::kIdTitle,  TemplateKey::kIdArtist, TemplateKey::kIdAlbum,
    TemplateKey::kIdYear,   TemplateKey::kIdGenre,  TemplateKey::kSysDate,
    TemplateKey::kMyHandle, TemplateKey::kFileSize, TemplateKey::kFileName,
    TemplateKey::kIdComment,
};

// idYear$, idComment$, sysDate$ and myHandle$ stay as typed in a subject.
inline constexpr std::array<TemplateKey, 6> kSubjectKeyOrder = {
    TemplateKey::kFileName, TemplateKey::kFileSize, TemplateKey::kIdTitle,
    TemplateKey::kIdArtist, TemplateKey::kIdAlbum,  TemplateKey::kIdGenre,
};

// Replaces the keys of `order` in that order with ReplaceAll, asking valueOf for each key's value
// just before its turn. The caller's text holds the result, which is also returned.
std::string ExpandKeys(std::string& text, std::span<const TemplateKey> order,
                       const std::function<std::string(TemplateKey)>& valueOf);

}  // namespace qc
