#include <QGuiApplication>
#include <QRasterWindow>

/// usage: test-window APPLICATION-ID [X11-WINDOW-CLASS]
int main(int argumentCount, char** arguments) {
    const QGuiApplication application(argumentCount, arguments);
    QGuiApplication::setDesktopFileName(QGuiApplication::arguments().value(1));
    QGuiApplication::setApplicationName(QGuiApplication::arguments().value(2));
    QRasterWindow window;
    window.resize(200, 100);
    window.show();
    return QGuiApplication::exec();
}
