// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/ui/program_copy.h"
#include "ui/job_commands.h"
#include "ui/main_window.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>

#include <deque>
#include <functional>

namespace kaloria::test {

/// Answers the modal windows that open while a test drives the program, in the order of the answers given. A
/// window that nobody expected is closed and remembered, so that no test hangs.
class Boxes {
public:
    using Answer = std::function<void(QDialog&)>;

    Boxes() { Watch(); }

    /// @param name  object name of the window; empty: any
    void Expect(const QString& name, Answer answer) { answers_.push_back({name, std::move(answer)}); }
    void ExpectButton(const QString& name, QMessageBox::StandardButton button) {
        Expect(name, [button](QDialog& box) {
            auto* const message = qobject_cast<QMessageBox*>(&box);
            if (message != nullptr && message->button(button) != nullptr) {
                message->button(button)->click();
            } else {
                box.reject();
            }
        });
    }
    void ExpectButton(const QString& name, const QString& text) {
        Expect(name, [text](QDialog& box) {
            for (QAbstractButton* const button : box.findChildren<QAbstractButton*>()) {
                if (QString(button->text()).remove(u'&') == text) {
                    button->click();
                    return;
                }
            }
            box.reject();
        });
    }
    /// The next file dialog takes @p path.
    void ExpectFile(const std::filesystem::path& path) {
        Expect(QString(), [path](QDialog& box) {
            auto* const dialog = qobject_cast<QFileDialog*>(&box);
            if (dialog == nullptr) {
                box.reject();
                return;
            }
            dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(path.string()));
            static_cast<QDialog*>(dialog)->accept();
        });
    }

    /// Everything expected came, and nothing else.
    [[nodiscard]] bool AreDone() const { return answers_.empty() && unexpected.isEmpty(); }
    QStringList unexpected;

private:
    struct Expected {
        QString name;
        Answer answer;
    };

    void Watch() {
        // A timer of its own for every look: one whose slot runs does not fire in the loops of inner boxes.
        QTimer::singleShot(2, &context_, [this] {
            Watch();
            auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (box == nullptr || box == answered_) {
                return;
            }
            if (answers_.empty() ||
                (!answers_.front().name.isEmpty() && answers_.front().name != box->objectName())) {
                unexpected << box->objectName() + u' ' + box->windowTitle();
                box->reject();
                return;
            }
            const Answer answer = std::move(answers_.front().answer);
            answers_.pop_front();
            const QDialog* const before = std::exchange(answered_, box);
            answer(*box);
            answered_ = before;
        });
    }

    std::deque<Expected> answers_;
    const QDialog* answered_ = nullptr; ///< its answer is still being given
    QObject context_;
};

/// The program as a person has it before them: a window over a program folder, its messages caught, its boxes
/// answered by the test.
class WindowDriver {
public:
    /// @param folder  of the program; must outlive this object
    explicit WindowDriver(const ProgramCopy& folder)
        : WindowDriver(folder.Path(), folder.Scratch("recovery")) {}

    WindowDriver(const std::filesystem::path& program, const std::filesystem::path& recovery) {
        messages.SetHandler([this](const std::string& text) { told << QString::fromStdString(text); });
        window = std::make_unique<MainWindow>(Places{program, recovery}, settings, messages);
        window->StartUp();
        window->resize(1280, 800);
        window->show();
        window->activateWindow();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] kaloria::Session& Session() { return window->TheSession(); }
    [[nodiscard]] const Job& TheJob() { return Session().TheJob(); }

    template <class Control = QWidget>
    [[nodiscard]] Control& Find(const QString& name) {
        auto* const found = window->findChild<Control*>(name);
        if (found == nullptr) {
            qFatal("no control %s", qPrintable(name));
        }
        return *found;
    }

    /// A click of the mouse; the button has to be there to be clicked.
    void Click(const QString& name) {
        auto& button = Find<QAbstractButton>(name);
        if (!button.isVisible() || !button.isEnabled()) {
            qFatal("%s cannot be clicked", qPrintable(name));
        }
        QTest::mouseClick(&button, Qt::LeftButton);
    }
    void Trigger(const QString& name) { Find<QAction>(name).trigger(); }

    /// Replaces the text of an entry key by key, and leaves it.
    void Type(const QString& name, const QString& text) {
        auto& line = Find<QLineEdit>(name);
        line.setFocus();
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        for (const QChar c : text) { // keyClicks knows no other letters than ASCII's
            QTest::sendKeyEvent(QTest::Click, &line, Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
        QTest::keyClick(&line, Qt::Key_Return);
    }

    /// Chooses from a drop-down as its list does.
    bool Choose(const QString& name, const QString& text) { return Choose(Find<QComboBox>(name), text); }
    static bool Choose(QComboBox& box, const QString& text) {
        const int index = box.findText(text);
        if (index < 0) {
            return false;
        }
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // editors of cells
        return true;
    }

    [[nodiscard]] QString Text(const QString& name) { return Find<QLineEdit>(name).text(); }
    [[nodiscard]] QString LabelText(const QString& name) { return Find<QLabel>(name).text(); }
    [[nodiscard]] QTableWidget& Layers() { return Find<QTableWidget>(QStringLiteral("flxInsulationLayers")); }

    MemorySettings settings;
    MessageBoxes messages;
    QStringList told; ///< what the program had to say
    Boxes boxes;
    std::unique_ptr<MainWindow> window;
};

[[nodiscard]] inline QString Q(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace kaloria::test
