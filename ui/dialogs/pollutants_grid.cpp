// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/pollutants_grid.h"

#include "engine/number_text.h"
#include "ui/dialogs/entry.h"
#include "ui/dialogs/grow.h"
#include "ui/theme.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int idColumn = 0;
constexpr int nameColumn = 1;
constexpr int amountColumn = 2;
constexpr int textRole = Qt::UserRole + 1; // the text that the amount was shown with

template <class Rows>
bool Has(const Rows& rows, const CPollutant& pollutant) {
    return std::any_of(rows.begin(), rows.end(), [&](const CPollutant& row) {
        return row.ID == pollutant.ID && row.Name == pollutant.Name;
    });
}

} // namespace

PollutantsGrid::PollutantsGrid(const Catalogue& catalogue, const CFuel& fuel, QWidget* parent)
    : QTableWidget(parent) {
    setObjectName(QStringLiteral("flxPollutants"));
    setAccessibleName(tr("Pollutants"));
    BuildHeadings();
    for (const CPollutant& pollutant : fuel.Pollutants) {
        Append(pollutant, true);
    }
    for (const CFuel& other : catalogue.Fuels) {
        for (const CPollutant& pollutant : other.Pollutants) {
            if (!Has(rows_, pollutant)) {
                Append(pollutant, false);
            }
        }
    }
    connect(this, &QTableWidget::itemChanged, this, &PollutantsGrid::Changed);
}

void PollutantsGrid::BuildHeadings() {
    setColumnCount(3);
    setHorizontalHeaderLabels({tr("ID"), tr("Name"), tr("Lbs / 10^6 Btu")});
    for (const int column : {idColumn, amountColumn}) {
        horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    horizontalHeaderItem(nameColumn)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(idColumn, QHeaderView::ResizeToContents);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(RowHeight(*this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    setMinimumSize(fontMetrics().horizontalAdvance(QString(40, u'0')), 9 * RowHeight(*this));
}

void PollutantsGrid::Append(const CPollutant& pollutant, bool isOfFuel) {
    const QSignalBlocker blocker(this);
    const int row = rowCount();
    insertRow(row);
    rows_.push_back(pollutant);
    const QString amount = isOfFuel ? ShortText(double{pollutant.Amount}) : QString();
    const QString texts[] = {QString::number(pollutant.ID), ToQt(pollutant.Name), amount};
    for (int column = idColumn; column <= amountColumn; ++column) {
        auto* const item = new QTableWidgetItem(texts[column]);
        if (column != amountColumn) {
            item->setFlags(Qt::ItemIsEnabled);
        }
        item->setTextAlignment((column == nameColumn ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        setItem(row, column, item);
    }
    item(row, amountColumn)->setData(textRole, amount);
}

void PollutantsGrid::Lock() {
    const QSignalBlocker blocker(this);
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = idColumn; column <= amountColumn; ++column) {
            item(row, column)->setForeground(theme::Current().quiet);
        }
    }
    setEnabled(false);
}

Collection<CPollutant> PollutantsGrid::Pollutants() const {
    Collection<CPollutant> pollutants;
    for (int row = 0; row < rowCount(); ++row) {
        const QString text = item(row, amountColumn)->text();
        if (text.trimmed().isEmpty()) {
            continue;
        }
        CPollutant pollutant = rows_.at(static_cast<std::size_t>(row));
        if (text != item(row, amountColumn)->data(textRole).toString()) {
            pollutant.Amount = ParseSingle(FromQt(text)).value_or(0);
        }
        pollutants.push_back(pollutant);
    }
    return pollutants;
}

QString PollutantsGrid::Unreadable() {
    const QSignalBlocker blocker(this);
    QString first;
    for (int row = 0; row < rowCount(); ++row) {
        QTableWidgetItem* const cell = item(row, amountColumn);
        const QString fault = cell->text().trimmed().isEmpty() ? QString() : NotANumber(cell->text());
        cell->setToolTip(fault);
        cell->setData(Qt::BackgroundRole, fault.isEmpty() ? QVariant() : theme::Current().wrongGround);
        cell->setData(Qt::ForegroundRole, fault.isEmpty() ? QVariant() : theme::Current().wrong);
        if (first.isEmpty() && !fault.isEmpty()) {
            first = QStringLiteral("%1: %2").arg(item(row, nameColumn)->text(), fault);
        }
    }
    return first;
}

} // namespace kaloria
