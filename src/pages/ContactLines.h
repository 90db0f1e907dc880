// The lines of one list of contacts, each tied to the record that it shows.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "contacts/ContactList.h"
#include "controls/ListBox.h"

namespace brenwick {

// Where thousands of contacts are shown, filling the list anew for each change would hold up
// everything else. A fill therefore looks only at the records that changed, and touches only their
// lines; what the list holds afterwards is what a fill from the beginning would bring.
class ContactLines {
 public:
  using Widths = std::array<float, 4>;  // of the cells

  struct Line {
    std::string text;  // "" for a free slot, which has no line
    Widths widths{};
  };
  using Format = std::function<Line(const ContactRecord&)>;

  // The list outlives this object. Lines that others put into the list or take from it are gone
  // after the next Fill.
  explicit ContactLines(ListBox& list);
  ContactLines(const ContactLines&) = delete;
  ContactLines& operator=(const ContactLines&) = delete;

  // Tell that a record, counted from 0, or all of them may look different now. The list shows it
  // after the next Fill.
  void RecordChanged(std::size_t record) { Mark(record, false); }
  void AllChanged();

  // Leaves the list as Clear and AddItem of each record's line would, in the order of the records.
  void Fill(const std::vector<ContactRecord>& records, const Format& format);

  // Take out or add one line at once, as RemoveItem and AddItem do; the next Fill corrects the
  // list.
  void Remove(int position);
  void Add(std::size_t record, const std::string& text);

  // The width of the widest cell of each column, over the records of the last Fill.
  Widths ColumnWidths() const;

 private:
  struct Stale {
    std::size_t record;
    // The record may have several lines, none, or one at the wrong place among equal ones.
    bool misplaced;
  };
  struct Move {
    std::size_t record;
    std::string text;
  };

  void ListTouched();
  template <typename Action>
  void Touch(const Action& action);
  void Mark(std::size_t record, bool misplaced);
  void FillAnew(const std::vector<ContactRecord>& records, const Format& format);
  void FillStale(const std::vector<ContactRecord>& records, const Format& format);
  void Carry(const std::vector<Move>& moves);
  bool ReplaceInPlace(const Move& move);
  bool StandsBefore(std::size_t position, const Move& move) const;
  void Insert(const Move& move);
  void RemoveLinesOf(std::size_t record);
  void TakeOut(std::size_t position);
  std::size_t PositionOf(std::size_t record) const;

  ListBox& list_;
  std::vector<std::size_t> record_of_line_;  // the record of each line
  std::vector<Widths> widths_;               // of each record
  std::vector<Stale> stale_;
  bool all_stale_ = true;  // nothing is known about the lines
  bool touching_ = false;  // what the list tells of is done here
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick
