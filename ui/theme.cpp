// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleHints>
#include <QWidget>

#include <optional>

/// Pictures of a static library have to be asked for, and outside of any namespace.
static void LoadMarks() { Q_INIT_RESOURCE(marks); }

namespace kaloria::theme {

namespace {

const Colors lightColors{
    .background = QColor(0xf4f5f7),
    .panel = QColor(0xffffff),
    .line = QColor(0xd9dde3),
    .text = QColor(0x1d232b),
    .quiet = QColor(0x5c6773),
    .rail = QColor(0x20303c),
    .railText = QColor(0xc9d3da),
    .accent = QColor(0xb4481e),
    .onAccent = QColor(0xffffff),
    .accentSoft = QColor(0xfbeee8),
    .met = QColor(0x1c6b34),
    .metGround = QColor(0xe7f4ea),
    .care = QColor(0x7a4d00),
    .careGround = QColor(0xfff4dc),
    .wrong = QColor(0xb3261e),
    .wrongGround = QColor(0xfdecea),
    .second = QColor(0x2c6fa6),
};

const Colors darkColors{
    .background = QColor(0x1b1f24),
    .panel = QColor(0x23292f),
    .line = QColor(0x39424b),
    .text = QColor(0xe7ebee),
    .quiet = QColor(0x9aa6b0),
    .rail = QColor(0x12171b),
    .railText = QColor(0xb4bfc7),
    .accent = QColor(0xf08a5d),
    .onAccent = QColor(0x1b1f24),
    .accentSoft = QColor(0x3a2a22),
    .met = QColor(0x8fd6a3),
    .metGround = QColor(0x1f3a28),
    .care = QColor(0xf0c674),
    .careGround = QColor(0x3a3018),
    .wrong = QColor(0xff9d94),
    .wrongGround = QColor(0x43211f),
    .second = QColor(0x7fb5e0),
};

Scheme scheme = Scheme::light;
std::optional<Scheme> forced;

/// Fusion, but the wheel scrolls the panel and never the drop-down that comes to lie under the pointer: a
/// choice changes only when one makes it.
class PanelStyle final : public QProxyStyle {
public:
    PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_ComboBox_AllowWheelScrolling
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

QPalette PaletteOf(const Colors& c) {
    QPalette palette;
    palette.setColor(QPalette::Window, c.background);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::Base, c.panel);
    palette.setColor(QPalette::AlternateBase, c.background);
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::PlaceholderText, c.quiet);
    palette.setColor(QPalette::Button, c.panel);
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::BrightText, c.wrong);
    palette.setColor(QPalette::ToolTipBase, c.panel);
    palette.setColor(QPalette::ToolTipText, c.text);
    palette.setColor(QPalette::Highlight, c.accent);
    palette.setColor(QPalette::HighlightedText, c.onAccent);
    palette.setColor(QPalette::Link, c.second);
    palette.setColor(QPalette::LinkVisited, c.second);
    palette.setColor(QPalette::Mid, c.line);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, c.quiet);
    }
    return palette;
}

// The one style sheet. Names in braces are the colours above.
constexpr const char* sheet = R"(
QToolTip { color: {text}; background: {panel}; border: 1px solid {line}; padding: 4px; }
QMenuBar { background: {panel}; border-bottom: 1px solid {line}; }
QMenuBar::item { padding: 6px 10px; background: transparent; }
QMenuBar::item:selected { background: {accentSoft}; }
QMenu { background: {panel}; border: 1px solid {line}; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 20px; border-radius: 4px; }
QMenu::item:selected { background: {accentSoft}; color: {text}; }
QMenu::item:disabled { color: {quiet}; }
QMenu::separator { height: 1px; background: {line}; margin: 4px 8px; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox { dialogbuttonbox-buttons-have-icons: 0; }
QStatusBar { background: {panel}; border-top: 1px solid {line}; color: {quiet}; }
QStatusBar::item { border: none; }
QStatusBar QLabel { color: {quiet}; }

QWidget[role="card"] { background: {panel}; border: 1px solid {line}; border-radius: 7px; }
QWidget[role="metCard"] { background: {metGround}; border: 1px solid {metGround}; border-radius: 7px; }
QLabel[role="cardTitle"] { color: {quiet}; font-weight: 600; }
QLabel[role="quiet"] { color: {quiet}; }
QLabel[role="error"] { color: {wrong}; }
QLabel[role="met"] { color: {met}; }
QLabel[role="stale"] { color: {quiet}; }
QLabel[role="warning"] { color: {care}; }
QLabel[role="noticeMet"] { color: {met}; background: {metGround}; border-radius: 5px; padding: 5px 10px; }
QLabel[role="noticeCare"] { color: {care}; background: {careGround}; border-radius: 5px; padding: 5px 10px; }
QLabel[role="noticeWrong"] { color: {wrong}; background: {wrongGround}; border-radius: 5px; padding: 5px 10px; }
QLabel[role="noticeInfo"] { color: {quiet}; background: {panel}; border: 1px solid {line}; border-radius: 5px; padding: 4px 10px; }

QLineEdit, QComboBox, QPlainTextEdit, QSpinBox, QDateEdit {
    background: {panel}; color: {text}; border: 1px solid {line}; border-radius: 5px; padding: 3px 8px;
    selection-background-color: {accent}; selection-color: {onAccent}; }
QLineEdit:focus, QComboBox:focus, QPlainTextEdit:focus, QSpinBox:focus { border: 1px solid {accent}; }
QLineEdit:read-only { background: {background}; }
QLineEdit:disabled, QComboBox:disabled { background: {background}; color: {quiet}; }
QLineEdit[wrong="true"], QComboBox[wrong="true"] { border: 1px solid {wrong}; background: {wrongGround}; }
QComboBox::drop-down { border: none; width: 20px; }
QComboBox::down-arrow { image: url(:/marks/down-{scheme}.png); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: {panel}; color: {text}; border: 1px solid {line}; outline: none;
    selection-background-color: {accentSoft}; selection-color: {text}; }

QPushButton { background: {panel}; color: {text}; border: 1px solid {line}; border-radius: 5px; padding: 5px 14px; }
QPushButton:hover { background: {accentSoft}; }
QPushButton:focus { border: 1px solid {accent}; }
QPushButton:disabled { color: {quiet}; background: {background}; }
QPushButton:checked { background: {accentSoft}; color: {accent}; font-weight: 600; }
QPushButton[role="primary"], QPushButton:default { background: {accent}; color: {onAccent}; border: 1px solid {accent}; font-weight: 600; }
QPushButton[role="primary"]:disabled, QPushButton:default:disabled { background: {line}; color: {quiet}; border: 1px solid {line}; }
QPushButton[role="primary"]:focus, QPushButton:default:focus { border: 2px solid {text}; padding: 4px 13px; }
QPushButton[role="segment"] { background: transparent; border: 1px solid transparent; border-radius: 4px; color: {quiet}; padding: 1px 6px; }
QPushButton[role="segment"]:hover { color: {text}; }
QPushButton[role="segment"]:checked { background: {accentSoft}; color: {accent}; font-weight: 400; }
QPushButton[role="segment"]:focus { border: 1px solid {accent}; }
QPushButton[role="link"] { background: transparent; border: 1px solid transparent; color: {second}; padding: 2px 4px; }
QPushButton[role="link"]:focus { border: 1px solid {second}; }

QCheckBox, QRadioButton { spacing: 7px; }
QCheckBox::indicator, QRadioButton::indicator { width: 13px; height: 13px; border: 1px solid {quiet}; background: {panel}; }
QCheckBox::indicator { border-radius: 3px; }
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator:checked { background: {accent}; border: 1px solid {accent}; image: url(:/marks/check-{scheme}.png); }
QRadioButton::indicator:checked { border: 1px solid {accent};
    background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, fx: 0.5, fy: 0.5, stop: 0 {accent}, stop: 0.55 {accent}, stop: 0.65 {panel}, stop: 1 {panel}); }
QCheckBox:focus, QRadioButton:focus { color: {accent}; }

QTableView, QTableWidget, QTreeView, QListView { background: {panel}; color: {text}; border: none; gridline-color: {line};
    selection-background-color: {accentSoft}; selection-color: {text}; outline: none; }
QHeaderView { background: {panel}; border: none; }
QHeaderView::section { background: {panel}; color: {text}; border: none; border-bottom: 1px solid {line}; padding: 4px 7px; font-weight: 600; }
QTableCornerButton::section { background: {panel}; border: none; }

QScrollArea { border: none; background: transparent; }
QScrollArea > QWidget > QWidget[role="page"] { background: transparent; }
QSplitter::handle { background: transparent; }
QScrollBar:vertical { background: transparent; width: 11px; margin: 0; }
QScrollBar::handle:vertical { background: {line}; border-radius: 4px; min-height: 30px; margin: 1px 2px; }
QScrollBar::handle:vertical:hover { background: {quiet}; }
QScrollBar:horizontal { background: transparent; height: 11px; margin: 0; }
QScrollBar::handle:horizontal { background: {line}; border-radius: 4px; min-width: 30px; margin: 2px 1px; }
QScrollBar::handle:horizontal:hover { background: {quiet}; }
QScrollBar::add-line, QScrollBar::sub-line, QScrollBar::add-page, QScrollBar::sub-page { background: none; border: none; width: 0; height: 0; }
QProgressBar { background: {background}; border: 1px solid {line}; border-radius: 5px; text-align: center; color: {text}; }
QProgressBar::chunk { background: {accent}; border-radius: 4px; }
)";

QString SheetOf(const Colors& c) {
    QString text = QString::fromUtf8(sheet);
    const std::pair<const char*, QColor> names[] = {
        {"background", c.background},
        {"panel", c.panel},
        {"line", c.line},
        {"text", c.text},
        {"quiet", c.quiet},
        {"accent", c.accent},
        {"onAccent", c.onAccent},
        {"accentSoft", c.accentSoft},
        {"met", c.met},
        {"metGround", c.metGround},
        {"care", c.care},
        {"careGround", c.careGround},
        {"wrong", c.wrong},
        {"wrongGround", c.wrongGround},
        {"second", c.second},
    };
    for (const auto& [name, color] : names) {
        text.replace(QStringLiteral("{%1}").arg(QLatin1String(name)), color.name());
    }
    text.replace(QStringLiteral("{scheme}"),
                 scheme == Scheme::dark ? QStringLiteral("dark") : QStringLiteral("light"));
    return text;
}

void Apply(Scheme wanted) {
    LoadMarks();
    scheme = wanted;
    QApplication::setPalette(PaletteOf(Current()));
    qApp->setStyleSheet(SheetOf(Current()));
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
Scheme OfDesktop() {
    return QGuiApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark ? Scheme::dark
                                                                                 : Scheme::light;
}
#endif

} // namespace

const Colors& Current() { return scheme == Scheme::dark ? darkColors : lightColors; }

Scheme CurrentScheme() { return scheme; }

void Install(QApplication& application) {
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    QApplication::setStyle(new PanelStyle);
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    QObject::connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, &application, [] {
        if (!forced) {
            Apply(OfDesktop());
        }
    });
    static_cast<void>(isDark);
    Apply(forced.value_or(OfDesktop()));
#else
    static_cast<void>(application);
    // The palette that the program was started with tells the desktop's choice.
    Apply(forced.value_or(isDark ? Scheme::dark : Scheme::light));
#endif
}

void Force(Scheme wanted) {
    forced = wanted;
    Apply(wanted);
}

namespace {
QFont Scaled(double factor, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setWeight(weight);
    return font;
}
} // namespace

QFont FigureFont() { return Scaled(1.5, QFont::Bold); }
QFont HeadingFont() { return Scaled(1.2, QFont::DemiBold); }
QFont BoldFont() { return Scaled(1.0, QFont::DemiBold); }
QFont CaptionFont() { return Scaled(0.88, QFont::Normal); }

void SetRole(QWidget& widget, const char* role) {
    widget.setProperty("role", QLatin1String(role));
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

} // namespace kaloria::theme
