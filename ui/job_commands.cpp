// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/job_commands.h"

#include "ui/file_dialogs.h"
#include "ui/theme.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <chrono>

namespace kaloria {

namespace {

using namespace std::chrono_literals;

constexpr auto copyInterval = 1min;

QString JobFilter() { return QObject::tr("Kaloria job (*.kal);;All files (*)"); }

QString NameOf(const std::filesystem::path& path) {
    return path.empty() ? QObject::tr("a job that was never saved") : files::ToQt(path);
}

} // namespace

JobCommands::JobCommands(Session& session, QWidget& window, std::filesystem::path recoveryFolder)
    : QObject(&window),
      session_(session),
      window_(window),
      recent_(session.Settings()),
      recovery_(std::move(recoveryFolder)) {
    copies_.setInterval(copyInterval);
    connect(&copies_, &QTimer::timeout, this, &JobCommands::KeepCopy);
    copies_.start();
}

void JobCommands::New() {
    if (MayLeave()) {
        session_.StartNew();
    }
}

void JobCommands::Open() {
    if (!MayLeave()) {
        return;
    }
    const QString folder = session_.Path().empty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : files::ToQt(session_.Path().parent_path());
    const QString path = files::AskOpen(&window_, tr("Open job"), folder, JobFilter());
    if (!path.isEmpty()) {
        OpenPath(path);
    }
}

void JobCommands::OpenPath(const QString& path) {
    const std::filesystem::path file = files::FromQt(QFileInfo(path).absoluteFilePath());
    if (session_.Open(file)) {
        recent_.Add(file);
    } else if (!QFileInfo::exists(path)) {
        recent_.Remove(file);
    }
}

bool JobCommands::SaveTo(const QString& path) {
    const std::filesystem::path file = files::FromQt(path);
    if (!session_.Save(file)) {
        return false;
    }
    recent_.Add(file);
    recovery_.DiscardOwn();
    return true;
}

bool JobCommands::Save() { return session_.Path().empty() ? SaveAs() : SaveTo(files::ToQt(session_.Path())); }

bool JobCommands::SaveAs() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString proposed = session_.Path().empty() ? QDir(folder).filePath(QStringLiteral("NewJob.kal"))
                                                     : files::ToQt(session_.Path());
    const QString path =
        files::AskSave(&window_, tr("Save job as"), proposed, JobFilter(), QStringLiteral("kal"));
    return !path.isEmpty() && SaveTo(path);
}

void JobCommands::LoadDefaults() {
    if (MayLeave()) {
        session_.LoadDefaults();
    }
}

void JobCommands::SaveAsDefault() {
    const auto answer = QMessageBox::question(
        &window_, tr("Save as default"),
        tr("Every new job will start with the inputs of this one. Replace the default job?"));
    if (answer == QMessageBox::Yes) {
        session_.SaveAsDefault();
    }
}

bool JobCommands::MayLeave() {
    if (!session_.IsDirty()) {
        return true;
    }
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                    tr("Save the changes to %1?")
                        .arg(session_.Path().empty() ? tr("this job")
                                                     : QFileInfo(files::ToQt(session_.Path())).fileName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box.setObjectName(QStringLiteral("frmAskSave"));
    box.setInformativeText(tr("Changes that are not saved are lost."));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return Save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void JobCommands::KeepCopy() {
    session_.KeepRecords(); // a recovered job may be about them
    if (session_.IsDirty()) {
        if (!recovery_.Write(session_.TheJob(), session_.Records(), session_.Path(), true)) {
            session_.Messages().Log("the recovery copy could not be written");
        }
    } else {
        recovery_.DiscardOwn();
    }
}

void JobCommands::OfferRecovery() {
    for (const RecoveryCopy& copy : recovery_.Abandoned()) {
        QMessageBox box(
            QMessageBox::NoIcon, QStringLiteral("Kaloria"),
            tr("Kaloria ended unexpectedly. Recover what was not saved of %1?").arg(NameOf(copy.jobPath)),
            QMessageBox::NoButton, &window_);
        box.setObjectName(QStringLiteral("frmRecovery"));
        box.setTextFormat(Qt::PlainText);
        auto* const recover = box.addButton(tr("&Recover"), QMessageBox::AcceptRole);
        auto* const discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
        box.addButton(tr("&Later"), QMessageBox::RejectRole);
        box.setDefaultButton(recover);
        box.exec();
        if (box.clickedButton() == discard) {
            recovery_.Discard(copy);
        } else if (box.clickedButton() == recover) {
            Job job;
            if (const auto problem = recovery_.Take(copy, session_.Records(), job)) {
                session_.Messages().Show(message::openingJob);
                session_.Messages().Log(problem->text);
                continue; // the copy stays: it may be read by other means
            }
            session_.TakeRecovered(job, copy.jobPath);
            KeepCopy(); // under our own name, before the old one goes
            recovery_.Discard(copy);
            return; // one job at a time; the others are offered at the next start
        }
    }
}

void JobCommands::End() {
    copies_.stop();
    recovery_.DiscardOwn();
}

void JobCommands::ShowRecent(QMenu& menu) {
    menu.clear();
    int number = 1;
    for (const std::filesystem::path& file : recent_.List()) {
        QString name = files::ToQt(file);
        name.replace(u'&', QStringLiteral("&&"));
        menu.addAction(QStringLiteral("&%1  %2").arg(number++).arg(name), this, [this, file] {
            if (MayLeave()) {
                OpenPath(files::ToQt(file));
            }
        });
    }
    menu.setEnabled(!menu.isEmpty());
}

} // namespace kaloria
