// The list of pages, each with its icon.
#pragma once

#include <QListWidget>

#include "controls/ListBox.h"
#include "qt/views/Views.h"

namespace brenwick {

QListWidget* MakePageList(ListBox& list, Views& views, QWidget& parent);

}  // namespace brenwick
