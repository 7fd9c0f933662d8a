// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"

#include <QTableWidget>

namespace kaloria {

/// Emission factors of a fuel (`flxPollutants`): those that it has, then those that only other fuels have,
/// with empty amounts. What is left empty is no factor of the fuel.
class PollutantsGrid final : public QTableWidget {
    Q_OBJECT

public:
    PollutantsGrid(const Catalogue& catalogue, const CFuel& fuel, QWidget* parent = nullptr);

    [[nodiscard]] Collection<CPollutant> Pollutants() const;
    /// The first amount that cannot be read, said with its name; empty when all can. Marks the cells.
    [[nodiscard]] QString Unreadable();

    /// Shows the amounts without letting them be changed.
    void Lock();

Q_SIGNALS:
    void Changed();

private:
    void BuildHeadings();
    void Append(const CPollutant& pollutant, bool isOfFuel);

    std::vector<CPollutant> rows_;
};

} // namespace kaloria
