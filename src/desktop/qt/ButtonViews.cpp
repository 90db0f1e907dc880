#include "desktop/qt/ButtonViews.h"

#include <QMouseEvent>

#include "desktop/qt/Mnemonics.h"
#include "desktop/qt/Strings.h"

namespace brenwick {
namespace {

// Qt tells of a click in the same way whether the mouse or the keyboard made it.
class OptionView : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;
  bool ByMouse() const { return by_mouse_; }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    by_mouse_ = true;
    QRadioButton::mouseReleaseEvent(event);
    by_mouse_ = false;
  }

 private:
  bool by_mouse_ = false;
};

}  // namespace

QCheckBox* MakeView(CheckBox& box, Views& views, QWidget& parent) {
  auto* view = new QCheckBox(&parent);
  views.Mirror(box, *view, [&box, view] {
    SetCaption(*view, ToQt(box.Caption()));
    view->setChecked(box.Ticked());
  });
  QObject::connect(view, &QCheckBox::clicked, view, [&box, &views, view] {
    views.Knock([&box] { box.UserClick(); });
    view->setChecked(box.Ticked());
  });
  return view;
}

QRadioButton* MakeView(OptionButton& option, Views& views, QWidget& parent) {
  auto* view = new OptionView(&parent);
  views.Mirror(option, *view, [&option, view] {
    SetCaption(*view, ToQt(option.Caption()));
    view->setChecked(option.Chosen());
  });
  QObject::connect(view, &QRadioButton::clicked, view, [&option, &views, view] {
    views.Knock([&option, view] { view->ByMouse() ? option.UserClick() : option.UserArrow(); });
    view->setChecked(option.Chosen());
  });
  return view;
}

QPushButton* MakeView(Button& button, Views& views, QWidget& parent) {
  auto* view = new QPushButton(&parent);
  view->setAutoDefault(false);
  views.Mirror(button, *view, [&button, view] { SetCaption(*view, ToQt(button.Caption())); });
  QObject::connect(view, &QPushButton::clicked, view,
                   [&button, &views] { views.Knock([&button] { button.UserClick(); }); });
  return view;
}

QLabel* MakeView(Label& label, Views& views, QWidget& parent) {
  auto* view = new QLabel(&parent);
  view->setTextFormat(Qt::PlainText);
  views.Mirror(label, *view, [&label, view] { SetCaption(*view, ToQt(label.Caption())); });
  return view;
}

}  // namespace brenwick
