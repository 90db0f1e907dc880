// Texts of several lines, and the addresses in them.
#pragma once

#include <QString>

namespace brenwick {

// Whether the caption is more than a line of words.
bool IsRich(const QString& caption);

// The caption as HTML: an address is a link; a line and the one behind it
// that begins with a tab stand side by side.
QString ToHtml(const QString& caption);

}  // namespace brenwick
