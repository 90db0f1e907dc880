#include "linux/speechd/SpeechdBackend.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Text.h"
#include "linux/speechd/SpeechdStart.h"
#include "voice/LanguageTag.h"
#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using Event = SsipConnection::Event;

constexpr const char* kName = "Speech Dispatcher";
constexpr const char* kNoEngineThere = "Speech Dispatcher's speech engine does not work";
constexpr const char* kNews = "Its voices are in the lists from the next start on";

// How long the server may take to tell that a message is silenced.
constexpr milliseconds kSilenceIn{250};

// How often a sentence is tried before it is left to somebody else.
constexpr int kTries = 2;

// So much longer than usual a text may take while its engine is there.
constexpr int kPatienceWithSlowSpeech = 4;
// The user has paused all speech, and goes on whenever the user likes.
constexpr std::chrono::hours kPause{24};

// Listing the voices, which shows whether an engine is there, is half a second of work for an
// engine that has thousands; that is not done behind every sentence.
constexpr std::size_t kShortList = 500;
constexpr seconds kCheckLongListEvery{10};

// What an engine makes of one character, at most and on average over a sentence.
milliseconds TimeOf(char32_t character) {
  constexpr milliseconds kLetter{150}, kDigit{600}, kIdeograph{600}, kSymbol{2500};
  if (character >= U'0' && character <= U'9') return kDigit;
  if (character < 0x2000) return kLetter;
  const bool ideograph = character >= 0x3040 && character <= 0xD7AF;
  return ideograph ? kIdeograph : kSymbol;
}

bool IsOver(std::u32string_view text) { return NextPiece(text).empty(); }

std::vector<std::string> Commands(const SpeechdVoiceEntry* voice, const Prosody& prosody) {
  constexpr int kRateSteps = 10;
  std::vector<std::string> commands;
  const auto set = [&](const std::string& what, const std::string& value) {
    if (!value.empty()) commands.push_back("SET SELF " + what + " " + value);
  };
  if (voice) {
    set("OUTPUT_MODULE", voice->module);
    set("LANGUAGE", voice->language);
    set("SYNTHESIS_VOICE", voice->name);
  }
  // −100 to 100 each.
  set("RATE", std::to_string(kRateSteps * prosody.rate));
  set("VOLUME", std::to_string(2 * prosody.volume - 100));
  return commands;
}

}  // namespace

milliseconds UsualTime(std::string_view text, int rate) {
  milliseconds time{0};
  for (const char32_t character : Characters(text)) time += TimeOf(character);
  const double slowness = std::pow(3.0, -rate / 10.0);
  return milliseconds(std::lround(static_cast<double>(time.count()) * slowness));
}

SpeechdBackend::SpeechdBackend(SpeechdOptions options)
    : options_(std::move(options)),
      retry_after_(options_.patience.retry),
      memory_(options_.address, options_.memory,
              [this](bool reached, bool news) { VoicesAsked(reached, news); }) {
  if (!SpeechdMayBeThere(options_.address)) {
    detail_ = "It is not installed";
    return;
  }
  voices_ = SpeechdVoicesFor(memory_.Voices(), options_.locale);
  for (const SpeechdVoiceEntry& voice : voices_) descriptions_.push_back(voice.description);
  memory_.Refresh();
}

std::size_t SpeechdBackend::VoiceFor(const std::string& language) const {
  const auto nearest =
      std::min_element(voices_.begin(), voices_.end(), [&](const auto& a, const auto& b) {
        return TagDistance(LanguageTag(a.language), language) <
               TagDistance(LanguageTag(b.language), language);
      });
  return static_cast<std::size_t>(nearest - voices_.begin());
}

Connection SpeechdBackend::State() const {
  const std::lock_guard lock(mutex_);
  return {kName, state_, state_ == ConnectionState::Attached && news_ ? kNews : detail_};
}

// A sentence that gets further with each try is tried on.
bool SpeechdBackend::Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) {
  if (!prosody.try_anyway && steady_clock::now() < retry_at_) return false;
  int tries = State().State == ConnectionState::Failed ? 1 : kTries;
  std::size_t left = text.size();
  for (int failures = 0; failures < tries;) {
    try {
      SayAll(text, prosody, stop);
      return true;
    } catch (const SsipStopped&) {
      connection_.reset();
      return true;
    } catch (const SsipSilence& silence) {
      Lose(silence);
      tries = 0;
    } catch (const SsipTrouble& trouble) {
      Lose(trouble);
    }
    if (stop.StopRequested() || IsOver(text)) return true;
    if (text.size() < std::exchange(left, text.size())) failures = 0;
    ++failures;
  }
  LeaveAlone();
  return false;
}

void SpeechdBackend::Lose(const SsipTrouble& trouble) {
  connection_.reset();
  doubtful_ = true;
  trouble_ = trouble.what();
}

void SpeechdBackend::LeaveAlone() {
  retry_at_ = steady_clock::now() + retry_after_;
  retry_after_ = std::min<milliseconds>(2 * retry_after_, SpeechdPatience::kLongestRetry);
  SetState(ConnectionState::Failed, trouble_);
}

void SpeechdBackend::SayAll(std::u32string_view& text, const Prosody& prosody,
                            const StopToken& stop) {
  Connect(stop);
  Use(prosody, stop);
  bool again = false;  // the piece was begun before, and hardly heard
  while (!stop.StopRequested()) {
    std::u32string_view rest = text;
    const std::string piece = NextPiece(rest);
    if (piece.empty()) return;
    const Outcome outcome = SayPiece(piece, prosody, stop);
    if (outcome == Outcome::Silenced) return;
    if (outcome == Outcome::HardlyHeard && !std::exchange(again, true)) continue;
    again = false;
    const std::u32string_view before = std::exchange(text, rest);
    // What has been said is not said again even where the question behind it remains unanswered.
    if (outcome != Outcome::Said || stop.StopRequested()) continue;
    if (steady_clock::now() >= check_again_at_ && !HasEngine(prosody, stop)) {
      text = before;
      throw SsipTrouble(kNoEngineThere);
    }
    retry_at_ = {};
    retry_after_ = options_.patience.retry;
    SetState(ConnectionState::Attached, "");
  }
}

void SpeechdBackend::Connect(const StopToken& stop) {
  if (connection_) return;
  in_use_.clear();
  try {
    connection_ = std::make_unique<SsipConnection>(options_.address, options_.patience.answer);
  } catch (const SsipTrouble&) {
    if (options_.address.given || !StartDispatcher(options_.address.socket, stop)) throw;
    connection_ = std::make_unique<SsipConnection>(options_.address, options_.patience.answer);
  }
  connection_->Ask("SET SELF CLIENT_NAME user:brenwick:speech", &stop);
  connection_->Ask("SET SELF NOTIFICATION ALL on", &stop);
  // Messages are said one behind the other; none pushes another aside.
  connection_->Ask("SET SELF PRIORITY message", &stop);
  memory_.Refresh();
}

void SpeechdBackend::Use(const Prosody& prosody, const StopToken& stop) {
  const SpeechdVoiceEntry* const voice = prosody.voice ? &voices_.at(*prosody.voice) : nullptr;
  std::vector<std::string> commands = Commands(voice, prosody);
  if (commands != in_use_) {
    in_use_.clear();
    for (const std::string& command : commands) connection_->Ask(command, &stop);
    in_use_ = std::move(commands);
  }
  if (doubtful_) CheckEngine(prosody, stop);
  doubtful_ = false;
}

// The server does not tell that an engine has died, and has others speak in its place.
void SpeechdBackend::CheckEngine(const Prosody& prosody, const StopToken& stop) {
  if (HasEngine(prosody, stop)) return;
  throw SsipTrouble(kNoEngineThere);
}

bool SpeechdBackend::HasEngine(const Prosody& prosody, const StopToken& stop) {
  try {
    const std::vector<std::string> lines = connection_->Ask("LIST SYNTHESIS_VOICES", &stop);
    const bool is_long = lines.size() > kShortList;
    check_again_at_ = steady_clock::now() + (is_long ? kCheckLongListEvery : seconds(0));
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
      const std::string name = ReadListing("", line).name;
      return prosody.voice ? name == voices_[*prosody.voice].name : name != kNoEngine;
    });
  } catch (const SsipRefusal&) {
    return false;
  }
}

SpeechdBackend::Outcome SpeechdBackend::SayPiece(const std::string& piece, const Prosody& prosody,
                                                 const StopToken& stop) {
  const std::string message = connection_->Say(piece, &stop);
  milliseconds patience = options_.patience.answer;
  milliseconds left = options_.patience.turn;
  std::optional<steady_clock::time_point> begun;
  while (left.count() > 0) {
    const std::optional<Event> event = connection_->Await(message, patience, &stop);
    if (event == Event::End) return Outcome::Said;
    if (stop.StopRequested()) {
      if (event != Event::Canceled) Silence(message);
      return Outcome::Silenced;
    }
    if (!event) {
      if (steady_clock::now() >= check_again_at_) CheckEngine(prosody, stop);
      left -= patience;
    } else if (event == Event::Begin || event == Event::Resumed) {
      if (!begun) begun = steady_clock::now();
      patience = options_.patience.answer + UsualTime(piece, prosody.rate);
      left = kPatienceWithSlowSpeech * patience;
    } else if (event == Event::Paused) {
      patience = left = kPause;
    } else if (event == Event::Canceled) {
      const bool heard = begun && steady_clock::now() >= *begun + options_.patience.heard;
      return heard ? Outcome::PushedAside : Outcome::HardlyHeard;
    }
  }
  Silence(message);
  if (!begun) throw SsipSilence("Speech Dispatcher does not begin to speak");
  throw SsipTrouble("Speech Dispatcher does not say whether it has spoken");
}

// The server's own silence takes a moment. Where it takes longer the connection is given up, which
// takes the message back as well.
void SpeechdBackend::Silence(const std::string& message) {
  try {
    connection_->Ask("CANCEL SELF", nullptr, kSilenceIn);
    while (const auto event = connection_->Await(message, kSilenceIn, nullptr)) {
      if (*event == Event::End || *event == Event::Canceled) return;
    }
  } catch (const SsipTrouble&) {
    // The next sentence makes another connection.
  }
  connection_.reset();
}

void SpeechdBackend::SetState(ConnectionState state, const std::string& detail) {
  bool failed = false;
  {
    const std::lock_guard lock(mutex_);
    if (state == state_ && detail == detail_) return;
    failed = state == ConnectionState::Failed && state_ != ConnectionState::Failed;
    state_ = state;
    detail_ = detail;
  }
  if (failed && options_.tell)
    options_.tell(detail + ". Until it works, eSpeak NG speaks in its place.");
  if (options_.changed) options_.changed();
}

// Listing voices does not clear a failure to speak.
void SpeechdBackend::VoicesAsked(bool reached, bool news) {
  if (!reached) return;
  {
    const std::lock_guard lock(mutex_);
    news_ = news;
    if (state_ == ConnectionState::Waiting) {
      state_ = ConnectionState::Attached;
      detail_.clear();
    }
  }
  if (options_.changed) options_.changed();
}

}  // namespace brenwick
