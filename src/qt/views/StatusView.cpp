#include "qt/views/StatusView.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include "base/ProgramState.h"
#include "qt/views/ButtonViews.h"

namespace brenwick {
namespace {

constexpr int kLeastWidth = 320;  // pixels: most messages fit without the window changing its size

}  // namespace

StatusView::StatusView(frmStatus& form, Views& views) : form_(form) {
  setObjectName("frmStatus");
  setWindowTitle(kTitle);
  auto* rows = new QVBoxLayout(this);
  QLabel* message = MakeView(form_.lblStatus, views, *this);
  message->setAlignment(Qt::AlignCenter);
  message->setMinimumWidth(kLeastWidth);
  rows->addWidget(message);
  views.Own(form_.VisibilityChanged.Observe([this] { ShowOrHide(); }));
}

void StatusView::ShowOrHide() {
  if (!form_.Visible()) {
    hide();
    // Qt warns when a window is shown again before the X server has reported that it is hidden.
    destroy();
    return;
  }
  setWindowFlag(Qt::WindowStaysOnTopHint, form_.Topmost());
  setWindowFlag(Qt::WindowCloseButtonHint, form_.CloseBox());
  // The window takes no input, so the keyboard stays where the user types.
  setAttribute(Qt::WA_ShowWithoutActivating);
  adjustSize();
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  move(screen.center() - rect().center());
  show();
}

void StatusView::closeEvent(QCloseEvent* event) { event->setAccepted(form_.CloseBox()); }

}  // namespace brenwick
