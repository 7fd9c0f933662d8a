// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <string>
#include <string_view>

class QApplication;
class QWidget;

/// Colours, spacing and type of every window. Colour never speaks alone: a word or a sign goes with it.
namespace kaloria::theme {

struct Colors {
    QColor background; ///< of a window
    QColor panel;      ///< of a card, a field, a grid
    QColor line;       ///< hairlines and borders
    QColor text;
    QColor quiet; ///< units, captions, hints
    QColor rail;
    QColor railText;
    QColor accent;     ///< where one is and what one presses
    QColor onAccent;   ///< text upon it
    QColor accentSoft; ///< ground of what is chosen
    QColor met;        ///< a goal that is met
    QColor metGround;
    QColor care; ///< needs care
    QColor careGround;
    QColor wrong; ///< an entry that is wrong
    QColor wrongGround;
    QColor second; ///< second colour of plots
};

enum class Scheme { light, dark };

/// Colours in force.
[[nodiscard]] const Colors& Current();
[[nodiscard]] Scheme CurrentScheme();

/// Fusion, palette and style sheet for the whole program. Without a wish the desktop's own choice of light or
/// dark is followed, at run time too.
void Install(QApplication& application);

/// Holds one scheme whatever the desktop says; for pictures and for people who want it so.
void Force(Scheme scheme);

// Spacing in device-independent pixels.
inline constexpr int gap = 8;          ///< between a field and its neighbour
inline constexpr int cardGap = 10;     ///< between cards
inline constexpr int cardPadding = 14; ///< inside a card
inline constexpr int pageMargin = 16;  ///< around the content of a window
inline constexpr int labelWidth = 150; ///< of the column of labels
inline constexpr int fieldHeight = 27; ///< least height of a row in which one types
inline constexpr int railWidth = 92;

/// Larger type of the four figures, and of headings.
[[nodiscard]] QFont FigureFont();
[[nodiscard]] QFont HeadingFont();
/// Of what stands out among its like.
[[nodiscard]] QFont BoldFont();
/// Smaller type of captions.
[[nodiscard]] QFont CaptionFont();

/// Tells the style sheet what a widget is: "card", "cardTitle", "quiet", "primary", "figure", "error",
/// "warning", "met". Kept in the dynamic property "role".
void SetRole(QWidget& widget, const char* role);

} // namespace kaloria::theme

namespace kaloria {

/// Texts of the lower layers are UTF-8.
[[nodiscard]] inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string FromQt(const QString& text) { return text.toStdString(); }

} // namespace kaloria
