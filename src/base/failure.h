#pragma once
// The system's run-time failures: a number and a text, as the platform's error box shows them.
// Unhandled ones reach the event-handler boundary, which shows the box and ends the program.
#include <filesystem>
#include <ios>
#include <stdexcept>
#include <string>

namespace qc {

enum FailureNumber : int {
  kInvalidArgument = 5,   // "Invalid procedure call or argument"
  kOverflow = 6,          // "Overflow"
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kBadFileNameOrNumber = 52,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kInputPastEndOfFile = 62,
  kBadRecordNumber = 63,  // a positioned read or write before the file's start
  kPathFileAccessError = 75,
  kInvalidPropertyValue = 380,
  kInvalidPropertyArrayIndex = 381,
};

class RuntimeFailure : public std::runtime_error {
 public:
  RuntimeFailure(int number, const std::string& text);
  explicit RuntimeFailure(int number);  // with the platform's standard text
  int number() const { return number_; }
  std::string text() const { return what(); }

 private:
  int number_;
};

// The platform's standard text for a failure number.
std::string FailureText(int number);

[[noreturn]] void RaiseFailure(int number);

// "On failure, go on with the next statement": runs one statement and swallows the
// system's run-time failures and the standard library's I/O exceptions it may throw.
template <class Statement>
void SkipOnFailure(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeFailure&) {
  } catch (const std::ios_base::failure&) {
  } catch (const std::filesystem::filesystem_error&) {
  }
}

}  // namespace qc
