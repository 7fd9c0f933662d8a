// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/layer_rules.h"
#include "ui/session.h"

#include <QStyledItemDelegate>
#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace kaloria {

/// The in-cell choice of the layers grid: the picture box `picDropDown` with a drop-down in it.
class LayerCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    LayerCellDelegate(Session& session, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

Q_SIGNALS:
    /// @param row  of the layers grid, 1 the base metal
    void Edited(std::size_t row, int column, const QString& text) const;

private:
    [[nodiscard]] QStringList Choices(const QModelIndex& index) const;
    Session& session_;
};

/// The layer build-up, `flxInsulationLayers`, with its buttons.
class LayersCard final : public QWidget {
    Q_OBJECT

public:
    enum Column { numberColumn, typeColumn, nameColumn, lockColumn, thicknessColumn };

    explicit LayersCard(Session& session, QWidget* parent = nullptr);

    void Refresh();
    /// Takes over what stands in a cell that is still being edited.
    void FinishEditing();
    /// Marks thicknesses that cannot stand, by themselves.
    void ShowProblem();
    void ShowFindings(const std::vector<Finding>& findings);
    [[nodiscard]] bool HasError() const { return hasError_; }

private:
    QWidget* BuildButtons();
    QTableWidget* BuildGrid();
    void ShowCell(int tableRow, Column column, const QString& text, bool isEditable);
    void CellEdited(std::size_t row, int column, const QString& text);
    void Apply(const LayerEdit& edit);
    template <class Change>
    void Run(const Change& change);
    [[nodiscard]] std::size_t SelectedRow() const;
    void SelectRow(std::size_t row);
    void FitGrid();
    void UpdateButtons();

    Session& session_;
    QTableWidget* grid_ = nullptr;
    QLabel* problem_ = nullptr;
    QPushButton* cmdAddLayer_ = nullptr;
    QPushButton* cmdDelete_ = nullptr;
    QPushButton* cmdMoveUp_ = nullptr;
    QPushButton* cmdMoveDown_ = nullptr;
    QPushButton* cmdCopyRow_ = nullptr;
    bool isFilling_ = false;
    bool hasError_ = false;
};

} // namespace kaloria
