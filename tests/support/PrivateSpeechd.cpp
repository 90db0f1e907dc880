#include "support/PrivateSpeechd.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <future>

#include "base/Lines.h"
#include "linux/speechd/SpeechdVoiceCache.h"
#include "linux/speechd/SsipConnection.h"

namespace brenwick {
namespace {

constexpr const char* kEngine = BRENWICK_SOURCE_DIR "/tests/support/speech_module.py";

// What speaks in the place of an engine that has died, and says nothing but that.
constexpr const char* kDummy = "dummy";

bool TakesConnections(const SpeechdAddress& address) {
  try {
    const SsipConnection connection(address);
    return true;
  } catch (const SsipTrouble&) {
    return false;
  }
}

}  // namespace

PrivateSpeechd::PrivateSpeechd(Engines engines) {
  for (const char* folder :
       {"config/speech-dispatcher/modules", "log", "speech-dispatcher", kDummy}) {
    std::filesystem::create_directories(Inside(folder));
  }
  std::string settings = "LogLevel 3\nDefaultModule test\n";
  const auto add = [&](const std::string& name, const std::string& folder) {
    settings += "AddModule \"" + name + "\" \"" + kEngine + "\" \"" + name + ".conf\"\n";
    SetBytes(Inside("config/speech-dispatcher/modules/" + name + ".conf"), folder + "\n");
  };
  add("test", folder_.Path());
  add(kDummy, Inside(kDummy));
  if (engines == Engines::kNotingAndReal) {
    settings += "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"espeak-ng.conf\"\n";
    settings += "AudioOutputMethod \"alsa\"\nAudioALSADevice \"default\"\n";
    SetBytes(Inside("config/speech-dispatcher/modules/espeak-ng.conf"), "");
    SetBytes(Inside(".asoundrc"), "pcm.!default { type file; slave.pcm null; format raw; file \"" +
                                      Inside("sound") + "\" }\n");
  }
  SetBytes(Inside("config/speech-dispatcher/speechd.conf"), settings);
  SetBytes(Inside("dummy/voices"), "dummy\ten\tnone\n");
  SetBytes(Inside("said"), "");
  SetVoices({"Anna\tde\tnone", "Kal One\ten-US\tnone"});
  Start();
}

PrivateSpeechd::~PrivateSpeechd() { Kill(); }

void PrivateSpeechd::Start() {
  const std::string conf = Inside("config/speech-dispatcher"), log = Inside("log"),
                    pid = Inside("pid"), output = Inside("output"), socket = Socket();
  server_ = ::fork();
  if (server_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setenv("HOME", folder_.Path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 1);
    if (!std::freopen(output.c_str(), "a", stdout) || !std::freopen(output.c_str(), "a", stderr)) {
      ::_exit(1);
    }
    ::execlp("speech-dispatcher", "speech-dispatcher", "--run-single", "-t", "0", "-C",
             conf.c_str(), "-L", log.c_str(), "-c", "unix_socket", "-S", socket.c_str(), "-P",
             pid.c_str(), nullptr);
    ::_exit(1);
  }
  if (!Await([this] { return TakesConnections(Address()); })) {
    ADD_FAILURE() << "speech-dispatcher does not start: " << BytesOf(output);
  }
}

void PrivateSpeechd::Kill() {
  if (server_ == 0) return;
  ::kill(server_, SIGKILL);
  ::waitpid(server_, nullptr, 0);
  server_ = 0;
  SignalEngine(SIGKILL);
  std::filesystem::remove(Socket());
}

void PrivateSpeechd::Replace() {
  const pid_t former = server_;
  std::filesystem::remove(Socket());
  std::filesystem::remove(Inside("pid"));
  Start();
  ::kill(former, SIGKILL);
  ::waitpid(former, nullptr, 0);
}

void PrivateSpeechd::Stop() {
  ::kill(server_, SIGSTOP);
  siginfo_t stopped;
  ::waitid(P_PID, static_cast<id_t>(server_), &stopped, WSTOPPED);
}

void PrivateSpeechd::Continue() { ::kill(server_, SIGCONT); }

void PrivateSpeechd::AskForVoices() const {
  std::promise<void> asked;
  SpeechdVoiceCache memory(Address(), Inside("state/voices"),
                           [&](bool, bool) { asked.set_value(); });
  memory.Refresh();
  asked.get_future().wait();
}

// It ends with its server, unless it is stopped.
void PrivateSpeechd::SignalEngine(int signal) {
  const std::string file = Inside("module.pid");
  if (!std::filesystem::exists(file)) return;
  ::kill(std::stoi(BytesOf(file)), signal);
  if (signal == SIGKILL) std::filesystem::remove(file);
}

void PrivateSpeechd::SetVoices(const std::vector<std::string>& voices) {
  std::string lines;
  for (const std::string& voice : voices) lines += voice + "\n";
  SetBytes(Inside("voices"), lines);
}

std::vector<std::string> PrivateSpeechd::Said() const {
  const std::string content = BytesOf(Inside("said"));
  std::vector<std::string> lines;
  for (const std::string_view line : Lines(content)) lines.emplace_back(line);
  return lines;
}

bool PrivateSpeechd::AwaitSaid(const std::string& line) const {
  return Await([&] {
    const std::vector<std::string> said = Said();
    return std::find(said.begin(), said.end(), line) != said.end();
  });
}

}  // namespace brenwick
