// The least that a Qt program with a status icon can be: what starting and resting are compared with.

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QPixmap picture(22, 22);
  picture.fill(Qt::darkBlue);
  QMenu menu;
  menu.addAction("Quit", &QApplication::quit);
  QSystemTrayIcon icon{QIcon(picture)};
  icon.setContextMenu(&menu);
  icon.show();
  return QApplication::exec();
}
