// The lines of a list, each divided into its cells.
#pragma once

#include <QAbstractTableModel>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/Observers.h"
#include "controls/ListBox.h"

namespace brenwick {

// When the list is cleared, the model keeps its lines until events run, and then takes over what
// has changed: a list that is built anew seldom differs in more than a line, and a view that
// follows some thousands of lines one by one takes far too long. A line that is taken out and put
// in again before events run is changed, not made anew, so that a screen reader keeps its place.
class ListModel : public QAbstractTableModel {
 public:
  ListModel(ListBox& list, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Whether there are changes of the list that are still to be taken over, so that a position in
  // the list is none in the model.
  bool IsBehind() const { return removed_ >= 0 || filling_.isActive(); }
  // Takes them over at once, which otherwise happens when events run. A view calls this before it
  // lets the user choose a line by its row.
  void CatchUp();

  // Called when what had waited has been taken over.
  std::function<void()> CaughtUp;

 private:
  void Add(int position);
  void Change(int position);
  void Remove(int position);
  void CarryOutRemoval();
  void SetLine(int position);
  void Clear();
  void Fill();
  void Reset();
  void Replace(std::size_t first, std::size_t gone, std::size_t come);
  void MakeColumns(int wanted);

  const ListBox& list_;
  std::vector<std::string> lines_;
  int columns_ = 1;
  int removed_ = -1;  // the position of a line that is still to be taken out
  QTimer removal_;
  QTimer filling_;  // while it runs, the lines are still to come
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick
