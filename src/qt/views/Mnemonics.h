// The underlined letters by which the keyboard reaches a control. They follow from the captions, so
// that every language has its own without a translator's care.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace brenwick {

// Shows a caption in a QAbstractButton or QLabel; the letter is chosen by AssignMnemonics.
void SetCaption(QWidget& widget, const QString& caption);

// Shows a text of several lines in a label, which has no letter.
void SetHtml(QLabel& label, const QString& html);

// Gives each captioned widget below the page a letter of its own, where one is left: the first of
// a word first, then any. Labels have one only for the field that they stand for.
void AssignMnemonics(QWidget& page);

}  // namespace brenwick
