#include "qt/views/TextView.h"

#include <QApplication>
#include <QFocusEvent>

#include "qt/Strings.h"

namespace brenwick {
namespace {

class TextView : public QLineEdit {
 public:
  TextView(TextBox& box, Views& views, QWidget& parent)
      : QLineEdit(&parent), box_(box), views_(views) {
    views_.Mirror(box_, *this, [this] { Show(); });
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      views_.ForwardUserAction([&] { box_.UserTypes(text.toStdString()); });
    });
  }

  QSize sizeHint() const override {
    QSize size = QLineEdit::sizeHint();
    if (box_.Columns() > 0) size.setWidth(fontMetrics().horizontalAdvance('0') * box_.Columns());
    return size;
  }

 protected:
  void changeEvent(QEvent* event) override {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) Colour();
  }

  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    // A menu of the window, or another program in front, does not count as leaving the box.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
      return;
    }
    views_.ForwardUserAction([this] { box_.UserLeaves(); });
  }

 private:
  void Show() {
    const QString shown = ToQt(box_.Text());
    if (text() != shown) {
      setText(shown);
      if (!hasFocus()) setCursorPosition(0);
    }
    setReadOnly(box_.Locked());
    Colour();
    if (box_.Columns() > 0) setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (box_.SelLength() == 0) return;
    const int start = PlaceInQt(box_.Text(), box_.SelStart());
    setSelection(start, PlaceInQt(box_.Text(), box_.SelStart() + box_.SelLength()) - start);
  }

  // A locked box looks like one that takes no text.
  void Colour() {
    QPalette colours;
    if (box_.Locked()) colours.setBrush(QPalette::Base, QApplication::palette().window());
    if (colours.resolveMask() != palette().resolveMask() || box_.Locked()) setPalette(colours);
  }

  TextBox& box_;
  Views& views_;
};

}  // namespace

QLineEdit* MakeView(TextBox& box, Views& views, QWidget& parent) {
  return new TextView(box, views, parent);
}

}  // namespace brenwick
