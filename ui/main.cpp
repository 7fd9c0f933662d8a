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

int main(int argc, char** argv) {
    using namespace kaloria;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kaloria"));
    QApplication::setApplicationVersion(QStringLiteral(KALORIA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("kaloria"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QApplication::tr("Engineering calculator for industrial thermal insulation"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("job"), QApplication::tr("Job file to open"),
                                 QStringLiteral("[job.kal]"));
    parser.process(application);
    theme::Install(application);

    FileSettings settings(FileSettings::UserFile());
    MessageBoxes messages;
    MainWindow window(
        {ChooseProgramFolder(ProgramPlaces::OfThisProcess(), messages), RecoveryStore::UserFolder()},
        settings, messages);
    window.StartUp();
    window.show();
    const QStringList files = parser.positionalArguments();
    if (!files.isEmpty()) {
        window.Jobs().OpenPath(files.first());
    }
    // Behind the first picture of the window, so that boxes open over it.
    QTimer::singleShot(0, &window, [&window] { window.Greet(); });
    return QApplication::exec();
}
