// Several speakers, one sentence at a time.
#include "voice/SpeechQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>

#include "base/Failure.h"
#include "base/Text.h"
#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;
using Log = std::vector<std::string>;

constexpr std::chrono::minutes kLongEnough{1};
constexpr int kPurge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;

// What happens, in its order, on whichever thread.
class Events {
 public:
  void Add(const std::string& event) {
    const std::lock_guard lock(mutex_);
    log_.push_back(event);
    happened_.notify_all();
  }
  bool Await(const std::string& event) {
    std::unique_lock lock(mutex_);
    return happened_.wait_for(lock, kLongEnough, [&] {
      return std::find(log_.begin(), log_.end(), event) != log_.end();
    });
  }
  Log All() const {
    const std::lock_guard lock(mutex_);
    return log_;
  }

 private:
  mutable std::mutex mutex_;
  std::condition_variable happened_;
  Log log_;
};

// Says "hold" until it is stopped, nothing that it cannot say, and only the front of "half".
class Sayer : public SpeechBackend {
 public:
  Sayer(std::string name, Events& events) : name_(std::move(name)), events_(events) {}
  // One that has no voices.
  Sayer(Events& events, std::vector<std::string> voices)
      : name_("N"), voices_(std::move(voices)), events_(events) {}

  const std::vector<std::string>& Voices() const override { return voices_; }
  std::string Language(std::size_t voice) const override { return voice == 0 ? "en" : "de-AT"; }
  std::size_t VoiceFor(const std::string& language) const override {
    return language == "de-at" ? 1 : 0;
  }
  Connection State() const override { return {name_, ConnectionState::Attached, ""}; }

  bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) override {
    const std::string said = ToUtf8(text);
    events_.Add(name_ + std::to_string(prosody.voice.value_or(9)) + " " + said);
    if (said == "hold") {
      EXPECT_TRUE(stop.Await(kLongEnough));
    } else if (said == "half") {
      text.remove_prefix(2);
    }
    return works && said != "half";
  }
  void Cut() override {
    sounding = milliseconds(0);
    events_.Add(name_ + " cut");
  }
  milliseconds Finish() override {
    events_.Add(name_ + " finish");
    return sounding;
  }
  void Rest() override { events_.Add(name_ + " rest"); }

  std::atomic<bool> works = true;
  std::atomic<milliseconds> sounding{milliseconds(0)};

 private:
  const std::string name_;
  const std::vector<std::string> voices_ = {name_ + " English", name_ + " German"};
  Events& events_;
};

// Raises an exception wherever it may.
class Raiser : public SpeechBackend {
 public:
  const std::vector<std::string>& Voices() const override { return voices_; }
  std::string Language(std::size_t) const override { return "en"; }
  std::size_t VoiceFor(const std::string&) const override { return 0; }
  Connection State() const override { return {"R", ConnectionState::Failed, ""}; }
  void Prepare() override { throw Failure(kInvalidCall); }
  bool Say(std::u32string_view&, const Prosody&, const StopToken&) override {
    throw Failure(kInvalidCall);
  }
  void Cut() override { throw std::runtime_error("cut"); }
  milliseconds Finish() override { throw std::runtime_error("finish"); }
  void Rest() override { throw std::runtime_error("rest"); }

 private:
  const std::vector<std::string> voices_ = {"R English"};
};

class SpeechQueueTest : public testing::Test {
 protected:
  SpeechQueueTest() {
    std::vector<std::unique_ptr<SpeechBackend>> speakers;
    for (const char* name : {"A", "B"}) {
      auto sayer = std::make_unique<Sayer>(name, events_);
      sayers_.push_back(sayer.get());
      speakers.push_back(std::move(sayer));
    }
    voice_ = std::make_unique<QueuedVoice>(std::move(speakers));
  }

  void Say(std::size_t voice, const std::string& text, int flags = SVSFlagsAsync) {
    voice_->SetVoice(voice);
    voice_->Speak(text, flags);
  }

  // What has been said up to the silence, without what the speakers did beside it.
  Log Said() {
    EXPECT_TRUE(voice_->WaitUntilSilent(kLongEnough));
    Log said;
    for (const std::string& event : events_.All()) {
      if (event[1] != ' ') said.push_back(event);
    }
    return said;
  }

  Events events_;
  std::vector<Sayer*> sayers_;
  std::unique_ptr<QueuedVoice> voice_;
};

TEST_F(SpeechQueueTest, ListsTheVoicesOfOneSpeakerBehindThoseOfAnother) {
  EXPECT_EQ(voice_->GetVoices(), Log({"A English", "A German", "B English", "B German"}));
  EXPECT_EQ(voice_->Engines().at(1).Name, "B");
}

TEST_F(SpeechQueueTest, HasEachSentenceSaidByItsSpeakerInItsVoice) {
  for (const std::size_t voice : {3, 0, 2, 1}) Say(voice, "x");
  EXPECT_EQ(Said(), Log({"B1 x", "A0 x", "B0 x", "A1 x"}));
}

TEST_F(SpeechQueueTest, LetsOneSpeakerFinishBeforeAnotherBegins) {
  Say(0, "one");
  Say(2, "two");
  EXPECT_EQ(Said(), Log({"A0 one", "B0 two"}));
  const Log all = events_.All();
  const auto two = std::find(all.begin(), all.end(), "B0 two");
  EXPECT_EQ(Log(two - 2, two), Log({"A finish", "A rest"}));
}

TEST_F(SpeechQueueTest, IsSilencedWhileOneSpeakerFinishesForAnother) {
  sayers_[0]->sounding = std::chrono::hours(1);
  Say(0, "one");
  Say(2, "never");
  ASSERT_TRUE(events_.Await("A finish"));
  Say(2, "three", kPurge);
  EXPECT_EQ(Said(), Log({"A0 one", "B0 three"}));
}

TEST_F(SpeechQueueTest, StopsWhoeverSpeaksAtAPurge) {
  for (const std::size_t voice : {0, 2}) {
    Say(voice, "hold");
    Say(voice, "never");
    const std::string name = voice == 0 ? "A" : "B";
    ASSERT_TRUE(events_.Await(name + "0 hold"));
    voice_->Speak("", kPurge);
    ASSERT_TRUE(events_.Await(name + " cut"));
  }
  EXPECT_EQ(Said(), Log({"A0 hold", "B0 hold"}));
}

TEST_F(SpeechQueueTest, EndsInTheMiddleOfASentence) {
  Say(2, "hold");
  Say(2, "never");
  ASSERT_TRUE(events_.Await("B0 hold"));
  voice_.reset();
  const Log all = events_.All();
  EXPECT_EQ(std::count(all.begin(), all.end(), "B0 never"), 0);
}

TEST_F(SpeechQueueTest, HasTheFirstSpeakerSayWhatAnotherCannotInTheNearestLanguage) {
  sayers_[1]->works = false;
  Say(2, "one");
  Say(3, "two");
  EXPECT_EQ(Said(), Log({"B0 one", "A0 one", "B1 two", "A1 two"}));
}

TEST_F(SpeechQueueTest, HasNothingSaidTwiceThatAnotherHasBegun) {
  Say(2, "half");
  EXPECT_EQ(Said(), Log({"B0 half", "A0 lf"}));
}

TEST_F(SpeechQueueTest, HasNobodyStandInForTheFirstSpeaker) {
  sayers_[0]->works = false;
  Say(0, "one");
  EXPECT_EQ(Said(), Log{"A0 one"});
}

TEST_F(SpeechQueueTest, TestsASpeakerAloneWithTheChosenVoiceOrItsFirst) {
  sayers_[1]->works = false;
  voice_->SetVoice(1);
  voice_->TestEngine(0, "x");
  voice_->TestEngine(1, "y");
  EXPECT_EQ(Said(), Log({"A1 x", "B0 y"}));
}

TEST(QueuedVoiceTest, SurvivesABackendThatRaises) {
  Events events;
  QueuedVoice::Backends backends;
  backends.push_back(std::make_unique<Sayer>("A", events));
  backends.push_back(std::make_unique<Raiser>());
  QueuedVoice voice(std::move(backends));
  EXPECT_TRUE(voice.HasSound());
  voice.SetVoice(2);
  voice.Speak("one", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(kLongEnough));
  voice.TestEngine(1, "never");
  voice.Speak("", kPurge);
  ASSERT_TRUE(voice.WaitUntilSilent(kLongEnough));
  voice.SetVoice(0);
  voice.Speak("two", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(kLongEnough));
  Log said;
  for (const std::string& event : events.All()) {
    if (event[1] != ' ') said.push_back(event);
  }
  EXPECT_EQ(said, Log({"A0 one", "A0 two"}));
}

TEST(QueuedVoiceTest, PassesOverEverySentenceWithoutABackend) {
  QueuedVoice voice({});
  EXPECT_TRUE(voice.GetVoices().empty());
  EXPECT_FALSE(voice.HasSound());
  voice.Speak("one", kPurge);
  EXPECT_TRUE(voice.WaitUntilSilent(kLongEnough));
  EXPECT_TRUE(voice.Engines().empty());
}

TEST(QueuedVoiceTest, TestsASpeakerWhereNobodyHasAVoice) {
  Events events;
  std::vector<std::unique_ptr<SpeechBackend>> speakers;
  speakers.push_back(std::make_unique<Sayer>(events, std::vector<std::string>()));
  QueuedVoice voice(std::move(speakers));
  voice.TestEngine(0, "x");
  ASSERT_TRUE(voice.WaitUntilSilent(kLongEnough));
  EXPECT_EQ(events.All().front(), "N9 x");
}

}  // namespace
}  // namespace brenwick
