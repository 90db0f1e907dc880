#include "qt/views/PageList.h"

#include <QScrollBar>
#include <algorithm>

#include "forms/Pages.h"
#include "qt/Strings.h"
#include "qt/views/PageIcons.h"
#include "qt/views/RoomyLines.h"

namespace brenwick {
namespace {

constexpr int kLeastIcon = 22;  // pixels

QIcon IconOf(std::size_t entry) {
  return entry < kPageTitles.size() ? PageIcon(kPageTitles[entry].page) : QIcon();
}

class PageList : public QListWidget {
 public:
  PageList(ListBox& list, Views& views, QWidget& parent)
      : QListWidget(&parent), list_(list), views_(views) {
    const int icon = std::max(kLeastIcon, fontMetrics().height() * 7 / 5);
    setIconSize({icon, icon});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setItemDelegate(new RoomyLines(this));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    views_.Mirror(list_, *this, [this] { Show(); });
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
      if (!showing_ && row >= 0) views_.ForwardUserAction([&] { list_.UserSelect(row); });
    });
  }

  QSize sizeHint() const override {
    // With the scroll bar that a low window has.
    const int bar = verticalScrollBar()->sizeHint().width();
    return {sizeHintForColumn(0) + 2 * frameWidth() + bar, QListWidget::sizeHint().height()};
  }

 private:
  void Show() {
    showing_ = true;
    while (count() > list_.ListCount()) delete takeItem(count() - 1);
    for (int i = 0; i < list_.ListCount(); ++i) {
      if (i == count()) addItem(new QListWidgetItem(IconOf(static_cast<std::size_t>(i)), {}));
      if (item(i)->text() != ToQt(list_.List(i))) item(i)->setText(ToQt(list_.List(i)));
    }
    setCurrentRow(list_.ListIndex());
    updateGeometry();
    showing_ = false;
  }

  ListBox& list_;
  Views& views_;
  bool showing_ = false;
};

}  // namespace

QListWidget* MakePageList(ListBox& list, Views& views, QWidget& parent) {
  return new PageList(list, views, parent);
}

}  // namespace brenwick
