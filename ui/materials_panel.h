// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/material_rules.h"
#include "ui/session.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;

namespace kaloria {

/// The records of one kind as a grid, with a filter and what may be done with them.
class MaterialsPanel final : public QWidget {
    Q_OBJECT

public:
    /// @param deletions  of all kinds in this run; must outlive this object
    MaterialsPanel(MaterialKind kind, const QString& objectName, Session& session,
                   MaterialDeletions& deletions, QWidget* parent = nullptr);

    void Refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Names;
    [[nodiscard]] const Names& TheNames() const;
    void BuildGrid();
    void BuildButtons();
    QPushButton* Button(const QString& text, const QString& name, const QString& tip);
    void Fill();
    void FitName();
    void UpdateButtons();

    void Add();
    void Edit();
    void Duplicate();
    void Activate();
    void Delete();
    void Undo();
    /// @return whether the record was accepted
    template <class Dialog, class Record>
    bool EditRecord(const Record& record);
    bool EditNew(bool isCopy);
    bool Refused(std::string_view refusal);
    [[nodiscard]] std::int32_t SelectedId() const;
    void Select(std::int32_t id);

    MaterialKind kind_;
    Session& session_;
    MaterialDeletions& deletions_;
    QStandardItemModel* model_ = nullptr;
    QSortFilterProxyModel* shown_ = nullptr;
    QTableView* grid_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QLabel* count_ = nullptr;
    QPushButton* edit_ = nullptr;
    QPushButton* duplicate_ = nullptr;
    QPushButton* activate_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* undo_ = nullptr;
};

} // namespace kaloria
