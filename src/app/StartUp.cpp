// The start-up sequence. Its order counts: each step relies on those before it.
#include "app/Program.h"
#include "base/Text.h"
#include "messenger/StatePhrases.h"

namespace brenwick {
namespace {

constexpr const char* kProcedure = "Form_Load";
// A failure of this number ends the start with a message of its own.
constexpr std::int32_t kToldApart = 12345;

}  // namespace

void Program::Form_Load() {
  log_.Trap("frmMain", kProcedure, [&] {
    try {
      TakeStartSteps();
    } catch (const Failure& failure) {
      StartFailed(failure.Number());
      throw;
    } catch (const std::exception&) {
      StartFailed(kInvalidCall);
      throw;
    }
  });
}

void Program::TakeStartSteps() {
  FindDebugSwitch();
  history_.Clear();
  form_.txtDocumentsAndSettings.SetText(data_.Path());
  data_.Create();
  Startup(" ");
  Startup("Startup - Initializing " + VersionText());
  EndWhenAlreadyRunning();
  ShowWhatIsStarting();
  PrepareForm();
  ReadLanguages();
  ReadSettings();
  CreateMessengerAndVoice();
  BuildVoiceLists();
  CheckMessengerState();
  PreparePages();
  AddTrayIcon();
  Startup("Startup - Voice : setting flags");
  ShowProgress(96);
  spoken_page_.chkFinishSentence_Click();
  ShowOSVersion();
  SpeakIntroduction();
  FinishStart();
}

void Program::StartFailed(std::int32_t number) {
  Startup("Startup - Error in formload :" + std::to_string(number));
  if (number != kToldApart) return;
  status_.StatusForm(false);
  screen_.MessageBox(texts_.GetText(texts_.LoadText(50), kTitle) + "\r\n" +
                         texts_.GetText(texts_.LoadText(51), kTitle),
                     kTitle, BoxIcon::Information, BoxButtons::Ok);
  throw ProgramEnd{};
}

// Debugging is on from the start; only the box of its own switches it off.
void Program::FindDebugSwitch() {
  state_.Debug =
      UpperCase(system_.CommandLine()) == "/DEBUG" || folders_.FileExists(data_.DebugMarker());
  state_.Debug = true;
  state_.ClosingDown = false;
}

void Program::EndWhenAlreadyRunning() {
  if (!system_.PreviousInstance()) return;
  Startup("Already active, terminating");
  throw ProgramEnd{};
}

void Program::ShowWhatIsStarting() {
  pointer_.SetHourglass(true);
  status_.StatusForm(true, "Initializing...");
}

void Program::PrepareForm() {
  const bool developing = system_.DevelopmentEnvironment();
  form_.cmbOrgLanguage.SetVisible(developing);
  form_.cmdOrgLanguage.SetVisible(developing);
  Startup("Startup - Form position");
  window_.RestorePlace();
  form_.lstMessages.Clear();
  form_.cmbVoiceMale.Clear();
  form_.cmbVoiceFemale.Clear();
}

void Program::ReadLanguages() {
  const char separator = folders_.Separator();
  Startup("Startup - Building language list from " + folders_.ProgramFolder() + separator +
          "Languages" + separator);
  languages_.LanguageRead();
  general_page_.NameLanguageList();
  // Before the settings, so that what the user changed wins over the language's own texts.
  form_texts_.SetAlltext(true);
}

void Program::ReadSettings() {
  Startup("Startup - Reading all other settings from registry");
  settings_.GetAllSettings();
  ShowProgress(87);
  Startup("Startup - Setting form text");
}

void Program::CreateMessengerAndVoice() {
  Startup("Startup - Initialize Messenger object");
  ShowProgress(90);
  messenger_.Attach(events_);
  Startup("Startup - Initialize Speech object");
  ShowProgress(91);
}

void Program::BuildVoiceLists() {
  Startup("Startup - Building list of voices");
  voices_page_.Fill();
  SelectStoredVoice("male", "Male Voice", form_.cmbVoiceMale);
  SelectStoredVoice("female", "Female Voice", form_.cmbVoiceFemale);
}

void Program::SelectStoredVoice(const char* gender, const char* name, ComboBox& list) {
  const std::string voice = std::string(gender) + " voice from registry";
  Startup("Startup - Reading " + voice);
  const std::string stored = registry_.ReadText(kVoicesKey, name);
  Startup("Startup - Read " + voice + ": " + stored);
  voices_page_.SelectStored(list, stored);
}

void Program::CheckMessengerState() {
  Startup("Startup - Checking Messenger state");
  ShowProgress(92);
  state_.MessengerOnline = DetermineState(log_, messenger_.MyStatus());
  form_.SetCaption(window_.CaptionText());
  Startup(std::string("Startup - Messenger state ") +
          (state_.MessengerOnline ? "online" : "offline"));
  // While the user is signed out, nobody's state is known.
  if (!state_.MessengerOnline) contacts_.SetAllStatus("9");
}

void Program::PreparePages() {
  Startup("Startup - Form : activate menu");
  connections_page_.Show();
  window_.BuildMenu(connections_page_.Offered());
  Startup("Startup - Reading abbreviations");
  abbreviations_.EmoticonRead(true);
  Startup("Startup - Form : cleanup");
  ShowProgress(94);
  window_.PlacePages();
  loop_.DoEvents();
  Startup("Startup - Form : Activated messages box");
  window_.SelectPage(kSpokenWordsPage);
  if (values_.ShowStartupScreen) form_.SetState(WindowState::Minimized);
}

void Program::AddTrayIcon() {
  Startup("Startup - Creating tray-icon");
  ShowProgress(95);
  window_.AddTrayIcon();
}

void Program::ShowOSVersion() {
  Startup("Startup - Form : Show Windows version");
  ShowProgress(108);
  const auto [name, build] = system_.OSVersion();
  form_.lstMessages.AddItem("*" + std::string(Trimmed(name)));
  form_.lstMessages.AddItem("*" + std::string(Trimmed(build)) + "*");
}

// The introduction is heard whether the user is signed in or not.
void Program::SpeakIntroduction() {
  ShowProgress(107);
  if (!values_.Introduce) return;
  Startup("Startup - Speaking introduction");
  const bool online = state_.MessengerOnline;
  state_.MessengerOnline = true;
  const std::string name = messenger_.MyName();
  speech_.Speak(
      values_.IntroductionText + ", " + texts_.LoadText(79) + " " + std::string(Trimmed(name)),
      false, kDefaultVoice, false);
  state_.MessengerOnline = online;
}

void Program::FinishStart() {
  Startup("Startup - Form : Modifying tray-icon");
  ShowProgress(109);
  window_.RefreshTrayTip();
  spoken_page_.EnableSilenceHotKey();
  spoken_page_.chkUseMyNamesInsteadOfBuddyNames_Click();
  version_check_.CheckAutomatically();
  ShowProgress(110);
  status_.StatusForm(false);
  pointer_.ClearHourglass();
  Startup("Startup - Completed");
}

void Program::Startup(const std::string& step) { log_.DebugWrite(kProcedure, step); }

void Program::ShowProgress(std::int16_t text) { status_.SetText(texts_.LoadText(text)); }

}  // namespace brenwick
