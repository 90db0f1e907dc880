#include "desktop/qt/TextView.h"

#include <QFocusEvent>

#include "desktop/qt/Strings.h"

namespace brenwick {
namespace {

class TextView : public QLineEdit {
 public:
  TextView(TextBox& box, Views& views, QWidget& parent)
      : QLineEdit(&parent), box_(box), views_(views) {
    views_.Mirror(box_, *this, [this] { Show(); });
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      views_.Knock([&] { box_.UserTypes(text.toStdString()); });
    });
  }

 protected:
  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    // The window's own menu, or another program in front, is no leaving.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
      return;
    }
    views_.Knock([this] { box_.UserLeaves(); });
  }

 private:
  void Show() {
    const QString shown = ToQt(box_.Text());
    if (text() != shown) {
      setText(shown);
      if (!hasFocus()) setCursorPosition(0);
    }
    setReadOnly(box_.Locked());
    if (box_.SelLength() == 0) return;
    const int start = PlaceInQt(box_.Text(), box_.SelStart());
    setSelection(start, PlaceInQt(box_.Text(), box_.SelStart() + box_.SelLength()) - start);
  }

  TextBox& box_;
  Views& views_;
};

}  // namespace

QLineEdit* MakeView(TextBox& box, Views& views, QWidget& parent) {
  return new TextView(box, views, parent);
}

}  // namespace brenwick
