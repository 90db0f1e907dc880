#include "qt/views/ButtonViews.h"

#include <QMouseEvent>

#include "qt/Strings.h"
#include "qt/views/LabelText.h"
#include "qt/views/Mnemonics.h"

namespace brenwick {
namespace {

// Knows whether the mouse made a click: Qt reports clicks of the mouse and the keyboard alike.
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

// Some styles leave no room beside the words.
class ButtonView : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override {
    return QPushButton::sizeHint().grownBy({0, 0, fontMetrics().height(), 0});
  }
};

}  // namespace

QCheckBox* MakeView(CheckBox& box, Views& views, QWidget& parent) {
  auto* view = new QCheckBox(&parent);
  views.Mirror(box, *view, [&box, view] {
    SetCaption(*view, ToQt(box.Caption()));
    view->setChecked(box.Ticked());
  });
  QObject::connect(view, &QCheckBox::clicked, view, [&box, &views, view] {
    views.ForwardUserAction([&box] { box.UserClick(); });
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
    views.ForwardUserAction(
        [&option, view] { view->ByMouse() ? option.UserClick() : option.UserArrow(); });
    view->setChecked(option.Chosen());
  });
  return view;
}

QPushButton* MakeView(Button& button, Views& views, QWidget& parent) {
  auto* view = new ButtonView(&parent);
  // Enter presses the button that has the keyboard, or else the page's own.
  view->setAutoDefault(true);
  view->setDefault(button.PressedBy() == Button::Key::Enter);
  views.Mirror(button, *view, [&button, view] { SetCaption(*view, ToQt(button.Caption())); });
  QObject::connect(view, &QPushButton::clicked, view, [&button, &views] {
    views.ForwardUserAction([&button] { button.UserClick(); });
  });
  return view;
}

QLabel* MakeView(Label& label, Views& views, QWidget& parent) {
  auto* view = new QLabel(&parent);
  views.Mirror(label, *view, [&label, view] {
    const QString caption = ToQt(label.Caption());
    const bool rich = IsRich(caption);
    view->setTextFormat(rich ? Qt::RichText : Qt::PlainText);
    view->setTextInteractionFlags(rich ? Qt::TextBrowserInteraction : Qt::NoTextInteraction);
    view->setOpenExternalLinks(rich);
    rich ? SetHtml(*view, ToHtml(caption)) : SetCaption(*view, caption);
  });
  return view;
}

}  // namespace brenwick
