// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/points_grid.h"

#include "engine/number_text.h"
#include "ui/dialogs/entry.h"
#include "ui/dialogs/grow.h"
#include "ui/theme.h"
#include "ui/two_line_header.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace kaloria {

namespace {

constexpr int rowColumn = 0;
constexpr int temperatureColumn = 1;
constexpr int conductivityColumn = 2;
constexpr int valueRole = Qt::UserRole + 1; // the English number that went in
constexpr int textRole = Qt::UserRole + 2;  // and the text it was shown with
constexpr int fewestRows = 3;               // a curve needs three points
constexpr int mostRows = 1000;

Quantity QuantityOf(int column) {
    return column == temperatureColumn ? Quantity::temperature : Quantity::conductivity;
}

QString ShownText(Units units, int column, double shown) {
    constexpr int temperatureDecimals = 1;
    constexpr int conductivityDecimals = 4;
    return units == Units::english
               ? ShortText(shown)
               : RoundedText(shown, column == temperatureColumn ? temperatureDecimals : conductivityDecimals);
}

} // namespace

PointsGrid::PointsGrid(const std::vector<CTemperaturePoint>& points, Units units, QWidget* parent)
    : QWidget(parent), units_(units) {
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(theme::gap);
    BuildTable();
    page->addWidget(table_, 1);
    BuildButtons();
    for (const CTemperaturePoint& point : points) {
        AppendRow();
        const int row = table_->rowCount() - 1;
        SetCell(row, temperatureColumn, point.Temperature);
        SetCell(row, conductivityColumn, point.Conductivity);
    }
    while (points.empty() && table_->rowCount() < fewestRows) {
        AppendRow();
    }
    connect(table_, &QTableWidget::itemChanged, this, &PointsGrid::Changed);
    connect(table_, &QTableWidget::currentCellChanged, this,
            [this](int row) { delete_->setEnabled(row >= 0); });
}

void PointsGrid::BuildTable() {
    table_ = new QTableWidget(0, 3);
    table_->setObjectName(QStringLiteral("flxTemperaturePoints"));
    table_->setAccessibleName(tr("Temperature points"));
    auto* const header = new TwoLineHeader(table_);
    table_->setHorizontalHeader(header);
    const QString names[] = {tr("Row"), tr("Temperature"), tr("Conductivity")};
    for (int column = rowColumn; column <= conductivityColumn; ++column) {
        auto* const item = new QTableWidgetItem(names[column]);
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (column != rowColumn) {
            item->setData(Qt::UserRole, ToQt(InfoOf(QuantityOf(column)).Text(units_)));
        }
        table_->setHorizontalHeaderItem(column, item);
    }
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(rowColumn, QHeaderView::ResizeToContents);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(RowHeight(*table_));
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    table_->setMinimumHeight(8 * RowHeight(*table_));
    table_->installEventFilter(this);
}

void PointsGrid::BuildButtons() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(theme::gap);
    const auto add = [&](const QString& name, const QString& text, const QString& tip, const auto& action) {
        auto* const button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(false);
        button->setToolTip(tip);
        button->setAccessibleName(QString(text).remove(u'&'));
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
        return button;
    };
    add(QStringLiteral("cmdAddPoint"), tr("A&dd point"), tr("Adds a row"), [this] {
        AppendRow();
        table_->setCurrentCell(table_->rowCount() - 1, temperatureColumn);
        table_->editItem(table_->currentItem());
    });
    delete_ = add(QStringLiteral("cmdDeletePoint"), tr("De&lete point"), tr("Deletes the current row"),
                  [this] { DeleteRow(); });
    delete_->setEnabled(false);
    add(QStringLiteral("cmdPastePoints"), tr("Pa&ste"),
        tr("Pairs of numbers from a spreadsheet, one pair a line"),
        [this] { Paste(QApplication::clipboard()->text()); });
    row->addStretch(1);
    qobject_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void PointsGrid::AppendRow() {
    const QSignalBlocker blocker(table_);
    const int row = table_->rowCount();
    table_->insertRow(row);
    for (int column = rowColumn; column <= conductivityColumn; ++column) {
        auto* const item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (column == rowColumn) {
            item->setFlags(Qt::ItemIsEnabled);
            item->setForeground(theme::Current().quiet);
        }
        table_->setItem(row, column, item);
    }
    Number();
}

void PointsGrid::DeleteRow() {
    if (table_->currentRow() < 0) {
        return;
    }
    table_->removeRow(table_->currentRow());
    Number();
    Q_EMIT Changed();
}

void PointsGrid::Number() {
    const QSignalBlocker blocker(table_);
    for (int row = 0; row < table_->rowCount(); ++row) {
        table_->item(row, rowColumn)->setText(QString::number(row + 1));
    }
}

void PointsGrid::SetCell(int row, int column, double english) {
    const QSignalBlocker blocker(table_);
    const double shown = FromEnglish(QuantityOf(column), units_, english);
    const QString text = ShownText(units_, column, shown);
    QTableWidgetItem* const item = table_->item(row, column);
    item->setData(valueRole, english);
    item->setData(textRole, text);
    item->setText(text);
}

void PointsGrid::Paste(const QString& text) {
    static const QRegularExpression lines(QStringLiteral("[\r\n]+"));
    static const QRegularExpression between(QStringLiteral("[\t; ]+"));
    int row = std::max(0, table_->currentRow());
    {
        const QSignalBlocker blocker(table_);
        for (const QString& line : text.split(lines, Qt::SkipEmptyParts)) {
            const QStringList cells = line.trimmed().split(between);
            if (row >= mostRows || cells.size() < 2) {
                continue;
            }
            if (row >= table_->rowCount()) {
                AppendRow();
            }
            table_->item(row, temperatureColumn)->setText(cells[0]);
            table_->item(row, conductivityColumn)->setText(cells[1]);
            ++row;
        }
    }
    Q_EMIT Changed();
}

QString PointsGrid::TextAt(int row, int column) const { return table_->item(row, column)->text(); }

bool PointsGrid::IsEmptyRow(int row) const {
    return TextAt(row, temperatureColumn).trimmed().isEmpty() &&
           TextAt(row, conductivityColumn).trimmed().isEmpty();
}

float PointsGrid::EnglishAt(int row, int column) const {
    const QTableWidgetItem* const item = table_->item(row, column);
    const bool isUntouched =
        item->data(valueRole).isValid() && item->text() == item->data(textRole).toString();
    const double english =
        isUntouched ? item->data(valueRole).toDouble()
                    : ToEnglish(QuantityOf(column), units_, ParseNumber(FromQt(item->text())).value_or(0));
    return static_cast<float>(english);
}

std::vector<CTemperaturePoint> PointsGrid::Points() const {
    std::vector<CTemperaturePoint> points;
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (NotANumber(TextAt(row, temperatureColumn)).isEmpty() &&
            NotANumber(TextAt(row, conductivityColumn)).isEmpty()) {
            points.push_back({EnglishAt(row, temperatureColumn), EnglishAt(row, conductivityColumn)});
        }
    }
    return points;
}

QString PointsGrid::Unreadable() {
    const QSignalBlocker blocker(table_);
    QString first;
    for (int row = 0; row < table_->rowCount(); ++row) {
        for (const int column : {temperatureColumn, conductivityColumn}) {
            QTableWidgetItem* const item = table_->item(row, column);
            const QString fault = IsEmptyRow(row) ? QString() : NotANumber(item->text());
            item->setToolTip(fault);
            item->setData(Qt::BackgroundRole, fault.isEmpty() ? QVariant() : theme::Current().wrongGround);
            item->setData(Qt::ForegroundRole, fault.isEmpty() ? QVariant() : theme::Current().wrong);
            if (first.isEmpty() && !fault.isEmpty()) {
                first = tr("Row %1: %2").arg(row + 1).arg(fault);
            }
        }
    }
    return first;
}

bool PointsGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Paste)) {
            Paste(QApplication::clipboard()->text());
            return true;
        }
        if (key->matches(QKeySequence::Delete)) {
            DeleteRow();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kaloria
