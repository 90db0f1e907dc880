#include "controls/ListBox.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "base/Failure.h"
#include "base/Text.h"

namespace brenwick {

std::string ListBox::List(int position) const {
  if (position < 0 || position >= ListCount()) return {};
  return items_[static_cast<std::size_t>(position)];
}

void ListBox::SetList(int position, std::string line) {
  if (position < 0 || position >= ListCount()) return;
  items_[static_cast<std::size_t>(position)] = std::move(line);
  LineChanged(position);
  Changed();
}

void ListBox::Clear() {
  items_.clear();
  list_index_ = -1;
  new_index_ = -1;
  LinesCleared();
  Changed();
}

void ListBox::AddItem(std::string line) {
  auto place = items_.end();
  if (order_ == Order::Sorted) {
    place = std::upper_bound(items_.begin(), items_.end(), line, LessIgnoringCase);
  }
  InsertItem(static_cast<int>(place - items_.begin()), std::move(line));
}

void ListBox::InsertItem(int position, std::string line) {
  if (position < 0 || position > ListCount()) throw Failure(kInvalidCall);
  new_index_ = position;
  items_.insert(items_.begin() + position, std::move(line));
  if (list_index_ >= new_index_) ++list_index_;
  LineAdded(new_index_);
  Changed();
}

void ListBox::RemoveItem(int position) {
  if (position < 0 || position >= ListCount()) throw Failure(kInvalidCall);
  items_.erase(items_.begin() + position);
  if (list_index_ == position) {
    list_index_ = -1;
  } else if (list_index_ > position) {
    --list_index_;
  }
  LineRemoved(position);
  Changed();
}

// Lines that count as equal stay in the order in which they come.
std::vector<int> ListBox::Refill(std::vector<std::string> lines) {
  std::vector<std::size_t> order(lines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (order_ == Order::Sorted) {
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      return LessIgnoringCase(lines[a], lines[b]);
    });
  }
  std::vector<int> places(lines.size());
  items_.clear();
  items_.reserve(lines.size());
  for (const std::size_t line : order) {
    places[line] = ListCount();
    items_.push_back(std::move(lines[line]));
  }
  list_index_ = -1;
  new_index_ = places.empty() ? -1 : places.back();
  LinesCleared();
  Changed();
  return places;
}

void ListBox::SetRefilled(int newIndex) {
  new_index_ = newIndex;
  Update(list_index_, -1);
}

void ListBox::SetListIndex(int position) {
  if (position < -1 || position >= ListCount()) throw Failure(kInvalidCall);
  if (Update(list_index_, position) && Click) Click();
}

void ListBox::UserSelect(int position) {
  if (!CanUse() || position < -1 || position >= ListCount()) return;
  Update(list_index_, position);
  if (Click) Click();
}

void ListBox::UserDoubleClick() const {
  if (CanUse() && DblClick) DblClick();
}

void ListBox::UserKey(int character) const {
  if (CanUse() && KeyPress) KeyPress(character);
}

}  // namespace brenwick
