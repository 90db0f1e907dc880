#include "pages/SettingsTable.h"

#include "base/ProgramState.h"
#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

using F = frmMain;
using V = SettingsValues;

constexpr int kGeneral = 0;
constexpr int kText = 1;
constexpr int kUser = 2;

constexpr FixedText On() { return {.literal = "1"}; }
constexpr FixedText Off() { return {.literal = "0"}; }
constexpr FixedText Text(std::int16_t id) { return {.id = id}; }
constexpr FixedText Literal(const char* text) { return {.literal = text}; }

SettingRow Box(const char* key, const char* name, CheckBox F::*box, bool V::*value) {
  return {key, name, FlagBox{box, value}};
}

SettingRow Box(const char* key, const char* name, CheckBox F::*box, bool V::*value, int page,
               FixedText reset) {
  return {key, name, FlagBox{box, value}, page, reset};
}

SettingRow Number(const char* key, const char* name, TextBox F::*box, std::string V::*value,
                  const char* empty) {
  return {.key = key,
          .name = name,
          .binding = TypedText{box, value},
          .fallback = Literal(empty),
          .blank = empty};
}

// An emptied phrase is saved as a blank, so that it is not taken for one that was never stored.
SettingRow Phrase(const char* name, TextBox F::*box, std::string V::*value, std::int16_t reset,
                  std::int16_t fallback) {
  return {kTextKey, name, TypedText{box, value}, kText, Text(reset), Text(fallback), " "};
}

SettingRow Reset(int turn, SettingRow row) {
  row.reset_turn = turn;
  return row;
}

SettingRow Later(SettingRow row) {
  row.read_turn = 1;
  return row;
}

const SettingRow kRows[] = {
    Reset(1, Box(kGeneralKey, "Introduce", &F::chkIntroduce, &V::Introduce, kGeneral, On())),
    Reset(2, Box(kGeneralKey, "ShowStartupScreen", &F::chkShowStartupScreen, &V::ShowStartupScreen,
                 kGeneral, On())),
    Reset(4, Box(kGeneralKey, "Debug", &F::chkDebug, &V::Debug, kGeneral, Off())),
    {kGeneralKey, "IntroductionText", TypedText{&F::txtIntroductionText, &V::IntroductionText},
     kGeneral, Text(11), Text(11), " "},
    Box(kGeneralKey, "CheckNewVersionsMessenger", &F::chkNewVersionMessenger,
        &V::CheckNewVersionsMessenger),
    Box(kGeneralKey, "CheckNewVersionsBrenwick", &F::chkNewVersionBrenwick,
        &V::CheckNewVersionsBrenwick),
    {kGeneralKey, "Language", ChosenText{&F::cmbLanguage, &V::Language, true}},
    Reset(3, {kRunKey, kTitle, StartEntry{&F::chkStartWithWindows, &V::StartWithWindows}, kGeneral,
              On()}),

    Reset(3, Box(kUserKey, "IntroduceUser", &F::chkIntroduceUser, &V::IntroduceUser, kUser, On())),
    Reset(1, Box(kUserKey, "NoMessageOnlyUserState", &F::chkDoNotSpeakMessage,
                 &V::NoMessageOnlyUserState, kUser, Off())),
    Reset(0, Box(kUserKey, "NotifyUserState", &F::chkNotifyUserState, &V::NotifyUserState, kUser,
                 On())),
    Reset(5, Box(kUserKey, "FirstName", &F::chkFirstName, &V::FirstName, kUser, On())),
    Reset(2,
          Box(kUserKey, "NotifyNewEmail", &F::chkNotifyNewEmail, &V::NotifyNewEmail, kUser, On())),
    Reset(8, Box(kUserKey, "Mute", &F::chkMute, &V::Mute, kUser, Off())),
    Box(kUserKey, "SaveConversations", &F::chkSaveConversations, &V::SaveConversations),
    Reset(6, Box(kUserKey, "ScrollLock", &F::chkScrollLock, &V::ScrollLock, kUser, On())),
    Box(kUserKey, "ConversationCleanUp", &F::chkLogConversationsCleanUp, &V::ConversationCleanUp),
    Box(kUserKey, "DebugCleanUp", &F::chkLogDebugCleanUp, &V::DebugCleanUp),
    Reset(7,
          Box(kUserKey, "FinishSentence", &F::chkFinishSentence, &V::FinishSentence, kUser, On())),
    // These two are saved before the days to keep and read between them.
    Later(Box(kUserKey, "UseRepeatHotkeys", &F::chkUseRepeat, &V::UseRepeatHotkeys)),
    Reset(4, Later(Box(kUserKey, "UseMyNames", &F::chkUseMyNamesInsteadOfBuddyNames, &V::UseMyNames,
                       kUser, Off()))),
    Number(kUserKey, "ConversationsDaysToKeep", &F::txtLogConversationsDaysToKeep,
           &V::ConversationsDaysToKeep, "7"),
    Later(Number(kUserKey, "DebugDaysToKeep", &F::txtLogDebugDaysToKeep, &V::DebugDaysToKeep, "7")),

    {kGridsKey, "GenderSort",
     SortOptions{&F::optGenderSortEmail, &F::optGenderSortName, &F::optGenderSortContact,
                 &V::GenderSort}},
    {kGridsKey, "IgnoreSort",
     SortOptions{&F::optIgnoreSortEmail, &F::optIgnoreSortName, &F::optIgnoreSortContact,
                 &V::IgnoreSort}},
    {kGridsKey, "BuddyNamesSort",
     SortOptions{&F::optBuddyNamesSortEmail, &F::optBuddyNamesSortName,
                 &F::optBuddyNamesSortContact, &V::BuddyNamesSort}},

    {kVoicesKey, "Male Voice", ChosenText{&F::cmbVoiceMale, &V::MaleVoice}},
    {kVoicesKey, "Female Voice", ChosenText{&F::cmbVoiceFemale, &V::FemaleVoice}},
    Later(
        {kVoicesKey, "Default Voice", VoiceOptions{&F::optFemale, &F::optMale, &V::DefaultVoice}}),
    Number(kVoicesKey, "Female Speed", &F::txtTalkSpeedFemale, &V::FemaleSpeed, "0"),
    Number(kVoicesKey, "Male Speed", &F::txtTalkSpeedMale, &V::MaleSpeed, "0"),
    Number(kVoicesKey, "Female Volume", &F::txtTalkVolumeFemale, &V::FemaleVolume, "100"),
    Number(kVoicesKey, "Male Volume", &F::txtTalkVolumeMale, &V::MaleVolume, "100"),

    Phrase("Online", &F::txtOnline, &V::Online, 30, 30),
    Phrase("Offline", &F::txtOffline, &V::Offline, 31, 31),
    Phrase("Away", &F::txtAway, &V::Away, 32, 32),
    Phrase("Busy", &F::txtBusy, &V::Busy, 33, 33),
    // Its default and its fallback are two different texts, deliberately.
    Phrase("Says", &F::txtSays, &V::Says, 29, 19),
};

}  // namespace

std::span<const SettingRow> SettingsTable() { return kRows; }

}  // namespace brenwick
