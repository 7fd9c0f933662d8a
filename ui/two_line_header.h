// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>

namespace kaloria {

/// Headings of two lines: the name, and under it in small type the unit, which is the heading's UserRole.
class TwoLineHeader final : public QHeaderView {
    Q_OBJECT

public:
    explicit TwoLineHeader(QWidget* parent = nullptr);
    [[nodiscard]] QSize sectionSizeFromContents(int column) const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;

private:
    [[nodiscard]] QString TextOf(int column, int role) const;
};

} // namespace kaloria
