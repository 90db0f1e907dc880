#include "sources/ForeignText.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::string_view kWhite = " \t\r\n";
constexpr std::size_t kLongestEntity = 10;
constexpr char32_t kNoBreakSpace = 0xA0;
constexpr char32_t kMostOfUnicode = 0x10FFFF;

struct Entity {
  std::string_view name;
  char32_t character;
};
constexpr Entity kEntities[] = {{"amp", U'&'},  {"lt", U'<'},    {"gt", U'>'},
                                {"quot", U'"'}, {"apos", U'\''}, {"nbsp", kNoBreakSpace}};

// What stands in the place of a tag.
enum class Substitute { Nothing, LineBreak, Description };

struct Tag {
  std::string_view name;
  Substitute substitute;
};
constexpr Tag kTags[] = {
    {"a", Substitute::Nothing},       {"b", Substitute::Nothing},
    {"br", Substitute::LineBreak},    {"code", Substitute::Nothing},
    {"div", Substitute::LineBreak},   {"em", Substitute::Nothing},
    {"font", Substitute::Nothing},    {"i", Substitute::Nothing},
    {"img", Substitute::Description}, {"li", Substitute::LineBreak},
    {"p", Substitute::LineBreak},     {"s", Substitute::Nothing},
    {"small", Substitute::Nothing},   {"span", Substitute::Nothing},
    {"strong", Substitute::Nothing},  {"tt", Substitute::Nothing},
    {"u", Substitute::Nothing},       {"ul", Substitute::LineBreak},
};

// Line ends are among them.
bool IsControl(char32_t c) {
  constexpr char32_t kDelete = 0x7F;
  constexpr char32_t kLastControl = 0x9F;
  constexpr char32_t kLineSeparator = 0x2028;
  constexpr char32_t kParagraphSeparator = 0x2029;
  return c < U' ' || (c >= kDelete && c <= kLastControl) || c == kLineSeparator ||
         c == kParagraphSeparator;
}
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::string_view Stripped(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhite);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

const Tag* FindTag(std::string_view inside) {
  if (inside.starts_with('/')) inside.remove_prefix(1);
  const auto end = std::find_if_not(inside.begin(), inside.end(), IsLetter);
  const std::string name = LowerCase(std::string_view(inside.begin(), end));
  const bool ends = end == inside.end() || *end == '/' || kWhite.find(*end) != kWhite.npos;
  const auto* tag = std::find_if(std::begin(kTags), std::end(kTags),
                                 [&name](const Tag& each) { return each.name == name; });
  return ends && tag != std::end(kTags) ? tag : nullptr;
}

std::string_view TakeUntil(std::string_view& text, std::string_view ends) {
  const std::size_t end = std::min(text.find_first_of(ends), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

// The value of alt="…" in a tag. The same word may well occur within another value.
std::string_view Description(std::string_view inside) {
  while (!inside.empty()) {
    const std::string_view before = Stripped(TakeUntil(inside, "="));
    const std::size_t space = before.find_last_of(kWhite);
    const std::string name = LowerCase(before.substr(space + 1));
    inside.remove_prefix(std::min(inside.find_first_not_of(kWhite), inside.size()));
    const bool quoted = inside.starts_with('"') || inside.starts_with('\'');
    const std::string_view end = quoted ? inside.substr(0, 1) : kWhite;
    if (quoted) inside.remove_prefix(1);
    const std::string_view value = TakeUntil(inside, end);
    if (quoted && name == "alt") return value;
  }
  return {};
}

std::optional<char32_t> CharacterOfNumber(std::string_view digits) {
  const bool hexadecimal = digits.starts_with('x') || digits.starts_with('X');
  if (hexadecimal) digits.remove_prefix(1);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal ? 16 : 10);
  const bool good = error == std::errc() && end == digits.data() + digits.size() &&
                    number <= kMostOfUnicode && (number >= U' ' || number == U'\n');
  return good ? std::optional<char32_t>(number) : std::nullopt;
}

std::optional<char32_t> CharacterOfEntity(std::string_view name) {
  if (name.starts_with('#')) return CharacterOfNumber(name.substr(1));
  const auto* entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                    [&name](const Entity& each) { return each.name == name; });
  return entity == std::end(kEntities) ? std::nullopt : std::optional<char32_t>(entity->character);
}

class Words {
 public:
  explicit Words(std::string_view rest) : rest_(rest) {}

  std::string Take() {
    while (!rest_.empty()) {
      if (!TakeTag() && !TakeEntity() && !TakeLineEnd()) TakeOne();
    }
    return std::string(Stripped(words_));
  }

 private:
  bool TakeTag() {
    if (rest_.front() != '<') return false;
    const std::size_t end = rest_.find_first_of("<>", 1);
    if (end == std::string_view::npos || rest_[end] != '>') return false;
    const std::string_view inside = rest_.substr(1, end - 1);
    const Tag* tag = FindTag(inside);
    if (tag == nullptr) return false;
    const bool breaks = tag->substitute == Substitute::LineBreak;
    if (breaks && !words_.empty() && words_.back() != '\n') words_ += '\n';
    rest_.remove_prefix(end + 1);
    if (tag->substitute == Substitute::Description) words_ += Words(Description(inside)).Take();
    return true;
  }

  bool TakeEntity() {
    if (rest_.front() != '&') return false;
    const std::size_t end = rest_.substr(0, kLongestEntity).find(';');
    if (end == std::string_view::npos) return false;
    const std::optional<char32_t> character = CharacterOfEntity(rest_.substr(1, end - 1));
    if (!character) return false;
    AppendUtf8(words_, *character);
    rest_.remove_prefix(end + 1);
    return true;
  }

  bool TakeLineEnd() {
    if (rest_.front() != '\r') return false;
    words_ += '\n';
    rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
    return true;
  }

  void TakeOne() {
    words_ += rest_.front();
    rest_.remove_prefix(1);
  }

  std::string_view rest_;
  std::string words_;
};

}  // namespace

std::string_view FirstBytes(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  constexpr unsigned char kKind = 0xC0;
  constexpr unsigned char kFollows = 0x80;
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & kKind) == kFollows) --bytes;
  return text.substr(0, bytes);
}

bool HasControls(std::string_view text) {
  const std::u32string characters = Characters(text);
  return std::any_of(characters.begin(), characters.end(), IsControl);
}

std::string OneLine(std::string_view text) {
  std::u32string characters = Characters(text);
  std::replace_if(characters.begin(), characters.end(), IsControl, U' ');
  return std::string(Stripped(ToUtf8(characters)));
}

std::string WithoutMarkup(std::string_view body) { return Words(body).Take(); }

}  // namespace brenwick
