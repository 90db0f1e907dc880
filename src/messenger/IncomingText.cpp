#include "messenger/IncomingText.h"

#include <cstddef>

#include "base/Failure.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace brenwick {
namespace {

// Where the count of an inbox notice begins: at the colon behind the notice's name, which the
// search for digits passes over.
constexpr std::size_t kCountStart = 12;
constexpr std::size_t kPrefixLength = 5;  // of "/TALK" and "FROM:"

// The number in an inbox notice's first line, written without anything around it.
std::string UnreadCount(const std::string& text) {
  std::string digits;
  for (const char32_t character : Characters(AfterCharacters(text, kCountStart))) {
    if (character == U'\r') break;
    const bool counts = (character >= U'0' && character <= U'9') || character == U' ';
    if (counts) digits += static_cast<char>(character);
  }
  return std::to_string(WholeInteger16(digits));
}

// The sender in a notice that begins with "FROM:": the text between the colon and the line end.
std::string MailSender(const std::string& text) {
  const std::size_t end = text.find('\r');
  if (end == std::string::npos) throw Failure(kInvalidCall);
  return text.substr(kPrefixLength, end - kPrefixLength);
}

bool BeginsWith(const std::string& text, std::string_view prefix) {
  return UpperCase(FirstCharacters(text, kPrefixLength)) == prefix;
}

}  // namespace

void IncomingText::oMessenger_OnTextReceived(const MessengerContact& sender,
                                             const std::string& header, const std::string& text) {
  log_.Trap("frmMain", "oMessenger_OnTextReceived",
            [&] { journal_.Add(sender.FriendlyName, text, Handle(sender, header, text)); });
}

Outcome IncomingText::Handle(const MessengerContact& sender, const std::string& header,
                             const std::string& text) {
  Log("Header:" + header);
  Log("Text  :" + text);
  Log("From  :" + sender.FriendlyName);
  const Outcome outcome = WhetherSpoken(sender, text);
  const std::string voice = contacts_.GetContactValue(sender.SigninName, "G");
  if (IsMailNotice(sender, text)) return AnnounceMail(text);
  return outcome == Outcome::Spoken ? SpeakMessage(sender, text, voice) : outcome;
}

Outcome IncomingText::WhetherSpoken(const MessengerContact& sender, const std::string& text) {
  if (text.empty()) {
    Log("Text empty, not speaking");
    return Outcome::Empty;
  }
  if (text.front() == '\r') {
    Log("Text is only CR, not speaking");
    return Outcome::Empty;
  }
  const bool ignored = contacts_.GetContactValue(sender.SigninName, "I") == "True";
  return ignored ? Outcome::Ignored : Outcome::Spoken;
}

bool IncomingText::IsMailNotice(const MessengerContact& sender, const std::string& text) {
  if (text.empty()) {
    Log("No messagetext, only header was sent");
    return false;
  }
  if (UpperCase(sender.FriendlyName) != "HOTMAIL") {
    Log("MessageText not empty but not a Hotmail message: not spoken");
    return false;
  }
  Log("Announcement from Hotmail");
  return true;
}

Outcome IncomingText::AnnounceMail(const std::string& text) {
  const bool inbox = UpperCase(text).find("INBOX-UNREAD:") != std::string::npos;
  return inbox ? AnnounceInbox(text) : AnnounceNewMail(text);
}

bool IncomingText::MailIsAnnounced() {
  if (settings_.NotifyNewEmail) return true;
  Log("New mail announcements are off, not speaking");
  return false;
}

Outcome IncomingText::AnnounceInbox(const std::string& text) {
  Log("From Hotmail inbox, number of unread messages");
  if (!MailIsAnnounced()) return Outcome::MailOff;
  const std::string count = UnreadCount(text);
  Log("Speaking number of Hotmail messages " + count);
  if (count == "0") return Outcome::NothingToSay;
  if (count == "1") return speech_.Speak(texts_.LoadText(60), false, kDefaultVoice, false);
  return speech_.Announce(texts_.GetText(texts_.LoadText(59), count), false, kDefaultVoice);
}

Outcome IncomingText::AnnounceNewMail(const std::string& text) {
  Log("From Hotmail, but not from the inbox");
  if (!MailIsAnnounced()) return Outcome::MailOff;
  if (!BeginsWith(text, "FROM:")) {
    Log("Cannot determine from whom, not speaking");
    return Outcome::NothingToSay;
  }
  Log("Speaking new mail arrived from");
  return speech_.Announce(texts_.LoadText(61) + clean_up_.ConvertUserCapitals(MailSender(text)),
                          false, kDefaultVoice);
}

Outcome IncomingText::SpeakMessage(const MessengerContact& sender, const std::string& text,
                                   const std::string& voice) {
  Log("Message, not from Hotmail");
  const bool forced = BeginsWith(text, "/TALK");
  if (forced) Log("Overruled by /talk parameter");
  if (settings_.NoMessageOnlyUserState && !forced) {
    Log("DoNotSpeakMessage is checked: not spoken");
    return Outcome::OnlyStates;
  }
  Log("DoNotSpeakMessage is not checked, we speak");
  std::string sentence;
  if (settings_.IntroduceUser) {
    Log("Adding username to message");
    sentence = NamePart(sender);
  } else {
    Log("Username is not added to string");
  }
  sentence += forced ? AfterCharacters(text, kPrefixLength) : text;
  Log("Replace abbreviations from TXT file");
  return speech_.Announce(std::move(sentence), forced, voice,
                          [this](const std::string& said) { Log("Speaking " + said); });
}

std::string IncomingText::NamePart(const MessengerContact& sender) {
  contacts_.ListMod("N", sender.SigninName, sender.FriendlyName);
  return name_.Of(sender) + " " + settings_.Says + " ";
}

}  // namespace brenwick
