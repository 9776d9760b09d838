#pragma once

class QApplication;

namespace brisklog {

/// The application for benchmarks that show something, made at the first call: on the offscreen platform,
/// with our look and without motion.
QApplication& offscreenApplication();

} // namespace brisklog
