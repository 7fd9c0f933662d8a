// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/results_model.h"
#include "ui/session.h"

#include <QWidget>

#include <array>
#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace kaloria {

class PictureRow;
class ReportCard;

/// The answer: four figures, two pictures, the grid `flxResults`, what needs care, and the
/// report panel. While it does not belong to the inputs it is greyed, with the reason.
class ResultsView final : public QWidget {
    Q_OBJECT

public:
    explicit ResultsView(Session& session, QWidget* parent = nullptr);

    [[nodiscard]] PictureRow* Pictures() const { return pictures_; }
    [[nodiscard]] QTableView* Grid() const { return grid_; }

    void CopyGrid() const;
    /// The insulated row that a person has chosen; nothing while the answer shows its own.
    [[nodiscard]] std::optional<std::size_t> ChosenRow() const;
    /// How many cases wait to be compared.
    void ShowKept(int count);

Q_SIGNALS:
    void RowChosen(int row);
    void KeepAsked();    ///< the case is to be kept for comparison
    void CompareAsked(); ///< the kept cases are to be shown
    void Said(const QString& message);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct FigureCard {
        QWidget* card = nullptr;
        QLabel* caption = nullptr;
        QLabel* value = nullptr;
    };

    QWidget* BuildFigures();
    QWidget* BuildGrid();
    QWidget* BuildKeep();
    void ShowResult();
    void ShowStale();
    void ShowFigures(int row);
    void ShowNotices();
    void FitGrid();
    void ConnectPictures();

    Session& session_;
    ResultsModel model_;
    std::array<FigureCard, 4> figures_;
    PictureRow* pictures_ = nullptr;
    QBoxLayout* columns_ = nullptr;
    QTableView* grid_ = nullptr;
    QLabel* stale_ = nullptr;
    QPushButton* compare_ = nullptr;
    QWidget* notices_ = nullptr;
    ReportCard* report_ = nullptr;
};

} // namespace kaloria
