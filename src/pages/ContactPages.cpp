#include "pages/ContactPages.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kAlphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr float kAlphabetLength = 52;
constexpr int kUnitsPerCharacter = 4;

int Rounded(float number) { return static_cast<int>(std::nearbyint(number)); }

}  // namespace

struct ContactPages::Page {
  std::string_view which;
  ListBox& list;
  const OptionButton& by_email;
  const OptionButton& by_name;
};

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
  contacts_.AfterAdd = [this] { RefreshAfterAdd(); };
  contacts_.AfterMod = [this](int index) { RefreshAfterMod(index); };
}

// The "Buddynames" list shows new contacts only when it is built anew.
void ContactPages::RefreshAfterAdd() {
  if (IsShowing(kGenderPage)) {
    FillContactList("G", 0);
  } else if (IsShowing(kIgnorePage)) {
    FillContactList("I", 0);
  }
}

void ContactPages::RefreshAfterMod(int index) {
  const auto refresh = [&](ListBox& list, std::string_view which) {
    if (SelectedListLine >= 0 && SelectedListLine < list.ListCount()) {
      list.RemoveItem(SelectedListLine);
    }
    FillContactList(which, index);
  };
  if (IsShowing(kGenderPage)) {
    refresh(form_.lstGender, "G");
  } else if (IsShowing(kIgnorePage)) {
    refresh(form_.lstIgnore, "I");
  } else if (IsShowing(kBuddyNamesPage)) {
    refresh(form_.lstBuddyNames, "A");
  }
}

void ContactPages::FillContactList(std::string_view which, int index) {
  log_.Trap("ModFunctions", "FillContactList", [&] { FillLists(which, index); });
}

void ContactPages::FillLists(std::string_view which, int index) {
  const Font kept = form_.TextFont();
  form_.SetTextFont(form_.lstGender.TextFont());
  Measure();
  const Page pages[] = {
      {"G", form_.lstGender, form_.optGenderSortEmail, form_.optGenderSortName},
      {"I", form_.lstIgnore, form_.optIgnoreSortEmail, form_.optIgnoreSortName},
      {"A", form_.lstBuddyNames, form_.optBuddyNamesSortEmail, form_.optBuddyNamesSortName},
  };
  for (const Page& page : pages) {
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

void ContactPages::FillPage(const Page& page, int index) {
  column_widths_ = {};
  const std::vector<ContactRecord>& records = contacts_.Records();
  if (index != 0) {
    AddLine(page, records.at(static_cast<std::size_t>(index - 1)), true);
    return;
  }
  page.list.Clear();
  for (const ContactRecord& record : records) AddLine(page, record, false);
  SendTabStops(page.list);
}

void ContactPages::AddLine(const Page& page, const ContactRecord& record, bool remember) {
  if (record.Email.empty()) return;
  page.list.AddItem(Line(page, record));
  if (remember) NewListLine = ToInteger16(page.list.NewIndex());
}

std::string ContactPages::Line(const Page& page, const ContactRecord& record) {
  const std::array<std::string, 3> cells =
      page.which == "A" ? BuddyNamesCells(record) : GridCells(page, record);
  std::string line;
  for (std::size_t column = 0; column < cells.size(); ++column) {
    line += FormatListCell(cells[column], column);
  }
  return line + FormatListCell("(" + record.Email + ")", cells.size());
}

std::array<std::string, 3> ContactPages::GridCells(const Page& page,
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

std::array<std::string, 3> ContactPages::BuddyNamesCells(const ContactRecord& record) const {
  if (form_.optBuddyNamesSortEmail.Chosen()) {
    return {record.Email, record.Name, record.FriendlyName};
  }
  if (form_.optBuddyNamesSortName.Chosen()) return {record.FriendlyName, record.Name, ""};
  return {record.Name, record.FriendlyName, ""};
}

// The text with its TAB; the column becomes wide enough for it.
std::string ContactPages::FormatListCell(const std::string& text, std::size_t column) {
  const int pixels = Rounded(TextWidth(text) + static_cast<float>(cell_padding_));
  const int character = std::max(1, Rounded(avg_char_width_));
  const int characters = pixels / character;
  const auto width = static_cast<float>(characters * kUnitsPerCharacter);
  column_widths_[column] = std::max(column_widths_[column], width);
  return text + "\t";
}

void ContactPages::SendTabStops(ListBox& list) {
  std::vector<int> stops;
  float sum = 0;
  for (const float width : column_widths_) {
    sum += width;
    stops.push_back(Rounded(sum));
  }
  const int characters = stops.back() / kUnitsPerCharacter;
  list.SetTabStops(std::move(stops));
  list.SetHorizontalExtent(Rounded(avg_char_width_ * static_cast<float>(characters)));
}

}  // namespace brenwick
