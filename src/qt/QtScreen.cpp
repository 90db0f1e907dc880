#include "qt/QtScreen.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMessageBox>
#include <QUrl>

#include "qt/Strings.h"

namespace brenwick {
namespace {

constexpr float kTwipsPerPixel = 15;
constexpr std::size_t kMostWidths = 20'000;  // of texts that are kept

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Information:
      break;
  }
  return QMessageBox::Information;
}

}  // namespace

BoxAnswer QtScreen::MessageBox(const std::string& text, const std::string& title, BoxIcon icon,
                               BoxButtons buttons) {
  const bool asks = buttons == BoxButtons::YesNo;
  if (!end_.HasDisplay()) {
    qWarning("%s", text.c_str());
    return asks ? BoxAnswer::No : BoxAnswer::Ok;
  }
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName("messageBox");
  box.setIcon(IconOf(icon));
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
  box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  if (asks) box.setEscapeButton(QMessageBox::No);
  const int answer = box.exec();
  end_.GoOn();
  if (!asks) return BoxAnswer::Ok;
  return answer == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

void QtScreen::Beep() { QApplication::beep(); }

void QtScreen::SetPointer(Pointer pointer) {
  if (pointer == pointer_ || !end_.HasDisplay()) return;
  pointer_ = pointer;
  if (pointer == Pointer::Hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtScreen::SendKeys(const std::string& keys) {
  QWidget* widget = QApplication::focusWidget();
  if (widget == nullptr || keys != "{BACKSPACE}") return;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QCoreApplication::postEvent(
        widget, new QKeyEvent(type, Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b")));
  }
}

void QtScreen::Open(const std::string& address) {
  QDesktopServices::openUrl(QUrl(ToQt(address), QUrl::TolerantMode));
}

// The lists are drawn in the desktop's font, whatever font the form names. A list that is built
// anew asks for the same texts again, and Qt takes a while for each.
float QtScreen::TextWidth(const std::string& text, const Font& /*font*/) {
  static const QFontMetricsF metrics{QApplication::font()};
  if (widths_.size() >= kMostWidths) widths_.clear();
  const auto [known, is_new] = widths_.try_emplace(text);
  if (is_new) {
    known->second = static_cast<float>(metrics.horizontalAdvance(ToQt(text))) * kTwipsPerPixel;
  }
  return known->second;
}

float QtScreen::TwipsPerPixelX() { return kTwipsPerPixel; }

}  // namespace brenwick
