#include "ui/shown_text.h"

#include "base/byte_text.h"

namespace qc {

namespace {
template <class C>
bool AllAscii(const C* p, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i)
    if (static_cast<unsigned>(p[i]) >= 0x80) return false;
  return true;
}
}  // namespace

QString ToQ(const std::string& s) {
  // Most texts are plain ASCII: one copy, no decoding.
  if (AllAscii(reinterpret_cast<const unsigned char*>(s.data()), s.size()))
    return QString::fromLatin1(s.data(), static_cast<qsizetype>(s.size()));
  const std::u16string u = Utf16FromBytes(s);
  return QString(reinterpret_cast<const QChar*>(u.data()), static_cast<qsizetype>(u.size()));
}

std::string FromQ(const QString& s) {
  if (AllAscii(s.utf16(), static_cast<std::size_t>(s.size()))) {
    const QByteArray latin = s.toLatin1();
    return std::string(latin.constData(), static_cast<std::size_t>(latin.size()));
  }
  return BytesFromUtf16(
      std::u16string_view(reinterpret_cast<const char16_t*>(s.utf16()), static_cast<std::size_t>(s.size())));
}

QString ShownText(const QString& value) {
  const qsizetype nul = value.indexOf(QChar(0));
  QString shown = nul < 0 ? value : value.left(nul);
  for (QChar& c : shown) {
    const char16_t u = c.unicode();
    if (u >= kByteEscapeFirst && u <= kByteEscapeLast) {
      const char16_t byte = u - 0xDC00;
      // 0x80..0x9F are control characters in Latin-1: show them as unreadable.
      c = QChar(byte >= 0xA0 ? byte : char16_t{0xFFFD});
    }
  }
  return shown;
}

}  // namespace qc
