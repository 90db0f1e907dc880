// A world in memory for unit tests: every part remembers what was asked of it, and does what the
// test tells it to.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "controls/Winsock.h"
#include "logging/DataFolder.h"
#include "logging/ErrorReport.h"
#include "logging/LogFiles.h"
#include "logging/Logs.h"
#include "pages/StatusWindow.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"
#include "platform/Screen.h"
#include "platform/SpVoice.h"
#include "platform/System.h"

namespace brenwick {

class FakeScreen : public Screen {
 public:
  struct Box {
    std::string text;
    std::string title;
    BoxIcon icon;
    BoxButtons buttons;
  };

  BoxAnswer MessageBox(const std::string& text, const std::string& title, BoxIcon icon,
                       BoxButtons buttons) override {
    boxes.push_back({text, title, icon, buttons});
    if (WhileBoxShows) WhileBoxShows();
    return answer;
  }
  void Beep() override { ++beeps; }
  void SetPointer(Pointer pointer) override { pointers.push_back(pointer); }
  void SendKeys(const std::string& keys) override { sent_keys.push_back(keys); }
  void Open(const std::string& address) override { opened.push_back(address); }
  float TextWidth(const std::string& text, const Font& /*font*/) override {
    return static_cast<float>(text.size()) * 90;
  }
  float TwipsPerPixelX() override { return 15; }

  Pointer LastPointer() const { return pointers.empty() ? Pointer::Default : pointers.back(); }

  std::vector<Box> boxes;
  std::vector<Pointer> pointers;
  std::vector<std::string> sent_keys;
  std::vector<std::string> opened;
  int beeps = 0;
  BoxAnswer answer = BoxAnswer::Ok;
  std::function<void()> WhileBoxShows;
};

// Files by their path. A file can be written where its folder exists.
class FakeFolders : public Folders {
 public:
  std::string DocumentsFolder() override {
    ++documents_asked;
    return "/documents";
  }
  std::string ProgramFolder() override { return "/program"; }
  std::string ProgramFile() override { return "/program/brenwick"; }
  char Separator() const override { return '/'; }

  bool FileExists(const std::string& path) override { return files.contains(path); }
  bool FolderExists(const std::string& path) override { return folders.contains(path); }
  void CreateFolder(const std::string& path) override {
    if (!folders.contains(FolderOf(path))) throw Failure(kPathNotFound);
    if (!folders.insert(path).second) throw Failure(kPathFileAccess);
  }
  // A separator may stand at the folder's end, as it may in the real world.
  std::vector<std::string> FileNames(const std::string& folder) override {
    const std::string prefix = folder.ends_with('/') ? folder : folder + "/";
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files) {
      if (FolderOf(path) + "/" == prefix) names.push_back(path.substr(prefix.size()));
    }
    return names;
  }

  std::string Read(const std::string& path) override {
    Touch("read", path);
    if (!files.contains(path)) throw Failure(kFileNotFound);
    return files[path];
  }
  void Append(const std::string& path, std::string_view bytes) override {
    Touch("append", path);
    if (!folders.contains(FolderOf(path))) throw Failure(kPathNotFound);
    files[path] += bytes;
  }
  void Replace(const std::string& path, std::string_view bytes) override {
    Touch("replace", path);
    if (!folders.contains(FolderOf(path))) throw Failure(kPathNotFound);
    files[path] = bytes;
  }
  void Delete(const std::string& path) override {
    Touch("delete", path);
    if (files.erase(path) == 0) throw Failure(kFileNotFound);
  }

  std::map<std::string, std::string> files;
  std::set<std::string> folders = {"/documents", "/documents/Brenwick",
                                   "/documents/Brenwick/DebugLogs",
                                   "/documents/Brenwick/Conversations"};
  int documents_asked = 0;
  // Called before a file is touched: "read", "append", "replace" or "delete", and its path.
  std::function<void(const std::string&, const std::string&)> Touched;

 private:
  static std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }
  void Touch(const std::string& how, const std::string& path) const {
    if (Touched) Touched(how, path);
  }
};

// Stands at 15 March 2003, 09:05:07 until it is set, and moves on by `step` at each reading.
class FakeClock : public Clock {
 public:
  LocalTime Now() override {
    const LocalTime read = now;
    now += step;
    return read;
  }
  // "15-3-2003"
  std::string DateText(LocalTime time) override {
    const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(time)};
    return std::to_string(static_cast<unsigned>(date.day())) + "-" +
           std::to_string(static_cast<unsigned>(date.month())) + "-" +
           std::to_string(static_cast<int>(date.year()));
  }
  // "9.05.07"
  std::string TimeText(LocalTime time) override {
    const std::chrono::hh_mm_ss clock{time - std::chrono::floor<std::chrono::days>(time)};
    return std::to_string(clock.hours().count()) + "." + TwoDigits(clock.minutes().count()) + "." +
           TwoDigits(clock.seconds().count());
  }

  void Set(int year, unsigned month, unsigned day, std::chrono::milliseconds time = {}) {
    now = Day(year, month, day) + time;
  }

  LocalTime now =
      Day(2003, 3, 15) + std::chrono::hours(9) + std::chrono::minutes(5) + std::chrono::seconds(7);
  std::chrono::milliseconds step{0};

 private:
  static LocalTime Day(int year, unsigned month, unsigned day) {
    return std::chrono::local_days{std::chrono::year(year) / std::chrono::month(month) /
                                   std::chrono::day(day)};
  }
  static std::string TwoDigits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  }
};

class FakeEventLoop : public EventLoop {
 public:
  void DoEvents() override {
    ++rounds;
    if (Pending) Pending();
  }
  void Sleep(std::chrono::milliseconds time) override { slept += time; }

  int rounds = 0;
  std::chrono::milliseconds slept{0};
  std::function<void()> Pending;
};

class FakeSystem : public System {
 public:
  std::string CommandLine() override { return command_line; }
  bool PreviousInstance() override { return previous_instance; }
  bool DevelopmentEnvironment() override { return development; }
  std::pair<std::string, std::string> OSVersion() override { return {"Test", "Build 1"}; }

  std::string command_line;
  bool previous_instance = false;
  bool development = false;
};

// A network on which the test is the server.
class FakeSocket : public SocketDriver {
 public:
  explicit FakeSocket(Winsock& socket) : socket_(socket) { socket_.SetDriver(this); }

  void Connect(const std::string& host, int port) override {
    Note("connect",
         host + ":" + std::to_string(port) + " from " + std::to_string(socket_.LocalPort()));
    socket_.SetState(SocketState::Connecting);
  }
  void SendData(const std::string& data) override { Note("send", data); }
  std::string GetData() override {
    if (failing == "get") throw Failure(kInvalidCall);
    return std::exchange(arrived_, {});
  }
  void Close() override { Note("close", ""); }

  // What the other side does, and the network.
  void Accept() {
    socket_.SetState(SocketState::Connected);
    socket_.OnConnect();
  }
  void Arrive(std::string_view data) {
    arrived_ += data;
    socket_.OnDataArrival();
  }
  void Finish() {
    socket_.SetState(SocketState::Closing);
    socket_.OnClose();
  }
  void Fail() {
    socket_.SetState(SocketState::Error);
    socket_.OnError();
  }

  std::vector<std::string> calls;  // "connect HOST:PORT from LOCALPORT", "send DATA", "close "
  std::string failing;             // "connect", "send" or "get": that call fails

 private:
  void Note(const std::string& call, const std::string& with) {
    calls.push_back(call + " " + with);
    if (call == failing) throw Failure(kInvalidCall);
  }

  Winsock& socket_;
  std::string arrived_;
};

// An engine with one voice that keeps what it was told.
class FakeVoice : public SpVoice {
 public:
  const std::vector<std::string>& GetVoices() override { return voices_; }
  bool LacksVoices() const override { return lacks_voices; }
  void SetVoice(std::size_t /*index*/) override {}
  void SetRate(int /*rate*/) override {}
  void SetVolume(int /*volume*/) override {}
  std::size_t Voice() const override { return 0; }
  int Rate() const override { return 0; }
  int Volume() const override { return 100; }
  void Speak(const std::string& text, int flags) override {
    spoken.push_back(text);
    last_flags = flags;
  }

  std::vector<std::string> spoken;
  int last_flags = 0;
  bool lacks_voices = false;

 private:
  std::vector<std::string> voices_ = {"Mary"};
};

// The fakes, and what every room above stands on.
struct FakeWorld {
  FakeScreen screen;
  FakeFolders folders;
  FakeClock clock;
  FakeEventLoop loop;
  FakeSystem system;

  ProgramState state;
  cMousePointer pointer{screen};
  StatusWindow status{pointer, loop, system};
  DataFolder data{folders};
  LogFiles files{data, folders, clock};
  ErrorReport report{state, files, status, screen};
  Logs log{state, files, report};

  static constexpr const char* kDebugLog = "/documents/Brenwick/DebugLogs/20030315.log";
  static constexpr const char* kConversationLog = "/documents/Brenwick/Conversations/20030315.log";

  // What today's debug log holds, without the date and time before each line.
  std::vector<std::string> DebugLines() {
    constexpr std::string_view kMoment = "15-3-2003 9.05.07 ";
    std::vector<std::string> lines;
    std::string_view content = folders.files[kDebugLog];
    for (std::size_t end = 0; (end = content.find("\r\n")) != std::string_view::npos;) {
      lines.emplace_back(content.substr(kMoment.size(), end - kMoment.size()));
      content.remove_prefix(end + 2);
    }
    return lines;
  }
};

// The texts of an interface language in which text 93 reads "text 93".
inline std::vector<std::string> NumberedTexts() {
  std::vector<std::string> texts;
  for (int id = 0; id <= 174; ++id) texts.push_back("text " + std::to_string(id));
  texts.emplace_back();
  return texts;
}

}  // namespace brenwick
