// The longest pass of the event loop while the lists grow: 5,000 contacts, 10,000 spoken lines,
// with the window open at a page. A pass is what the program does about an event and what the
// window does about that, painting included; none may take more than 50 ms. Then the same after a
// day with 100,000 spoken lines, and the tray icon's menu, first made and made again.
#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "People.h"
#include "Stage.h"
#include "qt/views/MainWindowView.h"
#include "qt/views/MenuView.h"

namespace brenwick {
namespace {

constexpr std::int64_t kContacts = 5'000;
constexpr std::int64_t kLines = 10'000;
constexpr std::int64_t kNewContacts = 500;
constexpr std::int64_t kLinesOfADay = 100'000;
constexpr std::int64_t kNewLines = 500;
constexpr std::int64_t kMenus = 20;
constexpr std::int64_t kMostContacts = 32'767;
constexpr int kSpokenWords = 7;  // of the page list
constexpr double kMostMilliseconds = 50;

struct Shown {
  const char* name;
  int entry;  // of the page list
};
constexpr Shown kPages[] = {{"General", 0},
                            {"Buddynames", 4},
                            {"Ignore", 5},
                            {"Gender", 6},
                            {"Spoken words", kSpokenWords}};

// The milliseconds of each pass of something that is done `count` times.
std::vector<double> Passes(std::int64_t count, const std::function<void(std::int64_t)>& act) {
  std::vector<double> passes;
  for (std::int64_t i = 1; i <= count; ++i) {
    QElapsedTimer clock;
    clock.start();
    act(i);
    QCoreApplication::processEvents();
    passes.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
  }
  return passes;
}

// True while no pass took too long.
bool Report(const char* page, const char* what, std::vector<double> passes) {
  std::sort(passes.begin(), passes.end());
  const double longest = passes.back();
  std::printf("%-13s %-22s %7zu %10.2f %10.2f %10.2f  %s\n", page, what, passes.size(),
              passes[passes.size() / 2], passes[passes.size() * 99 / 100], longest,
              longest <= kMostMilliseconds ? "" : "TOO LONG");
  return longest <= kMostMilliseconds;
}

bool MeasurePage(const Shown& page) {
  EmptyVoice voice;
  Stage stage(voice, kContacts);
  frmMain& form = stage.Form();
  form.chkDebug.SetTicked(false);
  EndOfProgram end;
  Views views(end);
  MainWindowView window(form, views);
  form.SetState(WindowState::Normal);
  form.Show();
  form.lstMenu.SetListIndex(page.entry);
  QCoreApplication::processEvents();

  const auto state = [&](std::int64_t contact, std::int32_t now) {
    stage.Messenger().OnUserStateChanged({EmailOf(contact), "Contact"}, now);
  };
  bool good = Report(page.name, "spoken lines", Passes(kLines, [&](std::int64_t line) {
                       stage.Messenger().OnTextReceived({EmailOf(line % kContacts + 1), "Contact"},
                                                        "", "line " + std::to_string(line));
                     }));
  good &= Report(page.name, "contacts come online",
                 Passes(kContacts, [&](std::int64_t contact) { state(contact, MSTATE_ONLINE); }));
  good &= Report(page.name, "new contacts", Passes(kNewContacts, [&](std::int64_t contact) {
                   state(kContacts + contact, MSTATE_ONLINE);
                 }));
  if (form.lstMessages.ListCount() < kLines) {
    std::puts("The lines were not spoken.");
    return false;
  }
  return good;
}

// Sentences while the page already shows what a day with many messages leaves behind.
bool MeasureLongDay() {
  EmptyVoice voice;
  Stage stage(voice, kContacts);
  frmMain& form = stage.Form();
  form.chkDebug.SetTicked(false);
  EndOfProgram end;
  Views views(end);
  MainWindowView window(form, views);
  for (std::int64_t line = 0; line < kLinesOfADay; ++line) {
    form.lstMessages.AddItem("12:00:00\tContact\tline " + std::to_string(line));
  }
  form.SetState(WindowState::Normal);
  form.Show();
  form.lstMenu.SetListIndex(kSpokenWords);
  QCoreApplication::processEvents();
  return Report("Spoken words", "lines after 100,000", Passes(kNewLines, [&](std::int64_t line) {
                  stage.Messenger().OnTextReceived({EmailOf(line % kContacts + 1), "Contact"}, "",
                                                   "new line " + std::to_string(line));
                }));
}

bool MeasureMenu(std::int64_t contacts) {
  EmptyVoice voice;
  Stage stage(voice, contacts);
  stage.Form().chkDebug.SetTicked(false);
  EndOfProgram end;
  Views views(end);
  QMenu menu;
  stage.ClickTray(kRightButtonUp);
  const auto fill = [&](std::int64_t) { FillMenu(menu, stage.Form(), views); };
  const std::string page = std::to_string(contacts);
  bool good = Report(page.c_str(), "menu, first", Passes(1, fill));
  good &= Report(page.c_str(), "menu, again", Passes(kMenus, fill));
  return good;
}

int Main(int count, char** values) {
  const QApplication application(count, values);
  QApplication::setQuitOnLastWindowClosed(false);
  std::printf("Milliseconds a pass, platform %s\n%-13s %-22s %7s %10s %10s %10s\n",
              qPrintable(QApplication::platformName()), "page", "what happens", "passes", "median",
              "99 %", "longest");
  bool good = true;
  for (const Shown& page : kPages) good &= MeasurePage(page);
  good &= MeasureLongDay();
  for (const std::int64_t contacts : {kContacts, kMostContacts}) good &= MeasureMenu(contacts);
  std::printf("%s: at most %.0f ms wanted\n", good ? "GOOD" : "BAD", kMostMilliseconds);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) { return brenwick::Main(count, values); }
