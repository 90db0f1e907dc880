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
      log_switches_(log_, log_files_, state_, form_),
      texts_(log_),
      hot_key_notes_(form_, texts_),
      retention_(log_, log_files_, data_, folders, clock, screen, status_, form_,
                 [this](auto text, const auto& days) { return RetentionText(text, days); }),
      registry_(store, folders),
      languages_(log_, form_, texts_, status_, folders, screen, system,
                 [this] { return registry_.ReadText(kGeneralKey, "Language"); }),
      language_key_(log_, form_, status_, folders, loop),
      contacts_(log_, form_, texts_),
      contact_file_(contacts_, data_, folders, clock),
      contact_pages_(log_, form_, screen, contacts_),
      contact_editing_(log_, form_, screen, contacts_, contact_pages_),
      conversations_(log_, messenger),
      buddies_(log_, form_, screen, contacts_,
               [this](const std::string& email) { conversations_.OpenConversation(email); }),
      clean_up_(log_),
      abbreviations_(log_, texts_, status_, data_, folders),
      history_(log_, form_),
      speech_(log_, state_, form_, texts_, clean_up_, history_, status_, voice, screen),
      voice_lists_(log_, form_, voice),
      repeat_hot_keys_(log_, form_, history_, speech_),
      settings_(log_, state_, form_, values_, texts_, status_, registry_, SettingsSteps()),
      settings_buttons_(log_, form_, texts_, screen, folders, registry_, settings_),
      form_texts_(log_, form_, texts_, languages_, status_, screen, FormTextsSteps()),
      name_(form_, contacts_, clean_up_),
      journal_(form_, texts_),
      incoming_(log_, form_, texts_, contacts_, name_, clean_up_, abbreviations_, speech_,
                journal_),
      states_(log_, state_, form_, texts_, contacts_, name_, abbreviations_, speech_),
      invitations_(log_, form_, texts_, contacts_, name_, abbreviations_, speech_, status_, screen),
      events_(log_, incoming_, states_, invitations_),
      version_check_(log_, state_, form_, texts_, status_, registry_, loop, screen, speech_),
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
  form_.CloseWanted = [this] { Close(); };
  form_.mPopExit.Click = [this] { mPopExit_Click(); };
  form_.chkIntroduce.Click = [this] { chkIntroduce_Click(); };
  form_.chkIntroduceUser.Click = [this] { chkIntroduceUser_Click(); };
  form_.chkUseMyNamesInsteadOfBuddyNames.Click = [this] {
    chkUseMyNamesInsteadOfBuddyNames_Click();
  };
  form_.cmdEmoticons.Click = [this] {
    log_.Trap("frmMain", "cmdEmoticons_Click", [&] {
      const BoxAnswer answer =
          screen_.MessageBox(texts_.LoadText(97), kTitle, BoxIcon::Question, BoxButtons::YesNo);
      if (answer == BoxAnswer::Yes) abbreviations_.EmoticonRead(false);
    });
  };
}

// What the rooms below are handed of the rooms above them.

std::string Program::RetentionText(std::int16_t text, const std::string& days) {
  return texts_.GetText(texts_.LoadText(text), days);
}

Settings::Steps Program::SettingsSteps() {
  return {.SetLogCleanTimer = [this] { retention_.SetLogCleanTimer(); },
          .LoadContacts = [this] { contact_file_.Load(); },
          .SaveContacts = [this] { contact_file_.Save(); },
          .UseRepeatHotKeys = [this] { repeat_hot_keys_.UseRepeatHotKeys(); }};
}

FormTexts::Steps Program::FormTextsSteps() {
  return {.AbbreviationsFile = [this] { return abbreviations_.CreateUserFile(); },
          .DefaultTexts = [this] { settings_buttons_.cmdDefaults_Click(1); }};
}

// A loaded window shows itself, unless the start has put it away.
void Program::Start() {
  Form_Load();
  if (form_.State() == WindowState::Normal) window_.ShowAtStart();
}

void Program::chkIntroduce_Click() {
  form_.txtIntroductionText.SetEnabled(form_.chkIntroduce.Ticked());
}

void Program::chkIntroduceUser_Click() {
  form_.chkFirstName.SetEnabled(form_.chkIntroduceUser.Ticked());
}

// An own name can be given only while own names are used.
void Program::chkUseMyNamesInsteadOfBuddyNames_Click() {
  const bool used = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked();
  form_.txtBuddyNamesFriendlyName.SetEnabled(used);
  form_.lblBuddyNamesFriendlyName.SetEnabled(used);
}

}  // namespace brenwick
