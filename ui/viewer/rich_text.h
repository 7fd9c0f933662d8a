// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextCharFormat>
#include <QTextOption>

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <variant>
#include <vector>

/// A rich text between its file and the documents that are shown and printed: what is to be seen, without how
/// it was written. All lengths in twips, 1/1440 in.
namespace kaloria::viewer {

inline constexpr double twipsPerInch = 1440;

struct Font {
    QStringList families; ///< the wanted one, then what may stand in for it
    QFont::StyleHint hint = QFont::AnyStyle;
    int codePage = 0; ///< 0: the document's
    bool isSymbol = false;
};

struct TextLook {
    int font = 0;     ///< number in the document's table
    double size = 12; ///< [pt]
    QColor color;     ///< invalid: that of the paper's ink
    QColor background;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;
    bool isHidden = false;
    bool isDeleted = false; ///< by a revision
    bool isCapital = false;
    bool isSmallCapital = false;
    int raise = 0; ///< 1 superscript, -1 subscript

    bool operator==(const TextLook&) const = default;
};

struct Border {
    int width = 0; ///< 0: none
    QColor color;
    Qt::PenStyle style = Qt::SolidLine;

    bool operator==(const Border&) const = default;
};

enum Side : std::size_t { top, right, bottom, left, sideCount };
using Borders = std::array<Border, sideCount>;

struct TabStop {
    int position = 0; ///< from the left margin
    QTextOption::TabType type = QTextOption::LeftTab;

    bool operator==(const TabStop&) const = default;
};

struct ParagraphLook {
    Qt::Alignment alignment = Qt::AlignLeft;
    int left = 0;
    int right = 0;
    int first = 0; ///< of the first line, beyond the left
    int before = 0;
    int after = 0;
    int lineHeight = 0; ///< 240 is one line when a multiple; else at least, negative: exactly
    bool isMultiple = false;
    bool breaksPage = false; ///< before it
    bool staysWhole = false;
    bool isInTable = false;
    int depth = 0; ///< of tables in tables
    QColor shading;
    Borders borders;
    int borderSpace = 0; ///< between them and the text
    QList<TabStop> tabs;
    QTextOption::TabType nextTab = QTextOption::LeftTab;

    [[nodiscard]] bool HasBorder() const;
};

inline bool ParagraphLook::HasBorder() const {
    for (const Border& border : borders) {
        if (border.width > 0) {
            return true;
        }
    }
    return false;
}

enum class Field { none, pageNumber, pageCount };

/// Text of one look, a picture or a field.
struct Run {
    TextLook look;
    QString text;
    int picture = -1;
    Field field = Field::none;
};

struct Paragraph {
    ParagraphLook look;
    TextLook endLook; ///< of its end, which gives an empty line its height
    std::vector<Run> runs;

    [[nodiscard]] QString Text() const {
        QString text;
        for (const Run& run : runs) {
            text += run.text;
        }
        return text;
    }
    [[nodiscard]] bool IsBlank() const {
        for (const Run& run : runs) {
            if (run.picture >= 0 || run.field != Field::none || !run.text.trimmed().isEmpty()) {
                return false;
            }
        }
        return true;
    }
};

struct CellLook {
    enum class Merge { none, first, more };

    int right = 0; ///< its edge, from the left margin
    Merge across = Merge::none;
    Merge down = Merge::none;
    QTextCharFormat::VerticalAlignment vertical = QTextCharFormat::AlignTop;
    QColor shading;
    Borders borders;
    std::array<int, sideCount> padding{-1, -1, -1, -1}; ///< -1: the row's
};

struct Cell {
    CellLook look;
    std::vector<Paragraph> paragraphs;
};

struct Row {
    int left = 0;
    std::array<int, sideCount> padding{};
    int height = 0;         ///< at least
    bool isHeading = false; ///< repeated on every sheet
    bool breaksPage = false;
    Qt::Alignment alignment = Qt::AlignLeft; ///< of the table between the margins
    std::vector<Cell> cells;
};

struct Block {
    std::variant<Paragraph, Row> content;
    std::size_t section = 0;
};

/// A text at the edge of a sheet; sections that go on with the one before share it.
using Edge = std::shared_ptr<const std::vector<Block>>;

struct Edges {
    Edge header; ///< none: null
    Edge footer;
};

struct Section {
    int paperWidth = 12240;
    int paperHeight = 15840;
    int marginLeft = 1800;
    int marginRight = 1800;
    int marginTop = 1440;
    int marginBottom = 1440;
    int headerTop = 720;    ///< from the upper edge of the paper
    int footerBottom = 720; ///< from the lower edge
    bool startsSheet = true;
    bool hasFirst = false; ///< its first sheet has its own edges
    int firstNumber = 0;   ///< of its sheets; 0: goes on counting
    Edges first;
    Edges all;

    [[nodiscard]] int TextWidth() const { return paperWidth - marginLeft - marginRight; }
};

struct Picture {
    QImage image;
    int width = 0;
    int height = 0;
};

struct RichText {
    std::map<int, Font> fonts;
    std::vector<Section> sections;
    std::vector<Block> blocks;
    std::vector<Picture> pictures;
    int tabDistance = 720;
    QString problem; ///< why only a part of it could be read; empty when all was
};

} // namespace kaloria::viewer
