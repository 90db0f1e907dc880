// The view of the tray icon's menu.
#pragma once

#include <QMenu>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

// Shows the form's present items below mPopupSys in the menu. Actions of items that the menu shows
// already stay, so that only what has changed costs time. The form and the views outlive the menu.
void FillMenu(QMenu& menu, frmMain& form, Views& views);

}  // namespace brenwick
