// The main window as the user sees it: the page list on the left, one page on the right.
#pragma once

#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <memory>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

class MainWindowView : public QWidget {
 public:
  MainWindowView(frmMain& form, Views& views);

  // Makes the pages, which are otherwise made when the window is shown for the first time: a window
  // that stays in the notification area costs neither the time nor the memory.
  void Build();

  // True while there is a notification area that a hidden window can be called back from. Without
  // one the window stays in the task bar.
  std::function<bool()> HasTray;
  // To be called when a notification area has appeared or gone.
  void TrayChanged();

  void setVisible(bool visible) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  QWidget* MakeContent();
  QWidget* MakePage(int page);
  QSize FirstSize() const;
  void ObserveWindow();
  void ObserveKeys();
  void ShowOrHide();
  void ShowPage(int page);
  void RestoreFromTaskBar();
  QPoint PlaceOfForm() const;
  void MoveToForm();
  void PlaceAnew();

  frmMain& form_;
  Views& views_;
  QStackedWidget* pages_;
  bool built_ = false;
  bool asked_ = false;      // the window system was asked for a place and has not answered
  bool restoring_ = false;  // the window is on the screen already, and stays there
};

}  // namespace brenwick
