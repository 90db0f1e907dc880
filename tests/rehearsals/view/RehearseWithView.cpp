// brenwick-rehearse with the windows of the desktop attached. They may change nothing of what the
// program does, and must show what it holds.
//
// usage: brenwick-rehearse-view [OPTION...] SCRIPT   as brenwick-rehearse
//        brenwick-rehearse-view --together           one rehearsal behind the other: standard input
//                                                    holds the arguments of each as a line of JSON,
//                                                    and {"played":STATUS,"errors":TEXT} ends the
//                                                    transcript of each
#include <QApplication>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "qt/views/MainWindowView.h"
#include "qt/views/MenuView.h"
#include "qt/views/StatusView.h"
#include "rehearsal/Interruption.h"
#include "rehearsal/Rehearse.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsals/view/Likeness.h"

namespace brenwick {
namespace {

constexpr const char* kTogether = "--together";

// The windows of one program.
struct Windows {
  explicit Windows(Program& program)
      : views(end),
        main(program.Form(), views),
        status(program.Status().Form(), views),
        likeness(program.Form(), Built(main), program.Status().Form(), status) {
    main.HasTray = [] { return true; };
    frmMain& form = program.Form();
    FillMenu(menu, form, views);
    views.Keep(form.PopupMenuWanted.Observe([this, &form] { FillMenu(menu, form, views); }));
  }

  // Most scripts never open it, and are to be seen in it all the same.
  static const MainWindowView& Built(MainWindowView& window) {
    window.Build();
    return window;
  }

  EndOfProgram end;
  Views views;
  MainWindowView main;
  StatusView status;
  QMenu menu;
  Likeness likeness;
};

class Audience : public Spectator {
 public:
  void Meet(Program& program) override { windows_.emplace(program); }
  void Leave() override { windows_.reset(); }
  void EventsRun() override { LetWindowsWork(); }
  void StepDone() override {
    LetWindowsWork();
    const QString difference = windows_->likeness.Difference();
    if (!difference.isEmpty()) {
      throw std::runtime_error("the window differs: " + difference.toStdString());
    }
  }

 private:
  void LetWindowsWork() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (windows_->end.Ended()) throw std::runtime_error("a window ended the program");
  }

  std::optional<Windows> windows_;
};

ExitStatus RehearseOne(const std::vector<std::string>& arguments, Audience& audience,
                       std::ostream& errors) {
  try {
    return Rehearse(ParseOptions(arguments), std::cout, errors, &audience);
  } catch (const std::exception& failure) {
    errors << failure.what() << '\n';
    return kMissing;
  }
}

int RehearseEach(Audience& audience) {
  for (std::string line; !Interrupted() && std::getline(std::cin, line);) {
    std::ostringstream errors;
    const auto arguments = nlohmann::json::parse(line).get<std::vector<std::string>>();
    const ExitStatus status = RehearseOne(arguments, audience, errors);
    std::cout << nlohmann::ordered_json{{"played", status}, {"errors", errors.str()}} << std::endl;
  }
  return kDone;
}

// Every warning of Qt fails a test, but for those about the machine: a screen that is none, and
// fonts that it lacks.
void Tell(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  for (const char* machine : {"This plugin does not support", "  OpenType support missing for"}) {
    if (message.startsWith(machine)) return;
  }
  std::cerr << message.toStdString() << '\n';
}

int Main(int count, char** values) {
  // Without a screen, wherever it runs.
  qInstallMessageHandler(Tell);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // And away from the user's own desktop.
  const ScratchFolder home;
  for (const char* name : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(name, home.Path().c_str());
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  const QApplication application(count, values);
  QApplication::setQuitOnLastWindowClosed(false);
  NoteInterruptions();
  Audience audience;
  const std::vector<std::string> arguments(values + 1, values + count);
  if (arguments == std::vector<std::string>{kTogether}) return RehearseEach(audience);
  return RehearseOne(arguments, audience, std::cerr);
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) {
  const int status = brenwick::Main(count, values);
  brenwick::EndAsInterrupted();
  return status;
}
