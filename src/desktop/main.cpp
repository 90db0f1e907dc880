#include <QApplication>
#include <QMessageBox>
#include <iostream>

#include "app/CommandLine.h"
#include "base/ProgramState.h"
#include "desktop/Desktop.h"

namespace brenwick {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kWrong = 2 };

constexpr const char* kSilent = "brenwick: the Brenwick that is running does not answer\n";

int AskTheOther(const CommandLineOptions& options) {
  switch (Instance::Ask(options.verb, options.repeat)) {
    case Instance::Answer::Done:
      return kDone;
    case Instance::Answer::NobodyThere:
      std::cerr << "brenwick: no Brenwick is running that could be asked\n";
      break;
    case Instance::Answer::Silent:
      std::cerr << kSilent;
      break;
  }
  return kFailed;
}

int RunDesktop(const CommandLineOptions& options) {
  Instance instance;
  const bool first = instance.Claim();
  const auto shown = first ? Instance::Answer::Done : Instance::Ask(Verb::Show, 1);
  if (shown == Instance::Answer::Silent) {
    std::cerr << kSilent;
    return kFailed;
  }
  if (shown == Instance::Answer::NobodyThere) {
    std::cerr << "brenwick: another Brenwick is running, and cannot be asked to show its window\n";
  }
  Desktop desktop(instance, options.debug ? "/DEBUG" : "", first);
  desktop.Run();
  return kDone;
}

// A user who starts the program from a menu sees no terminal.
int RunDesktopOrTell(const CommandLineOptions& options) {
  try {
    return RunDesktop(options);
  } catch (const std::exception& failure) {
    std::cerr << "brenwick: " << failure.what() << '\n';
    QMessageBox::critical(nullptr, kTitle, failure.what());
    return kFailed;
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
  const QApplication application(count, values);
  QApplication::setApplicationName("brenwick");
  QApplication::setDesktopFileName("org.brenwick.Brenwick");
  QApplication::setWindowIcon(QIcon(":/icons/brenwick.svg"));
  QApplication::setQuitOnLastWindowClosed(false);
  return RunDesktopOrTell(options);
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
    std::cerr << "brenwick: " << failure.what() << '\n';
    return brenwick::kFailed;
  }
}
