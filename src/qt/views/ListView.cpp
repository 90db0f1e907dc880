#include "qt/views/ListView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>

#include "qt/views/ListModel.h"
#include "qt/views/RoomyLines.h"

namespace brenwick {
namespace {

// The number of lines, of those that come at a time, that decide how wide the columns are:
// measuring all of them would take too long.
constexpr int kLinesThatCount = 200;

constexpr int kLeastLines = 4;

class ListView : public QTreeView {
 public:
  ListView(ListBox& list, Views& views, QWidget& parent)
      : QTreeView(&parent), list_(list), views_(views), lines_(new ListModel(list, this)) {
    lines_->CaughtUp = [this] { TakeNewLines(); };
    setModel(lines_);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setAllColumnsShowFocus(true);
    // Lines that are too long for the window are reached by scrolling.
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    setHorizontalScrollMode(ScrollPerPixel);
    setItemDelegate(new RoomyLines(this));
    setSizeAdjustPolicy(AdjustIgnored);
    ObserveLines();
    views_.Mirror(list_, *this, [this] { Show(); });
    connect(this, &QTreeView::doubleClicked, this,
            [this] { views_.ForwardUserAction([this] { list_.UserDoubleClick(); }); });
  }

 protected:
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override {
    QTreeView::currentChanged(now, before);
    if (showing_ || now.row() == list_.ListIndex()) return;
    views_.ForwardUserAction([&] { list_.UserSelect(now.row()); });
  }

  // Qt selects a neighbour of a line that goes; whether one is selected is up to the program.
  void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override {
    showing_ = true;
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
    showing_ = false;
  }

  // Qt selects the first line where none is selected; only the user and the program do that.
  void focusInEvent(QFocusEvent* event) override {
    showing_ = true;
    QTreeView::focusInEvent(event);
    showing_ = false;
    ShowSelection();
  }

  // The list takes what room there is; this is the least that it needs.
  QSize sizeHint() const override {
    return {QTreeView::sizeHint().width(), fontMetrics().lineSpacing() * kLeastLines};
  }

  void changeEvent(QEvent* event) override {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) MeasureAnew();
  }

  void resizeEvent(QResizeEvent* event) override {
    QTreeView::resizeEvent(event);
    FitColumns();
  }

  void mousePressEvent(QMouseEvent* event) override {
    CatchUp();
    QTreeView::mousePressEvent(event);
  }

  void mouseDoubleClickEvent(QMouseEvent* event) override {
    CatchUp();
    QTreeView::mouseDoubleClickEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    CatchUp();
    const std::u32string typed = event->text().toStdU32String();
    if (!typed.empty())
      views_.ForwardUserAction([&] { list_.UserKey(static_cast<int>(typed[0])); });
    // The program may have changed the list at the key.
    CatchUp();
    // A space belongs to the program; everything else also moves in the list.
    if (event->key() != Qt::Key_Space) QTreeView::keyPressEvent(event);
  }

 private:
  // The rows of the view are those of the list from here on, and so is the selection.
  void CatchUp() {
    lines_->CatchUp();
    if (new_lines_.isActive()) TakeNewLines();
  }

  // Qt lays out all lines before it measures or selects one, so this is done once for all lines
  // that come at a time.
  void ObserveLines() {
    new_lines_.setSingleShot(true);
    connect(&new_lines_, &QTimer::timeout, this, [this] { TakeNewLines(); });
    using Model = QAbstractItemModel;
    connect(model(), &Model::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { Measure(first, last); });
    connect(
        model(), &Model::dataChanged, this,
        [this](const QModelIndex& from, const QModelIndex& to) { Measure(from.row(), to.row()); });
    connect(model(), &Model::rowsRemoved, this, [this] { Wait(); });
    connect(model(), &Model::modelReset, this, [this] {
      MeasureAnew();
      TakeNewLines();
    });
    MeasureAnew();
  }

  void TakeNewLines() {
    new_lines_.stop();
    measured_ = 0;
    FitColumns();
    ShowSelection();
  }

  void Wait() {
    if (!new_lines_.isActive()) new_lines_.start();
  }

  // New lines never make a column narrower, so that the present lines need not be measured again.
  void Measure(int first, int last) {
    widths_.resize(model()->columnCount());
    for (int line = first; line <= last && measured_ < kLinesThatCount; ++line, ++measured_) {
      for (int column = 0; column < widths_.size(); ++column) {
        const int width = sizeHintForIndex(model()->index(line, column)).width();
        widths_[column] = std::max(widths_[column], width);
      }
    }
    Wait();
  }

  void MeasureAnew() {
    widths_.clear();
    measured_ = 0;
    Measure(0, model()->rowCount() - 1);
  }

  // As wide as their cells; the last reaches to the end of the view, and so does the colour of a
  // selected line.
  void FitColumns() {
    int room = viewport()->width();
    for (int column = 0; column < widths_.size(); ++column) {
      const bool last = column + 1 == widths_.size();
      header()->resizeSection(column, last ? std::max(widths_[column], room) : widths_[column]);
      room -= widths_[column];
    }
  }

  void Show() {
    if (!new_lines_.isActive()) ShowSelection();
  }

  void ShowSelection() {
    if (lines_->IsBehind() || currentIndex().row() == list_.ListIndex()) return;
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
  ListModel* const lines_;  // the view owns it
  QTimer new_lines_;
  QList<int> widths_;  // of the columns
  int measured_ = 0;
  bool showing_ = false;  // the selection follows the program's, not the user's hand
};

}  // namespace

QTreeView* MakeView(ListBox& list, Views& views, QWidget& parent) {
  return new ListView(list, views, parent);
}

}  // namespace brenwick
