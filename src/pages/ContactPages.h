// The three lists that show the contacts, line by line and cell by cell.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/ContactList.h"
#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "pages/ContactLines.h"
#include "platform/Screen.h"

namespace brenwick {

// The address between the last parentheses of a list's line; "" where there is no ")".
std::string GetEmailFromString(std::string_view line);

class ContactPages {
 public:
  // From now on the page that is showing follows the changes of the list.
  ContactPages(Logs& log, frmMain& form, Screen& screen, ContactList& contacts);

  // Builds the lines of lstGender ("G"), lstIgnore ("I"), lstBuddyNames ("A") or all three ("X"):
  // every contact's for index 0, else only the line of the record with that number, counted from 1,
  // beside those that are there.
  void FillContactList(std::string_view which, int index);

  // The line that the user opened last, and the one that FillContactList added last.
  std::int16_t SelectedListLine = 0;
  std::int16_t NewListLine = 0;

 private:
  // Everything besides its record that a line's text and widths depend on.
  struct Style {
    bool by_email = false;
    bool by_name = false;
    bool own_names = false;
    std::vector<std::string> words;
    float avg_char_width = 0;
    std::int16_t cell_padding = 0;

    bool operator==(const Style&) const = default;
  };

  struct ContactListPage {
    std::string_view which;
    Page page;
    ListBox& list;
    const OptionButton& by_email;
    const OptionButton& by_name;
    ContactLines lines{list};
    Style style{};
  };

  void FollowContacts();
  void FillLists(std::string_view which, int index);
  void RefreshAfterAdd();
  void RefreshAfterMod(int index);
  bool IsShowing(const ContactListPage& page) const {
    return form_.fraPage[static_cast<std::size_t>(page.page)].Visible();
  }
  void Measure();
  void FillPage(ContactListPage& page, int index);
  void AddLine(ContactListPage& page, std::size_t record);
  Style StyleOf(const ContactListPage& page) const;
  ContactLines::Line Line(const ContactListPage& page, const ContactRecord& record) const;
  std::array<std::string, 3> GridCells(const ContactListPage& page,
                                       const ContactRecord& record) const;
  std::array<std::string, 3> BuddyNamesCells(const ContactListPage& page,
                                             const ContactRecord& record) const;
  std::string FormatListCell(const std::string& text, float& columnWidth) const;
  void SendTabStops(const ContactListPage& page);
  float TextWidth(const std::string& text) const;

  Logs& log_;
  frmMain& form_;
  Screen& screen_;
  ContactList& contacts_;
  // In the order in which they are filled.
  std::array<ContactListPage, 3> pages_{{
      {"G", kGenderPage, form_.lstGender, form_.optGenderSortEmail, form_.optGenderSortName},
      {"I", kIgnorePage, form_.lstIgnore, form_.optIgnoreSortEmail, form_.optIgnoreSortName},
      {"A", kBuddyNamesPage, form_.lstBuddyNames, form_.optBuddyNamesSortEmail,
       form_.optBuddyNamesSortName},
  }};
  float avg_char_width_ = 1;       // pixels
  std::int16_t cell_padding_ = 0;  // pixels
};

}  // namespace brenwick
