// What a day with 100,000 sentences leaves in memory: the list of the spoken words keeps every line
// until the program ends.
#include <malloc.h>

#include <cstdio>
#include <string>

#include "People.h"
#include "Stage.h"

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

}  // namespace
}  // namespace brenwick

int main() { return brenwick::MeasureList() ? 0 : 1; }
