// The smallest possible program with a status icon: the floor for start time and memory.

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::black);
    QSystemTrayIcon icon{QIcon(pixmap)};
    icon.show();
    return QApplication::exec();
}
