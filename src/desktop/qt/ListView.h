// The view of a list.
#pragma once

#include <QTreeView>

#include "controls/ListBox.h"
#include "desktop/qt/Views.h"

namespace brenwick {

QTreeView* MakeView(ListBox& list, Views& views, QWidget& parent);

}  // namespace brenwick
