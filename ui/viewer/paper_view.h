// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <QTextDocument>
#include <QTextEdit>

#include <memory>
#include <vector>

namespace kaloria::viewer {

/// Shows a report as sheets of paper under each other, one for each of its pages, for reading only.
class PaperView final : public QTextEdit {
    Q_OBJECT

public:
    explicit PaperView(QWidget* parent = nullptr);

    void Show(RichText text);
    [[nodiscard]] const RichText& Text() const { return text_; }

    /// 1 is the size on paper. What is selected and what is seen stay.
    void SetZoom(double zoom);
    [[nodiscard]] double Zoom() const { return zoom_; }
    /// The zoom at which the paper just fits into the window.
    [[nodiscard]] double FittingZoom() const;

    [[nodiscard]] int PageCount() const { return static_cast<int>(papers_.size()); }
    /// The page at the top of the window, from 1; 0 when there is none.
    [[nodiscard]] int CurrentPage() const;

Q_SIGNALS:
    void ZoomChanged();
    /// By turning the wheel with Ctrl.
    void ZoomWanted(int steps);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// In the document's units.
    struct Paper {
        double top = 0;
        double bottom = 0;
        double left = 0;
        double width = 0;
    };

    void Rebuild();
    void SetRootMargins(QTextDocument& document, double bottom) const;
    void Paginate();
    void Center();
    void AddPaper(std::size_t section, double top, double bottom);
    [[nodiscard]] int WidestPaper() const;
    [[nodiscard]] double Units(int twips) const;

    RichText text_;
    std::unique_ptr<QTextDocument> paper_; ///< what is shown
    std::vector<Paper> papers_;
    double zoom_ = 1;
};

} // namespace kaloria::viewer
