#pragma once
// The one place where the program's byte strings become Qt text and back, and where a value
// becomes what a control shows.
#include <QString>
#include <string>

namespace qc {

// Lossless both ways: bytes that are not valid UTF-8 (a Latin-1 file name) travel as escapes.
QString ToQ(const std::string& s);
std::string FromQ(const QString& s);

// What a list, label or text box shows of a value: the text up to its first NUL, as the
// platform's controls take C strings, with escaped bytes read as Latin-1.
QString ShownText(const QString& value);

}  // namespace qc
