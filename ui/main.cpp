// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/program_folder.h"
#include "application/recovery.h"
#include "application/settings.h"
#include "ui/job_commands.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

/// Whether help or version is all that is asked for; that needs no display.
bool AsksOnly(int argc, char** argv) {
    constexpr std::array<std::string_view, 4> questions{"-h", "--help", "-v", "--version"};
    return std::any_of(argv, argv + argc, [&](const char* argument) {
        return std::find(questions.begin(), questions.end(), argument) != questions.end();
    });
}

/// The files named; does not return where a question was asked.
QStringList ReadCommandLine(const QCoreApplication& application) {
    QCoreApplication::setApplicationName(QStringLiteral("Kaloria"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KALORIA_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::tr("Engineering calculator for industrial thermal insulation"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("job"), QCoreApplication::tr("Job file to open"),
                                 QStringLiteral("[job.kal]"));
    parser.process(application);
    return parser.positionalArguments();
}

} // namespace

int main(int argc, char** argv) {
    using namespace kaloria;
    if (AsksOnly(argc, argv)) {
        const QCoreApplication console(argc, argv);
        (void)ReadCommandLine(console);
        return 0;
    }
    QApplication application(argc, argv);
    const QStringList files = ReadCommandLine(application);
    QGuiApplication::setDesktopFileName(QStringLiteral("kaloria"));
    theme::Install(application);

    FileSettings settings(FileSettings::UserFile());
    MessageBoxes messages;
    MainWindow window(
        {ChooseProgramFolder(ProgramPlaces::OfThisProcess(), messages), RecoveryStore::UserFolder()},
        settings, messages);
    window.StartUp();
    window.show();
    if (!files.isEmpty()) {
        window.Jobs().OpenPath(files.first());
    }
    // Behind the first picture of the window, so that boxes open over it.
    QTimer::singleShot(0, &window, [&window] { window.Greet(); });
    return QApplication::exec();
}
