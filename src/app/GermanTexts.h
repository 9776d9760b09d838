#pragma once

class QCoreApplication;

namespace brisklog {

/// Makes the toolkit's own texts (file dialog, menus of fields) and its dates German. Without the
/// translations' package they stay English; nothing else changes.
void installGermanTexts(QCoreApplication& application);

} // namespace brisklog
