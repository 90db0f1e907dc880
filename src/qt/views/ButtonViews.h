// Views of the controls that bear a caption.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "controls/Buttons.h"
#include "controls/Labels.h"
#include "qt/views/Views.h"

namespace brenwick {

QCheckBox* MakeView(CheckBox& box, Views& views, QWidget& parent);
QRadioButton* MakeView(OptionButton& option, Views& views, QWidget& parent);
QPushButton* MakeView(Button& button, Views& views, QWidget& parent);
QLabel* MakeView(Label& label, Views& views, QWidget& parent);

}  // namespace brenwick
