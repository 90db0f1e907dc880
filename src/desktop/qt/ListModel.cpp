#include "desktop/qt/ListModel.h"

#include "desktop/qt/Strings.h"

namespace brenwick {

ListModel::ListModel(ListBox& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {
  for (int position = 0; position < list_.ListCount(); ++position) Add(position);
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
  return lines_.at(static_cast<std::size_t>(index.row())).value(index.column());
}

// A line's cells end with tabs; a line without one is a cell.
QStringList ListModel::Cells(int position) const {
  QStringList cells = ToQt(list_.List(position)).split('\t');
  if (cells.size() > 1 && cells.last().isEmpty()) cells.removeLast();
  return cells;
}

void ListModel::Add(int position) {
  QStringList cells = Cells(position);
  MakeColumns(cells.size());
  beginInsertRows({}, position, position);
  lines_.insert(lines_.begin() + position, std::move(cells));
  endInsertRows();
}

void ListModel::Change(int position) {
  QStringList cells = Cells(position);
  MakeColumns(cells.size());
  lines_.at(static_cast<std::size_t>(position)) = std::move(cells);
  emit dataChanged(index(position, 0), index(position, columns_ - 1));
}

void ListModel::Remove(int position) {
  beginRemoveRows({}, position, position);
  lines_.erase(lines_.begin() + position);
  endRemoveRows();
}

void ListModel::Clear() {
  beginResetModel();
  lines_.clear();
  columns_ = 1;
  endResetModel();
}

void ListModel::MakeColumns(qsizetype wanted) {
  if (wanted <= columns_) return;
  beginInsertColumns({}, columns_, static_cast<int>(wanted) - 1);
  columns_ = static_cast<int>(wanted);
  endInsertColumns();
}

}  // namespace brenwick
