#include "desktop/Desktop.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdlib>

#include "desktop/LostDisplay.h"
#include "espeak/EspeakVoice.h"
#include "linux/BusConnection.h"
#include "linux/FirstVoices.h"
#include "linux/XdgFolders.h"
#include "linux/engine/EngineProcess.h"
#include "linux/speechd/SpeechdBackend.h"
#include "qt/TellUser.h"
#include "voice/AbsentVoice.h"

namespace brenwick {
namespace {

std::string Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

// Of the installed program, or of the build that it still stands in.
std::string ProgramFolder() {
  const QString installed = QCoreApplication::applicationDirPath() + "/../share/brenwick";
  return QFileInfo(installed + "/Languages").isDir()
             ? QDir::cleanPath(installed).toStdString()
             : QCoreApplication::applicationDirPath().toStdString() + "/program";
}

FolderPaths Paths() {
  return {XdgDocumentsFolder(), ProgramFolder(),
          QCoreApplication::applicationFilePath().toStdString()};
}

// Beside the program in a build, in a folder of its own where it is installed.
std::string EngineProgram() {
  const QString folder = QCoreApplication::applicationDirPath();
  const QString installed = QDir::cleanPath(folder + "/../libexec/brenwick/brenwick-voice");
  return (QFileInfo::exists(installed) ? installed : folder + "/brenwick-voice").toStdString();
}

void Warn(const std::string& message) { qWarning("%s", message.c_str()); }

// changed: called on any thread when one of those who speak is in another state.
EspeakVoice::Others MakeOtherSpeakers(const std::function<void()>& changed) {
  EspeakVoice::Others others;
  others.push_back(std::make_unique<SpeechdBackend>(
      SpeechdOptions{.address = SpeechdAddressOfSession(),
                     .locale = Locale(),
                     .memory = XdgStateHome() + "/brenwick/speech-dispatcher-voices",
                     .tell = Warn,
                     .changed = changed}));
  return others;
}

// A second start ends before it speaks; the engine would be loaded for nothing.
std::unique_ptr<SpVoice> MakeVoice(bool first, RegistryStore& store,
                                   const std::function<void()>& changed) {
  if (!first) return std::make_unique<AbsentVoice>();
  const EspeakOptions options{
      .locale = Locale(),
      .no_sound = [] { Warn(EspeakBackend::kNoSound); },
      .changed = changed,
      .engine = [] { return std::make_unique<EngineProcess>(EngineProgram(), Warn); }};
  auto voice = std::make_unique<EspeakVoice>(options, MakeOtherSpeakers(changed));
  StoreFirstVoices(store, voice->Preferred());
  return voice;
}

DesktopConnections::SpeechEngines EnginesOf(SpVoice& voice) {
  auto* queued = dynamic_cast<QueuedVoice*>(&voice);
  if (queued == nullptr) return {};
  return {[queued] { return queued->Engines(); },
          [queued](std::size_t index, const std::string& sentence) {
            queued->TestEngine(index, sentence);
          }};
}

}  // namespace

Desktop::Desktop(Instance& instance, const std::string& commandLine, bool first)
    : folders_(Paths()),
      ini_(DefaultStoreFile(), clock_, TellUser),
      store_(ini_, XdgConfigHome() + "/autostart/brenwick.desktop",
             QCoreApplication::applicationFilePath().toStdString()),
      voice_(MakeVoice(first, store_, [this] { SpeechIsAnother(); })),
      watch_(end_),
      purple_(end_, QDBusConnection::sessionBus()),
      notifications_(SessionBusAddress(), store_, watch_),
      feed_(end_, QDBusConnection::sessionBus(), SessionBusAddress()),
      messenger_({&purple_, &notifications_, &feed_}),
      connections_(messenger_, notifications_, purple_, EnginesOf(*voice_), store_),
      screen_(end_),
      tray_(end_),
      loop_(end_),
      system_(commandLine, first),
      program_(messenger_, *voice_, connections_, store_, screen_, tray_, loop_, clock_, folders_,
               system_),
      views_(end_),
      window_(program_.Form(), views_),
      status_(program_.Status().Form(), views_),
      timers_(program_.Form(), views_),
      socket_(end_, program_.Form().wscHttp),
      hot_keys_(HotKeySource::OfThisDesktop(program_.Form(), views_)),
      instance_(instance) {
  end_.WhenEnded = [] { QCoreApplication::exit(); };
  window_.HasTray = [this] { return tray_.Available(); };
  tray_.AvailableChanged = [this] { window_.TrayChanged(); };
  tray_.Observe(program_.Form(), program_.State(), views_);
  signals_.Asked = [this] { end_.Guard([this] { program_.Close(); }); };
  notifications_.HeardElsewhere = [this](const std::string& application) {
    return purple_.IsHeard(application);
  };
  messenger_.NobodyKnows = [](const std::string& contact) {
    TellUser("No messenger that is connected knows " + contact + ".");
  };
  instance_.Asked = [this](Verb verb, int repeat) { end_.Guard([&] { Do(verb, repeat); }); };
}

void Desktop::Run() {
  const LostDisplay lost([this] { SaveWithoutDisplay(); });
  try {
    program_.Start();
    timers_.Arm();
    hot_keys_->Arm();
    QCoreApplication::exec();
    end_.GoOn();
    // The end of a login may end Qt's loop without asking any window.
    program_.Close();
  } catch (const ProgramEnd&) {
    // Everything is saved and let go.
  }
}

// On a thread of those who speak.
void Desktop::SpeechIsAnother() {
  QMetaObject::invokeMethod(
      &speech_news_,
      [this] {
        end_.Guard([this] {
          if (connections_.Changed) connections_.Changed();
        });
      },
      Qt::QueuedConnection);
}

void Desktop::SaveWithoutDisplay() {
  if (program_.State().ClosingDown || end_.Ended()) return;
  end_.LoseDisplay();
  views_.Forget();
  try {
    program_.Close();
  } catch (const std::exception&) {
    // That is how the program ends.
  }
}

void Desktop::Do(Verb verb, int repeat) {
  frmMain& form = program_.Form();
  switch (verb) {
    case Verb::Show:
      tray_.MouseMessage(kLeftButtonUp);
      break;
    case Verb::Stop:
      voice_->Speak("", SVSFPurgeBeforeSpeak);
      break;
    case Verb::Repeat:
      form.ocxSpeakMsg1.at(static_cast<std::size_t>(repeat - 1)).HotkeyPressed();
      break;
    case Verb::Mute:
      form.chkMute.UserClick();
      break;
    case Verb::Quit:
      form.mPopExit.UserClick();
      break;
    case Verb::None:
      break;
  }
}

}  // namespace brenwick
