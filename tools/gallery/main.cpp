#include "app/components/Look.h"
#include "app/components/Palette.h"
#include "gallery/Gallery.h"

#include <QApplication>
#include <cstdio>
#include <string_view>

using namespace brisklog;

int main(int count, char* arguments[]) {
    if (count != 3) {
        std::fputs("usage: brisklog-gallery light|dark FILE.png\n", stderr);
        return 2;
    }
    QApplication application(count, arguments);
    installLook(application, Motion::reduced);
    applyColorScheme(std::string_view(arguments[1]) == "dark" ? ColorScheme::dark : ColorScheme::light);
    Gallery gallery;
    gallery.show();
    gallery.activateWindow();
    QApplication::processEvents();
    return gallery.grab().save(QString::fromLocal8Bit(arguments[2])) ? 0 : 1;
}
