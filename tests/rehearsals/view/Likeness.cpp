#include "rehearsals/view/Likeness.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTextDocumentFragment>

#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/Labels.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "qt/Strings.h"

namespace brenwick {
namespace {

QString Number(int number) { return QString::number(number); }
QString Truth(bool truth) { return truth ? "yes" : "no"; }

// Empty, or how both differ.
QString Compare(const char* what, const QString& held, const QString& shown) {
  if (held == shown) return {};
  return QString("%1 is \"%2\" and shown as \"%3\"").arg(what, held, shown);
}

QString First(std::initializer_list<QString> differences) {
  for (const QString& difference : differences) {
    if (!difference.isEmpty()) return difference;
  }
  return {};
}

QString CaptionOf(const QWidget& widget) { return widget.property("caption").toString(); }

QString DifferenceOf(const TextBox& box, const QLineEdit& view) {
  return First({Compare("the text", ToQt(box.Text()), view.text()),
                Compare("locked", Truth(box.Locked()), Truth(view.isReadOnly()))});
}

QString DifferenceOf(const ComboBox& combo, const QComboBox& view) {
  QStringList held;
  QStringList shown;
  for (const std::string& entry : combo.Items()) held.append(ToQt(entry));
  for (int i = 0; i < view.count(); ++i) shown.append(view.itemText(i));
  return First({Compare("the list", held.join('\n'), shown.join('\n')),
                Compare("the choice", Number(combo.ListIndex()), Number(view.currentIndex())),
                Compare("the text", ToQt(combo.Text()), view.currentText())});
}

QString LineOf(const QAbstractItemModel& model, int row) {
  QStringList cells;
  for (int column = 0; column < model.columnCount(); ++column) {
    cells.append(model.index(row, column).data().toString());
  }
  // A line has as many cells as the longest, the last of them empty.
  while (!cells.isEmpty() && cells.last().isEmpty()) cells.removeLast();
  return cells.join('\t');
}

QString DifferenceOf(const ListBox& list, const QAbstractItemView& view) {
  const QAbstractItemModel& model = *view.model();
  QStringList held;
  QStringList shown;
  for (const std::string& item : list.Items()) {
    QString line = ToQt(item);
    while (line.endsWith('\t')) line.chop(1);
    held.append(line);
  }
  for (int row = 0; row < model.rowCount(); ++row) shown.append(LineOf(model, row));
  return First(
      {Compare("the list", held.join('\n'), shown.join('\n')),
       Compare("the choice", Number(list.ListIndex()), Number(view.currentIndex().row()))});
}

QString DifferenceOf(const CheckBox& box, const QAbstractButton& view) {
  return First({Compare("ticked", Truth(box.Ticked()), Truth(view.isChecked())),
                Compare("the caption", ToQt(box.Caption()), CaptionOf(view))});
}

QString DifferenceOf(const OptionButton& option, const QAbstractButton& view) {
  return First({Compare("chosen", Truth(option.Chosen()), Truth(view.isChecked())),
                Compare("the caption", ToQt(option.Caption()), CaptionOf(view))});
}

QString DifferenceOf(const Button& button, const QAbstractButton& view) {
  return Compare("the caption", ToQt(button.Caption()), CaptionOf(view));
}

// A text of several lines is set with its own spaces.
QString Words(const QString& text) { return QString(text).replace(QChar::Nbsp, ' ').simplified(); }

QString DifferenceOf(const Label& label, const QLabel& view) {
  if (view.textFormat() == Qt::RichText) {
    const QString shown = QTextDocumentFragment::fromHtml(view.text()).toPlainText();
    return Compare("the caption", Words(ToQt(label.Caption())), Words(shown));
  }
  return Compare("the caption", ToQt(label.Caption()), CaptionOf(view));
}

// False when it is not these two.
template <typename ControlType, typename ViewType>
bool Both(const Control& control, const QWidget& widget, QString& difference) {
  const auto* held = dynamic_cast<const ControlType*>(&control);
  const auto* shown = dynamic_cast<const ViewType*>(&widget);
  if (held == nullptr || shown == nullptr) return false;
  difference = DifferenceOf(*held, *shown);
  return true;
}

QString KindDifference(const Control& control, const QWidget& widget) {
  QString difference;
  static_cast<void>(Both<TextBox, QLineEdit>(control, widget, difference) ||
                    Both<ComboBox, QComboBox>(control, widget, difference) ||
                    Both<ListBox, QAbstractItemView>(control, widget, difference) ||
                    Both<CheckBox, QAbstractButton>(control, widget, difference) ||
                    Both<OptionButton, QAbstractButton>(control, widget, difference) ||
                    Both<Button, QAbstractButton>(control, widget, difference) ||
                    Both<Label, QLabel>(control, widget, difference));
  return difference;
}

QString DifferenceOf(const Control& control, const QWidget& widget) {
  return First({Compare("enabled", Truth(control.Enabled()),
                        Truth(widget.isEnabledTo(widget.parentWidget()))),
                Compare("visible", Truth(control.Visible()), Truth(!widget.isHidden())),
                Compare("the tip", ToQt(control.ToolTip()), widget.toolTip()),
                KindDifference(control, widget)});
}

}  // namespace

Likeness::Likeness(const frmMain& form, const MainWindowView& view, const frmStatus& status,
                   const StatusView& statusView)
    : form_(form), view_(view), status_(status), status_view_(statusView) {
  for (const Control* control : form_.Controls()) {
    QString name = ToQt(control->Name());
    if (control->Index() >= 0) name += Number(control->Index());
    const auto* widget = view_.findChild<QWidget*>(name);
    if (widget != nullptr) pairs_.push_back({control, widget});
  }
}

QString Likeness::Difference() const {
  QString difference = WindowDifference();
  for (std::size_t i = 0; difference.isEmpty() && i < pairs_.size(); ++i) {
    const Pair& pair = pairs_[i];
    const QString found = DifferenceOf(*pair.control, *pair.widget);
    if (!found.isEmpty()) difference = pair.widget->objectName() + ": " + found;
  }
  return difference;
}

QString Likeness::WindowDifference() const {
  const bool open = form_.Visible() && form_.State() == WindowState::Normal;
  const QString held = status_.Visible() ? ToQt(status_.lblStatus.Caption()) : QString();
  const auto* message = status_view_.findChild<QLabel*>("lblStatus");
  const QString shown = status_view_.isVisible() ? CaptionOf(*message) : QString();
  return First({Compare("the title", ToQt(form_.Caption()), view_.windowTitle()),
                Compare("the window's being open", Truth(open),
                        Truth(view_.isVisible() && !view_.isMinimized())),
                Compare("the status", held, shown)});
}

}  // namespace brenwick
