#include "qt/views/MenuView.h"

#include <vector>

#include "qt/Strings.h"

namespace brenwick {
namespace {

constexpr const char* kSeparator = "-";

// The data of an action, which tells which item the action shows.
QVariant Mark(const MenuItem& item) {
  return QVariant::fromValue(reinterpret_cast<quintptr>(&item));
}

std::vector<MenuItem*> VisibleItems(frmMain& form, const MenuItem& parent) {
  std::vector<MenuItem*> items = form.ItemsOf(parent);
  std::erase_if(items, [](const MenuItem* item) { return !item->Visible(); });
  return items;
}

void RemoveFrom(QMenu& menu, const QList<QAction*>& actions, qsizetype first) {
  for (qsizetype i = actions.size() - 1; i >= first; --i) {
    if (QMenu* inner = actions[i]->menu()) {
      inner->deleteLater();
      menu.removeAction(actions[i]);
    } else {
      delete actions[i];
    }
  }
}

QAction* AddAction(QMenu& menu, MenuItem& item, bool has_items, Views& views) {
  if (item.Caption() == kSeparator) {
    QAction* separator = menu.addSeparator();
    separator->setData(Mark(item));
    return separator;
  }
  QAction* action = has_items ? menu.addMenu(QString())->menuAction() : menu.addAction(QString());
  action->setData(Mark(item));
  QObject* named = has_items ? static_cast<QObject*>(action->menu()) : action;
  named->setObjectName(ToQt(item.Name()));
  QObject::connect(action, &QAction::triggered, action,
                   [&item, &views] { views.ForwardUserAction([&item] { item.UserClick(); }); });
  return action;
}

void Update(QAction& action, const MenuItem& item) {
  QString caption = ToQt(item.Caption());
  // An "&" in the name of a contact is no mnemonic.
  if (item.Index() >= 0) caption.replace('&', "&&");
  action.setText(caption);
  if (item.Checked()) action.setCheckable(true);
  action.setChecked(item.Checked());
  action.setCheckable(item.Checked());
  action.setEnabled(item.Enabled());
}

bool Shows(const QAction& action, const MenuItem& item, bool has_items) {
  return action.data() == Mark(item) && (action.menu() != nullptr) == has_items;
}

void Show(QMenu& menu, const MenuItem& parent, frmMain& form, Views& views) {
  QList<QAction*> actions = menu.actions();
  qsizetype place = 0;
  for (MenuItem* item : VisibleItems(form, parent)) {
    const bool has_items = !form.ItemsOf(*item).empty();
    if (place < actions.size() && !Shows(*actions[place], *item, has_items)) {
      RemoveFrom(menu, actions, place);
      actions.resize(place);
    }
    if (place == actions.size()) actions.append(AddAction(menu, *item, has_items, views));
    QAction& action = *actions[place++];
    if (action.isSeparator()) continue;
    Update(action, *item);
    if (has_items) Show(*action.menu(), *item, form, views);
  }
  RemoveFrom(menu, actions, place);
}

}  // namespace

void FillMenu(QMenu& menu, frmMain& form, Views& views) { Show(menu, form.mPopupSys, form, views); }

}  // namespace brenwick
