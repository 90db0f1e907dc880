#include "qt/views/MainWindowView.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>
#include <vector>

#include "qt/Strings.h"
#include "qt/views/ButtonViews.h"
#include "qt/views/Mnemonics.h"
#include "qt/views/PageBuilder.h"
#include "qt/views/PageList.h"

namespace brenwick {
namespace {

constexpr int kTwipsPerPixel = 15;
// In characters and lines of the desktop's font.
constexpr int kFirstColumns = 114;
constexpr int kFirstRows = 33;

}  // namespace

MainWindowView::MainWindowView(frmMain& form, Views& views)
    : form_(form), views_(views), pages_(new QStackedWidget(this)) {
  setObjectName("frmMain");
  resize(FirstSize());
  ObserveWindow();
  ObserveKeys();
}

void MainWindowView::setVisible(bool visible) {
  if (visible) Build();
  QWidget::setVisible(visible);
}

void MainWindowView::Build() {
  if (std::exchange(built_, true)) return;
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(MakeContent(), 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(MakeView(form_.cmdOK, views_, *this));
  rows->addLayout(buttons);
  for (int page = kPageCount - 1; page >= 0; --page) {
    if (form_.fraPage[static_cast<std::size_t>(page)].Visible()) ShowPage(page);
  }
}

// In most languages every page fits into this size, whatever font the desktop has.
QSize MainWindowView::FirstSize() const {
  const QFontMetrics metrics = fontMetrics();
  const QSize wanted(metrics.averageCharWidth() * kFirstColumns,
                     metrics.lineSpacing() * kFirstRows);
  return wanted.boundedTo(screen()->availableSize());
}

// The keys that turn the pages, wherever the keyboard focus is.
void MainWindowView::ObserveKeys() {
  const auto observe = [this](const QKeySequence& key, int step) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this, step] {
      const int entry = form_.lstMenu.ListIndex() + step;
      if (entry < 0 || entry >= form_.lstMenu.ListCount()) return;
      views_.ForwardUserAction([&] { form_.lstMenu.UserSelect(entry); });
    });
  };
  observe(Qt::CTRL | Qt::Key_PageUp, -1);
  observe(Qt::CTRL | Qt::Key_PageDown, 1);
}

void MainWindowView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool escape = event->key() == Qt::Key_Escape;
  if (!enter && !escape) return QWidget::keyPressEvent(event);
  const Button::Key pressed = enter ? Button::Key::Enter : Button::Key::Escape;
  for (Control* control : form_.Controls()) {
    auto* button = dynamic_cast<Button*>(control);
    if (button == nullptr || button->PressedBy() != pressed) continue;
    if (button->Page() != pages_->currentIndex()) continue;
    views_.ForwardUserAction([button] { button->UserClick(); });
  }
}

QWidget* MainWindowView::MakeContent() {
  auto* content = new QWidget(this);
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins(0, 0, 0, 0);
  QListWidget* list = MakePageList(form_.lstMenu, views_, *content);
  const auto name = [this, list] { list->setAccessibleName(ToQt(form_.lblMenu.Caption())); };
  name();
  views_.Own(form_.lblMenu.Changed.Observe(name));
  columns->addWidget(list);
  for (int page = 0; page < kPageCount; ++page) pages_->addWidget(MakePage(page));
  columns->addWidget(pages_, 1);
  return content;
}

// The page can be scrolled where a language or a font needs more room than the screen has.
QWidget* MainWindowView::MakePage(int page) {
  auto* scroller = new QScrollArea(pages_);
  auto* content = new QWidget(scroller);
  content->setObjectName("page" + QString::number(page));
  Frame& frame = form_.fraPage[static_cast<std::size_t>(page)];
  std::vector<Control*> controls;
  for (Control* control : form_.Controls()) {
    if (control->Page() == page && control != &frame) controls.push_back(control);
  }
  PageBuilder(*content, frame, views_).Build(controls);
  for (Control* control : controls) {
    if (dynamic_cast<CaptionedControl*>(control) == nullptr) continue;
    views_.Own(control->Changed.Observe([content] { AssignMnemonics(*content); }));
  }
  scroller->setWidget(content);
  scroller->setWidgetResizable(true);
  scroller->setFrameShape(QFrame::NoFrame);
  scroller->setFocusPolicy(Qt::NoFocus);
  views_.Own(frame.Changed.Observe([this, &frame, content, page] {
    content->setEnabled(frame.Enabled());
    if (frame.Visible()) ShowPage(page);
  }));
  return scroller;
}

void MainWindowView::ShowPage(int page) {
  views_.UpdateQuietly([&] { pages_->setCurrentIndex(page); });
}

void MainWindowView::ObserveWindow() {
  setWindowTitle(ToQt(form_.Caption()));
  views_.Own(form_.CaptionChanged.Observe([this] { setWindowTitle(ToQt(form_.Caption())); }));
  views_.Own(form_.VisibilityChanged.Observe([this] { ShowOrHide(); }));
  views_.Own(form_.StateChanged.Observe([this] { ShowOrHide(); }));
  views_.Own(form_.PlaceChanged.Observe([this] { MoveToForm(); }));
  views_.Own(form_.ForegroundWanted.Observe([this] {
    raise();
    activateWindow();
  }));
}

void MainWindowView::ShowOrHide() {
  if (restoring_) return;
  const bool minimized = form_.State() == WindowState::Minimized;
  views_.UpdateQuietly([&] {
    if (form_.Visible() && !minimized) {
      asked_ = asked_ || !isVisible() || isMinimized();
      if (!isVisible()) PlaceAnew();
      showNormal();
    } else if (minimized && (!HasTray || !HasTray())) {
      showMinimized();
    } else {
      hide();
    }
  });
}

void MainWindowView::TrayChanged() {
  if (form_.State() == WindowState::Minimized) ShowOrHide();
}

QPoint MainWindowView::PlaceOfForm() const {
  return {form_.Left() / kTwipsPerPixel, form_.Top() / kTwipsPerPixel};
}

void MainWindowView::MoveToForm() {
  if (pos() == PlaceOfForm()) return;
  asked_ = asked_ || isVisible();
  views_.UpdateQuietly([&] { move(PlaceOfForm()); });
}

// The window manager puts a window that comes back where it likes, unless it is told the place.
// When the window comes for the first time and has no place yet, the window manager finds a better
// one than the corner of the screen.
void MainWindowView::PlaceAnew() {
  const QPoint place = PlaceOfForm().isNull() ? pos() : PlaceOfForm();
  if (place.isNull()) return;
  move(place);
  if (windowHandle() != nullptr) windowHandle()->setFramePosition(place);
}

void MainWindowView::closeEvent(QCloseEvent* event) {
  event->ignore();
  views_.ForwardUserAction([this] { form_.UserCloses(); });
}

void MainWindowView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // A change of a hidden window is not the user's doing.
  if (event->type() != QEvent::WindowStateChange || !isVisible()) return;
  views_.ForwardUserAction([this] {
    if (isMinimized()) {
      form_.UserMinimizes();
    } else {
      RestoreFromTaskBar();
    }
  });
}

// Without a notification area the window stands in the task bar although the program has hidden it.
void MainWindowView::RestoreFromTaskBar() {
  restoring_ = true;
  form_.UserRestores();
  form_.Show();
  restoring_ = false;
  ShowOrHide();
}

void MainWindowView::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (views_.UpdatingQuietly() || !isVisible() || isMinimized()) return;
  // A move that answers a place that the program chose is not the user's doing.
  if (std::exchange(asked_, false)) return;
  views_.ForwardUserAction([this] { form_.UserMoves(x() * kTwipsPerPixel, y() * kTwipsPerPixel); });
}

}  // namespace brenwick
