#pragma once

class QWidget;

namespace brisklog {

/// To be called before the area shows something else: what it shows now stays as a picture over it and fades
/// away within 120 ms. Nothing happens where motion is not wanted or the area is not seen.
void crossFade(QWidget& area);

} // namespace brisklog
