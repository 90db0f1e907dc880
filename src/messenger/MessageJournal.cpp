#include "messenger/MessageJournal.h"

#include <algorithm>
#include <cstddef>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::size_t kExcerpt = 80;  // characters

LaterText Words(Outcome outcome) {
  switch (outcome) {
    case Outcome::Spoken:
      return {196, "Spoken"};
    case Outcome::Muted:
      return {197, "Muted"};
    case Outcome::SignedOut:
      return {198, "Signed out"};
    case Outcome::Ignored:
      return {199, "Ignored"};
    case Outcome::OnlyStates:
      return {200, "Only states are spoken"};
    case Outcome::Empty:
      return {201, "Empty"};
    case Outcome::MailOff:
      return {202, "New mail is not announced"};
    case Outcome::NothingToSay:
      return {203, "Nothing new"};
  }
  return {0, ""};
}

std::string Excerpt(const std::string& text) {
  std::string excerpt(FirstCharacters(text, kExcerpt));
  if (excerpt.size() < text.size()) excerpt += "…";
  std::replace_if(
      excerpt.begin(), excerpt.end(), [](unsigned char byte) { return byte < ' '; }, ' ');
  return excerpt;
}

}  // namespace

void MessageJournal::Add(const std::string& name, const std::string& text, Outcome outcome) {
  show_(texts_.LoadText(Words(outcome)) + ", " + Excerpt(name) + ": " + Excerpt(text));
}

}  // namespace brenwick
