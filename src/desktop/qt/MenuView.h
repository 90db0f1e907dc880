// The tray icon's menu.
#pragma once

#include <QMenu>

#include "desktop/qt/Views.h"
#include "forms/frmMain.h"

namespace brenwick {

// Puts the form's present items below mPopupSys into the menu, in place of what it held.
void FillMenu(QMenu& menu, frmMain& form, Views& views);

}  // namespace brenwick
