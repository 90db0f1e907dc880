#include "qt/views/Views.h"

#include "qt/Strings.h"

namespace brenwick {
namespace {

QString NameOf(const Control& control) {
  const QString name = ToQt(control.Name());
  return control.Index() < 0 ? name : name + QString::number(control.Index());
}

}  // namespace

void Views::Mirror(Control& control, QWidget& widget, std::function<void()> mirror) {
  widget.setObjectName(NameOf(control));
  const auto update = [this, &control, &widget, mirror = std::move(mirror)] {
    UpdateQuietly([&] {
      widget.setEnabled(control.Enabled());
      // This does not show a widget on a hidden page.
      if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
      widget.setToolTip(ToQt(control.ToolTip()));
      mirror();
    });
  };
  update();
  Own(control.Changed.Observe(update));
  Own(control.FocusWanted.Observe([this, &widget] { UpdateQuietly([&] { widget.setFocus(); }); }));
}

}  // namespace brenwick
