#include "base/Failure.h"

#include <utility>

namespace brenwick {
namespace {

const char* Describe(FailureNumber number) {
  switch (number) {
    case kInvalidCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kSubscript:
      return "Subscript out of range";
    case kTypeMismatch:
      return "Type mismatch";
    case kFileNotFound:
      return "File not found";
    case kPastEnd:
      return "Input past end of file";
    case kPermissionDenied:
      return "Permission denied";
    case kPathFileAccess:
      return "Path/File access error";
    case kPathNotFound:
      return "Path not found";
  }
  return "Unknown failure";
}

}  // namespace

Failure::Failure(FailureNumber number, std::string source)
    : Failure(number, Describe(number), std::move(source)) {}

Failure::Failure(std::int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

}  // namespace brenwick
