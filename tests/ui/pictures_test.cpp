// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of an answer in the window: they follow the inputs, point to the same row as the grid, and can
// be taken along.
#include "tests/ui/program_copy.h"
#include "ui/main_window.h"
#include "ui/pictures/economic_card.h"
#include "ui/pictures/picture_export.h"
#include "ui/pictures/picture_row.h"
#include "ui/pictures/plot_library.h"
#include "ui/pictures/plot_view.h"
#include "ui/pictures/section_view.h"
#include "ui/results_view.h"
#include "ui/theme.h"

#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

namespace kaloria {
namespace {

class PicturesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        window_ = std::make_unique<MainWindow>(Places{program_.Path(), program_.Scratch("recovery")},
                                               settings_, messages_);
        messages_.SetHandler([](const std::string& text) { qWarning("%s", text.c_str()); });
        window_->StartUp();
        window_->resize(1280, 800);
        window_->show();
        QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
        row_ = window_->findChild<PictureRow*>();
        grid_ = window_->findChild<QTableView*>(QStringLiteral("flxResults"));
        TheSession().SetText(Field::MaxSurfaceTemp, "120");
        TheSession().Calculate();
        QTRY_VERIFY(row_->Plot()->width() > 200 && row_->Plot()->height() > 100); // laid out
    }
    void cleanup() { window_.reset(); }

    void FollowWhatIsTyped() {
        QCOMPARE(ToQt(row_->Section()->Model().title), QStringLiteral("Section at 1.5 in."));
        QVERIFY(!row_->isHidden());
        TheSession().SetText(Field::ProcessTemp, "600");
        QTRY_COMPARE(row_->Section()->Model().processTemp, 600.0);
        const auto figure = TheSession().Result().grid.rows[1].cells[1].value;
        QCOMPARE(row_->Plot()->Model().curves.front().points.front().y, *figure);
    }

    void AWrongEntryLeavesNoFigure() {
        const QImage before = row_->grab().toImage();
        TheSession().SetText(Field::ProcessTemp, "35x");
        QTRY_COMPARE(row_->Section()->accessibleDescription(), QStringLiteral("Out of date"));
        QVERIFY(row_->grab().toImage() != before);
        QVERIFY(Plot().itemCount() == 0); // limits and other words
        QVERIFY(!Plot().axisRect()->axis(QCPAxis::atLeft)->tickLabels());
        TheSession().SetText(Field::ProcessTemp, "350");
        QTRY_VERIFY(
            row_->Section()->accessibleDescription().contains(QStringLiteral("110.9 °F at its surface")));
        QTRY_VERIFY(Plot().itemCount() > 0);
    }

    void GridSectionAndPlotPointToTheSameRow() {
        grid_->setCurrentIndex(grid_->model()->index(5, 0));
        QCOMPARE(ToQt(row_->Section()->Model().title), QStringLiteral("Section at 2.5 in."));
        const QPoint place = PlaceOfRow(8);
        MoveTo(place);
        QTRY_COMPARE(ToQt(row_->Section()->Model().title), QStringLiteral("Section at 4 in."));
        QVERIFY(grid_->selectionModel()->isRowSelected(8));
        Plot().replot(); // what the next event loop would do
        MoveTo({2, 2});
        QTRY_COMPARE(ToQt(row_->Section()->Model().title), QStringLiteral("Section at 2.5 in."));
        QVERIFY(grid_->selectionModel()->isRowSelected(5));
        Plot().replot();
        QTest::mouseClick(&Plot(), Qt::LeftButton, {}, place);
        QCOMPARE(grid_->currentIndex().row(), 8);
    }

    void BandsAreFoundWhereTheyAreDrawn() {
        SectionView& section = *row_->Section();
        QVERIFY(!section.BandAt({1, 1}));
        std::set<std::size_t> met;
        for (int x = 0; x < section.width(); ++x) {
            if (const auto band = section.BandAt(QPointF(x, section.height() / 2.0))) {
                met.insert(*band);
            }
        }
        QCOMPARE(met.size(), section.Model().bands.size());
    }

    void ChoicesFitTheCalculation() {
        const auto visible = [this] {
            QStringList names;
            for (const auto* const button : row_->findChildren<QPushButton*>()) {
                if (!button->isHidden()) {
                    names << button->text();
                }
            }
            return names.join(u' ');
        };
        QCOMPARE(visible(), QStringLiteral("Thickness Profile ±10 %"));
        row_->findChild<QPushButton*>(QStringLiteral("cmdPlotSensitivity"))->click();
        QCOMPARE(row_->Plot()->Model().bars.size(), std::size_t{2});
        Choose(calculation_type::heatLossPerYear);
        QCOMPARE(visible(), QStringLiteral("Thickness Profile Cost Emissions ±10 %"));
        row_->Choose(PictureRow::Kind::emissions);
        QVERIFY(row_->Plot()->Model().right.has_value());
        // What the calculation does not have gives way, and comes back with it.
        Choose(calculation_type::heatLossPerHour);
        QCOMPARE(ToQt(row_->Plot()->Model().title), QStringLiteral("Against thickness"));
        Choose(calculation_type::heatLossPerYear);
        QVERIFY(row_->Plot()->Model().left.title.starts_with("CO2"));
    }

    void PicturesAreSavedWhole_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("png") << QStringLiteral("p.png") << QByteArray("\x89PNG");
        QTest::newRow("svg") << QStringLiteral("p.SVG") << QByteArray("<?xml");
        QTest::newRow("pdf") << QStringLiteral("p.pdf") << QByteArray("%PDF");
    }
    void PicturesAreSavedWhole() {
        QFETCH(QString, name);
        QFETCH(QByteArray, start);
        const QTemporaryDir folder;
        for (const picture::Drawing& drawing : {row_->Section()->AsDrawing(), row_->Plot()->AsDrawing()}) {
            const QString path = folder.filePath(name);
            QCOMPARE(picture::Save(drawing, path), QString());
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            QVERIFY(bytes.startsWith(start));
            QVERIFY(bytes.size() > 2000);
            if (name.endsWith(QStringLiteral("png"))) {
                QCOMPARE(QImage::fromData(bytes).size(), drawing.size * 2);
            }
            if (name.endsWith(QStringLiteral("SVG"))) {
                QVERIFY(bytes.contains("1.5 in.") || bytes.contains("110.9"));
            }
        }
        QVERIFY(
            !picture::Save(row_->Plot()->AsDrawing(), folder.filePath(QStringLiteral("p.txt"))).isEmpty());
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("p.txt"))));
        QVERIFY(!picture::Save(row_->Plot()->AsDrawing(), folder.filePath(QStringLiteral("no/") + name))
                     .isEmpty());
    }

    void TheEconomicCurveGoesOutOfDate() {
        auto* const card = window_->findChild<EconomicCard*>();
        QVERIFY(card->isHidden());
        EconomicAnalysis analysis;
        SurfaceResult surface;
        surface.name = "Pipe 6 in";
        surface.isPipe = true;
        TemperatureResult result;
        result.temperature = 350;
        for (const double thickness : {1.0, 2.0, 3.0}) {
            ThicknessResult& row = result.rows.emplace_back();
            row.nominal = static_cast<float>(thickness);
            row.made = true;
            row.curve = CurvePoint{thickness, 4 / thickness};
        }
        ThicknessResult& bare = result.rows.emplace_back();
        bare.made = true;
        bare.curve = CurvePoint{0, 20};
        result.economic = 1;
        result.outcome = EconomicOutcome::found;
        surface.temperatures = {result, result};
        analysis.surfaces = {surface};
        card->Show(analysis, Units::english);
        QVERIFY(!card->isHidden());
        QCOMPARE(card->Plot()->Model().curves.size(), std::size_t{3});
        QCOMPARE(card->Plot()->Model().marks.front().value, 2.0);
        QCOMPARE(card->Plot()->Model().curves.back().points[1].y, 4.0); // the lowest total
        QCOMPARE(card->Plot()->Model().note, std::string("As it is: 20.00 $/ft/yr. "));
        QCOMPARE(card->Plot()->Model().curves.back().points.size(), std::size_t{3});
        TheSession().SetText(Field::InterestRate, "9");
        QVERIFY(!card->findChild<QWidget*>(QStringLiteral("cboCurveSurface"))->isEnabled());
    }

private:
    Session& TheSession() { return window_->TheSession(); }
    QCustomPlot& Plot() { return *row_->Plot()->findChild<QCustomPlot*>(); }
    void Choose(int type) {
        TheSession().Choose(Field::InsulationThicknessCalculationType,
                            std::string(calculationTypeNames[static_cast<std::size_t>(type)]));
        TheSession().Calculate();
    }
    void MoveTo(const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, Plot().mapToGlobal(place), Qt::NoButton, {}, {});
        QApplication::sendEvent(&Plot(), &move);
    }
    QPoint PlaceOfRow(std::size_t row) {
        Plot().replot();
        const QCPGraph& graph = *Plot().graph(0);
        for (const PlotPoint& point : row_->Plot()->Model().curves.front().points) {
            if (point.row == row) {
                return QPointF(graph.keyAxis()->coordToPixel(point.x),
                               graph.valueAxis()->coordToPixel(point.y))
                    .toPoint();
            }
        }
        return {};
    }

    test::ProgramCopy program_;
    MemorySettings settings_;
    MessageBoxes messages_;
    std::unique_ptr<MainWindow> window_;
    PictureRow* row_ = nullptr;
    QTableView* grid_ = nullptr;
};

} // namespace
} // namespace kaloria

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    kaloria::theme::Install(application);
    kaloria::PicturesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "pictures_test.moc"
