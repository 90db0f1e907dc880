// The three lists that show the contacts, line by line and cell by cell.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "contacts/ContactList.h"
#include "forms/frmMain.h"
#include "logging/Logs.h"
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
  void FillLists(std::string_view which, int index);
  struct Page;

  void RefreshAfterAdd();
  void RefreshAfterMod(int index);
  bool IsShowing(int page) const { return form_.fraPage[static_cast<std::size_t>(page)].Visible(); }
  void Measure();
  void FillPage(const Page& page, int index);
  void AddLine(const Page& page, const ContactRecord& record, bool remember);
  std::string Line(const Page& page, const ContactRecord& record);
  std::array<std::string, 3> GridCells(const Page& page, const ContactRecord& record) const;
  std::array<std::string, 3> BuddyNamesCells(const ContactRecord& record) const;
  std::string FormatListCell(const std::string& text, std::size_t column);
  void SendTabStops(ListBox& list);
  float TextWidth(const std::string& text) const;

  Logs& log_;
  frmMain& form_;
  Screen& screen_;
  ContactList& contacts_;
  float avg_char_width_ = 1;              // pixels
  std::int16_t cell_padding_ = 0;         // pixels
  std::array<float, 4> column_widths_{};  // dialog units, four to an average character
};

}  // namespace brenwick
