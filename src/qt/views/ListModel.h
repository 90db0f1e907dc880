// The lines of a list, each divided into its cells.
#pragma once

#include <QAbstractTableModel>
#include <QTimer>
#include <string>
#include <vector>

#include "base/Observers.h"
#include "controls/ListBox.h"

namespace brenwick {

// When the list is cleared, the model stays empty until events run and then takes all lines at
// once: a view that follows some thousands of lines one by one takes far longer.
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
