// The view of a text box.
#pragma once

#include <QLineEdit>

#include "controls/TextBox.h"
#include "qt/views/Views.h"

namespace brenwick {

QLineEdit* MakeView(TextBox& box, Views& views, QWidget& parent);

}  // namespace brenwick
