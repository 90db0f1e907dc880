#include "qt/views/ListModel.h"

#include <QStringList>
#include <algorithm>
#include <utility>

#include "qt/Strings.h"

namespace brenwick {
namespace {

constexpr char kEnd = '\t';  // of a cell; a line without one is a cell

int CellsIn(const std::string& line) {
  const bool ended = !line.empty() && line.back() == kEnd;
  const auto ends = static_cast<int>(std::count(line.begin(), line.end(), kEnd));
  return std::max(1, ended ? ends : ends + 1);
}

int ColumnsOf(const std::vector<std::string>& lines) {
  int columns = 1;
  for (const std::string& line : lines) columns = std::max(columns, CellsIn(line));
  return columns;
}

// Where more lines than this differ, a view takes them faster all at once.
constexpr std::size_t kMostSingleLines = 100;

}  // namespace

ListModel::ListModel(ListBox& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {
  filling_.setSingleShot(true);
  connect(&filling_, &QTimer::timeout, this, [this] { Fill(); });
  removal_.setSingleShot(true);
  connect(&removal_, &QTimer::timeout, this, [this] { CatchUp(); });
  Reset();
  subscriptions_.push_back(list.LineAdded.Observe([this](int position) { Add(position); }));
  subscriptions_.push_back(list.LineChanged.Observe([this](int position) { Change(position); }));
  subscriptions_.push_back(list.LineRemoved.Observe([this](int position) { Remove(position); }));
  subscriptions_.push_back(list.LinesCleared.Observe([this] { Clear(); }));
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) return {};
  const std::string& line = lines_.at(static_cast<std::size_t>(index.row()));
  return ToQt(line).split(kEnd).value(index.column());
}

void ListModel::CatchUp() {
  if (!IsBehind()) return;
  CarryOutRemoval();
  if (filling_.isActive()) {
    filling_.stop();
    Fill();
  } else if (CaughtUp) {
    CaughtUp();
  }
}

void ListModel::Add(int position) {
  if (filling_.isActive()) return;
  if (position == removed_) {
    removed_ = -1;
    removal_.stop();
    SetLine(position);
    return;
  }
  CarryOutRemoval();
  const std::string& line = list_.List(position);
  MakeColumns(CellsIn(line));
  beginInsertRows({}, position, position);
  lines_.insert(lines_.begin() + position, line);
  endInsertRows();
}

void ListModel::Change(int position) {
  if (filling_.isActive()) return;
  CarryOutRemoval();
  SetLine(position);
}

void ListModel::SetLine(int position) {
  const std::string& line = list_.List(position);
  MakeColumns(CellsIn(line));
  lines_.at(static_cast<std::size_t>(position)) = line;
  emit dataChanged(index(position, 0), index(position, columns_ - 1));
}

// A line that the program takes out may be one that it changes: it comes back in the same place.
void ListModel::Remove(int position) {
  if (filling_.isActive()) return;
  CarryOutRemoval();
  removed_ = position;
  removal_.start();
}

void ListModel::CarryOutRemoval() {
  if (removed_ < 0) return;
  removal_.stop();
  beginRemoveRows({}, removed_, removed_);
  lines_.erase(lines_.begin() + std::exchange(removed_, -1));
  endRemoveRows();
}

void ListModel::Clear() {
  removed_ = -1;
  removal_.stop();
  filling_.start();
}

void ListModel::Fill() {
  const std::vector<std::string>& now = list_.Items();
  const auto same = std::mismatch(lines_.begin(), lines_.end(), now.begin(), now.end()).first;
  const auto first = static_cast<std::size_t>(same - lines_.begin());
  const auto shorter = std::min(lines_.size(), now.size());
  std::size_t last = 0;  // counted from the end
  while (last < shorter - first && lines_[lines_.size() - 1 - last] == now[now.size() - 1 - last]) {
    ++last;
  }
  const std::size_t gone = lines_.size() - first - last;
  const std::size_t come = now.size() - first - last;
  if (ColumnsOf(now) != columns_ || std::max(gone, come) > kMostSingleLines) {
    Reset();
  } else {
    Replace(first, gone, come);
  }
  if (CaughtUp) CaughtUp();
}

void ListModel::Reset() {
  beginResetModel();
  lines_ = list_.Items();
  columns_ = ColumnsOf(lines_);
  endResetModel();
}

// Puts so many of the list's lines in the place of so many of the model's.
void ListModel::Replace(std::size_t first, std::size_t gone, std::size_t come) {
  const std::vector<std::string>& now = list_.Items();
  const std::size_t both = std::min(gone, come);
  for (std::size_t line = first; line < first + both; ++line) {
    if (lines_[line] == now[line]) continue;
    lines_[line] = now[line];
    const auto row = static_cast<int>(line);
    emit dataChanged(index(row, 0), index(row, columns_ - 1));
  }
  const auto place = static_cast<std::ptrdiff_t>(first + both);
  const auto row = static_cast<int>(place);
  if (gone > both) {
    const auto end = static_cast<std::ptrdiff_t>(first + gone);
    beginRemoveRows({}, row, static_cast<int>(end) - 1);
    lines_.erase(lines_.begin() + place, lines_.begin() + end);
    endRemoveRows();
  } else if (come > both) {
    const auto end = static_cast<std::ptrdiff_t>(first + come);
    beginInsertRows({}, row, static_cast<int>(end) - 1);
    lines_.insert(lines_.begin() + place, now.begin() + place, now.begin() + end);
    endInsertRows();
  }
}

void ListModel::MakeColumns(int wanted) {
  if (wanted <= columns_) return;
  beginInsertColumns({}, columns_, wanted - 1);
  columns_ = wanted;
  endInsertColumns();
}

}  // namespace brenwick
