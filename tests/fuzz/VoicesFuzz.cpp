// The voices of a server in the place of speech-dispatcher that says any bytes, and a file of
// remembered voices of any bytes: what a person is shown, and what is remembered for the next
// start.
#include <algorithm>
#include <fstream>
#include <future>
#include <set>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "fuzz/SsipServer.h"
#include "linux/speechd/SpeechdVoiceCache.h"
#include "sources/ForeignText.h"

namespace brenwick {
namespace {

using Listings = std::vector<SpeechdListing>;

bool IsLine(const std::string& text) { return IsValidUtf8(text) && !HasControls(text); }

bool IsAmong(const Listings& listings, const SpeechdVoiceEntry& entry) {
  return std::any_of(listings.begin(), listings.end(), [&](const SpeechdListing& listing) {
    return listing.module == entry.module && listing.name == entry.name &&
           listing.language == entry.language;
  });
}

void CheckShown(const Listings& listings) {
  const auto shown = SpeechdVoicesFor(listings, "de_AT.UTF-8");
  std::set<std::string> descriptions;
  for (const SpeechdVoiceEntry& entry : shown) {
    Expect(IsLine(entry.description) && !entry.description.empty(), "a voice is shown on a line");
    Expect(descriptions.insert(entry.description).second, "no two voices look alike");
    Expect(!entry.name.empty() && IsAmong(listings, entry), "a voice is one that the server has");
  }
  Listings backwards(listings.rbegin(), listings.rend());
  Expect(SpeechdVoicesFor(backwards, "de_AT.UTF-8") == shown, "the server's order does not matter");
}

void CheckCondensed(const Listings& listings) {
  const Listings condensed = CondensedVoices(listings);
  Expect(CondensedVoices(condensed) == condensed, "what was condensed is not condensed further");
  Expect(CondensedVoices({listings.rbegin(), listings.rend()}) == condensed,
         "the server's order does not matter");
  for (const SpeechdListing& listing : condensed) {
    Expect(std::find(listings.begin(), listings.end(), listing) != listings.end(),
           "what is remembered is one that the server has");
  }
  CheckShown(condensed);
}

class Checker {
 public:
  void Check(std::string_view bytes) {
    CheckFile(bytes);
    CheckServer(bytes);
  }

 private:
  std::string File() const { return folder_.Path() + "/voices"; }

  void CheckFile(std::string_view bytes) {
    std::ofstream(File(), std::ios::binary | std::ios::trunc) << bytes;
    const Listings listings = SpeechdVoiceCache({}, File(), {}).Voices();
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 1;
    Expect(listings.size() <= static_cast<std::size_t>(lines), "a voice is a line of the file");
    for (const SpeechdListing& listing : listings) {
      Expect(IsLine(listing.module) && IsLine(listing.name) && IsLine(listing.language) &&
                 IsLine(listing.variant),
             "whatever the file holds, its texts are lines");
    }
    CheckCondensed(listings);
    CheckShown(listings);
  }

  void CheckServer(std::string_view bytes) {
    folder_.Empty();
    const auto [reached, news] = Ask(bytes);
    Expect(reached || !news, "there is no news of a server that was not reached");
    SpeechdVoiceCache memory({}, File(), {});
    const Listings listings = memory.Voices();
    Expect(news == !listings.empty(), "news is that there are voices");
    Expect(CondensedVoices(listings) == listings, "what is remembered is condensed");
    CheckShown(listings);
    Expect(Ask(bytes) == std::pair(reached, false), "the same again is no news");
    Expect(memory.Voices() == listings, "the same again is remembered as before");
  }

  // Whether the server was reached, and whether there was news.
  std::pair<bool, bool> Ask(std::string_view bytes) {
    std::promise<std::pair<bool, bool>> answer;
    SpeechdVoiceCache memory(server_.Address(), File(), [&answer](bool reached, bool news) {
      answer.set_value({reached, news});
    });
    memory.Refresh();
    server_.Answer(bytes);
    const auto answered = answer.get_future().get();
    server_.Heard();
    return answered;
  }

  const TemporaryFolder folder_;
  SsipServer server_;
};

const FuzzTarget kTarget("voices", [](std::string_view bytes) {
  static Checker checker;
  checker.Check(bytes);
});

}  // namespace
}  // namespace brenwick
