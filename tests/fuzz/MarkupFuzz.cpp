// Texts of other programs, any bytes: their words, their names and the notices of mail.
#include <algorithm>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "sources/ForeignText.h"
#include "sources/MailService.h"
#include "sources/RepeatFilter.h"

namespace brenwick {
namespace {

// The text as a sender writes it who knows that a body is markup.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string WithLineFeeds(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
    result += text[i] == '\r' ? '\n' : text[i];
  }
  return result;
}

bool IsWhite(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string Stripped(std::string text) {
  while (!text.empty() && IsWhite(text.back())) text.pop_back();
  const auto first = std::find_if_not(text.begin(), text.end(), IsWhite);
  return {first, text.end()};
}

std::string Without(std::string text, std::string_view characters) {
  std::erase_if(text, [characters](char c) { return characters.find(c) != characters.npos; });
  return text;
}

void CheckWords(const std::string& body) {
  const std::string words = WithoutMarkup(body);
  Expect(IsValidUtf8(words), "words are valid UTF-8");
  Expect(words.size() <= body.size(), "there are no more words than there is text");
  Expect(words.find('\r') == words.npos, "every line end is a line feed");
  Expect(words == Stripped(words), "there is no white space at the ends");
}

// What a sender means when one knows markup and writes it well.
void CheckMeaning(const std::string& one, const std::string& other) {
  const std::string first = Escaped(one);
  const std::string second = Escaped(other);
  Expect(WithoutMarkup(first) == Stripped(WithLineFeeds(one)), "an escaped text is the text");
  const std::string both = Stripped(WithLineFeeds(one) + WithLineFeeds(other));
  Expect(WithoutMarkup(first + "<b>" + second + "</b>") == both, "a bold word is the word");
  Expect(
      WithoutMarkup("<a href=\"" + Without(one, "<>") + "\">" + first + "</a><I>" + second) == both,
      "a link is its text");
  std::string lines = WithLineFeeds(one);
  if (!lines.empty() && !lines.ends_with('\n')) lines += '\n';
  lines = Stripped(lines + WithLineFeeds(other));
  Expect(WithoutMarkup(first + "<br/>" + second) == lines, "a line break is a line feed");
  Expect(WithoutMarkup("<p>" + first + "</p>" + second) == lines, "a paragraph ends its line");
}

void CheckImage(const std::string& one, const std::string& other) {
  const std::string source = Without(one, "<>\"");
  const std::string shown = Without(other, "\"");
  const std::string expected = Stripped(WithLineFeeds(shown));
  Expect(WithoutMarkup("<img src=\"" + source + "\" alt=\"" + Escaped(shown) + "\"/>") == expected,
         "an image is its description");
  Expect(WithoutMarkup("<IMG ALT=\"" + Escaped(shown) + "\" src='" + Without(source, "'") + "'>") ==
             expected,
         "an image is its description, whatever stands behind it");
}

void CheckLine(const std::string& text) {
  const std::string line = OneLine(text);
  Expect(IsValidUtf8(line) && !HasControls(line), "one line has no line end");
  Expect(line == Stripped(line) && line == OneLine(line), "one line stays as it is");
  Expect(CharacterCount(line) <= CharacterCount(text), "one line is no longer");
  if (!HasControls(text)) Expect(line == Stripped(text), "a line is itself");
}

void CheckFirstBytes(const std::string& text) {
  constexpr std::size_t kLongestCharacter = 4;
  const std::size_t step = std::max<std::size_t>(text.size() / 16, 1);
  for (std::size_t count = 0; count <= text.size() + step; count += step) {
    const std::string_view first = FirstBytes(text, count);
    Expect(first.size() <= count && text.starts_with(first), "the first bytes are the first");
    Expect(IsValidUtf8(first), "no character is cut in two");
    Expect(first.size() == text.size() || first.size() + kLongestCharacter > count,
           "only a character that does not fit is left out");
  }
}

void CheckNames(const std::string& signin, const std::string& friendly) {
  const MessengerContact quoted = QuotedContact(signin, friendly);
  Expect(!IsMailServiceName(quoted.FriendlyName), "nobody poses as the mail service");
  Expect(quoted.SigninName == signin, "a contact is signed in under its name");
  if (!IsMailServiceName(friendly)) {
    Expect(quoted.FriendlyName == friendly, "an ordinary contact keeps its name");
  }
}

void CheckNotice(const std::string& from) {
  constexpr std::string_view kFrom = "FROM:";
  const std::string notice = NewMailNotice(from);
  Expect(notice.starts_with(kFrom) && notice.ends_with('\r'), "a notice names the sender");
  Expect(UpperCase(notice).find("INBOX-UNREAD:") == notice.npos, "a sender is no inbox");
  const std::string name = notice.substr(kFrom.size(), notice.size() - kFrom.size() - 1);
  Expect(!HasControls(name), "a sender is one line");
  Expect(CharacterCount(name) == CharacterCount(OneLine(from)), "a sender's name is not cut");
}

// What is said of texts that replace one another, or not, all of one contact.
void CheckRepeats(const std::vector<std::string>& texts) {
  RepeatFilter filter;
  std::vector<std::string> said;
  for (const std::string& text : texts) {
    const bool replaces = text.size() % 2 == 0;
    const std::string part = filter.NewPart("anna", text, replaces);
    if (!replaces) Expect(part == text, "what stands by itself is new");
    const bool known = std::any_of(said.begin(), said.end(), [&](const std::string& before) {
      return text == before || text == before + '\n' + part || text == part + '\n' + before;
    });
    Expect(part == text || known, "only what was said is left out");
    said.push_back(text);
    Expect(filter.NewPart("anna", text, true).empty(), "the same again is nothing new");
    Expect(filter.NewPart("bert", text, false) == text, "what one says another may say");
  }
}

void Check(std::string_view bytes) {
  constexpr std::size_t kMostTexts = 20;
  std::vector<std::string> texts;
  for (const std::string_view part : Parts(bytes)) texts.push_back(Repaired(part));
  texts.resize(std::clamp<std::size_t>(texts.size(), 2, kMostTexts));
  for (const std::string& text : texts) {
    CheckWords(text);
    CheckLine(text);
    CheckFirstBytes(text);
    CheckNotice(text);
  }
  CheckMeaning(texts[0], texts[1]);
  CheckImage(texts[0], texts[1]);
  CheckNames(texts[0], texts[1]);
  CheckRepeats(texts);
}

const FuzzTarget kTarget("markup", Check);

}  // namespace
}  // namespace brenwick
