// The whole program in a scripted world, and the verbs of the script.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/Program.h"
#include "platform/RegistryStore.h"
#include "platform/SpVoice.h"
#include "rehearsal/FormObserver.h"
#include "rehearsal/MessengerScript.h"
#include "rehearsal/Script.h"
#include "rehearsal/ScriptedConnections.h"
#include "rehearsal/ScriptedSocket.h"
#include "rehearsal/ScriptedVoice.h"
#include "rehearsal/ScriptedWorld.h"
#include "rehearsal/Spectator.h"
#include "rehearsal/TimerWheel.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

// What stands behind a rehearsal and outlives it.
struct RehearsalParts {
  Transcript& transcript;
  ScriptedClock& clock;
  Folders& folders;
  RegistryStore& store;
  SpVoice* engine = nullptr;  // a real engine; nullptr: the scripted one
  // How the time of "wait" goes by; empty: at once.
  std::function<void(std::chrono::milliseconds)> pass;
  Spectator* spectator = nullptr;
};

class Rehearsal {
 public:
  explicit Rehearsal(RehearsalParts parts);
  ~Rehearsal();

  // Carries out one line of a script. Raises ScriptFailure when it says nothing that can be done.
  // Any other exception is one that the program should have trapped and did not.
  void Play(const std::string& line);

 private:
  void MakeProgram();
  void DropProgram();
  void ResetWorld();
  void Run(const std::function<void()>& action);
  void CarryOut(const Step& step);

  void SetWorld(const Step& step);
  void SetWorldMember(const nlohmann::json& world, const char* member);
  bool SetConnections(const nlohmann::json& world, const std::string& member);
  void SetWeb(const nlohmann::json& world);
  void Start(const Step& step);
  void Close(const Step& step);
  void Raise(const Step& step);
  void Click(const Step& step);
  void Arrow(const Step& step);
  void Type(const Step& step);
  void TypeInto(ComboBox& combo, const std::string& text);
  void Leave(const Step& step);
  void Select(const Step& step);
  void DoubleClick(const Step& step);
  void Key(const Step& step);
  void KeyDown(const Step& step);
  void Tray(const Step& step);
  void HotKeyPress(const Step& step);
  void ChangeWindow(const Step& step);
  void Wait(const Step& step);
  void Show(const Step& step);

  Control& ControlOf(const Step& step, bool arrays = true);
  Control& ControlOf(const std::string& name, int index);
  void DeliverSentKeys(ComboBox& combo);

  RehearsalParts parts_;
  ScriptedMessenger messenger_;
  ScriptedConnections connections_;
  ScriptedVoice scripted_voice_;
  VoiceRecorder voice_;
  ScriptedScreen screen_;
  ScriptedTray tray_;
  ScriptedLoop loop_;
  ScriptedSystem system_;
  ScriptedSocket socket_;
  TimerWheel timers_;
  std::unique_ptr<Program> program_;
  std::unique_ptr<FormObserver> observer_;
  int steps_ = 0;
  bool running_ = false;
  bool used_ = false;  // the program object has been started once
};

}  // namespace brenwick
