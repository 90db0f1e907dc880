// The tray icon's menu.
#pragma once

#include <QMenu>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

// Puts the form's present items below mPopupSys into the menu, in place of what it held.
void FillMenu(QMenu& menu, frmMain& form, Views& views);

}  // namespace brenwick
