// The main window, page by page, control by control, with the captions of design time.
#pragma once

#include <array>
#include <vector>

#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/HotKeyControl.h"
#include "controls/Labels.h"
#include "controls/ListBox.h"
#include "controls/MenuItem.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/Winsock.h"
#include "forms/ConnectionControls.h"
#include "forms/Pages.h"
#include "forms/Window.h"

namespace brenwick {

class frmMain : public Window {
 private:
  Place On(int page) { return {*this, page}; }

  OptionGroup default_voice_;
  OptionGroup buddy_names_sort_;
  OptionGroup ignore_sort_;
  OptionGroup gender_sort_;
  OptionGroup contact_gender_;

 public:
  frmMain();

  // Controls stand on their page in the order in which they are declared here. A label belongs to
  // what follows it, the labels of an array to the boxes of the next.

  // The page list and the pages. A page's frame stands on itself.
  Label lblMenu{On(kNoPage), "lblMenu", "Options"};
  ListBox lstMenu{On(kNoPage), "lstMenu"};
  std::array<Frame, kPageCount> fraPage{{
      {On(kGeneralPage), "fraPage", " General ", 0},
      {On(kSpokenPage), "fraPage", " Spoken ", 1},
      {On(kTextPage), "fraPage", " Text ", 2},
      {On(kVoicesPage), "fraPage", " Voices  ", 3},
      {On(kBuddyNamesPage), "fraPage", " Buddynames ", 4},
      {On(kIgnorePage), "fraPage", "  Ignore ", 5},
      {On(kGenderPage), "fraPage", " Gender", 6},
      {On(kConnectionsPage), "fraPage", " Connections ", 7},
      {On(kSpokenWordsPage), "fraPage", " Spoken words ", 8},
      {On(kSaveSettingsPage), "fraPage", " Save settings ", 9},
      {On(kWebsitePage), "fraPage", " Website", 10},
      {On(kLogOptionsPage), "fraPage", " Log options", 11},
      {On(kRepeatPage), "fraPage", " Repeat ", 12},
      {On(13), "fraPage", "", 13},
      {On(kAboutPage), "fraPage", " About ", 14},
      {On(kContactInfoPage), "fraPage", " Contact info ", 15},
  }};
  Button cmdOK{On(kNoPage), "cmdOK", "OK"};

  // General
  CheckBox chkIntroduce{On(kGeneralPage), "chkIntroduce", "Introduce the Brenwick on startup",
                        true};
  Label lblIntroductionText{On(kGeneralPage), "lblIntroductionText", "Introduction :"};
  TextBox txtIntroductionText{On(kGeneralPage), "txtIntroductionText", "Welcome to the Brenwick."};
  CheckBox chkShowStartupScreen{On(kGeneralPage), "chkShowStartupScreen",
                                "Don't show this dialog on startup", true};
  CheckBox chkStartWithWindows{On(kGeneralPage), "chkStartWithWindows", "Start with Windows"};
  Label lblHotKeyActivateBW{On(kGeneralPage), "lblHotKeyActivateBW", ""};
  Label lblLanguage{On(kGeneralPage), "lblLanguage", "Language :"};
  ComboBox cmbLanguage{On(kGeneralPage), "cmbLanguage"};
  Button cmdLanguage{On(kGeneralPage), "cmdLanguage", "Apply"};
  ComboBox cmbOrgLanguage{On(kGeneralPage), "cmbOrgLanguage"};
  Button cmdOrgLanguage{On(kGeneralPage), "cmdOrgLanguage", "Write language"};

  // Spoken
  CheckBox chkMute{On(kSpokenPage), "chkMute", "Mute"};
  CheckBox chkIntroduceUser{On(kSpokenPage), "chkIntroduceUser", "Introduce user", true};
  CheckBox chkFirstName{On(kSpokenPage), "chkFirstName", "Only say users firstname", true};
  CheckBox chkUseMyNamesInsteadOfBuddyNames{On(kSpokenPage), "chkUseMyNamesInsteadOfBuddyNames",
                                            "Use my own names"};
  CheckBox chkDoNotSpeakMessage{On(kSpokenPage), "chkDoNotSpeakMessage",
                                "Do not speak message, only state"};
  CheckBox chkNotifyUserState{On(kSpokenPage), "chkNotifyUserState",
                              "Notify user state information", true};
  CheckBox chkNotifyNewEmail{On(kSpokenPage), "chkNotifyNewEmail", "Notify me on e-mail arrival",
                             true};
  CheckBox chkFinishSentence{On(kSpokenPage), "chkFinishSentence", "Finish sentence", true};
  CheckBox chkScrollLock{On(kSpokenPage), "chkScrollLock", "Use SCROLL-LOCK to stop speaking",
                         true};
  Label lblHotKeySilent{On(kSpokenPage), "lblHotKeySilent", ""};

  // Text
  Label lblOnline{On(kTextPage), "lblOnline", "Online :"};
  TextBox txtOnline{On(kTextPage), "txtOnline", "is online."};
  Label lblOffline{On(kTextPage), "lblOffline", "Offline :"};
  TextBox txtOffline{On(kTextPage), "txtOffline", "is offline."};
  Label lblAway{On(kTextPage), "lblAway", "Away :"};
  TextBox txtAway{On(kTextPage), "txtAway", "is away."};
  Label lblBusy{On(kTextPage), "lblBusy", "Busy :"};
  TextBox txtBusy{On(kTextPage), "txtBusy", "is busy."};
  Label lblSays{On(kTextPage), "lblSays", "Says :"};
  TextBox txtSays{On(kTextPage), "txtSays", "says"};
  Label lblAbbreviationsFile{On(kTextPage), "lblAbbreviationsFile", ""};
  Label lblAbbreviationsHint{On(kTextPage), "lblAbbreviationsHint", ""};
  Button cmdEmoticons{On(kTextPage), "cmdEmoticons", "Emoticons"};

  // Voices
  Label lblVoicesHint{On(kVoicesPage), "lblVoicesHint", "M is the male voice, F the female one."};
  Frame fraDefaultVoice{On(kVoicesPage), "fraDefaultVoice", "Defaults"};
  OptionButton optMale{On(kVoicesPage), default_voice_, "optMale", "M"};
  OptionButton optFemale{On(kVoicesPage), default_voice_, "optFemale", "F", true};
  Frame fraVoiceMale{On(kVoicesPage), "fraVoiceMale", "M"};
  Label lblVoiceMale{On(kVoicesPage), "lblVoiceMale", "M"};
  ComboBox cmbVoiceMale{On(kVoicesPage), "cmbVoiceMale"};
  Button cmdSpeedTestMale{On(kVoicesPage), "cmdSpeedTestMale", "Test"};
  Label lblTalkSpeedMale{On(kVoicesPage), "lblTalkSpeedMale", "Speed :"};
  TextBox txtTalkSpeedMale{On(kVoicesPage), "txtTalkSpeedMale", "0"};
  Label lblTalkVolumeMale{On(kVoicesPage), "lblTalkVolumeMale", "Volume :"};
  TextBox txtTalkVolumeMale{On(kVoicesPage), "txtTalkVolumeMale", "100"};
  Frame fraVoiceFemale{On(kVoicesPage), "fraVoiceFemale", "F"};
  Label lblVoiceFemale{On(kVoicesPage), "lblVoiceFemale", "F"};
  ComboBox cmbVoiceFemale{On(kVoicesPage), "cmbVoiceFemale"};
  Button cmdSpeedTestFemale{On(kVoicesPage), "cmdSpeedTestFemale", "Test"};
  Label lblTalkSpeedFemale{On(kVoicesPage), "lblTalkSpeedFemale", "Speed :"};
  TextBox txtTalkSpeedFemale{On(kVoicesPage), "txtTalkSpeedFemale", "0"};
  Label lblTalkVolumeFemale{On(kVoicesPage), "lblTalkVolumeFemale", "Volume :"};
  TextBox txtTalkVolumeFemale{On(kVoicesPage), "txtTalkVolumeFemale", "100"};

  // Buddynames
  Label lblBuddyNamesHint{On(kBuddyNamesPage), "lblBuddyNamesHint",
                          "Double-click a contact, or press Space, to edit it."};
  ListBox lstBuddyNames{On(kBuddyNamesPage), "lstBuddyNames", ListBox::Order::Sorted};
  Label lblBuddyNamesSort{On(kBuddyNamesPage), "lblBuddyNamesSort", "Sort by :"};
  OptionButton optBuddyNamesSortContact{On(kBuddyNamesPage), buddy_names_sort_,
                                        "optBuddyNamesSortContact", "Contact", true};
  OptionButton optBuddyNamesSortEmail{On(kBuddyNamesPage), buddy_names_sort_,
                                      "optBuddyNamesSortEmail", "Email"};
  OptionButton optBuddyNamesSortName{On(kBuddyNamesPage), buddy_names_sort_,
                                     "optBuddyNamesSortName", "Name"};

  // Ignore
  Label lblIgnoreHint{On(kIgnorePage), "lblIgnoreHint",
                      "Double-click a contact, or press Space, to ignore it or not."};
  ListBox lstIgnore{On(kIgnorePage), "lstIgnore", ListBox::Order::Sorted};
  Label lblIgnoreSort{On(kIgnorePage), "lblIgnoreSort", "Sort by :"};
  OptionButton optIgnoreSortContact{On(kIgnorePage), ignore_sort_, "optIgnoreSortContact",
                                    "Contact", true};
  OptionButton optIgnoreSortEmail{On(kIgnorePage), ignore_sort_, "optIgnoreSortEmail", "Email"};
  OptionButton optIgnoreSortName{On(kIgnorePage), ignore_sort_, "optIgnoreSortName", "Name"};
  Button cmdSelectAll{On(kIgnorePage), "cmdSelectAll", "Select all"};
  Button cmdClearAll{On(kIgnorePage), "cmdClearAll", "Clear all"};

  // Gender
  Label lblGenderHint{On(kGenderPage), "lblGenderHint",
                      "Double-click a contact, or press Space, to give it the other voice."};
  ListBox lstGender{On(kGenderPage), "lstGender", ListBox::Order::Sorted};
  Label lblGenderSort{On(kGenderPage), "lblGenderSort", "Sort by :"};
  OptionButton optGenderSortContact{On(kGenderPage), gender_sort_, "optGenderSortContact",
                                    "Contact", true};
  OptionButton optGenderSortName{On(kGenderPage), gender_sort_, "optGenderSortName", "Name"};
  OptionButton optGenderSortEmail{On(kGenderPage), gender_sort_, "optGenderSortEmail", "Email"};

  // Spoken words
  ListBox lstMessages{On(kSpokenWordsPage), "lstMessages"};

  // Save settings
  Label lblDocumentsAndSettings{On(kSaveSettingsPage), "lblDocumentsAndSettings",
                                "Your files are in :"};
  TextBox txtDocumentsAndSettings{On(kSaveSettingsPage), "txtDocumentsAndSettings"};
  Button cmdSaveSettings{On(kSaveSettingsPage), "cmdSaveSettings", "Save"};
  Button cmdRemoveSettings{On(kSaveSettingsPage), "cmdRemoveSettings", "Remove"};

  // Website
  Label lblWebSite{On(kWebsitePage), "lblWebSite",
                   "News, help and the newest version are on the website of Brenwick."};
  Button cmdWebSite{On(kWebsitePage), "cmdWebSite", "Website"};
  CheckBox chkNewVersionBrenwick{On(kWebsitePage), "chkNewVersionBrenwick",
                                 "Check for newer Brenwick"};
  CheckBox chkNewVersionMessenger{On(kWebsitePage), "chkNewVersionMessenger",
                                  "Check for newer Windows Messenger"};
  Label lblWebVersion{On(kWebsitePage), "lblWebVersion", "Newest version :"};
  TextBox txtWebVersion{On(kWebsitePage), "txtWebVersion"};
  Button cmdUpdate{On(kWebsitePage), "cmdUpdate", "Check now"};
  Label lblWinSockStatus{On(kWebsitePage), "lblWinSockStatus", "Connection :"};
  TextBox txtWinSockStatus{On(kWebsitePage), "txtWinSockStatus"};

  // Log options
  CheckBox chkSaveConversations{On(kLogOptionsPage), "chkSaveConversations", "Log conversations"};
  CheckBox chkLogConversationsCleanUp{On(kLogOptionsPage), "chkLogConversationsCleanUp",
                                      "Automatically delete conversation logs", true};
  Label lblLogConversationsDaysToKeep{On(kLogOptionsPage), "lblLogConversationsDaysToKeep",
                                      "Days to keep :"};
  TextBox txtLogConversationsDaysToKeep{On(kLogOptionsPage), "txtLogConversationsDaysToKeep", "7"};
  CheckBox chkDebug{On(kLogOptionsPage), "chkDebug", "Debug to logfile"};
  CheckBox chkLogDebugCleanUp{On(kLogOptionsPage), "chkLogDebugCleanUp",
                              "Automatically delete debug logs", true};
  Label lblLogDebugDaysToKeep{On(kLogOptionsPage), "lblLogDebugDaysToKeep", "Days to keep :"};
  TextBox txtLogDebugDaysToKeep{On(kLogOptionsPage), "txtLogDebugDaysToKeep", "7"};

  // Repeat
  CheckBox chkUseRepeat{On(kRepeatPage), "chkUseRepeat", "Use repeat hotkeys", true};
  Label lblHotKeyRepeat{On(kRepeatPage), "lblHotKeyRepeat", ""};
  std::array<Label, 4> lblSpokenMessages{{
      {On(kRepeatPage), "lblSpokenMessages", "Ctrl+Shift+1", 0},
      {On(kRepeatPage), "lblSpokenMessages", "Ctrl+Shift+2", 1},
      {On(kRepeatPage), "lblSpokenMessages", "Ctrl+Shift+3", 2},
      {On(kRepeatPage), "lblSpokenMessages", "Ctrl+Shift+4", 3},
  }};
  std::array<TextBox, 4> txtSpokenMessages{{
      {On(kRepeatPage), "txtSpokenMessages", "", 0},
      {On(kRepeatPage), "txtSpokenMessages", "", 1},
      {On(kRepeatPage), "txtSpokenMessages", "", 2},
      {On(kRepeatPage), "txtSpokenMessages", "", 3},
  }};

  // About
  Label lblAbout{On(kAboutPage), "lblAbout", ""};

  // Contact info
  Label lblBuddyNamesName{On(kContactInfoPage), "lblBuddyNamesName", "MSN Name"};
  TextBox txtBuddyNamesName{On(kContactInfoPage), "txtBuddyNamesName"};
  Label lblBuddyNamesEmail{On(kContactInfoPage), "lblBuddyNamesEmail", "Email"};
  TextBox txtBuddyNamesEmail{On(kContactInfoPage), "txtBuddyNamesEmail"};
  Label lblBuddyNamesFriendlyName{On(kContactInfoPage), "lblBuddyNamesFriendlyName", "My Name"};
  TextBox txtBuddyNamesFriendlyName{On(kContactInfoPage), "txtBuddyNamesFriendlyName"};
  Label lblBuddyNamesStatus{On(kContactInfoPage), "lblBuddyNamesStatus", "Status"};
  TextBox txtBuddyNamesStatus{On(kContactInfoPage), "txtBuddyNamesStatus"};
  CheckBox chkBuddyNamesIgnore{On(kContactInfoPage), "chkBuddyNamesIgnore", "Ignore"};
  Label lblBuddyNamesGender{On(kContactInfoPage), "lblBuddyNamesGender", "Gender"};
  OptionButton optBuddyNamesMale{On(kContactInfoPage), contact_gender_, "optBuddyNamesMale",
                                 "Male"};
  OptionButton optBuddyNamesFemale{On(kContactInfoPage), contact_gender_, "optBuddyNamesFemale",
                                   "Female"};
  Button cmdBuddyNamesOK{On(kContactInfoPage), "cmdBuddyNamesOK", "OK", -1, Button::Key::Enter};
  Button cmdBuddyNamesCancel{On(kContactInfoPage), "cmdBuddyNamesCancel", "Cancel", -1,
                             Button::Key::Escape};
  Button cmdBuddyNamesDelete{On(kContactInfoPage), "cmdBuddyNamesDelete", "Delete"};

  // Connections: where messages come from and what speaks, each with its state and its trial
  std::array<ConnectionControls, 3> Sources{{
      {On(kConnectionsPage), "Source", 0},
      {On(kConnectionsPage), "Source", 1},
      {On(kConnectionsPage), "Source", 2},
  }};
  CheckBox chkGroupChats{On(kConnectionsPage), "chkGroupChats", "Read group chats aloud"};
  std::array<ConnectionControls, 2> Engines{{
      {On(kConnectionsPage), "Engine", 0},
      {On(kConnectionsPage), "Engine", 1},
  }};
  Label lblApplications{On(kConnectionsPage), "lblApplications",
                        "Applications that showed notifications. Double-click one, or press "
                        "Space, to hear it or not."};
  ListBox lstApplications{On(kConnectionsPage), "lstApplications"};
  Label lblJournal{On(kConnectionsPage), "lblJournal", "What became of the last messages :"};
  ListBox lstJournal{On(kConnectionsPage), "lstJournal"};

  // Back to the defaults: on General, Text and Spoken, numbered by what they reset.
  std::array<Button, 3> cmdDefaults{{
      {On(kGeneralPage), "cmdDefaults", "Defaults", 0},
      {On(kTextPage), "cmdDefaults", "Defaults", 1},
      {On(kSpokenPage), "cmdDefaults", "Defaults", 2},
  }};

  // The tray icon's menu, mPopupSys, in the order of its items
  MenuItem mPopupSys{*this, "mPopupSys", "&SysTray"};
  MenuItem mnuMute{*this, "mnuMute", "&Mute"};
  MenuItem mnuSeparator{*this, "mnuSeparator", "-"};
  MenuItem mnuBuddies{*this, "mnuBuddies", "Buddies"};
  MenuItemArray mnuBuddiesOnLine{*this, "mnuBuddiesOnLine", "OffLine"};
  MenuItem mPopRestore{*this, "mPopRestore", "&Restore"};
  MenuItem mPopExit{*this, "mPopExit", "&Exit"};

  // The items of mPopupSys and of mnuBuddies, in order; none for any other item.
  std::vector<MenuItem*> ItemsOf(const MenuItem& menu);

  // The program wants the tray menu at the cursor.
  Observers<> PopupMenuWanted;

  // Timers
  Timer tmrSayStateAgain{*this, "tmrSayStateAgain", 1000, false};
  Timer tmrOnceADay{*this, "tmrOnceADay", 60000, true};

  // Hotkeys: Scroll Lock; Ctrl+Shift+T; Ctrl+Shift+1 to 4
  HotKeyControl ocxHotKeySilent{*this, "ocxHotKeySilent", {.vkey = 0x91}, false};
  HotKeyControl ocxHotKeyActivateBW{
      *this, "ocxHotKeyActivateBW", {.vkey = 0x54, .ctrlkey = true, .shiftkey = true}, true};
  std::array<HotKeyControl, 4> ocxSpeakMsg1{{
      {*this, "ocxSpeakMsg1", {.vkey = 0x31, .ctrlkey = true, .shiftkey = true}, true, 0},
      {*this, "ocxSpeakMsg1", {.vkey = 0x32, .ctrlkey = true, .shiftkey = true}, true, 1},
      {*this, "ocxSpeakMsg1", {.vkey = 0x33, .ctrlkey = true, .shiftkey = true}, true, 2},
      {*this, "ocxSpeakMsg1", {.vkey = 0x34, .ctrlkey = true, .shiftkey = true}, true, 3},
  }};

  // The socket of the version check
  Winsock wscHttp{*this, "wscHttp"};
};

}  // namespace brenwick
