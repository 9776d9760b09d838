#pragma once

#include <QString>

namespace brisklog {

class Card;
class Label;
class LayoutBox;
class LayoutItem;

/// The measures that the sections of the invoice sheet share.
namespace invoiceForm {

/// Around the whole form.
inline constexpr int margin = 20;
/// Inside a card, at its left and right.
inline constexpr int cardPadding = 14;
inline constexpr int labelGap = 12;
/// Of a field that has all the room up to its largest width, beside a stretch for the rest.
inline constexpr int fieldShare = 100;
inline constexpr int rowGap = 8;

/// A section's heading, as high as the small buttons, which go at its right end.
[[nodiscard]] LayoutItem heading(const QString& title, const LayoutBox& buttons);
[[nodiscard]] LayoutItem heading(const QString& title);

/// The label to the left of a field, as wide as the label column.
[[nodiscard]] Label* fieldLabel(const QString& text);

/// A card with the content inside its usual padding.
[[nodiscard]] Card* card(const LayoutBox& content, int paddingTop = 12, int paddingBottom = 14);

} // namespace invoiceForm
} // namespace brisklog
