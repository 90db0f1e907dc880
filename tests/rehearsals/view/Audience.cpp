#include "rehearsals/view/Audience.h"

#include <QApplication>
#include <QMenu>
#include <QStringList>
#include <iostream>
#include <stdexcept>
#include <string>

#include "app/Program.h"
#include "qt/EndOfProgram.h"
#include "qt/views/MainWindowView.h"
#include "qt/views/MenuView.h"
#include "qt/views/StatusView.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsals/view/Likeness.h"

namespace brenwick {

namespace {

// What the toolkit warned of and no rehearsal has told yet.
QStringList warnings;

// Every warning counts but those about the machine: a screen that is none, and fonts that it lacks.
void NoteWarning(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                 const QString& message) {
  for (const char* machine : {"This plugin does not support", "  OpenType support missing for"}) {
    if (message.startsWith(machine)) return;
  }
  warnings.append(message);
}

std::string TakeWarnings() {
  const std::string told = warnings.join('\n').toStdString();
  warnings.clear();
  return told;
}

}  // namespace

// The windows of one program.
struct Audience::Windows {
  explicit Windows(Program& program)
      : views(end),
        main(program.Form(), views),
        status(program.Status().Form(), views),
        likeness(program.Form(), Built(main), program.Status().Form(), status) {
    main.HasTray = [] { return true; };
    frmMain& form = program.Form();
    FillMenu(menu, form, views);
    views.Own(form.PopupMenuWanted.Observe([this, &form] { FillMenu(menu, form, views); }));
  }

  // Most scripts never open the window, and are to be seen in it all the same.
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

Audience::Audience() = default;
Audience::~Audience() = default;

void Audience::Meet(Program& program) { windows_ = std::make_unique<Windows>(program); }
void Audience::Leave() { windows_.reset(); }
void Audience::EventsRun() { LetWindowsWork(); }

void Audience::StepDone() {
  LetWindowsWork();
  const QString difference = windows_->likeness.Difference();
  if (!difference.isEmpty()) {
    throw std::runtime_error("the window differs: " + difference.toStdString());
  }
}

void Audience::LetWindowsWork() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  if (windows_->end.Ended()) throw std::runtime_error("a window ended the program");
  if (!warnings.isEmpty()) throw std::runtime_error("the toolkit warns: " + TakeWarnings());
}

int WithWindows(int count, char** values,
                int (*play)(const std::vector<std::string>& arguments, Audience& audience)) {
  qInstallMessageHandler(NoteWarning);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const ScratchFolder home;
  for (const char* name : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(name, home.Path().c_str());
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  const QApplication application(count, values);
  QApplication::setQuitOnLastWindowClosed(false);
  Audience audience;
  const int status = play({values + 1, values + count}, audience);
  // Those that came behind the last step.
  const std::string rest = TakeWarnings();
  std::cerr << rest;
  return status == 0 && !rest.empty() ? 1 : status;
}

}  // namespace brenwick
