// What a voice says whose engine is in a process of its own, and by which process: for tests that
// do harm to that.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "linux/engine/EngineProcess.h"
#include "voice/SoundOutput.h"

namespace brenwick {

using Samples = std::vector<std::int16_t>;

// All that is awaited comes well before.
constexpr std::chrono::minutes kLongEnough{2};

// What one process contributed to one text.
struct Contribution {
  pid_t process;
  std::size_t samples;
};

struct SaidText {
  std::string text;
  std::vector<Contribution> by;
  Samples samples;
};

// The engine in its process, with a record of what was said by whom. It lives on the thread that
// speaks; the record is read when that is silent.
class RecordingEngine : public SpeechEngine {
 public:
  struct Record {
    std::vector<SaidText> said;
    std::vector<std::string> told;
  };

  RecordingEngine(Record& record, std::chrono::milliseconds patience)
      : record_(record),
        process_({.program = BRENWICK_VOICE,
                  .tell = [this](const std::string& words) { record_.told.push_back(words); },
                  .patience = patience}) {}

  int SampleRate() const override { return process_.SampleRate(); }
  std::vector<EngineVoice> Voices(const std::string& locale) override {
    return process_.Voices(locale);
  }
  void Use(const std::string& voice, int rate, int volume) override {
    process_.Use(voice, rate, volume);
  }
  void Say(const std::string& piece, const Listener& listener) override {
    record_.said.push_back({piece, {}, {}});
    process_.Say(piece, [&](std::span<const std::int16_t> samples) {
      Write(samples);
      Heard(samples);
      return listener(samples);
    });
  }
  void Rest() override { process_.Rest(); }

 protected:
  pid_t Process() const { return process_.ProcessId(); }
  virtual void Heard(std::span<const std::int16_t> /*samples*/) {}

 private:
  void Write(std::span<const std::int16_t> samples) {
    SaidText& said = record_.said.back();
    if (said.by.empty() || said.by.back().process != Process()) said.by.push_back({Process(), 0});
    said.by.back().samples += samples.size();
    said.samples.insert(said.samples.end(), samples.begin(), samples.end());
  }

  Record& record_;
  EngineProcess process_;
};

// What is heard, as soon as it is there.
class Ear {
 public:
  class Output : public SoundOutput {
   public:
    explicit Output(Ear& ear) : ear_(ear) {}
    bool Ready() override { return true; }
    std::size_t Write(std::span<const std::int16_t> samples) override {
      const std::lock_guard lock(ear_.mutex_);
      ear_.samples_.insert(ear_.samples_.end(), samples.begin(), samples.end());
      ear_.heard_.notify_all();
      return samples.size();
    }
    void Cut() override {}
    std::chrono::milliseconds Finish() override { return {}; }

   private:
    Ear& ear_;
  };

  std::size_t Size() {
    const std::lock_guard lock(mutex_);
    return samples_.size();
  }
  void AwaitMoreThan(std::size_t size) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(heard_.wait_for(lock, kLongEnough, [&] { return samples_.size() > size; }));
  }
  const Samples& All() const { return samples_; }

 private:
  std::mutex mutex_;
  std::condition_variable heard_;
  Samples samples_;
};

// A new process for each that spoke, which is given the same texts: it says the same.
class Reference {
 public:
  Reference(std::string voice, int rate) : voice_(std::move(voice)), rate_(rate) {}

  Samples Said(pid_t by, const std::string& text) {
    if (by != by_)
      engine_ = std::make_unique<EngineProcess>(EngineProcessOptions{.program = BRENWICK_VOICE});
    by_ = by;
    engine_->Use(voice_, rate_, 100);
    Samples all;
    engine_->Say(text, [&](std::span<const std::int16_t> samples) {
      all.insert(all.end(), samples.begin(), samples.end());
      return true;
    });
    return all;
  }

 private:
  std::string voice_;
  int rate_;
  pid_t by_ = -1;
  std::unique_ptr<EngineProcess> engine_;
};

// Expects, sample for sample, what undisturbed processes say, from the first of the text to its
// last.
void ExpectWhole(const SaidText& said, Reference& reference);

}  // namespace brenwick
