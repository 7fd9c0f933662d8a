// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_model.h"

#include "ui/theme.h"

#include <QPainter>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int sidePadding = 10;

QFont NameFont(const QWidget& widget) {
    QFont font = widget.font();
    font.setWeight(QFont::DemiBold);
    return font;
}

QString Trimmed(const QVariant& text) { return text.toString().trimmed(); }

} // namespace

void ResultsModel::Show(const ResultsGrid& grid) {
    // The shape stays while one types; then only the texts are new, and selection and scrolling stay.
    const bool sameShape =
        grid.columns.size() == grid_.columns.size() && grid.rows.size() == grid_.rows.size();
    if (!sameShape) {
        beginResetModel();
    }
    grid_ = grid;
    if (!sameShape) {
        endResetModel();
    } else if (!grid_.rows.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    if (sameShape && !grid_.columns.empty()) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
}

void ResultsModel::SetStale(bool stale) {
    if (stale != isStale_) {
        isStale_ = stale;
        if (!grid_.rows.empty()) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        }
    }
}

int ResultsModel::DesignRow() const {
    const auto found =
        std::find_if(grid_.rows.begin(), grid_.rows.end(), [](const ResultRow& r) { return r.isDesign; });
    return found == grid_.rows.end() ? -1 : static_cast<int>(found - grid_.rows.begin());
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(grid_.rows.size());
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(grid_.columns.size());
}

QString ResultsModel::TextOf(int row, int column) const {
    const ResultRow& shown = grid_.rows.at(static_cast<std::size_t>(row));
    if (column == 0) {
        return ToQt(shown.label);
    }
    const auto cell = static_cast<std::size_t>(column - 1);
    return cell < shown.cells.size() ? ToQt(shown.cells[cell].text) : QString();
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const ResultRow& row = grid_.rows.at(static_cast<std::size_t>(index.row()));
    const theme::Colors& colors = theme::Current();
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::ForegroundRole:
        return isStale_ ? colors.quiet : row.isDesign ? colors.met : colors.text;
    case Qt::BackgroundRole:
        return row.isDesign && !isStale_ ? QVariant(colors.metGround) : QVariant();
    case Qt::FontRole:
        return row.isDesign ? QVariant(theme::BoldFont()) : QVariant();
    case Qt::ToolTipRole:
        return row.isDesign ? tr("The first thickness that meets the goal")
                            : (row.fault.empty() ? QString() : ToQt(row.fault));
    case designRole:
        return row.isDesign;
    default:
        return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const ResultColumn& column = grid_.columns.at(static_cast<std::size_t>(section));
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(column.name);
    case unitRole:
        return ToQt(column.unit);
    case Qt::TextAlignmentRole:
        return QVariant(section == 0 ? Qt::AlignLeft : Qt::AlignRight);
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1 %2").arg(ToQt(column.name), ToQt(column.unit));
    default:
        return {};
    }
}

TwoLineHeader::TwoLineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setHighlightSections(false);
    setSectionsClickable(false);
    setMinimumSectionSize(60);
}

QSize TwoLineHeader::sectionSizeFromContents(int logicalIndex) const {
    const QFontMetrics name(NameFont(*this));
    const QFontMetrics unit(theme::CaptionFont());
    const int width = std::max(
        name.horizontalAdvance(Trimmed(model()->headerData(logicalIndex, orientation(), Qt::DisplayRole))),
        unit.horizontalAdvance(
            Trimmed(model()->headerData(logicalIndex, orientation(), ResultsModel::unitRole))));
    return {width + 2 * sidePadding, name.height() + unit.height() + 8};
}

void TwoLineHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    const theme::Colors& colors = theme::Current();
    painter->save();
    painter->fillRect(rect, colors.panel);
    painter->setPen(colors.line);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    const auto alignment = static_cast<Qt::Alignment>(
        model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole).toInt());
    const QRect inner = rect.adjusted(sidePadding, 3, -sidePadding, -4);
    painter->setPen(colors.text);
    painter->setFont(NameFont(*this));
    painter->drawText(inner, static_cast<int>(alignment | Qt::AlignTop),
                      Trimmed(model()->headerData(logicalIndex, orientation(), Qt::DisplayRole)));
    painter->setPen(colors.quiet);
    painter->setFont(theme::CaptionFont());
    painter->drawText(inner, static_cast<int>(alignment | Qt::AlignBottom),
                      Trimmed(model()->headerData(logicalIndex, orientation(), ResultsModel::unitRole)));
    painter->restore();
}

} // namespace kaloria
