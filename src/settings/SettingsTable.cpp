#include "settings/SettingsTable.h"

#include "base/ProgramState.h"

namespace brenwick {
namespace {

using F = frmMain;

constexpr int kGeneral = 0;
constexpr int kText = 1;
constexpr int kUser = 2;

constexpr FixedText On() { return {.literal = "1"}; }
constexpr FixedText Off() { return {.literal = "0"}; }
constexpr FixedText Text(std::int16_t id) { return {.id = id}; }
constexpr FixedText Literal(const char* text) { return {.literal = text}; }

SettingRow Box(const char* key, const char* name, CheckBox F::*box) { return {key, name, box}; }

SettingRow Box(const char* key, const char* name, CheckBox F::*box, int page, FixedText reset) {
  return {key, name, box, page, reset};
}

SettingRow Number(const char* key, const char* name, TextBox F::*box, const char* empty) {
  return {.key = key, .name = name, .control = box, .fallback = Literal(empty), .blank = empty};
}

// An emptied phrase is saved as a blank, so that it is not taken for one that was never stored.
SettingRow Phrase(const char* name, TextBox F::*box, std::int16_t reset, std::int16_t fallback) {
  return {kTextKey, name, box, kText, Text(reset), Text(fallback), " "};
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
    Reset(1, Box(kGeneralKey, "Introduce", &F::chkIntroduce, kGeneral, On())),
    Reset(2, Box(kGeneralKey, "ShowStartupScreen", &F::chkShowStartupScreen, kGeneral, On())),
    Reset(4, Box(kGeneralKey, "Debug", &F::chkDebug, kGeneral, Off())),
    {kGeneralKey, "IntroductionText", &F::txtIntroductionText, kGeneral, Text(11), Text(11), " "},
    Box(kGeneralKey, "CheckNewVersionsMessenger", &F::chkNewVersionMessenger),
    Box(kGeneralKey, "CheckNewVersionsBrenwick", &F::chkNewVersionBrenwick),
    {kGeneralKey, "Language", ChosenText{&F::cmbLanguage, true}},
    Reset(3, {kRunKey, kTitle, StartEntry{}, kGeneral, On()}),

    Reset(3, Box(kUserKey, "IntroduceUser", &F::chkIntroduceUser, kUser, On())),
    Reset(1, Box(kUserKey, "NoMessageOnlyUserState", &F::chkDoNotSpeakMessage, kUser, Off())),
    Reset(0, Box(kUserKey, "NotifyUserState", &F::chkNotifyUserState, kUser, On())),
    Reset(5, Box(kUserKey, "FirstName", &F::chkFirstName, kUser, On())),
    Reset(2, Box(kUserKey, "NotifyNewEmail", &F::chkNotifyNewEmail, kUser, On())),
    Reset(8, Box(kUserKey, "Mute", &F::chkMute, kUser, Off())),
    Box(kUserKey, "SaveConversations", &F::chkSaveConversations),
    Reset(6, Box(kUserKey, "ScrollLock", &F::chkScrollLock, kUser, On())),
    Box(kUserKey, "ConversationCleanUp", &F::chkLogConversationsCleanUp),
    Box(kUserKey, "DebugCleanUp", &F::chkLogDebugCleanUp),
    Reset(7, Box(kUserKey, "FinishSentence", &F::chkFinishSentence, kUser, On())),
    // These two are saved before the days to keep and read between them.
    Later(Box(kUserKey, "UseRepeatHotkeys", &F::chkUseRepeat)),
    Reset(4,
          Later(Box(kUserKey, "UseMyNames", &F::chkUseMyNamesInsteadOfBuddyNames, kUser, Off()))),
    Number(kUserKey, "ConversationsDaysToKeep", &F::txtLogConversationsDaysToKeep, "7"),
    Later(Number(kUserKey, "DebugDaysToKeep", &F::txtLogDebugDaysToKeep, "7")),

    {kGridsKey, "GenderSort",
     SortOptions{&F::optGenderSortEmail, &F::optGenderSortName, &F::optGenderSortContact}},
    {kGridsKey, "IgnoreSort",
     SortOptions{&F::optIgnoreSortEmail, &F::optIgnoreSortName, &F::optIgnoreSortContact}},
    {kGridsKey, "BuddyNamesSort",
     SortOptions{&F::optBuddyNamesSortEmail, &F::optBuddyNamesSortName,
                 &F::optBuddyNamesSortContact}},

    {kVoicesKey, "Male Voice", ChosenText{&F::cmbVoiceMale}},
    {kVoicesKey, "Female Voice", ChosenText{&F::cmbVoiceFemale}},
    Later({kVoicesKey, "Default Voice", DefaultVoiceOptions{}}),
    Number(kVoicesKey, "Female Speed", &F::txtTalkSpeedFemale, "0"),
    Number(kVoicesKey, "Male Speed", &F::txtTalkSpeedMale, "0"),
    Number(kVoicesKey, "Female Volume", &F::txtTalkVolumeFemale, "100"),
    Number(kVoicesKey, "Male Volume", &F::txtTalkVolumeMale, "100"),

    Phrase("Online", &F::txtOnline, 30, 30),
    Phrase("Offline", &F::txtOffline, 31, 31),
    Phrase("Away", &F::txtAway, 32, 32),
    Phrase("Busy", &F::txtBusy, 33, 33),
    // Its default and its fallback are two different texts, deliberately.
    Phrase("Says", &F::txtSays, 29, 19),
};

}  // namespace

std::span<const SettingRow> SettingsTable() { return kRows; }

}  // namespace brenwick
