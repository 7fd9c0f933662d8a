// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/materials_panel.h"

#include "application/record_entry.h"
#include "data/number_format.h"
#include "ui/dialogs/emittance_dialog.h"
#include "ui/dialogs/fuel_dialog.h"
#include "ui/dialogs/insulation_dialog.h"
#include "ui/field_card.h"
#include "ui/results_delegate.h"
#include "ui/theme.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace kaloria {

/// Object names and texts of one kind.
struct MaterialsPanel::Names {
    const char* grid;
    const char* suffix; ///< of the buttons: cmdAdd..., cmdDelete...
    const char* edit;   ///< the name of the edit button
    const char* one;    ///< "insulation"
    const char* title;
};

namespace {

constexpr int idColumn = 0;
constexpr int nameColumn = 1;

QString Number(double value, NumberFormat format) { return ToQt(FormatNumber(value, format)); }

QStandardItem* TextCell(const QString& text) {
    auto* const item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

QStandardItem* NumberCell(double value, NumberFormat format) {
    QStandardItem* const item = TextCell(Number(value, format));
    item->setData(value, Qt::UserRole); // sorts by value
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QList<QStandardItem*> CommonCells(std::int32_t id, const std::string& name, bool active,
                                  const std::string& createdBy) {
    QList<QStandardItem*> cells{NumberCell(id, NumberFormat::whole), TextCell(ToQt(name)),
                                TextCell(active ? QStringLiteral("True") : QStringLiteral("False")),
                                TextCell(ToQt(createdBy))};
    for (qsizetype i = nameColumn; i < cells.size(); ++i) {
        cells[i]->setData(cells[i]->text().toLower(), Qt::UserRole);
    }
    if (!active) {
        for (QStandardItem* const cell : cells) {
            cell->setForeground(theme::Current().quiet);
        }
    }
    return cells;
}

QString TypeText(std::int32_t type) {
    const auto names = InsulationTypeNames();
    const auto position = static_cast<std::size_t>(type) - 1;
    return position < names.size() ? ToQt(names[position]) : QString::number(type);
}

void AddSorted(QList<QStandardItem*>& cells, const QString& text) {
    cells << TextCell(text);
    cells.last()->setData(text.toLower(), Qt::UserRole);
}

} // namespace

const MaterialsPanel::Names& MaterialsPanel::TheNames() const {
    static const Names names[] = {
        {"flxInsulationMaterial", "Material", "cmdEdit", "insulation", "Insulation materials"},
        {"flxBaseMetals", "BaseMetal", "cmdEditBaseMetal", "base metal", "Base metals"},
        {"flxJacket", "Jacket", "cmdEditJacket", "jacket material", "Jacket materials"},
        {"flxFuel", "Fuel", "cmdEditFuel", "fuel", "Fuels"},
    };
    return names[static_cast<std::size_t>(kind_)];
}

MaterialsPanel::MaterialsPanel(MaterialKind kind, const QString& objectName, Session& session,
                               MaterialDeletions& deletions, QWidget* parent)
    : QWidget(parent), kind_(kind), session_(session), deletions_(deletions) {
    setObjectName(objectName);
    setAccessibleName(tr(TheNames().title));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const card = new Card(tr(TheNames().title), this);
    layout->addWidget(card);
    auto* const row = new QHBoxLayout;
    filter_ = new QLineEdit(card);
    filter_->setObjectName(QStringLiteral("txtFilter%1").arg(QLatin1String(TheNames().suffix)));
    filter_->setPlaceholderText(tr("Filter by name, maker or any other text"));
    filter_->setAccessibleName(tr("Filter"));
    filter_->setClearButtonEnabled(true);
    count_ = new QLabel(card);
    theme::SetRole(*count_, "quiet");
    row->addWidget(filter_, 1);
    row->addWidget(count_);
    card->Content()->addLayout(row);
    BuildGrid();
    card->Content()->addWidget(grid_, 1);
    BuildButtons();
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        shown_->setFilterFixedString(text);
        UpdateButtons();
    });
}

void MaterialsPanel::BuildGrid() {
    model_ = new QStandardItemModel(this);
    shown_ = new QSortFilterProxyModel(this);
    shown_->setSourceModel(model_);
    shown_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    shown_->setFilterKeyColumn(-1);
    shown_->setSortRole(Qt::UserRole);
    grid_ = new QTableView(this);
    grid_->setObjectName(QLatin1String(TheNames().grid));
    grid_->setAccessibleName(tr(TheNames().title));
    grid_->setModel(shown_);
    grid_->setItemDelegate(new ResultsDelegate(grid_));
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setShowGrid(false);
    grid_->setTabKeyNavigation(false);
    grid_->setSortingEnabled(true);
    grid_->sortByColumn(idColumn, Qt::AscendingOrder);
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setDefaultSectionSize(grid_->fontMetrics().height() + 9);
    grid_->horizontalHeader()->setHighlightSections(false);
    grid_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(grid_, &QTableView::doubleClicked, this, &MaterialsPanel::Edit);
    connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MaterialsPanel::UpdateButtons);
}

QPushButton* MaterialsPanel::Button(const QString& text, const QString& name, const QString& tip) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

void MaterialsPanel::BuildButtons() {
    const Names& names = TheNames();
    const auto named = [&](const char* verb) {
        return QStringLiteral("cmd%1%2").arg(QLatin1String(verb), QLatin1String(names.suffix));
    };
    const QString one = tr(names.one);
    QPushButton* const add = Button(tr("A&dd..."), named("Add"), tr("Add a %1 of your own").arg(one));
    edit_ = Button(tr("Edi&t..."), QLatin1String(names.edit), tr("Edit the selected %1").arg(one));
    duplicate_ = Button(tr("Du&plicate..."), named("Duplicate"),
                        tr("Make a copy of the selected %1 that is yours to edit").arg(one));
    activate_ = Button(tr("&Activate"), named("Activate"),
                       tr("Offer the selected %1 in the lists of choices, or no longer").arg(one));
    delete_ = Button(tr("De&lete"), named("Delete"), tr("Delete the selected %1").arg(one));
    undo_ = Button(tr("Und&o delete"), named("Undo"), tr("Bring back what was deleted last"));
    auto* const row = new QHBoxLayout;
    for (QPushButton* const button : {add, edit_, duplicate_, activate_, delete_, undo_}) {
        row->addWidget(button);
    }
    row->addStretch(1);
    qobject_cast<QVBoxLayout*>(layout()->itemAt(0)->widget()->layout())->addLayout(row);
    connect(add, &QPushButton::clicked, this, &MaterialsPanel::Add);
    connect(edit_, &QPushButton::clicked, this, &MaterialsPanel::Edit);
    connect(duplicate_, &QPushButton::clicked, this, &MaterialsPanel::Duplicate);
    connect(activate_, &QPushButton::clicked, this, &MaterialsPanel::Activate);
    connect(delete_, &QPushButton::clicked, this, &MaterialsPanel::Delete);
    connect(undo_, &QPushButton::clicked, this, &MaterialsPanel::Undo);
}

void MaterialsPanel::Refresh() {
    const std::int32_t selected = SelectedId();
    Fill();
    Select(selected);
    if (SelectedId() == 0) {
        grid_->selectRow(0);
    }
    UpdateButtons();
}

void MaterialsPanel::Fill() {
    const Catalogue& records = session_.Records();
    const Units units = session_.TheJob().UnitsInForce();
    const QString degrees = ToQt(InfoOf(Quantity::temperature).Text(units));
    model_->clear();
    QStringList headings{QStringLiteral("ID"), tr("Material Name"), tr("Active"), tr("Created By")};
    switch (kind_) {
    case MaterialKind::insulation:
        headings << tr("Type") << tr("Max Temp");
        for (const CInsulation& record : records.Insulations) {
            auto cells = CommonCells(record.ID, record.Name, record.Active, record.CreatedBy);
            AddSorted(cells, TypeText(record.InsulationType));
            cells << NumberCell(
                FromEnglish(Quantity::temperature, units, static_cast<double>(record.MaxTemp)),
                NumberFormat::whole);
            cells.last()->setText(QStringLiteral("%1 %2").arg(cells.last()->text(), degrees));
            model_->appendRow(cells);
        }
        break;
    case MaterialKind::baseMetal:
    case MaterialKind::jacket: {
        headings << tr("Emittance");
        const auto add = [this](const auto& record) {
            auto cells = CommonCells(record.ID, record.Name, record.Active, record.CreatedBy);
            cells << NumberCell(static_cast<double>(record.Emittance), NumberFormat::hundredths);
            model_->appendRow(cells);
        };
        if (kind_ == MaterialKind::baseMetal) {
            std::for_each(records.BaseMetals.begin(), records.BaseMetals.end(), add);
        } else {
            std::for_each(records.JacketMaterials.begin(), records.JacketMaterials.end(), add);
        }
        break;
    }
    case MaterialKind::fuel:
        headings[nameColumn] = tr("Fuel Name");
        headings << tr("Cost") << tr("Cost Units") << tr("BTU") << tr("BTU Units");
        for (const CFuel& record : records.Fuels) {
            auto cells = CommonCells(record.ID, record.Name, record.Active, record.CreatedBy);
            cells << NumberCell(static_cast<double>(record.Cost), NumberFormat::hundredths);
            AddSorted(cells, ToQt(record.CostUnits));
            cells << NumberCell(static_cast<double>(record.BTU), NumberFormat::shortest);
            AddSorted(cells, ToQt(record.BTUUnits));
            model_->appendRow(cells);
        }
        break;
    }
    model_->setHorizontalHeaderLabels(headings);
    for (int column = 0; column < model_->columnCount(); ++column) {
        // A heading stands over its figures.
        if (const QStandardItem* const cell = model_->item(0, column)) {
            model_->horizontalHeaderItem(column)->setTextAlignment(
                cell->textAlignment().testFlag(Qt::AlignRight) ? Qt::AlignRight | Qt::AlignVCenter
                                                               : Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
    grid_->resizeColumnsToContents();
    FitName();
}

void MaterialsPanel::FitName() {
    // The names get what is left, but never less than they need: then the grid scrolls.
    if (model_->columnCount() == 0) {
        return; // not filled yet
    }
    QHeaderView& header = *grid_->horizontalHeader();
    header.setSectionResizeMode(nameColumn, QHeaderView::ResizeToContents);
    const bool fits = header.length() < grid_->viewport()->width();
    header.setSectionResizeMode(nameColumn, fits ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
}

void MaterialsPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitName();
}

std::int32_t MaterialsPanel::SelectedId() const {
    const QModelIndexList rows = grid_->selectionModel()->selectedRows(idColumn);
    return rows.isEmpty() ? 0 : static_cast<std::int32_t>(rows.first().data(Qt::UserRole).toInt());
}

void MaterialsPanel::Select(std::int32_t id) {
    for (int row = 0; row < shown_->rowCount(); ++row) {
        if (shown_->index(row, idColumn).data(Qt::UserRole).toInt() == id) {
            grid_->selectRow(row);
            return;
        }
    }
}

void MaterialsPanel::UpdateButtons() {
    // What a system record refuses stays pressable and says why.
    const bool hasSelection = SelectedId() != 0;
    for (QPushButton* const button : {edit_, duplicate_, activate_, delete_}) {
        button->setEnabled(hasSelection);
    }
    const QModelIndexList rows = grid_->selectionModel()->selectedRows(2);
    const bool isActive = !rows.isEmpty() && rows.first().data().toString() == u"True";
    activate_->setText(isActive ? tr("De&activate") : tr("&Activate"));
    undo_->setEnabled(deletions_.CanUndo() && deletions_.LastKind() == kind_);
    count_->setText(tr("%1 of %2").arg(shown_->rowCount()).arg(model_->rowCount()));
}

bool MaterialsPanel::Refused(std::string_view refusal) {
    if (!refusal.empty()) {
        session_.Messages().Show(refusal);
    }
    return !refusal.empty();
}

template <class Dialog, class Record>
bool MaterialsPanel::EditRecord(const Record& record) {
    Dialog dialog(session_.Records(), record, session_.TheJob().UnitsInForce(), this);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    const Record edited = dialog.Edited();
    std::string_view refusal;
    session_.EditRecords([&](Catalogue& catalogue, Job& job) { refusal = Accept(catalogue, job, edited); });
    if (Refused(refusal)) {
        return false;
    }
    Select(edited.ID);
    return true;
}

bool MaterialsPanel::EditNew(bool isCopy) {
    const Catalogue& records = session_.Records();
    const std::int32_t id = SelectedId();
    switch (kind_) {
    case MaterialKind::insulation:
        return EditRecord<InsulationDialog>(isCopy ? DuplicateOf(records, *FindById(records.Insulations, id))
                                                   : NewInsulation(records));
    case MaterialKind::baseMetal:
        return EditRecord<BaseMetalDialog>(isCopy ? DuplicateOf(records, *FindById(records.BaseMetals, id))
                                                  : NewBaseMetal(records));
    case MaterialKind::jacket:
        return EditRecord<JacketDialog>(isCopy ? DuplicateOf(records, *FindById(records.JacketMaterials, id))
                                               : NewJacket(records));
    case MaterialKind::fuel:
        return EditRecord<FuelDialog>(isCopy ? DuplicateOf(records, *FindById(records.Fuels, id))
                                             : NewFuel(records));
    }
    return false;
}

void MaterialsPanel::Add() {
    if (!Refused(AddRefusal(kind_, session_.TheJob().UnitsInForce()))) {
        EditNew(false);
    }
}

void MaterialsPanel::Duplicate() {
    if (SelectedId() != 0 && !Refused(AddRefusal(kind_, session_.TheJob().UnitsInForce()))) {
        EditNew(true);
    }
}

void MaterialsPanel::Edit() {
    const std::int32_t id = SelectedId();
    const Catalogue& records = session_.Records();
    if (id == 0 || Refused(EditRefusal(records, kind_, id))) {
        return;
    }
    switch (kind_) {
    case MaterialKind::insulation:
        EditRecord<InsulationDialog>(*FindById(records.Insulations, id));
        break;
    case MaterialKind::baseMetal:
        EditRecord<BaseMetalDialog>(*FindById(records.BaseMetals, id));
        break;
    case MaterialKind::jacket:
        EditRecord<JacketDialog>(*FindById(records.JacketMaterials, id));
        break;
    case MaterialKind::fuel:
        EditRecord<FuelDialog>(*FindById(records.Fuels, id));
        break;
    }
}

void MaterialsPanel::Activate() {
    const std::int32_t id = SelectedId();
    std::string_view refusal;
    if (id != 0) {
        session_.EditRecords(
            [&](Catalogue& catalogue, Job& /*job*/) { refusal = ToggleActive(catalogue, kind_, id); });
        Refused(refusal);
    }
}

void MaterialsPanel::Delete() {
    const std::int32_t id = SelectedId();
    if (id == 0 || Refused(DeleteRefusal(session_.Records(), kind_, id))) {
        return;
    }
    const QString use = ToQt(UseInJob(session_.Records(), session_.TheJob(), kind_, id));
    if (!use.isEmpty()) {
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                        tr("The current job uses this record for %1. Delete it all the same?").arg(use),
                        QMessageBox::Yes | QMessageBox::No, this);
        box.setObjectName(QStringLiteral("frmAskDelete"));
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(QMessageBox::No);
        if (box.exec() != QMessageBox::Yes) {
            return;
        }
    }
    std::string_view refusal;
    session_.EditRecords(
        [&](Catalogue& catalogue, Job& /*job*/) { refusal = deletions_.Delete(catalogue, kind_, id); });
    Refused(refusal);
}

void MaterialsPanel::Undo() {
    std::int32_t id = 0;
    session_.EditRecords([&](Catalogue& catalogue, Job& /*job*/) { id = deletions_.Undo(catalogue); });
    Select(id);
}

} // namespace kaloria
