// Lines of a list with some air around their words.
#pragma once

#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyledItemDelegate>
#include <QWidget>

namespace brenwick {

class RoomyLines : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int height = option.fontMetrics.height();
    return QStyledItemDelegate::sizeHint(option, index).grownBy({0, 0, height * 3 / 4, height / 2});
  }

  // Frames the whole line that has the keyboard focus, not only its words.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem plain(option);
    plain.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, plain, index);
    if (!(option.state & QStyle::State_HasFocus)) return;
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    focus.backgroundColor = option.palette.color(QPalette::Highlight);
    option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter,
                                          option.widget);
  }
};

}  // namespace brenwick
