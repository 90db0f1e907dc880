// The whole program, put together: the one place that knows every room.
#pragma once

#include <string>

#include "base/ProgramState.h"
#include "contacts/ContactFile.h"
#include "contacts/ContactList.h"
#include "forms/frmMain.h"
#include "language/LanguageKey.h"
#include "language/Languages.h"
#include "language/TextTable.h"
#include "logging/DataFolder.h"
#include "logging/ErrorReport.h"
#include "logging/LogFiles.h"
#include "logging/LogRetention.h"
#include "logging/Logs.h"
#include "messenger/ContactStates.h"
#include "messenger/Conversations.h"
#include "messenger/IncomingText.h"
#include "messenger/Invitations.h"
#include "messenger/MessageJournal.h"
#include "messenger/MessengerEvents.h"
#include "messenger/SpokenName.h"
#include "pages/BuddiesMenu.h"
#include "pages/ConnectionsPage.h"
#include "pages/ContactEditing.h"
#include "pages/ContactPages.h"
#include "pages/FormTexts.h"
#include "pages/GeneralPage.h"
#include "pages/HotKeyNotes.h"
#include "pages/LogOptionsPage.h"
#include "pages/MainWindow.h"
#include "pages/RepeatPage.h"
#include "pages/Settings.h"
#include "pages/SettingsBinding.h"
#include "pages/SettingsButtons.h"
#include "pages/SpokenPage.h"
#include "pages/SpokenWordsPage.h"
#include "pages/StatusWindow.h"
#include "pages/TextPage.h"
#include "pages/TypeAhead.h"
#include "pages/VoicesPage.h"
#include "pages/WebsitePage.h"
#include "pages/cMousePointer.h"
#include "platform/Clock.h"
#include "platform/Connections.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"
#include "platform/MessengerClient.h"
#include "platform/RegistryStore.h"
#include "platform/Screen.h"
#include "platform/SpVoice.h"
#include "platform/System.h"
#include "platform/TrayIcon.h"
#include "settings/Registry.h"
#include "settings/SettingsKeys.h"
#include "settings/SettingsValues.h"
#include "speech/Abbreviations.h"
#include "speech/Speech.h"
#include "speech/SpokenHistory.h"
#include "speech/TextCleanUp.h"
#include "web/VersionCheck.h"
#include "web/WebAccess.h"

namespace brenwick {

class Program {
 public:
  // A world hands in its implementations; they outlive the program. Nothing happens yet: the world
  // attaches its views to Form() and Status(), then calls Start.
  Program(MessengerClient& messenger, SpVoice& voice, Connections& connections,
          RegistryStore& store, Screen& screen, TrayIcon& tray, EventLoop& loop, Clock& clock,
          Folders& folders, System& system);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  // Loads the main window, which is the program's start-up. Throws ProgramEnd when the program ends
  // on the way; so may every event and every user's action afterwards.
  void Start();
  // Unloads the main window, which is its shutdown, and throws ProgramEnd.
  void Close();

  frmMain& Form() { return form_; }
  StatusWindow& Status() { return status_; }
  const ProgramState& State() const { return state_; }

 private:
  void WireForm();
  std::string RetentionText(std::int16_t text, const std::string& days);
  Settings::Steps SettingsSteps();

  void Form_Load();
  void TakeStartSteps();
  void StartFailed(std::int32_t number);
  void FindDebugSwitch();
  void EndWhenAlreadyRunning();
  void ShowWhatIsStarting();
  void PrepareForm();
  void ReadLanguages();
  void ReadSettings();
  void CreateMessengerAndVoice();
  void BuildVoiceLists();
  void SelectStoredVoice(const char* gender, const char* name, ComboBox& list);
  void CheckMessengerState();
  void PreparePages();
  void AddTrayIcon();
  void ShowOSVersion();
  void SpeakIntroduction();
  void FinishStart();
  void Startup(const std::string& step);
  void ShowProgress(std::int16_t text);

  void mPopExit_Click();
  void UnloadMainWindow();
  void Release(const char* procedure);

  MessengerClient& messenger_;
  Screen& screen_;
  TrayIcon& tray_;
  EventLoop& loop_;
  Folders& folders_;
  System& system_;

  ProgramState state_;
  SettingsValues values_;
  frmMain form_;
  SettingsBinding binding_;
  cMousePointer pointer_;
  StatusWindow status_;
  DataFolder data_;
  LogFiles log_files_;
  ErrorReport report_;
  Logs log_;
  TextTable texts_;
  HotKeyNotes hot_key_notes_;
  LogRetention retention_;
  LogOptionsPage log_options_page_;
  Registry registry_;
  LanguageLists language_lists_;
  Languages languages_;
  LanguageKey language_key_;
  ContactList contacts_;
  ContactFile contact_file_;
  ContactPages contact_pages_;
  ContactEditing contact_editing_;
  Conversations conversations_;
  BuddiesMenu buddies_;
  TextCleanUp clean_up_;
  Abbreviations abbreviations_;
  TextPage text_page_;
  SpokenHistory history_;
  Speech speech_;
  SpokenWordsPage spoken_words_page_;
  SpokenPage spoken_page_;
  VoicesPage voices_page_;
  RepeatPage repeat_page_;
  Settings settings_;
  SettingsButtons settings_buttons_;
  FormTexts form_texts_;
  GeneralPage general_page_;
  SpokenName name_;
  MessageJournal journal_;
  IncomingText incoming_;
  ContactStates states_;
  Invitations invitations_;
  MessengerEvents events_;
  WebsiteControls website_controls_;
  WebAccess web_access_;
  VersionCheck version_check_;
  WebsitePage website_page_;
  MainWindow window_;
  ConnectionsPage connections_page_;
  TypeAhead type_ahead_;
};

}  // namespace brenwick
