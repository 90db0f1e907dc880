// A run-time failure and the end of the program.
//
// Everything that goes wrong inside the program travels as a Failure up to the procedure that
// traps it (see logging/ErrorReport.h), which shows the error report. The report ends the program
// by throwing ProgramEnd.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace brenwick {

// Numbers of the failures that the program meets at run time; each has one fixed description.
enum FailureNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kSubscript = 9,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
};

class Failure : public std::exception {
 public:
  // A failure with its number's own description ("Overflow", "File not found", …).
  explicit Failure(FailureNumber number, std::string source = "Brenwick");
  // A failure that the program itself defines.
  Failure(std::int32_t number, std::string description, std::string source);

  std::int32_t Number() const { return number_; }
  const std::string& Description() const { return description_; }
  const std::string& Source() const { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
};

// Thrown to end the program at once. It is no std::exception, so that nothing that traps failures
// catches it; only the main of a world lets it out, after every destructor has run.
struct ProgramEnd {};

}  // namespace brenwick
