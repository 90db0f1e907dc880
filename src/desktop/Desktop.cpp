#include "desktop/Desktop.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdlib>

#include "app/FirstChoices.h"
#include "desktop/LostDisplay.h"
#include "linux/BusConnection.h"
#include "linux/XdgFolders.h"
#include "linux/engine/EngineProcess.h"
#include "linux/sound/SoundDevice.h"
#include "linux/speechd/SpeechdBackend.h"
#include "qt/TellUser.h"
#include "voice/EngineBackend.h"

namespace brenwick {
namespace {

std::string Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

// The folder of the installed program's data, or of the build that the program was started from.
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

// The engine's program lies beside this one in a build, and in a folder of its own when installed.
std::string EngineProgram() {
  const QString folder = QCoreApplication::applicationDirPath();
  const QString installed = QDir::cleanPath(folder + "/../libexec/brenwick/brenwick-voice");
  return (QFileInfo::exists(installed) ? installed : folder + "/brenwick-voice").toStdString();
}

void Warn(const std::string& message) { qWarning("%s", message.c_str()); }

// changed: called on any thread when a backend is in another state.
std::unique_ptr<EngineBackend> MakeEngineBackend(const std::function<void()>& changed) {
  auto engine = std::make_unique<EngineProcess>(
      EngineProcessOptions{.program = EngineProgram(),
                           .tell = Warn,
                           .memory = XdgStateHome() + "/brenwick/espeak-ng-voices"});
  auto output = std::make_unique<SoundDevice>(engine->SampleRate());
  return std::make_unique<EngineBackend>(
      std::move(engine), std::move(output),
      EngineBackendOptions{.name = "eSpeak NG",
                           .locale = Locale(),
                           .no_sound = [] { Warn(EngineBackend::kNoSound); },
                           .changed = changed});
}

std::unique_ptr<SpeechdBackend> MakeSpeechdBackend(const std::function<void()>& changed) {
  return std::make_unique<SpeechdBackend>(
      SpeechdOptions{.address = SpeechdAddressOfSession(),
                     .locale = Locale(),
                     .memory = XdgStateHome() + "/brenwick/speech-dispatcher-voices",
                     .tell = Warn,
                     .changed = changed});
}

// A second start ends before it speaks; the engine would be started for nothing.
QueuedVoice::Backends MakeBackends(bool first, RegistryStore& store,
                                   const std::function<void()>& changed) {
  QueuedVoice::Backends backends;
  if (!first) return backends;
  auto engine = MakeEngineBackend(changed);
  const VoicePair preferred = engine->Preferred();
  StoreFirstChoices(store, preferred.male, preferred.female);
  backends.push_back(std::move(engine));
  backends.push_back(MakeSpeechdBackend(changed));
  return backends;
}

DesktopConnections::SpeechEngines EnginesOf(QueuedVoice& voice) {
  return {[&voice] { return voice.Engines(); },
          [&voice](std::size_t index, const std::string& sentence) {
            voice.TestEngine(index, sentence);
          }};
}

}  // namespace

Desktop::Desktop(Instance& instance, const std::string& commandLine, bool first)
    : folders_(Paths()),
      ini_(DefaultStoreFile(), clock_, TellUser),
      store_(ini_, XdgConfigHome() + "/autostart/brenwick.desktop",
             QCoreApplication::applicationFilePath().toStdString()),
      voice_(MakeBackends(first, store_, [this] { SpeechIsAnother(); })),
      watch_(end_),
      purple_(end_, QDBusConnection::sessionBus()),
      notifications_(SessionBusAddress(), store_, watch_),
      feed_(end_, QDBusConnection::sessionBus(), SessionBusAddress()),
      messenger_({&purple_, &notifications_, &feed_}),
      connections_(messenger_, notifications_, purple_, EnginesOf(voice_), store_),
      screen_(end_),
      tray_(end_),
      loop_(end_),
      system_(commandLine, first),
      program_(messenger_, voice_, connections_, store_, screen_, tray_, loop_, clock_, folders_,
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
    // The program has saved its settings and let everything go.
  }
}

// On any thread.
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
  CloseWithoutDisplay();
  // The store's destructor will not run.
  ini_.Finish();
}

void Desktop::CloseWithoutDisplay() {
  if (program_.State().ClosingDown || end_.Ended()) return;
  end_.LoseDisplay();
  views_.Forget();
  try {
    program_.Close();
  } catch (...) {
    // Close ends the program by throwing, and nothing may be thrown into the process's exit.
  }
}

void Desktop::Do(Verb verb, int repeat) {
  frmMain& form = program_.Form();
  switch (verb) {
    case Verb::Show:
      tray_.MouseMessage(kLeftButtonUp);
      break;
    case Verb::Stop:
      voice_.Speak("", SVSFPurgeBeforeSpeak);
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
