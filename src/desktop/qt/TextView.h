// The view of a text box.
#pragma once

#include <QLineEdit>

#include "controls/TextBox.h"
#include "desktop/qt/Views.h"

namespace brenwick {

QLineEdit* MakeView(TextBox& box, Views& views, QWidget& parent);

}  // namespace brenwick
