// What a day with 100,000 sentences leaves in memory: the list of the spoken words, which keeps
// every line until the program ends, and the sentences that wait to be said, which a purge forgets.
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "People.h"
#include "Stage.h"
#include "voice/SpeechQueue.h"

namespace brenwick {
namespace {

constexpr int kSentences = 100'000;
constexpr std::int64_t kContacts = 100;

double MiBInUse() {
  const struct mallinfo2 use = mallinfo2();
  return static_cast<double>(use.uordblks + use.hblkhd) / (1024.0 * 1024.0);
}

std::string SentenceText(int number) {
  return "sentence " + std::to_string(number) + " of a day on which people chat a lot";
}

bool MeasureList() {
  EmptyVoice voice;
  Stage stage(voice, kContacts);
  stage.Form().chkDebug.SetTicked(false);
  const double before = MiBInUse();
  for (int i = 0; i < kSentences; ++i) {
    stage.Messenger().OnTextReceived({EmailOf(i % kContacts + 1), "Contact"}, "", SentenceText(i));
  }
  std::printf("%d spoken sentences: %.1f MiB\n", kSentences, MiBInUse() - before);
  return stage.Form().lstMessages.ListCount() >= kSentences;
}

// Begins with the first sentence and does not come to its end.
class BusySpeaker : public SpeechBackend {
 public:
  const std::vector<std::string>& Voices() const override { return voices_; }
  std::string Language(std::size_t /*voice*/) const override { return "en"; }
  std::size_t VoiceFor(const std::string& /*language*/) const override { return 0; }
  Connection State() const override { return {.Name = "busy"}; }
  bool Say(std::u32string_view& text, const Prosody& /*prosody*/, const StopToken& stop) override {
    while (!stop.Await(std::chrono::seconds(1))) {
    }
    text = {};
    return true;
  }
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }

 private:
  std::vector<std::string> voices_ = {"busy"};
};

void MeasureQueue() {
  BusySpeaker speaker;
  SpeechQueue queue({&speaker});
  queue.WaitUntilPrepared();
  const double before = MiBInUse();
  for (int i = 0; i < kSentences; ++i) {
    queue.Add({.text = SentenceText(i), .backend = &speaker});
  }
  std::printf("%d waiting sentences: %.1f MiB", kSentences, MiBInUse() - before);
  queue.Purge();
  std::printf(", after a purge: %.1f MiB\n", MiBInUse() - before);
}

}  // namespace
}  // namespace brenwick

int main() {
  const bool listed = brenwick::MeasureList();
  brenwick::MeasureQueue();
  return listed ? 0 : 1;
}
