#include "pages/FormTextTable.h"

#include <cstddef>

#include "language/GetText.h"

namespace brenwick {
namespace {

using F = frmMain;

template <auto Member>
void Caption(F& form, const std::string& text) {
  (form.*Member).SetCaption(text);
}

template <auto Member>
void Tip(F& form, const std::string& text) {
  (form.*Member).SetToolTip(text);
}

template <auto Member, std::size_t Index>
void Element(F& form, const std::string& text) {
  (form.*Member)[Index].SetCaption(text);
}

template <std::size_t Index>
void RepeatKey(F& form, const std::string& text) {
  form.lblSpokenMessages[Index].SetCaption(GetText(text, std::to_string(Index + 1)));
}

template <auto Member, std::size_t Index>
void Trial(F& form, const std::string& text) {
  (form.*Member)[Index].cmdTest.SetCaption(text);
}

void Introduction(F& form, const std::string& text) { form.txtIntroductionText.SetText(text); }

constexpr FormText kTexts[] = {
    // The frames of the pages
    {17, Element<&F::fraPage, kGeneralPage>},
    {18, Element<&F::fraPage, kSpokenPage>},
    {19, Element<&F::fraPage, kTextPage>},
    {115, Element<&F::fraPage, kVoicesPage>},
    {154, Element<&F::fraPage, kBuddyNamesPage>},
    {42, Element<&F::fraPage, kIgnorePage>},
    {120, Element<&F::fraPage, kGenderPage>},
    {186, Element<&F::fraPage, kConnectionsPage>},
    {7, Element<&F::fraPage, kSpokenWordsPage>},
    {153, Element<&F::fraPage, kSaveSettingsPage>},
    {142, Element<&F::fraPage, kWebsitePage>},
    {146, Element<&F::fraPage, kLogOptionsPage>},
    {151, Element<&F::fraPage, kRepeatPage>},
    {6, Element<&F::fraPage, kAboutPage>},
    {41, Element<&F::fraPage, kContactInfoPage>},
    {8, Caption<&F::lblMenu>},
    {157, Caption<&F::cmdOK>},

    // General
    {20, Caption<&F::chkIntroduce>},
    {12, Caption<&F::lblIntroductionText>},
    {11, Introduction},
    {21, Caption<&F::chkShowStartupScreen>},
    {22, Caption<&F::chkStartWithWindows>},
    {99, Caption<&F::cmdOrgLanguage>},
    {15, Element<&F::cmdDefaults, 0>},

    // Spoken
    {28, Caption<&F::chkMute>},
    {23, Caption<&F::chkIntroduceUser>},
    {26, Caption<&F::chkFirstName>},
    {98, Caption<&F::chkUseMyNamesInsteadOfBuddyNames>},
    {24, Caption<&F::chkDoNotSpeakMessage>},
    {25, Caption<&F::chkNotifyUserState>},
    {27, Caption<&F::chkNotifyNewEmail>},
    {34, Caption<&F::chkFinishSentence>},
    {45, Caption<&F::chkScrollLock>},
    {15, Element<&F::cmdDefaults, 2>},

    // Text
    {118, Caption<&F::lblOnline>},
    {119, Caption<&F::lblOffline>},
    {139, Caption<&F::lblAway>},
    {141, Caption<&F::lblBusy>},
    {143, Caption<&F::lblSays>},
    {66, Caption<&F::cmdEmoticons>},
    {101, Caption<&F::lblAbbreviationsHint>},
    {15, Element<&F::cmdDefaults, 1>},

    // Voices
    {181, Caption<&F::lblVoicesHint>},
    {15, Caption<&F::fraDefaultVoice>},
    {116, Caption<&F::optMale>},
    {117, Caption<&F::optFemale>},
    {116, Caption<&F::fraVoiceMale>},
    {116, Caption<&F::lblVoiceMale>},
    {122, Caption<&F::lblTalkSpeedMale>},
    {123, Tip<&F::txtTalkSpeedMale>},
    {145, Caption<&F::lblTalkVolumeMale>},
    {124, Tip<&F::txtTalkVolumeMale>},
    {65, Caption<&F::cmdSpeedTestMale>},
    {117, Caption<&F::fraVoiceFemale>},
    {117, Caption<&F::lblVoiceFemale>},
    {122, Caption<&F::lblTalkSpeedFemale>},
    {123, Tip<&F::txtTalkSpeedFemale>},
    {145, Caption<&F::lblTalkVolumeFemale>},
    {124, Tip<&F::txtTalkVolumeFemale>},
    {65, Caption<&F::cmdSpeedTestFemale>},

    // The contact lists
    {184, Caption<&F::lblBuddyNamesHint>},
    {183, Caption<&F::lblIgnoreHint>},
    {182, Caption<&F::lblGenderHint>},
    {37, Caption<&F::lblBuddyNamesSort>},
    {37, Caption<&F::lblIgnoreSort>},
    {37, Caption<&F::lblGenderSort>},
    {155, Caption<&F::optBuddyNamesSortContact>},
    {166, Caption<&F::optBuddyNamesSortEmail>},
    {169, Caption<&F::optBuddyNamesSortName>},
    {155, Caption<&F::optIgnoreSortContact>},
    {166, Caption<&F::optIgnoreSortEmail>},
    {169, Caption<&F::optIgnoreSortName>},
    {35, Caption<&F::cmdSelectAll>},
    {36, Caption<&F::cmdClearAll>},
    {155, Caption<&F::optGenderSortContact>},
    {169, Caption<&F::optGenderSortName>},
    {166, Caption<&F::optGenderSortEmail>},

    // Contact info: the display name is what "Contact" sorts by, the user's own what "Name" does
    {155, Caption<&F::lblBuddyNamesName>},
    {166, Caption<&F::lblBuddyNamesEmail>},
    {169, Caption<&F::lblBuddyNamesFriendlyName>},
    {164, Caption<&F::lblBuddyNamesStatus>},
    {173, Caption<&F::chkBuddyNamesIgnore>},
    {120, Caption<&F::lblBuddyNamesGender>},
    {116, Caption<&F::optBuddyNamesMale>},
    {117, Caption<&F::optBuddyNamesFemale>},
    {157, Caption<&F::cmdBuddyNamesOK>},
    {158, Caption<&F::cmdBuddyNamesCancel>},
    {159, Caption<&F::cmdBuddyNamesDelete>},

    // Save settings, Website
    {179, Caption<&F::lblDocumentsAndSettings>},
    {144, Caption<&F::cmdSaveSettings>},
    {16, Caption<&F::cmdRemoveSettings>},
    {180, Caption<&F::lblWebSite>},
    {142, Caption<&F::cmdWebSite>},
    {46, Caption<&F::chkNewVersionBrenwick>},
    {76, Caption<&F::chkNewVersionMessenger>},
    {177, Caption<&F::lblWebVersion>},
    {178, Caption<&F::lblWinSockStatus>},
    {77, Caption<&F::cmdUpdate>},

    // Log options, Repeat
    {152, Caption<&F::chkSaveConversations>},
    {160, Caption<&F::chkLogConversationsCleanUp>},
    {147, Caption<&F::lblLogConversationsDaysToKeep>},
    {150, Caption<&F::chkDebug>},
    {161, Caption<&F::chkLogDebugCleanUp>},
    {147, Caption<&F::lblLogDebugDaysToKeep>},
    {162, Caption<&F::chkUseRepeat>},
    {185, RepeatKey<0>},
    {185, RepeatKey<1>},
    {185, RepeatKey<2>},
    {185, RepeatKey<3>},

    // Connections
    {187, Caption<&F::chkGroupChats>},
    {188, Caption<&F::lblApplications>},
    {189, Caption<&F::lblJournal>},
    {65, Trial<&F::Sources, 0>},
    {65, Trial<&F::Sources, 1>},
    {65, Trial<&F::Sources, 2>},
    {65, Trial<&F::Engines, 0>},
    {65, Trial<&F::Engines, 1>},

    // The tray menu
    {13, Caption<&F::mnuMute>},
    {105, Caption<&F::mnuBuddies>},
    {104, Caption<&F::mPopRestore>},
    {103, Caption<&F::mPopExit>},
};

}  // namespace

std::span<const FormText> FormTextTable() { return kTexts; }

}  // namespace brenwick
