#include "app/Program.h"

namespace brenwick {

Program::Program(MessengerClient& messenger, SpVoice& voice, Connections& connections,
                 RegistryStore& store, Screen& screen, TrayIcon& tray, EventLoop& loop,
                 Clock& clock, Folders& folders, System& system)
    : messenger_(messenger),
      screen_(screen),
      tray_(tray),
      loop_(loop),
      folders_(folders),
      system_(system),
      binding_(form_, values_),
      pointer_(screen),
      status_(pointer_, loop, system),
      data_(folders),
      log_files_(data_, folders, clock),
      report_(state_, log_files_, status_, screen),
      log_(state_, log_files_, report_),
      texts_(log_),
      hot_key_notes_(form_, texts_),
      retention_(log_, log_files_, data_, folders, clock, status_,
                 {values_.ConversationCleanUp, values_.ConversationsDaysToKeep},
                 {values_.DebugCleanUp, values_.DebugDaysToKeep},
                 [this](auto text, const auto& days) { return RetentionText(text, days); }),
      log_options_page_(log_, log_files_, state_, form_, screen, retention_),
      registry_(store, folders),
      language_lists_(form_),
      languages_(log_, language_lists_, texts_, status_, folders, screen, system,
                 [this] { return registry_.ReadText(kGeneralKey, "Language"); }),
      language_key_(log_, status_, folders, loop),
      contacts_(log_, values_, texts_),
      contact_file_(contacts_, data_, folders, clock),
      contact_pages_(log_, form_, screen, contacts_),
      contact_editing_(log_, form_, screen, contacts_, contact_pages_),
      conversations_(log_, messenger),
      buddies_(log_, form_, screen, contacts_,
               [this](const std::string& email) { conversations_.OpenConversation(email); }),
      clean_up_(log_),
      abbreviations_(log_, texts_, status_, data_, folders),
      text_page_(log_, form_, texts_, screen, abbreviations_),
      history_(log_),
      speech_(log_, state_, values_, texts_, clean_up_, abbreviations_, history_, status_, voice),
      spoken_words_page_(form_, speech_),
      spoken_page_(log_, form_, speech_),
      voices_page_(log_, form_, voice, screen, speech_),
      repeat_page_(log_, form_, history_, speech_),
      settings_(log_, state_, form_, values_, texts_, status_, registry_, SettingsSteps()),
      settings_buttons_(log_, form_, texts_, screen, settings_),
      form_texts_(log_, form_, texts_, languages_, status_,
                  [this] { return abbreviations_.CreateUserFile(); }),
      general_page_(log_, form_, texts_, screen, folders, registry_, form_texts_, language_key_,
                    [this] { settings_buttons_.cmdDefaults_Click(1); }),
      name_(values_, contacts_, clean_up_),
      journal_(texts_, [this](const std::string& line) { connections_page_.AddToJournal(line); }),
      incoming_(log_, values_, texts_, contacts_, name_, clean_up_, speech_, journal_),
      states_(log_, state_, values_, texts_, contacts_, name_, speech_),
      invitations_(log_, values_, texts_, contacts_, name_, speech_, status_, screen),
      events_(log_, incoming_, states_, invitations_),
      website_controls_(form_),
      web_access_(log_, texts_, status_, website_controls_, website_controls_),
      version_check_(log_, state_, values_, texts_, status_, registry_, loop, screen, speech_,
                     web_access_, website_controls_),
      website_page_(form_, version_check_),
      window_(log_, state_, form_, texts_, tray, registry_, contact_pages_, buddies_, states_),
      connections_page_(log_, form_, texts_, connections, speech_),
      type_ahead_(
          log_, screen,
          {&form_.cmbVoiceMale, &form_.cmbVoiceFemale, &form_.cmbLanguage, &form_.cmbOrgLanguage}) {
  WireForm();
}

// The client's side must not call into what is gone.
Program::~Program() {
  messenger_.Detach();
  tray_.MouseMessage = nullptr;
}

void Program::WireForm() {
  report_.UnloadWindows = [this] { UnloadMainWindow(); };
  states_.ShowTitle = [this](const std::string& title) { window_.ShowTitle(title); };
  states_.AfterOwnState = [this] { version_check_.CheckAutomatically(); };
  website_controls_.Serve(web_access_);
  version_check_.HandleMessages = [this] { messenger_.HandleWaiting(); };
  form_.CloseWanted = [this] { Close(); };
  form_.mPopExit.Click = [this] { mPopExit_Click(); };
}

// The steps that the rooms below take in the rooms above them.

std::string Program::RetentionText(std::int16_t text, const std::string& days) {
  return texts_.GetText(texts_.LoadText(text), days);
}

Settings::Steps Program::SettingsSteps() {
  return {.SetLogCleanTimer = [this] { retention_.SetLogCleanTimer(); },
          .LoadContacts = [this] { contact_file_.Load(); },
          .SaveContacts = [this] { contact_file_.Save(); },
          .UseRepeatHotKeys = [this] { repeat_page_.UseRepeatHotKeys(); }};
}

// A loaded window shows itself, unless the start has put it away.
void Program::Start() {
  Form_Load();
  if (form_.State() == WindowState::Normal) window_.ShowAtStart();
}

}  // namespace brenwick
