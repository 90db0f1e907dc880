#include "qt/views/ListModel.h"

#include <QStringList>
#include <algorithm>

#include "qt/Strings.h"

namespace brenwick {
namespace {

constexpr char kEnd = '\t';  // of a cell; a line without one is a cell

int CellsIn(const std::string& line) {
  const bool ended = !line.empty() && line.back() == kEnd;
  const auto ends = static_cast<int>(std::count(line.begin(), line.end(), kEnd));
  return std::max(1, ended ? ends : ends + 1);
}

}  // namespace

ListModel::ListModel(ListBox& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {
  filling_.setSingleShot(true);
  connect(&filling_, &QTimer::timeout, this, [this] { Fill(); });
  Fill();
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

void ListModel::Add(int position) {
  if (filling_.isActive()) return;
  const std::string& line = list_.List(position);
  MakeColumns(CellsIn(line));
  beginInsertRows({}, position, position);
  lines_.insert(lines_.begin() + position, line);
  endInsertRows();
}

void ListModel::Change(int position) {
  if (filling_.isActive()) return;
  const std::string& line = list_.List(position);
  MakeColumns(CellsIn(line));
  lines_.at(static_cast<std::size_t>(position)) = line;
  emit dataChanged(index(position, 0), index(position, columns_ - 1));
}

void ListModel::Remove(int position) {
  if (filling_.isActive()) return;
  beginRemoveRows({}, position, position);
  lines_.erase(lines_.begin() + position);
  endRemoveRows();
}

void ListModel::Clear() {
  beginResetModel();
  lines_.clear();
  columns_ = 1;
  endResetModel();
  filling_.start();
}

void ListModel::Fill() {
  beginResetModel();
  lines_ = list_.Items();
  columns_ = 1;
  for (const std::string& line : lines_) columns_ = std::max(columns_, CellsIn(line));
  endResetModel();
}

void ListModel::MakeColumns(int wanted) {
  if (wanted <= columns_) return;
  beginInsertColumns({}, columns_, wanted - 1);
  columns_ = wanted;
  endInsertColumns();
}

}  // namespace brenwick
