#include "desktop/qt/ListView.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "desktop/qt/ListModel.h"

namespace brenwick {
namespace {

// So many of the first lines decide how wide the columns are: looking at all would take too long.
constexpr int kLinesThatCount = 200;

class ListView : public QTreeView {
 public:
  ListView(ListBox& list, Views& views, QWidget& parent)
      : QTreeView(&parent), list_(list), views_(views) {
    setModel(new ListModel(list, this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setAllColumnsShowFocus(true);
    header()->setResizeContentsPrecision(kLinesThatCount);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setSizeAdjustPolicy(AdjustIgnored);
    views_.Mirror(list_, *this, [this] { Show(); });
    connect(this, &QTreeView::doubleClicked, this,
            [this] { views_.Knock([this] { list_.UserDoubleClick(); }); });
  }

 protected:
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override {
    QTreeView::currentChanged(now, before);
    if (showing_ || now.row() == list_.ListIndex()) return;
    views_.Knock([&] { list_.UserSelect(now.row()); });
  }

  // Qt moves on to a neighbour of a line that goes; the program may want none.
  void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override {
    showing_ = true;
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
    showing_ = false;
  }

  void keyPressEvent(QKeyEvent* event) override {
    const std::u32string typed = event->text().toStdU32String();
    if (!typed.empty()) views_.Knock([&] { list_.UserKey(static_cast<int>(typed[0])); });
    // A space belongs to the program; everything else also moves in the list.
    if (event->key() != Qt::Key_Space) QTreeView::keyPressEvent(event);
  }

 private:
  void Show() {
    if (currentIndex().row() == list_.ListIndex()) return;
    showing_ = true;
    if (list_.ListIndex() < 0) {
      selectionModel()->clear();
    } else {
      setCurrentIndex(model()->index(list_.ListIndex(), 0));
    }
    showing_ = false;
  }

  ListBox& list_;
  Views& views_;
  bool showing_ = false;  // the selection follows the program's, not the user's hand
};

}  // namespace

QTreeView* MakeView(ListBox& list, Views& views, QWidget& parent) {
  return new ListView(list, views, parent);
}

}  // namespace brenwick
