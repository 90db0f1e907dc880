#include "qt/views/Mnemonics.h"

#include <QAbstractButton>
#include <QSet>
#include <QVariant>

namespace brenwick {
namespace {

constexpr const char* kCaption = "caption";

void SetText(QWidget& widget, const QString& text) {
  if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
    button->setText(text);
  } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
    label->setText(text);
  }
}

QString Escaped(const QString& caption) { return QString(caption).replace('&', "&&"); }

bool StartsWord(const QString& caption, qsizetype at) {
  return at == 0 || !caption[at - 1].isLetterOrNumber();
}

// The place of the letter to underline, −1 where none is free.
qsizetype FreeLetter(const QString& caption, const QSet<QChar>& taken) {
  qsizetype any = -1;
  for (qsizetype at = 0; at < caption.size(); ++at) {
    if (!caption[at].isLetter() || taken.contains(caption[at].toLower())) continue;
    if (StartsWord(caption, at)) return at;
    if (any < 0) any = at;
  }
  return any;
}

bool TakesMnemonic(const QWidget& widget) {
  const auto* label = qobject_cast<const QLabel*>(&widget);
  return label == nullptr || label->buddy() != nullptr;
}

}  // namespace

void SetCaption(QWidget& widget, const QString& caption) {
  if (widget.property(kCaption) == caption) return;
  widget.setProperty(kCaption, caption);
  const bool plain = qobject_cast<QLabel*>(&widget) != nullptr && !TakesMnemonic(widget);
  SetText(widget, plain ? caption : Escaped(caption));
}

void SetHtml(QLabel& label, const QString& html) {
  label.setProperty(kCaption, {});
  label.setText(html);
}

void AssignMnemonics(QWidget& page) {
  QSet<QChar> taken;
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    const QString caption = widget->property(kCaption).toString();
    if (caption.isEmpty() || !TakesMnemonic(*widget)) continue;
    const qsizetype at = FreeLetter(caption, taken);
    if (at < 0) {
      SetText(*widget, Escaped(caption));
      continue;
    }
    taken.insert(caption[at].toLower());
    SetText(*widget, Escaped(caption.left(at)) + '&' + Escaped(caption.mid(at)));
  }
}

}  // namespace brenwick
