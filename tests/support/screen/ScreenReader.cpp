#include "support/screen/ScreenReader.h"

#include "support/screen/RecordingBridge.h"
#include "support/screen/ScreenTest.h"

#include <QtPlugin>
#include <algorithm>
#include <cstdlib>

using brisklog::test::RecordingBridgePlugin;
Q_IMPORT_PLUGIN(RecordingBridgePlugin)

namespace brisklog::test {
namespace {

std::vector<ScreenReader::Event>* recorded = nullptr;

class RecordingBridge final : public QAccessibleBridge {
public:
    void setRootObject(QAccessibleInterface*) override {}

    void notifyAccessibilityUpdate(QAccessibleEvent* event) override {
        const auto* const about = event->accessibleInterface();
        if (recorded == nullptr || about == nullptr)
            return;
        recorded->push_back(
            {.type = event->type(), .role = about->role(), .name = about->text(QAccessible::Name)});
    }
};

} // namespace

QAccessibleBridge* RecordingBridgePlugin::create(const QString& /*key*/) { return new RecordingBridge; }

ScreenReader::ScreenReader() { recorded = &m_events; }

ScreenReader::~ScreenReader() { recorded = nullptr; }

long ScreenReader::count(QAccessible::Event type, const QString& name) const {
    return std::ranges::count_if(
        m_events, [&](const Event& event) { return event.type == type && event.name == name; });
}

QStringList ScreenReader::announced() const {
    QStringList texts;
    for (const Event& event : m_events)
        if (event.type == QAccessible::ObjectShow && event.role == QAccessible::Notification)
            texts << event.name;
    return texts;
}

QAccessibleInterface& ScreenReader::of(QWidget& widget) {
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&widget);
    if (found == nullptr)
        std::abort();
    return *found;
}

QStringList ScreenReader::actionsOf(QAccessibleInterface& thing) {
    const auto* const actions = thing.actionInterface();
    return actions != nullptr ? actions->actionNames() : QStringList();
}

void ScreenReader::act(QAccessibleInterface& thing, const QString& action) {
    if (!actionsOf(thing).contains(action))
        ADD_FAILURE() << "offers no action " << action.toStdString();
    else
        thing.actionInterface()->doAction(action);
    settle();
}

} // namespace brisklog::test
