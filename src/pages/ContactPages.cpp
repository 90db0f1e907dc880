#include "pages/ContactPages.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kAlphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr float kAlphabetLength = 52;
constexpr int kUnitsPerCharacter = 4;

int Rounded(float number) { return static_cast<int>(std::nearbyint(number)); }

}  // namespace

std::string GetEmailFromString(std::string_view line) {
  std::string collected;
  bool collecting = false;
  for (auto at = line.rbegin(); at != line.rend(); ++at) {
    if (*at == ')') {
      collecting = true;
    } else if (*at == '(') {
      break;
    } else if (collecting) {
      collected += *at;
    }
  }
  std::reverse(collected.begin(), collected.end());
  return collected;
}

ContactPages::ContactPages(Logs& log, frmMain& form, Screen& screen, ContactList& contacts)
    : log_(log), form_(form), screen_(screen), contacts_(contacts) {
  FollowContacts();
}

void ContactPages::FollowContacts() {
  contacts_.RecordChanged = [this](std::size_t record) {
    for (ContactListPage& page : pages_) page.lines.RecordChanged(record);
  };
  contacts_.AllChanged = [this] {
    for (ContactListPage& page : pages_) page.lines.AllChanged();
  };
  contacts_.AfterAdd = [this] { RefreshAfterAdd(); };
  contacts_.AfterMod = [this](int index) { RefreshAfterMod(index); };
}

// The "Buddynames" list shows new contacts only when it is built anew.
void ContactPages::RefreshAfterAdd() {
  for (const ContactListPage& page : pages_) {
    if (page.which == "A" || !IsShowing(page)) continue;
    FillContactList(page.which, 0);
    return;
  }
}

void ContactPages::RefreshAfterMod(int index) {
  for (ContactListPage& page : pages_) {
    if (!IsShowing(page)) continue;
    if (SelectedListLine >= 0 && SelectedListLine < page.list.ListCount()) {
      page.lines.Remove(SelectedListLine);
    }
    FillContactList(page.which, index);
    return;
  }
}

void ContactPages::FillContactList(std::string_view which, int index) {
  log_.Trap("ModFunctions", "FillContactList", [&] { FillLists(which, index); });
}

void ContactPages::FillLists(std::string_view which, int index) {
  const Font kept = form_.TextFont();
  form_.SetTextFont(form_.lstGender.TextFont());
  Measure();
  for (ContactListPage& page : pages_) {
    if (which == page.which || which == "X") FillPage(page, index);
  }
  form_.SetTextFont(kept);
}

void ContactPages::Measure() {
  avg_char_width_ = TextWidth(kAlphabet) / kAlphabetLength;
  cell_padding_ = ToInteger16(avg_char_width_ + avg_char_width_);
}

// Pixels, in the window's present font.
float ContactPages::TextWidth(const std::string& text) const {
  return screen_.TextWidth(text, form_.TextFont()) / screen_.TwipsPerPixelX();
}

void ContactPages::FillPage(ContactListPage& page, int index) {
  if (index != 0) {
    AddLine(page, static_cast<std::size_t>(index - 1));
    return;
  }
  Style style = StyleOf(page);
  if (style != page.style) page.lines.AllChanged();
  page.style = std::move(style);
  page.lines.Fill(contacts_.Records(),
                  [&](const ContactRecord& record) { return Line(page, record); });
  SendTabStops(page);
}

void ContactPages::AddLine(ContactListPage& page, std::size_t record) {
  const ContactRecord& added = contacts_.Records().at(record);
  if (added.Email.empty()) return;
  page.lines.Add(record, Line(page, added).text);
  NewListLine = ToInteger16(page.list.NewIndex());
}

ContactPages::Style ContactPages::StyleOf(const ContactListPage& page) const {
  Style style;
  style.by_email = page.by_email.Chosen();
  style.by_name = page.by_name.Chosen();
  style.own_names = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked();
  style.avg_char_width = avg_char_width_;
  style.cell_padding = cell_padding_;
  ContactRecord record;
  if (page.which == "G") {
    for (const char* gender : {"F", "M", "?"}) {
      record.Gender = gender;
      style.words.push_back(contacts_.GenderWord(record));
    }
  } else if (page.which == "I") {
    for (const char* ignored : {"True", "False"}) {
      record.Ignore = ignored;
      style.words.push_back(contacts_.IgnoreWord(record));
    }
  }
  return style;
}

ContactLines::Line ContactPages::Line(const ContactListPage& page,
                                      const ContactRecord& record) const {
  const std::array<std::string, 3> cells =
      page.which == "A" ? BuddyNamesCells(page, record) : GridCells(page, record);
  ContactLines::Line line;
  for (std::size_t column = 0; column < cells.size(); ++column) {
    line.text += FormatListCell(cells[column], line.widths[column]);
  }
  line.text += FormatListCell("(" + record.Email + ")", line.widths.back());
  return line;
}

std::array<std::string, 3> ContactPages::GridCells(const ContactListPage& page,
                                                   const ContactRecord& record) const {
  const std::string word =
      page.which == "G" ? contacts_.GenderWord(record) : contacts_.IgnoreWord(record);
  const bool own_names = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked();
  if (page.by_email.Chosen()) {
    return {record.Email, word, own_names ? record.FriendlyName : record.Name};
  }
  if (page.by_name.Chosen()) return {record.FriendlyName, word, ""};
  return {record.Name, word, own_names ? record.FriendlyName : ""};
}

std::array<std::string, 3> ContactPages::BuddyNamesCells(const ContactListPage& page,
                                                         const ContactRecord& record) const {
  if (page.by_email.Chosen()) {
    return {record.Email, record.Name, record.FriendlyName};
  }
  if (page.by_name.Chosen()) return {record.FriendlyName, record.Name, ""};
  return {record.Name, record.FriendlyName, ""};
}

// The text with its TAB; the column becomes wide enough for it. Widths are in dialog units, four to
// an average character.
std::string ContactPages::FormatListCell(const std::string& text, float& columnWidth) const {
  const int pixels = Rounded(TextWidth(text) + static_cast<float>(cell_padding_));
  const int character = std::max(1, Rounded(avg_char_width_));
  const int characters = pixels / character;
  columnWidth = std::max(columnWidth, static_cast<float>(characters * kUnitsPerCharacter));
  return text + "\t";
}

void ContactPages::SendTabStops(const ContactListPage& page) {
  std::vector<int> stops;
  float sum = 0;
  for (const float width : page.lines.ColumnWidths()) {
    sum += width;
    stops.push_back(Rounded(sum));
  }
  const int characters = stops.back() / kUnitsPerCharacter;
  page.list.SetTabStops(std::move(stops));
  page.list.SetHorizontalExtent(Rounded(avg_char_width_ * static_cast<float>(characters)));
}

}  // namespace brenwick
