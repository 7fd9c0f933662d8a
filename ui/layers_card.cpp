// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/layers_card.h"

#include "application/choices.h"
#include "application/visible_fields.h"
#include "ui/theme.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int rowHeight = 26;
constexpr int cellPadding = 7;
constexpr int arrowWidth = 13;

/// Rows of the grid count its heading; rows of the table widget do not.
std::size_t GridRow(int tableRow) { return static_cast<std::size_t>(tableRow) + 1; }
int TableRow(std::size_t gridRow) { return static_cast<int>(gridRow) - 1; }

constexpr int editableRole = Qt::UserRole + 1;
constexpr int errorRole = Qt::UserRole + 2;

} // namespace

// In-cell choices
// ---------------------------------------------------------------------------------------------------------------

LayerCellDelegate::LayerCellDelegate(Session& session, QObject* parent)
    : QStyledItemDelegate(parent), session_(session) {}

QStringList LayerCellDelegate::Choices(const QModelIndex& index) const {
    const Job& job = session_.TheJob();
    const std::size_t row = GridRow(index.row());
    std::vector<std::string> names;
    if (index.column() == LayersCard::lockColumn) {
        names = {"Fix", "Vary"};
    } else if (index.column() == LayersCard::thicknessColumn) {
        names = ThicknessChoices(job, session_.Records());
    } else if (row == baseRow) {
        names = ActiveNames(session_.Records().BaseMetals);
    } else if (row == JacketRow(job)) {
        names = ActiveNames(session_.Records().JacketMaterials);
    } else {
        names = ActiveNames(session_.Records().Insulations);
    }
    QStringList texts;
    for (const std::string& name : names) {
        texts << ToQt(name);
    }
    return texts;
}

QWidget* LayerCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                         const QModelIndex& index) const {
    const QStringList choices = Choices(index);
    if (choices.isEmpty()) {
        auto* const line = new QLineEdit(parent);
        line->setObjectName(QStringLiteral("txtLayerThickness"));
        line->setAccessibleName(tr("Thickness of the layer"));
        line->setAlignment(Qt::AlignRight);
        return line;
    }
    auto* const box = new QWidget(parent);
    box->setObjectName(QStringLiteral("picDropDown"));
    box->setAutoFillBackground(true);
    auto* const layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const combo = new QComboBox(box);
    combo->setObjectName(index.column() == LayersCard::nameColumn   ? QStringLiteral("cboInsulation")
                         : index.column() == LayersCard::lockColumn ? QStringLiteral("cboLockThickness")
                                                                    : QStringLiteral("cboNominalThickness"));
    combo->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    combo->addItems(choices);
    combo->setMaxVisibleItems(20);
    layout->addWidget(combo);
    box->setFocusProxy(combo);
    auto* const self = const_cast<LayerCellDelegate*>(this); // signals of a delegate are not const in Qt
    connect(combo, &QComboBox::activated, box, [self, box] {
        Q_EMIT self->commitData(box);
        Q_EMIT self->closeEditor(box);
    });
    return box;
}

void LayerCellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* const line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(text);
        return;
    }
    auto* const combo = editor->findChild<QComboBox*>();
    if (combo == nullptr || combo->view()->isVisible()) {
        return;
    }
    if (combo->findText(text) < 0 && !text.isEmpty()) {
        combo->addItem(text);
    }
    combo->setCurrentIndex(combo->findText(text));
    // Choosing is one click: the list opens with the cell.
    QMetaObject::invokeMethod(combo, &QComboBox::showPopup, Qt::QueuedConnection);
}

void LayerCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                     const QModelIndex& index) const {
    const auto* const line = qobject_cast<QLineEdit*>(editor);
    const auto* const combo = editor->findChild<QComboBox*>();
    const QString text = line != nullptr ? line->text() : combo != nullptr ? combo->currentText() : QString();
    if (text != index.data(Qt::EditRole).toString()) {
        Q_EMIT Edited(GridRow(index.row()), index.column(), text);
    }
}

void LayerCellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex& /*index*/) const {
    editor->setGeometry(option.rect);
}

QSize LayerCellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int beside = 2 * cellPadding + (index.data(editableRole).toBool() ? arrowWidth : 0) + 1;
    const QString text = index.data().toString();
    const int line = option.fontMetrics.height();
    const int width = option.fontMetrics.horizontalAdvance(text) + beside;
    if (option.rect.width() <= 0) {
        return {width, std::max(rowHeight, line + 9)};
    }
    // Names break into as many lines as they need.
    const QRect needed = option.fontMetrics.boundingRect(QRect(0, 0, option.rect.width() - beside, 1000),
                                                         Qt::TextWordWrap, text);
    return {width, std::max(rowHeight, needed.height() + 9)};
}

void LayerCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const theme::Colors& colors = theme::Current();
    painter->save();
    const bool isWrong = !index.data(errorRole).toString().isEmpty();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, isWrong      ? colors.wrongGround
                                   : isSelected ? colors.accentSoft
                                                : colors.panel);
    painter->setPen(colors.line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(colors.accent);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    QRect inner = option.rect.adjusted(cellPadding, 0, -cellPadding, 0);
    if (index.data(editableRole).toBool()) {
        painter->setPen(colors.quiet);
        painter->setFont(theme::CaptionFont());
        painter->drawText(inner, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("▾"));
        inner.setRight(inner.right() - arrowWidth);
    }
    const QString text = index.data().toString();
    const bool varies = index.column() == LayersCard::lockColumn && text == u"Vary";
    painter->setFont(varies ? theme::BoldFont() : option.font);
    painter->setPen(isWrong ? colors.wrong : varies ? colors.accent : colors.text);
    const auto alignment =
        Qt::AlignVCenter | (index.column() == LayersCard::thicknessColumn ? Qt::AlignRight : Qt::AlignLeft);
    painter->drawText(inner, static_cast<int>(alignment) | Qt::TextWordWrap, text);
    painter->restore();
}

// Card
// ---------------------------------------------------------------------------------------------------------------

LayersCard::LayersCard(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    setObjectName(QStringLiteral("fraInsulationLayers"));
    setAttribute(Qt::WA_StyledBackground);
    theme::SetRole(*this, "card");
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::cardPadding, 10, theme::cardPadding, 12);
    layout->setSpacing(7);
    auto* const title = new QLabel(tr("Insulation layers, from the inside out"), this);
    theme::SetRole(*title, "cardTitle");
    layout->addWidget(title);
    grid_ = BuildGrid();
    layout->addWidget(grid_);
    problem_ = new QLabel(this);
    problem_->setObjectName(QStringLiteral("lblInsulationError"));
    problem_->setWordWrap(true);
    problem_->setFont(theme::CaptionFont());
    theme::SetRole(*problem_, "error");
    problem_->hide();
    layout->addWidget(problem_);
    layout->addWidget(BuildButtons());
}

QTableWidget* LayersCard::BuildGrid() {
    auto* const grid = new QTableWidget(0, 5, this);
    grid->setObjectName(QStringLiteral("flxInsulationLayers"));
    grid->setAccessibleName(tr("Insulation layers"));
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(std::max(rowHeight, grid->fontMetrics().height() + 9));
    grid->setShowGrid(false);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setTabKeyNavigation(false);
    grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                          QAbstractItemView::DoubleClicked);
    auto* const delegate = new LayerCellDelegate(session_, grid);
    grid->setItemDelegate(delegate);
    QHeaderView& header = *grid->horizontalHeader();
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.setDefaultAlignment(Qt::Alignment::fromInt(static_cast<int>(Qt::AlignLeft) |
                                                      static_cast<int>(Qt::AlignVCenter) |
                                                      static_cast<int>(Qt::TextWordWrap)));
    header.setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    // Their headings and texts break into two lines.
    QFont bold = grid->font();
    bold.setWeight(QFont::DemiBold);
    const std::pair<Column, QString> widest[] = {{numberColumn, QStringLiteral("00")},
                                                 {typeColumn, tr("Base Metal")},
                                                 {lockColumn, tr("Thickness")},
                                                 {thicknessColumn, tr("Thickness,")}};
    for (const auto& [column, text] : widest) {
        header.setSectionResizeMode(column, QHeaderView::Fixed);
        header.resizeSection(column, QFontMetrics(bold).horizontalAdvance(text) + 2 * cellPadding + 2);
    }
    connect(delegate, &LayerCellDelegate::Edited, this, &LayersCard::CellEdited, Qt::QueuedConnection);
    connect(grid, &QTableWidget::cellClicked, this, [grid](int row, int column) {
        if (const QTableWidgetItem* item = grid->item(row, column);
            item != nullptr && item->flags().testFlag(Qt::ItemIsEditable)) {
            grid->editItem(grid->item(row, column));
        }
    });
    connect(&header, &QHeaderView::sectionResized, this, [this] {
        // Behind the resizing, of which this is one step.
        QMetaObject::invokeMethod(this, &LayersCard::FitGrid, Qt::QueuedConnection);
    });
    connect(grid, &QTableWidget::currentCellChanged, this, [this] {
        if (!isFilling_) {
            UpdateButtons();
        }
    });
    return grid;
}

QWidget* LayersCard::BuildButtons() {
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 2, 0, 0);
    layout->setSpacing(6);
    const auto button = [&](const QString& text, const char* name, const QString& tip) {
        auto* const made = new QPushButton(text, row);
        made->setObjectName(QLatin1String(name));
        made->setToolTip(tip);
        made->setAccessibleName(tip);
        layout->addWidget(made);
        return made;
    };
    cmdAddLayer_ = button(tr("Add la&yer"), "cmdAddLayer", tr("Add an insulation layer below the jacket"));
    cmdDelete_ = button(tr("&Delete"), "cmdDelete", tr("Delete the selected layer"));
    cmdMoveUp_ = button(tr("Up"), "cmdMoveUp", tr("Move the selected layer inwards"));
    cmdMoveDown_ = button(tr("Down"), "cmdMoveDown", tr("Move the selected layer outwards"));
    cmdCopyRow_ = button(tr("Co&py"), "cmdCopyRow", tr("Copy the selected layer"));
    layout->addStretch(1);
    const auto run = [this](const QPushButton* pressed, LayerEdit (*change)(Job&, std::size_t)) {
        connect(pressed, &QPushButton::clicked, this, [this, change] {
            FinishEditing(); // an access key leaves the cursor where it is
            Run([this, change](Job& job) { return change(job, SelectedRow()); });
        });
    };
    run(cmdAddLayer_, [](Job& job, std::size_t /*row*/) { return AddLayer(job); });
    run(cmdDelete_, DeleteRow);
    run(cmdMoveUp_, MoveUp);
    run(cmdMoveDown_, MoveDown);
    run(cmdCopyRow_, CopyRow);
    return row;
}

template <class Change>
void LayersCard::Run(const Change& change) {
    LayerEdit edit;
    Job trial = session_.TheJob();
    edit = change(trial);
    if (edit.Done()) {
        session_.Edit([&](Job& job) { job = trial; });
    }
    Apply(edit);
}

void LayersCard::Apply(const LayerEdit& edit) {
    if (!edit.Done()) {
        session_.Messages().Show(edit.refusal);
        return;
    }
    SelectRow(edit.row);
    session_.Note(edit.notes);
}

void LayersCard::CellEdited(std::size_t row, int column, const QString& text) {
    const Catalogue& records = session_.Records();
    Run([&](Job& job) -> LayerEdit {
        switch (column) {
        case lockColumn:
            return SetLock(job, row, FromQt(text));
        case thicknessColumn:
            return SetThickness(job, row, FromQt(text));
        default:
            break;
        }
        const std::string name = FromQt(text);
        const auto idIn = [&](const auto& collection) {
            const auto* const record = FindByName(collection, name);
            return record == nullptr ? 0 : record->ID;
        };
        const std::int32_t id = row == baseRow          ? idIn(records.BaseMetals)
                                : row == JacketRow(job) ? idIn(records.JacketMaterials)
                                                        : idIn(records.Insulations);
        return SetMaterial(job, records, row, id);
    });
}

std::size_t LayersCard::SelectedRow() const { return GridRow(std::max(grid_->currentRow(), 0)); }

void LayersCard::SelectRow(std::size_t row) { grid_->setCurrentCell(TableRow(row), nameColumn); }

void LayersCard::ShowCell(int tableRow, Column column, const QString& text, bool isEditable) {
    QTableWidgetItem* item = grid_->item(tableRow, column);
    if (item == nullptr) {
        item = new QTableWidgetItem;
        grid_->setItem(tableRow, column, item);
    }
    item->setText(text);
    item->setToolTip(text);
    item->setData(editableRole, isEditable);
    item->setData(errorRole, QString());
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable |
                   (isEditable ? Qt::ItemIsEditable : Qt::NoItemFlags));
}

void LayersCard::Refresh() {
    const Job& job = session_.TheJob();
    isFilling_ = true;
    grid_->setHorizontalHeaderLabels({QStringLiteral("#"), tr("Type"), tr("Name"), tr("Lock Thickness"),
                                      ToQt(LayerThicknessHeading(job.UnitsInForce()))});
    const auto rows = static_cast<int>(GridRowCount(job)) - 1;
    grid_->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        const LayerRowTexts texts = LayerRow(job, GridRow(row));
        const bool isLayer = IsLayerRow(job, GridRow(row));
        ShowCell(row, numberColumn, ToQt(texts.number), false);
        ShowCell(row, typeColumn, ToQt(texts.type), false);
        ShowCell(row, nameColumn, ToQt(texts.name), true);
        ShowCell(row, lockColumn, ToQt(texts.locked), isLayer);
        ShowCell(row, thicknessColumn, ToQt(texts.thickness), isLayer && texts.locked != "Vary");
    }
    isFilling_ = false;
    FitGrid();
    UpdateButtons();
    ShowProblem();
}

void LayersCard::FinishEditing() {
    auto* const delegate = qobject_cast<LayerCellDelegate*>(grid_->itemDelegate());
    auto* const open = grid_->findChild<QLineEdit*>(QStringLiteral("txtLayerThickness"));
    if (open == nullptr || open->isHidden()) {
        return; // drop-downs hand over what is chosen at once
    }
    Q_EMIT delegate->commitData(open);
    Q_EMIT delegate->closeEditor(open);
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall); // the edit waits in the queue
}

void LayersCard::ShowProblem() {
    const Job& job = session_.TheJob();
    QStringList problems;
    for (std::size_t layer = 0; layer < job.layers.size(); ++layer) {
        const int row = static_cast<int>(layer) + 1;
        if (job.layers[layer].locked == "Vary") {
            continue;
        }
        const std::string problem = ThicknessProblem(job.layers[layer].thickness, job.UnitsInForce());
        if (!problem.empty()) {
            grid_->item(row, thicknessColumn)->setData(errorRole, ToQt(problem));
            problems << tr("Layer %1: %2").arg(layer + 1).arg(ToQt(problem));
        }
    }
    hasError_ = !problems.isEmpty();
    problem_->setText(problems.join(u'\n'));
    problem_->setVisible(hasError_);
}

void LayersCard::ShowFindings(const std::vector<Finding>& findings) {
    const Job& job = session_.TheJob();
    QStringList problems;
    for (const Finding& finding : findings) {
        if (finding.severity != Severity::error) {
            continue;
        }
        for (std::size_t layer = 0; layer < job.layers.size(); ++layer) {
            const std::string subject = "Insulation." + std::to_string(layer + 1);
            if (finding.subject.starts_with(subject)) {
                grid_->item(static_cast<int>(layer) + 1, thicknessColumn)
                    ->setData(errorRole, ToQt(finding.text));
                problems << ToQt(finding.text);
            }
        }
        if (finding.subject == "BaseMetal" || finding.subject == "Jacket" ||
            finding.subject == "Insulation") {
            problems << ToQt(finding.text);
        }
    }
    if (!problems.isEmpty()) {
        hasError_ = true;
        problem_->setText(problems.join(u'\n'));
        problem_->show();
    }
    grid_->viewport()->update();
}

void LayersCard::FitGrid() {
    grid_->horizontalHeader()->setFixedHeight(grid_->fontMetrics().height() * 2 + 10);
    grid_->resizeRowsToContents();
    grid_->setFixedHeight(grid_->horizontalHeader()->height() + grid_->verticalHeader()->length() + 2);
}

void LayersCard::UpdateButtons() {
    // Adding and deleting stay pressable: they say why they do not go.
    const Job& job = session_.TheJob();
    const std::size_t row = SelectedRow();
    cmdMoveUp_->setEnabled(CanMoveUp(job, row));
    cmdMoveDown_->setEnabled(CanMoveDown(job, row));
    cmdCopyRow_->setEnabled(IsLayerRow(job, row));
}

} // namespace kaloria
