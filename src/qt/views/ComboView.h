// The view of a combo box.
#pragma once

#include <QComboBox>

#include "controls/ComboBox.h"
#include "qt/views/Views.h"

namespace brenwick {

QComboBox* MakeView(ComboBox& combo, Views& views, QWidget& parent);

}  // namespace brenwick
