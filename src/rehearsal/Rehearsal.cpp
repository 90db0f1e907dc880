#include "rehearsal/Rehearsal.h"

#include <map>

#include "base/Failure.h"

namespace brenwick {

Rehearsal::Rehearsal(RehearsalParts parts)
    : parts_(std::move(parts)),
      messenger_(parts_.transcript),
      connections_(parts_.transcript),
      voice_(parts_.engine != nullptr ? *parts_.engine : scripted_voice_, parts_.transcript),
      screen_(parts_.transcript),
      tray_(parts_.transcript),
      socket_(parts_.transcript),
      timers_(parts_.clock, [this](std::chrono::milliseconds time) {
        if (parts_.pass) parts_.pass(time);
      }) {
  loop_.Pending = [this] {
    socket_.Step();
    if (parts_.spectator != nullptr) parts_.spectator->EventsRun();
  };
  MakeProgram();
}

Rehearsal::~Rehearsal() { DropProgram(); }

// A process of its own for each start.
void Rehearsal::MakeProgram() {
  // Before its successor is there: on its way out it lets go of the tray and of the messenger.
  DropProgram();
  ResetWorld();
  program_ = std::make_unique<Program>(messenger_, voice_, connections_, parts_.store, screen_,
                                       tray_, loop_, parts_.clock, parts_.folders, system_);
  observer_ =
      std::make_unique<FormObserver>(program_->Form(), program_->Status(), parts_.transcript);
  timers_.Drive(program_->Form());
  socket_.Drive(program_->Form().wscHttp);
  parts_.transcript.Watch(program_->Form());
  used_ = false;
  if (parts_.spectator != nullptr) parts_.spectator->Meet(*program_);
}

void Rehearsal::DropProgram() {
  if (program_ && parts_.spectator != nullptr) parts_.spectator->Leave();
  observer_.reset();
  program_.reset();
}

// What a new process finds as if no other had been there.
void Rehearsal::ResetWorld() {
  screen_.Reset();
  tray_.Reset();
  scripted_voice_.Reset();
  if (parts_.engine == nullptr) return;
  parts_.engine->SetRate(0);
  parts_.engine->SetVolume(100);
  if (!parts_.engine->GetVoices().empty()) parts_.engine->SetVoice(0);
}

void Rehearsal::Play(const std::string& line) {
  const std::optional<Step> step = ParseStep(line);
  if (!step) return;
  parts_.transcript.BeginStep(++steps_, step->object);
  CarryOut(*step);
  if (parts_.spectator != nullptr) parts_.spectator->StepDone();
}

// An action of the world on the running program.
void Rehearsal::Run(const std::function<void()>& action) {
  if (!running_) return;
  try {
    action();
  } catch (const ProgramEnd&) {
    running_ = false;
    timers_.Stop();
    parts_.transcript.Write({{"ended", true}});
  }
}

void Rehearsal::CarryOut(const Step& step) {
  static const std::map<std::string, void (Rehearsal::*)(const Step&)> verbs = {
      {"world", &Rehearsal::SetWorld},
      {"start", &Rehearsal::Start},
      {"close", &Rehearsal::Close},
      {"raise", &Rehearsal::Raise},
      {"click", &Rehearsal::Click},
      {"arrow", &Rehearsal::Arrow},
      {"type", &Rehearsal::Type},
      {"leave", &Rehearsal::Leave},
      {"select", &Rehearsal::Select},
      {"dblclick", &Rehearsal::DoubleClick},
      {"key", &Rehearsal::Key},
      {"keydown", &Rehearsal::KeyDown},
      {"tray", &Rehearsal::Tray},
      {"hotkey", &Rehearsal::HotKeyPress},
      {"window", &Rehearsal::ChangeWindow},
      {"wait", &Rehearsal::Wait},
      {"show", &Rehearsal::Show},
  };
  (this->*verbs.at(step.verb))(step);
}

void Rehearsal::Start(const Step& step) {
  const std::string command_line = TextOf(step.object, "start");
  if (running_) return;
  system_.command_line = command_line;
  if (used_) MakeProgram();
  used_ = true;
  running_ = true;
  timers_.Arm();
  Run([&] { program_->Start(); });
}

void Rehearsal::Close(const Step& step) {
  if (!FlagOf(step.object, "close")) throw ScriptFailure("\"close\" must be true");
  Run([&] { program_->Form().UserCloses(); });
}

void Rehearsal::Raise(const Step& step) {
  const auto event = EventOf(step.object);
  Run([&] {
    if (messenger_.Listener() != nullptr) event(*messenger_.Listener());
  });
}

void Rehearsal::Tray(const Step& step) {
  const int message = NumberOf(step.object, "tray");
  Run([&] {
    if (tray_.MouseMessage) tray_.MouseMessage(message);
  });
}

void Rehearsal::ChangeWindow(const Step& step) {
  frmMain& form = program_->Form();
  const nlohmann::json& change = step.object.at("window");
  if (change == "minimize") {
    Run([&] { form.UserMinimizes(); });
  } else if (change == "restore") {
    Run([&] { form.UserRestores(); });
  } else if (change.is_object() && change.size() == 1 && change.contains("move") &&
             change["move"].is_array() && change["move"].size() == 2) {
    const nlohmann::json place = {{"left", change["move"][0]}, {"top", change["move"][1]}};
    const int left = NumberOf(place, "left");
    const int top = NumberOf(place, "top");
    Run([&] { form.UserMoves(left, top); });
  } else {
    throw ScriptFailure(R"("window" must be "minimize", "restore" or {"move":[left,top]})");
  }
}

void Rehearsal::Wait(const Step& step) {
  const int time = NumberOf(step.object, "wait");
  if (time < 0) throw ScriptFailure("\"wait\" must not be negative");
  timers_.Wait(std::chrono::milliseconds(time), [this](Timer& timer) {
    Run([&] {
      if (timer.Tick) timer.Tick();
    });
  });
}

}  // namespace brenwick
