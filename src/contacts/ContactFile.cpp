#include "contacts/ContactFile.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Failure.h"
#include "base/Lines.h"
#include "base/ProgramState.h"
#include "base/SystemText.h"

namespace brenwick {
namespace {

constexpr std::size_t kLinesPerContact = 7;
constexpr std::size_t kMostContacts = 32767;

std::string DatedSuffix(LocalTime now) {
  const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(now)};
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), ".damaged-%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text.data();
}

ContactRecord RecordFrom(const std::vector<std::string_view>& lines, std::size_t first) {
  const auto field = [&](std::size_t i) { return TextFromSystemCodePage(lines[first + i]); };
  return {field(0), field(1), field(2), field(3), field(4), field(5), field(6)};
}

// A line end inside a field would move every field behind it.
void AppendField(std::string& content, std::string_view field) {
  const std::size_t start = content.size();
  content.append(field);
  std::replace_if(
      content.begin() + static_cast<std::ptrdiff_t>(start), content.end(),
      [](char c) { return c == '\r' || c == '\n'; }, ' ');
  content.append("\r\n");
}

std::string FileContent(const std::vector<ContactRecord>& records) {
  constexpr std::size_t kUsualLength = 100;
  std::string content;
  content.reserve(records.size() * kUsualLength);
  for (const ContactRecord& record : records) {
    if (record.Email.empty()) continue;
    AppendField(content, record.Email);
    AppendField(content, record.Name);
    AppendField(content, record.HasFriendlyName == "True" ? std::string_view(record.FriendlyName)
                                                          : std::string_view());
    AppendField(content, record.Gender);
    AppendField(content, record.Ignore);
    AppendField(content, record.Status);
    AppendField(content, record.HasFriendlyName);
  }
  // Without a mark of the file's own, an address that begins like one would lose its beginning.
  const bool marked = WithoutByteOrderMark(content).size() != content.size();
  if (marked) content.insert(0, kByteOrderMark);
  return content;
}

// The last line of a whole file is one of these; a file that was cut may end with anything.
bool IsLastFieldWhole(const std::vector<std::string_view>& lines) {
  return lines.empty() || lines.back().empty() || lines.back() == "True" || lines.back() == "False";
}

}  // namespace

void ContactFile::Load() {
  contacts_.Replace({});
  loaded_ = false;
  if (!folders_.FileExists(Path())) return;
  const std::string content = folders_.Read(Path());
  const std::vector<std::string_view> lines = Lines(WithoutByteOrderMark(content));
  const std::size_t whole = lines.size() / kLinesPerContact;
  std::vector<ContactRecord> records;
  for (std::size_t i = 0; i < std::min(whole, kMostContacts); ++i) {
    records.push_back(RecordFrom(lines, i * kLinesPerContact));
  }
  contacts_.Replace(std::move(records));
  const bool complete =
      lines.size() % kLinesPerContact == 0 && (content.ends_with('\n') || IsLastFieldWhole(lines));
  if (!complete || whole > kMostContacts) SetAside(content);
  loaded_ = true;
  if (whole > kMostContacts) throw Failure(kOverflow);
  if (!complete) throw Failure(kPastEnd);
}

void ContactFile::Save() {
  if (!loaded_ && folders_.FileExists(Path())) return;
  folders_.Replace(Path(), FileContent(contacts_.Records()));
  loaded_ = true;
}

std::string ContactFile::Path() { return data_.Inside(std::string(kTitle) + ".Lst"); }

// A file kept aside earlier is not written over.
void ContactFile::SetAside(const std::string& content) {
  const std::string name = Path() + DatedSuffix(clock_.Now());
  std::string free = name;
  for (int i = 2; folders_.FileExists(free); ++i) free = name + "-" + std::to_string(i);
  folders_.Replace(free, content);
}

}  // namespace brenwick
