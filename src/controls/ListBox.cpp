#include "controls/ListBox.h"

#include <algorithm>

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
  new_index_ = static_cast<int>(place - items_.begin());
  items_.insert(place, std::move(line));
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
