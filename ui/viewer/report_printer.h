// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>

#include <memory>
#include <span>
#include <vector>

namespace kaloria::viewer {

/// Draws a report on sheets: every page on sheets of its own, without the separators, as many as it needs,
/// with its section's paper, margins, headers and footers. On a device with other paper a sheet is
/// turned when it lies across, and made smaller until it fits, never larger.
class ReportPrinter {
public:
    /// Lays the report out for a device.
    /// @param text  must outlive the printer
    ReportPrinter(const RichText& text, QPagedPaintDevice& device);

    [[nodiscard]] int SheetCount() const { return static_cast<int>(sheets_.size()); }

    /// Paper of a section. The device gets it when it takes any paper, as a PDF does.
    [[nodiscard]] static QPageLayout LayoutOf(const Section& section);

    /// @param first,last  sheets from 1; last 0: to the end
    /// @param setsPaper  whether the device takes each sheet's own paper
    /// @returns false when the device fails, as a file that cannot be written does
    [[nodiscard]] bool Print(bool setsPaper, int first = 1, int last = 0);

private:
    struct Body {
        std::unique_ptr<QTextDocument> document;
        const Section* section = nullptr;
        double height = 0; ///< of its part of a sheet
        double top = 0;    ///< from the upper edge of the paper
    };
    struct Sheet {
        std::size_t body = 0;
        int page = 0;         ///< of the body's document
        int number = 0;       ///< as printed
        bool isFirst = false; ///< of its section
    };

    void AddBody(const RichText& text, std::size_t begin, std::size_t end, const Section& section,
                 bool startsSection);
    [[nodiscard]] std::unique_ptr<QTextDocument> Laid(std::span<const Block> blocks, const Section& section,
                                                      const Sheet& sheet) const;
    [[nodiscard]] double EdgeHeight(const Edge& edge, const Section& section) const;
    void Draw(QPainter& painter, const Sheet& sheet) const;
    void DrawEdges(QPainter& painter, const Sheet& sheet) const;
    void Fit(QPainter& painter, const Section& section) const;
    [[nodiscard]] double Units(int twips) const;

    const RichText& text_;
    QPagedPaintDevice& device_;
    std::vector<Body> bodies_;
    std::vector<Sheet> sheets_;
};

} // namespace kaloria::viewer
