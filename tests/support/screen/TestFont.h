#pragma once

#include <QTemporaryDir>

namespace brisklog::test {

/// The only font of a test program while this lives; made before the application. What is drawn with it is
/// the same on every machine: it stands for Inter in four weights, with about the same widths, and all its
/// glyphs are boxes.
class TestFont {
public:
    TestFont();

private:
    QTemporaryDir m_folder;
};

} // namespace brisklog::test
