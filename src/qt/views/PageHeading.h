// The title of a page, with its picture.
#pragma once

#include <QLabel>

#include "controls/Labels.h"
#include "qt/views/Views.h"

namespace brenwick {

QLabel* MakePageHeading(Frame& page, Views& views, QWidget& parent);

}  // namespace brenwick
