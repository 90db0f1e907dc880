#include "qt/views/ComboView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringList>

#include "qt/Strings.h"

namespace brenwick {
namespace {

// Hands typing to the program key by key, and the program completes it.
class ComboView : public QComboBox {
 public:
  ComboView(ComboBox& combo, Views& views, QWidget& parent)
      : QComboBox(&parent), combo_(combo), views_(views) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    views_.Mirror(combo_, *this, [this] { Show(); });
    connect(this, &QComboBox::activated, this, [this](int entry) {
      views_.ForwardUserAction([&] { combo_.UserSelect(entry); });
      Show();
    });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { Paste(text); });
  }

 protected:
  // The keyboard focus belongs to this widget, which passes keys on to its line of text.
  void keyPressEvent(QKeyEvent* event) override {
    if (!TakeKey(*event)) QComboBox::keyPressEvent(event);
  }

  void focusOutEvent(QFocusEvent* event) override {
    QComboBox::focusOutEvent(event);
    const auto reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    views_.ForwardUserAction([this] { combo_.UserLeaves(); });
  }

 private:
  // True: the key is done with.
  bool TakeKey(const QKeyEvent& key) {
    const bool chord = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (key.key() == Qt::Key_Delete && !chord) {
      views_.ForwardUserAction([this] { combo_.UserKeyDown(kKeyDelete); });
      return true;
    }
    if (key.key() == Qt::Key_Backspace && !chord) {
      Type(U"\b");
      return true;
    }
    if (chord || key.text().isEmpty() || !key.text().at(0).isPrint()) return false;
    Type(Characters(key.text().toStdString()));
    return true;
  }

  void Type(const std::u32string& characters) {
    const QLineEdit& box = *lineEdit();
    const QString text = box.text();
    const int start = box.hasSelectedText() ? box.selectionStart() : box.cursorPosition();
    const auto characters_in = [](const QString& part) {
      return CharacterCount(part.toStdString());
    };
    views_.ForwardUserAction([&] {
      combo_.Select(characters_in(text.left(start)), characters_in(box.selectedText()));
      for (const char32_t character : characters) combo_.UserTypesCharacter(character);
    });
  }

  // Takes a text that came at once, from the clipboard or an input method.
  void Paste(const QString& text) {
    views_.ForwardUserAction([&] {
      combo_.UserEmpties();
      for (const char32_t character : Characters(text.toStdString())) {
        combo_.UserTypesCharacter(character);
      }
    });
    Show();
  }

  void Show() {
    QStringList entries;
    for (const std::string& entry : combo_.Items()) entries.append(ToQt(entry));
    if (entries != shown_) {
      clear();
      addItems(entries);
      shown_ = entries;
    }
    if (currentIndex() != combo_.ListIndex()) setCurrentIndex(combo_.ListIndex());
    const QString text = ToQt(combo_.Text());
    if (currentText() != text) setEditText(text);
    const int start = PlaceInQt(combo_.Text(), combo_.SelStart());
    if (combo_.SelLength() > 0) {
      // Selected from its end, so that the next key replaces it and the cursor stays at the typing.
      const int end = PlaceInQt(combo_.Text(), combo_.SelStart() + combo_.SelLength());
      lineEdit()->setSelection(end, start - end);
    } else if (hasFocus()) {
      lineEdit()->setCursorPosition(start);
    }
  }

  ComboBox& combo_;
  Views& views_;
  QStringList shown_;
};

}  // namespace

QComboBox* MakeView(ComboBox& combo, Views& views, QWidget& parent) {
  return new ComboView(combo, views, parent);
}

}  // namespace brenwick
