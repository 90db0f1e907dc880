// The least program with a window and a tray icon: what Brenwick's start and memory are measured
// by.
#include <QApplication>
#include <QSystemTrayIcon>
#include <QWidget>

int main(int count, char** values) {
  const QApplication application(count, values);
  QApplication::setQuitOnLastWindowClosed(false);
  const QWidget window;
  QPixmap picture(22, 22);
  picture.fill(Qt::red);
  QSystemTrayIcon icon{QIcon(picture)};
  icon.show();
  return QApplication::exec();
}
