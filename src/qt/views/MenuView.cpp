#include "qt/views/MenuView.h"

#include "qt/Strings.h"

namespace brenwick {
namespace {

constexpr const char* kSeparator = "-";

void AddItems(QMenu& menu, const MenuItem& parent, frmMain& form, Views& views) {
  for (MenuItem* item : form.ItemsOf(parent)) {
    if (!item->Visible()) continue;
    // The names of contacts may hold what would be a mnemonic.
    QString caption = ToQt(item->Caption());
    if (item->Index() >= 0) caption.replace('&', "&&");
    if (item->Caption() == kSeparator) {
      menu.addSeparator();
    } else if (!form.ItemsOf(*item).empty()) {
      QMenu* inner = menu.addMenu(caption);
      inner->setObjectName(ToQt(item->Name()));
      AddItems(*inner, *item, form, views);
    } else {
      QAction* action = menu.addAction(caption);
      action->setObjectName(ToQt(item->Name()));
      action->setCheckable(item->Checked());
      action->setChecked(item->Checked());
      action->setEnabled(item->Enabled());
      QObject::connect(action, &QAction::triggered, action,
                       [item, &views] { views.Knock([item] { item->UserClick(); }); });
    }
  }
}

}  // namespace

void FillMenu(QMenu& menu, frmMain& form, Views& views) {
  for (QMenu* inner : menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) inner->deleteLater();
  menu.clear();
  AddItems(menu, form.mPopupSys, form, views);
}

}  // namespace brenwick
