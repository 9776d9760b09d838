#include "ui/lists/ScrollArea.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/TextField.h"
#include "ui/look/Layout.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentScrollArea : public ScreenTest {
protected:
    ComponentScrollArea() {
        auto* content = new QWidget;
        Column{first, space(600), last}.applyTo(*content);
        area.setContent(content);
        area.resize(200, 200);
        showActive(area);
    }

    [[nodiscard]] bool isInView(const QWidget& widget) const {
        const QWidget& seen = *area.viewport();
        return seen.rect().contains(QRect(widget.mapTo(&seen, QPoint(0, 0)), widget.size()));
    }

    TextField* first = new TextField(u"Vorname"_s);
    TextField* last = new TextField(u"Telefon"_s);
    ScrollArea area;
};

TEST_F(ComponentScrollArea, keepsInViewWhatGetsTheFocusInWhateverWay) {
    EXPECT_FALSE(isInView(*last));
    last->setFocus(Qt::OtherFocusReason);
    settle();
    EXPECT_TRUE(isInView(*last));
    EXPECT_FALSE(isInView(*first));
    first->setFocus(Qt::OtherFocusReason);
    settle();
    EXPECT_TRUE(isInView(*first));
}

} // namespace
} // namespace brisklog::test
