#include "desktop/qt/PageList.h"

#include <algorithm>

#include "desktop/qt/Strings.h"
#include "forms/Pages.h"

namespace brenwick {
namespace {

constexpr int kIconSize = 22;

// By the numbers of the pages; the free ones have none.
constexpr const char* kIcons[kPageCount] = {
    "general", "spoken",       "text",    "voices", "buddynames", "ignore", "gender", "",
    "words",   "savesettings", "website", "log",    "repeat",     "",       "about",  "",
};

QIcon IconOf(std::size_t entry) {
  if (entry >= kPageTitles.size()) return {};
  const int page = kPageTitles[entry].page;
  return QIcon(QString(":/icons/pages/%1.svg").arg(kIcons[page]));
}

class PageList : public QListWidget {
 public:
  PageList(ListBox& list, Views& views, QWidget& parent)
      : QListWidget(&parent), list_(list), views_(views) {
    setIconSize({kIconSize, kIconSize});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    views_.Mirror(list_, *this, [this] { Show(); });
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
      if (!showing_ && row >= 0) views_.Knock([&] { list_.UserSelect(row); });
    });
  }

  QSize sizeHint() const override {
    return {sizeHintForColumn(0) + 2 * frameWidth() + kIconSize, QListWidget::sizeHint().height()};
  }

 private:
  void Show() {
    showing_ = true;
    if (!IsShown()) {
      clear();
      for (std::size_t i = 0; i < list_.Items().size(); ++i) {
        addItem(new QListWidgetItem(IconOf(i), ToQt(list_.Items()[i])));
      }
      setFixedWidth(sizeHint().width());
    }
    setCurrentRow(list_.ListIndex());
    showing_ = false;
  }

  bool IsShown() const {
    if (count() != list_.ListCount()) return false;
    for (int i = 0; i < count(); ++i) {
      if (item(i)->text() != ToQt(list_.List(i))) return false;
    }
    return true;
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
