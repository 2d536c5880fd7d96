#include "base/failure.h"

namespace qc {

std::string FailureText(int number) {
  switch (number) {
    case kInvalidArgument: return "Invalid procedure call or argument";
    case kOverflow: return "Overflow";
    case kSubscriptOutOfRange: return "Subscript out of range";
    case kTypeMismatch: return "Type mismatch";
    case kBadFileNameOrNumber: return "Bad file name or number";
    case kFileNotFound: return "File not found";
    case kFileAlreadyOpen: return "File already open";
    case kInputPastEndOfFile: return "Input past end of file";
    case kBadRecordNumber: return "Bad record number";
    case kPathFileAccessError: return "Path/File access error";
    case kInvalidPropertyValue: return "Invalid property value";
    case kInvalidPropertyArrayIndex: return "Invalid property array index";
    default: return "Application-defined or object-defined error";
  }
}

RuntimeFailure::RuntimeFailure(int number, const std::string& text)
    : std::runtime_error(text), number_(number) {}

RuntimeFailure::RuntimeFailure(int number) : RuntimeFailure(number, FailureText(number)) {}

void RaiseFailure(int number) { throw RuntimeFailure(number); }

}  // namespace qc
