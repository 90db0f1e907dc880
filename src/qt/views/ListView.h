// The view of a list.
#pragma once

#include <QTreeView>

#include "controls/ListBox.h"
#include "qt/views/Views.h"

namespace brenwick {

QTreeView* MakeView(ListBox& list, Views& views, QWidget& parent);

}  // namespace brenwick
