// A list of lines.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/Font.h"
#include "controls/Control.h"

namespace brenwick {

class ListBox : public Control {
 public:
  // A sorted list keeps its lines in ascending order, upper and lower case alike.
  enum class Order { AsAdded, Sorted };

  ListBox(Place place, std::string name, Order order = Order::AsAdded)
      : Control(place, std::move(name)), order_(order) {}

  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::vector<std::string>& Items() const { return items_; }
  // A position that is not in the list gives the empty text.
  std::string List(int position) const;

  // Puts another text in a line's place, whatever the order; nothing where there is no such line.
  void SetList(int position, std::string line);

  void Clear();
  void AddItem(std::string line);
  // Puts a line in front of the one at that position, whatever the order; at the end for the number
  // of lines. Any other position raises kInvalidCall.
  void InsertItem(int position, std::string line);
  // Raises kInvalidCall when there is no such line.
  void RemoveItem(int position);
  // The position of the line that was added last; −1 before the first and after Clear.
  int NewIndex() const { return new_index_; }

  // Does what Clear and then AddItem of each line do, and tells the views once. Returns where each
  // line was put.
  std::vector<int> Refill(std::vector<std::string> lines);
  // For a list that was brought up to date line by line in place of a Refill: leaves it as that
  // would, with no line selected and the one at `newIndex` as the last that was added.
  void SetRefilled(int newIndex);

  // The selected line, −1 for none. Setting another line runs Click; a position outside the list
  // raises kInvalidCall.
  int ListIndex() const { return list_index_; }
  void SetListIndex(int position);

  const Font& TextFont() const { return font_; }

  // The beginnings of the lines' columns and the width of the lines, for a view that draws them.
  const std::vector<int>& TabStops() const { return tab_stops_; }
  void SetTabStops(std::vector<int> stops) { Update(tab_stops_, std::move(stops)); }
  int HorizontalExtent() const { return horizontal_extent_; }
  void SetHorizontalExtent(int pixels) { Update(horizontal_extent_, pixels); }

  void UserSelect(int position);
  void UserDoubleClick() const;
  void UserKey(int character) const;

  std::function<void()> Click;
  std::function<void()> DblClick;
  std::function<void(int)> KeyPress;

  // For views that show many lines: what happened to them, each before Changed is given.
  Observers<int> LineAdded;    // its position
  Observers<int> LineChanged;  // its position
  Observers<int> LineRemoved;  // its former position
  Observers<> LinesCleared;    // all lines were replaced at once; Items() holds the new ones

 private:
  Order order_;
  std::vector<std::string> items_;
  int list_index_ = -1;
  int new_index_ = -1;
  Font font_;
  std::vector<int> tab_stops_;
  int horizontal_extent_ = 0;
};

}  // namespace brenwick
