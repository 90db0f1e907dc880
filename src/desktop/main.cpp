#include <QApplication>
#include <QMessageBox>
#include <iostream>

#include "app/CommandLine.h"
#include "base/ProgramState.h"
#include "desktop/Desktop.h"

namespace brenwick {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kWrong = 2 };

constexpr const char* kSilent = "the Brenwick that is running does not answer";
constexpr const char* kSilentBus = "the session bus does not answer";

void Complain(const char* trouble) { std::cerr << "brenwick: " << trouble << '\n'; }

// A user who starts the program from a menu sees no terminal.
int Tell(const char* trouble) {
  Complain(trouble);
  QMessageBox::critical(nullptr, kTitle, trouble);
  return kFailed;
}

int AskTheOther(const CommandLineOptions& options) {
  if (Instance::BusIsSilent()) {
    Complain(kSilentBus);
    return kFailed;
  }
  switch (Instance::Ask(options.verb, options.repeat)) {
    case Instance::Answer::Done:
      return kDone;
    case Instance::Answer::NobodyThere:
      Complain("no Brenwick is running that could be asked");
      break;
    case Instance::Answer::Silent:
      Complain(kSilent);
      break;
  }
  return kFailed;
}

int RunDesktop(const CommandLineOptions& options) {
  Instance instance;
  const bool first = instance.Claim();
  const auto shown = first ? Instance::Answer::Done : Instance::Ask(Verb::Show, 1);
  if (shown == Instance::Answer::Silent) return Tell(kSilent);
  if (shown == Instance::Answer::NobodyThere) {
    Complain("another Brenwick is running, and cannot be asked to show its window");
  }
  Desktop desktop(instance, options.debug ? "/DEBUG" : "", first);
  desktop.Run();
  return kDone;
}

int RunDesktopOrTell(const CommandLineOptions& options) {
  try {
    return RunDesktop(options);
  } catch (const std::exception& failure) {
    return Tell(failure.what());
  }
}

int Main(int& count, char** values) {
  const CommandLineOptions options = ParseCommandLine({values + 1, values + count});
  if (options.help) {
    std::cout << kCommandLineHelp;
    return kDone;
  }
  if (options.version) {
    std::cout << "brenwick " << ProgramVersion{}.Plain() << '\n';
    return kDone;
  }
  if (options.verb != Verb::None) {
    const QCoreApplication application(count, values);
    return AskTheOther(options);
  }
  const bool silent = Instance::BusIsSilent();
  // Qt's own parts would wait for the bus as well.
  if (silent) qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  const QApplication application(count, values);
  QApplication::setApplicationName("brenwick");
  QApplication::setDesktopFileName("org.brenwick.Brenwick");
  QApplication::setWindowIcon(QIcon(":/icons/brenwick.svg"));
  QApplication::setQuitOnLastWindowClosed(false);
  return silent ? Tell(kSilentBus) : RunDesktopOrTell(options);
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) {
  try {
    return brenwick::Main(count, values);
  } catch (const brenwick::WrongOption& failure) {
    std::cerr << "brenwick: " << failure.what() << "\ntry brenwick --help\n";
    return brenwick::kWrong;
  } catch (const std::exception& failure) {
    brenwick::Complain(failure.what());
    return brenwick::kFailed;
  }
}
