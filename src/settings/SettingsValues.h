// The user's settings as plain values.
#pragma once

#include <string>

namespace brenwick {

// The choice in a list in which the user can also type.
struct ChosenEntry {
  int position = -1;  // of the entry in the list; −1 while the text is no entry
  std::string text;

  bool operator==(const ChosenEntry&) const = default;
};

enum class SortOrder { Contact, Email, Name };

// One member a setting, named after its value in the store. A text is what the user has typed up to
// now, be it half a number, so it counts at the moment it is read.
struct SettingsValues {
  bool Introduce = false;
  bool ShowStartupScreen = false;  // on: the window is minimized at the start
  bool Debug = false;              // the box; ProgramState::Debug is on from the start without it
  std::string IntroductionText;
  bool CheckNewVersionsMessenger = false;
  bool CheckNewVersionsBrenwick = false;
  ChosenEntry Language;
  bool StartWithWindows = false;  // the entry that starts the program with the system

  bool IntroduceUser = false;
  bool NoMessageOnlyUserState = false;
  bool NotifyUserState = false;
  bool FirstName = false;
  bool NotifyNewEmail = false;
  bool Mute = false;
  bool SaveConversations = false;
  bool ScrollLock = false;
  bool ConversationCleanUp = false;
  bool DebugCleanUp = false;
  bool FinishSentence = false;
  bool UseRepeatHotkeys = false;
  bool UseMyNames = false;
  std::string ConversationsDaysToKeep;
  std::string DebugDaysToKeep;

  SortOrder GenderSort = SortOrder::Contact;
  SortOrder IgnoreSort = SortOrder::Contact;
  SortOrder BuddyNamesSort = SortOrder::Contact;

  ChosenEntry MaleVoice;  // a position in the list is also the number of a voice
  ChosenEntry FemaleVoice;
  std::string DefaultVoice;  // "F" or "M"
  std::string FemaleSpeed;
  std::string MaleSpeed;
  std::string FemaleVolume;
  std::string MaleVolume;

  std::string Online;
  std::string Offline;
  std::string Away;
  std::string Busy;
  std::string Says;

  bool operator==(const SettingsValues&) const = default;
};

}  // namespace brenwick
