// The lines of a list, each divided into its cells.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

#include "controls/ListBox.h"
#include "controls/Signal.h"

namespace brenwick {

class ListModel : public QAbstractTableModel {
 public:
  ListModel(ListBox& list, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QStringList Cells(int position) const;
  void Add(int position);
  void Change(int position);
  void Remove(int position);
  void Clear();
  void MakeColumns(qsizetype wanted);

  const ListBox& list_;
  std::vector<QStringList> lines_;
  int columns_ = 1;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick
