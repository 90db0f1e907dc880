// The lines of a list, each divided into its cells.
#pragma once

#include <QAbstractTableModel>
#include <QTimer>
#include <string>
#include <vector>

#include "base/Observers.h"
#include "controls/ListBox.h"

namespace brenwick {

// A list that is emptied stays empty here until events run: then it is shown as it has been filled,
// at once, for a view that follows line by line needs far longer for some thousands.
class ListModel : public QAbstractTableModel {
 public:
  ListModel(ListBox& list, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void Add(int position);
  void Change(int position);
  void Remove(int position);
  void Clear();
  void Fill();
  void MakeColumns(int wanted);

  const ListBox& list_;
  std::vector<std::string> lines_;
  int columns_ = 1;
  QTimer filling_;  // while it runs, the lines are still to come
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick
