#pragma once

#include <QAccessibleBridgePlugin>

namespace brisklog::test {

/// Makes the toolkit report to `ScreenReader` what it would tell a screen reader.
class RecordingBridgePlugin final : public QAccessibleBridgePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QAccessibleBridgeFactoryInterface_iid FILE "RecordingBridge.json")

public:
    QAccessibleBridge* create(const QString& key) override;
};

} // namespace brisklog::test
