#include "qt/views/PageHeading.h"

#include <QEvent>
#include <QPainter>

#include "qt/Strings.h"
#include "qt/views/PageIcons.h"

namespace brenwick {
namespace {

constexpr qreal kLarger = 1.25;
constexpr int kGap = 8;  // pixels

// Paints its picture, since a screen reader would announce a widget for it.
class PageHeading : public QLabel {
 public:
  PageHeading(Frame& page, QWidget& parent) : QLabel(&parent), icon_(PageIcon(page.Index())) {
    setTextFormat(Qt::PlainText);
    setObjectName("heading" + QString::number(page.Index()));
    FollowFont();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange) FollowFont();
    if (event->type() == QEvent::LayoutDirectionChange) MakeRoom();
  }

  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (icon_.isNull()) return;
    const int left = isRightToLeft() ? width() - Size() : 0;
    QPainter painter(this);
    icon_.paint(&painter, left, (height() - Size()) / 2, Size(), Size());
  }

 private:
  void FollowFont() {
    QFont font = parentWidget()->font();
    font.setPointSizeF(font.pointSizeF() * kLarger);
    font.setBold(true);
    setFont(font);
    MakeRoom();
  }

  void MakeRoom() {
    const int room = icon_.isNull() ? 0 : Size() + kGap;
    setContentsMargins(isRightToLeft() ? 0 : room, 0, isRightToLeft() ? room : 0, 0);
    setMinimumHeight(Size());
  }

  int Size() const { return fontMetrics().height() * 5 / 4; }

  QIcon icon_;
};

}  // namespace

QLabel* MakePageHeading(Frame& page, Views& views, QWidget& parent) {
  auto* heading = new PageHeading(page, parent);
  const auto show = [&page, heading] { heading->setText(ToQt(page.Caption()).trimmed()); };
  show();
  views.Own(page.Changed.Observe(show));
  return heading;
}

}  // namespace brenwick
