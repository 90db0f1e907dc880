#include "pages/ContactLines.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace brenwick {
namespace {

// With more stale records than this, filling the list anew is no slower.
constexpr std::size_t kMostStale = 16;

// Sets the flag for its own lifetime.
class OwnTouch {
 public:
  explicit OwnTouch(bool& flag) : flag_(flag) { flag_ = true; }
  ~OwnTouch() { flag_ = false; }
  OwnTouch(const OwnTouch&) = delete;
  OwnTouch& operator=(const OwnTouch&) = delete;

 private:
  bool& flag_;
};

std::ptrdiff_t Offset(std::size_t position) { return static_cast<std::ptrdiff_t>(position); }

}  // namespace

ContactLines::ContactLines(ListBox& list) : list_(list) {
  const auto touched = [this](int) { ListTouched(); };
  subscriptions_.push_back(list.LineAdded.Observe(touched));
  subscriptions_.push_back(list.LineChanged.Observe(touched));
  subscriptions_.push_back(list.LineRemoved.Observe(touched));
  subscriptions_.push_back(list.LinesCleared.Observe([this] { ListTouched(); }));
}

// Another's change of the list leaves nothing known about its lines.
void ContactLines::ListTouched() {
  if (!touching_) AllChanged();
}

template <typename Action>
void ContactLines::Touch(const Action& action) {
  const OwnTouch own(touching_);
  action();
}

void ContactLines::AllChanged() {
  all_stale_ = true;
  stale_.clear();
}

void ContactLines::Mark(std::size_t record, bool misplaced) {
  if (all_stale_) return;
  const auto known = std::find_if(stale_.begin(), stale_.end(),
                                  [record](const Stale& stale) { return stale.record == record; });
  if (known != stale_.end()) {
    known->misplaced = known->misplaced || misplaced;
  } else if (stale_.size() < kMostStale) {
    stale_.push_back({record, misplaced});
  } else {
    AllChanged();
  }
}

void ContactLines::Fill(const std::vector<ContactRecord>& records, const Format& format) {
  if (all_stale_) {
    FillAnew(records, format);
    return;
  }
  FillStale(records, format);
  const auto last = std::max_element(record_of_line_.begin(), record_of_line_.end());
  list_.SetRefilled(
      last == record_of_line_.end() ? -1 : static_cast<int>(last - record_of_line_.begin()));
}

void ContactLines::FillAnew(const std::vector<ContactRecord>& records, const Format& format) {
  std::vector<Widths> widths(records.size());
  std::vector<std::string> texts;
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (records[i].Email.empty()) continue;
    Line line = format(records[i]);
    widths[i] = line.widths;
    texts.push_back(std::move(line.text));
    shown.push_back(i);
  }
  std::vector<int> places;
  Touch([&] { places = list_.Refill(std::move(texts)); });
  record_of_line_.resize(shown.size());
  for (std::size_t i = 0; i < shown.size(); ++i) {
    record_of_line_[static_cast<std::size_t>(places[i])] = shown[i];
  }
  widths_ = std::move(widths);
  all_stale_ = false;
}

void ContactLines::FillStale(const std::vector<ContactRecord>& records, const Format& format) {
  widths_.resize(records.size());
  std::vector<Move> moves;
  for (const auto& [record, misplaced] : stale_) {
    Line line = records.at(record).Email.empty() ? Line{} : format(records[record]);
    widths_[record] = line.widths;
    const std::size_t position = PositionOf(record);
    const bool listed = position < record_of_line_.size();
    const std::string now = listed ? list_.Items()[position] : std::string();
    if (misplaced || now != line.text) moves.push_back({record, std::move(line.text)});
  }
  Carry(moves);
  stale_.clear();
}

void ContactLines::Carry(const std::vector<Move>& moves) {
  if (moves.size() == 1 && ReplaceInPlace(moves.front())) return;
  for (const Move& move : moves) RemoveLinesOf(move.record);
  for (const Move& move : moves) {
    if (!move.text.empty()) Insert(move);
  }
}

// Possible where all other lines are in order, and the new one stays between its neighbours.
bool ContactLines::ReplaceInPlace(const Move& move) {
  const std::size_t position = PositionOf(move.record);
  if (move.text.empty() || position == record_of_line_.size()) return false;
  const auto behind = record_of_line_.begin() + Offset(position) + 1;
  if (std::find(behind, record_of_line_.end(), move.record) != record_of_line_.end()) return false;
  if (position > 0 && !StandsBefore(position - 1, move)) return false;
  if (position + 1 < record_of_line_.size() && StandsBefore(position + 1, move)) return false;
  Touch([&] { list_.SetList(static_cast<int>(position), move.text); });
  return true;
}

// Lines that count as equal stand in the order of their records.
bool ContactLines::StandsBefore(std::size_t position, const Move& move) const {
  const std::string& text = list_.Items()[position];
  if (LessIgnoringCase(text, move.text)) return true;
  return !LessIgnoringCase(move.text, text) && record_of_line_[position] < move.record;
}

void ContactLines::Insert(const Move& move) {
  std::size_t first = 0;
  std::size_t count = record_of_line_.size();
  while (count > 0) {
    const std::size_t half = count / 2;
    if (StandsBefore(first + half, move)) {
      first += half + 1;
      count -= half + 1;
    } else {
      count = half;
    }
  }
  Touch([&] { list_.InsertItem(static_cast<int>(first), move.text); });
  record_of_line_.insert(record_of_line_.begin() + Offset(first), move.record);
}

void ContactLines::RemoveLinesOf(std::size_t record) {
  for (std::size_t position = 0; (position = PositionOf(record)) < record_of_line_.size();) {
    TakeOut(position);
  }
}

void ContactLines::TakeOut(std::size_t position) {
  Touch([&] { list_.RemoveItem(static_cast<int>(position)); });
  record_of_line_.erase(record_of_line_.begin() + Offset(position));
}

void ContactLines::Remove(int position) {
  if (all_stale_) {
    list_.RemoveItem(position);
    return;
  }
  const auto place = static_cast<std::size_t>(position);
  Mark(record_of_line_.at(place), true);
  TakeOut(place);
}

void ContactLines::Add(std::size_t record, const std::string& text) {
  Touch([&] { list_.AddItem(text); });
  if (all_stale_) return;
  record_of_line_.insert(record_of_line_.begin() + list_.NewIndex(), record);
  Mark(record, true);
}

std::size_t ContactLines::PositionOf(std::size_t record) const {
  return static_cast<std::size_t>(
      std::find(record_of_line_.begin(), record_of_line_.end(), record) - record_of_line_.begin());
}

ContactLines::Widths ContactLines::ColumnWidths() const {
  Widths most{};
  for (const Widths& widths : widths_) {
    for (std::size_t i = 0; i < most.size(); ++i) most[i] = std::max(most[i], widths[i]);
  }
  return most;
}

}  // namespace brenwick
