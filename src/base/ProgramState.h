// The flags and texts that several rooms of the program share.
#pragma once

#include <string>

namespace brenwick {

struct ProgramState {
  bool MessengerOnline = false;    // the user is signed in to the messenger
  bool ClosingDown = false;        // the main window has begun to close
  bool Debug = false;              // debug lines are written
  bool SaveConversations = false;  // spoken texts are written to the conversation log
  std::string Language;            // the stored name of the interface language; empty: none stored
};

// The program's title and version record. The title names the data folder, the window caption and
// the contact list file.
struct ProgramVersion {
  int major = BRENWICK_VERSION_MAJOR;
  int minor = BRENWICK_VERSION_MINOR;
  int revision = BRENWICK_VERSION_REVISION;

  // "3.1.0200": the revision as at least four digits.
  std::string Padded() const;
  // "3.1.200": plain numbers.
  std::string Plain() const;
};

inline constexpr const char* kTitle = "Brenwick";
// The publisher's server: the version check asks it, the Website page opens it.
extern const char* const kPublisher;

// "Brenwick, 3.1.0200": what the window caption starts with.
std::string VersionText(const ProgramVersion& version = {});

}  // namespace brenwick
