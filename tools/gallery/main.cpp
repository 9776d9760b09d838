#include "gallery/Gallery.h"
#include "gallery/SheetGallery.h"
#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QApplication>
#include <cstdio>
#include <string_view>

using namespace brisklog;

namespace {

bool save(QWidget& page, const char* file) {
    page.show();
    page.activateWindow();
    QApplication::processEvents();
    return page.grab().save(QString::fromLocal8Bit(file));
}

} // namespace

int main(int count, char* arguments[]) {
    if (count != 4) {
        std::fputs("usage: brisklog-gallery light|dark PARTS.png WINDOWS.png\n", stderr);
        return 2;
    }
    QApplication application(count, arguments);
    installLook(application, Motion::reduced);
    applyColorScheme(std::string_view(arguments[1]) == "dark" ? ColorScheme::dark : ColorScheme::light);
    Gallery parts;
    SheetGallery windows;
    return save(parts, arguments[2]) && save(windows, arguments[3]) ? 0 : 1;
}
