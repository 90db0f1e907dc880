#include "messenger/SpokenName.h"

#include "base/Text.h"

namespace brenwick {
namespace {

// The first letter of each word in upper case, the others in lower case.
std::string ProperCase(const std::string& text) {
  std::string result;
  bool at_word_start = true;
  for (const char32_t character : Characters(text)) {
    AppendUtf8(result, at_word_start ? UpperCase(character) : LowerCase(character));
    at_word_start = character == U' ';
  }
  return result;
}

}  // namespace

std::string SpokenName::Of(const MessengerContact& contact) const {
  return clean_up_.ConvertUserCapitals(Choose(contact));
}

std::string SpokenName::Calmed(const MessengerContact& contact) const {
  std::string name = Of(contact);
  return name == UpperCase(name) ? ProperCase(name) : name;
}

std::string SpokenName::Choose(const MessengerContact& contact) const {
  if (settings_.UseMyNames) {
    const std::string own = contacts_.GetContactValue(contact.SigninName, "A");
    // "B" names no field: its answer is what an empty name would be.
    if (own != contacts_.GetContactValue(contact.SigninName, "B")) return own;
  }
  const std::size_t space = contact.FriendlyName.find(' ');
  if (settings_.FirstName && space != std::string::npos) {
    return contact.FriendlyName.substr(0, space);
  }
  return contact.FriendlyName;
}

}  // namespace brenwick
