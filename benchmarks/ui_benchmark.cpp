// SPDX-License-Identifier: GPL-3.0-or-later
// What a person waits for in front of the window: start, Calculate, another unit system, a key while inputs
// recalculate as they change. Run with QT_QPA_PLATFORM=offscreen; every time ends when all is painted.
#include "tests/ui/program_copy.h"
#include "ui/main_window.h"
#include "ui/pictures/picture_row.h"
#include "ui/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <benchmark/benchmark.h>

namespace kaloria {
namespace {

const test::ProgramCopy& Program() {
    static const test::ProgramCopy program;
    return program;
}

/// A window with the job that ships: 18 thicknesses of mineral wool on a steam line.
struct Window {
    Window() : window({Program().Path(), Program().Scratch("recovery")}, settings, messages) {
        messages.SetHandler([](const std::string&) {});
        window.StartUp();
        window.resize(1280, 800);
        window.show();
        Paint();
    }
    ~Window() { window.hide(); } // fields say their last word while there is someone to hear it
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Timers, layouts and everything that has to be drawn for them, until nothing is left.
    void Paint() {
        for (int i = 0; i < 3; ++i) {
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    }

    MemorySettings settings;
    MessageBoxes messages;
    MainWindow window;
};

void StartToShownWindow(benchmark::State& state) {
    for (auto _ : state) {
        const Window window;
        benchmark::DoNotOptimize(window.window.isVisible());
    }
}
BENCHMARK(StartToShownWindow)->Unit(benchmark::kMillisecond);

void CalculateToRepaint(benchmark::State& state) {
    Window window;
    for (auto _ : state) {
        window.window.TheSession().Calculate();
        window.Paint();
    }
}
BENCHMARK(CalculateToRepaint)->Unit(benchmark::kMillisecond);

void UnitsSwitchToRepaint(benchmark::State& state) {
    Window window;
    bool si = false;
    for (auto _ : state) {
        si = !si;
        window.window.SwitchUnits(si ? Units::si : Units::english);
        window.Paint();
    }
}
BENCHMARK(UnitsSwitchToRepaint)->Unit(benchmark::kMillisecond);

void Press(QWidget& field, Qt::Key key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&field, &event);
    }
}

/// A digit typed into the process temperature, with the plot of that number.
void LiveKeyToRepaint(benchmark::State& state) {
    Window window;
    window.window.findChild<PictureRow*>()->Choose(static_cast<PictureRow::Kind>(state.range(0)));
    auto* const field = window.window.findChild<QLineEdit*>(QStringLiteral("txtProcessTemp"));
    if (field == nullptr) {
        state.SkipWithError("there is no field for the process temperature");
        return;
    }
    field->setFocus();
    field->setText(QStringLiteral("35"));
    window.Paint();
    bool isShort = true;
    for (auto _ : state) {
        Press(*field, isShort ? Qt::Key_0 : Qt::Key_Backspace, isShort ? QStringLiteral("0") : QString());
        isShort = !isShort;
        window.Paint();
        if (!window.window.TheSession().IsCurrent()) {
            state.SkipWithError("the answer does not follow the keys");
        }
    }
}
BENCHMARK(LiveKeyToRepaint)
    ->Arg(static_cast<int>(PictureRow::Kind::thickness))
    ->Arg(static_cast<int>(PictureRow::Kind::profile))
    ->Arg(static_cast<int>(PictureRow::Kind::sensitivity))
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kaloria

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    kaloria::theme::Install(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
