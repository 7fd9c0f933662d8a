// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QPrinter>
#include <QString>

#include <functional>
#include <string>
#include <string_view>

class QAction;
class QLabel;

namespace kaloria {

namespace viewer {
class FindBar;
class PaperView;
struct RichText;
} // namespace viewer

/// The window in which a report is read, printed page by page, saved and exported.
class FrmViewReport final : public QMainWindow {
    Q_OBJECT

public:
    explicit FrmViewReport(QWidget* parent = nullptr);
    ~FrmViewReport() override;

    /// Shows a rich-text file. A file that is not there changes nothing and is no error; one that cannot be
    /// read is told.
    void LoadReport(const QString& path);

    /// Shows a report that is in no file yet.
    /// @param name  proposed for saving, without folder
    void ShowReport(std::string bytes, const QString& name);

    /// The report as it came, which is what saving writes: showing it takes nothing away from it.
    [[nodiscard]] const std::string& Bytes() const { return bytes_; }
    [[nodiscard]] int PageCount() const;

    /// Prints every page on sheets of its own.
    /// @returns false when the printer fails
    bool PrintOn(QPrinter& printer);

    /// @returns false when it could not be written and the user gave up, which has been told
    bool SaveAs(const QString& path);
    bool ExportPdf(const QString& path);

    /// How a file name is asked for and a failure told; dialogs unless a test sets its own.
    struct Questions {
        /// @returns an empty name when the user thinks better of it
        std::function<QString(const QString& title, const QString& filter, const QString& suffix,
                              const QString& proposed)>
            fileName;
        std::function<void(const QString& message)> tell;
        /// Told a failure to write, whether to try another place.
        std::function<bool(const QString& message)> triesElsewhere;
    };
    void SetQuestions(Questions questions) { questions_ = std::move(questions); }

public Q_SLOTS:
    void Print();
    void Preview();
    void Save();
    void Export();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Writer = std::function<void(const QString& path)>;

    void MakeMenus();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeViewMenu();
    QAction* AddAction(QMenu& menu, const QString& name, const QString& text, const QKeySequence& keys,
                       const std::function<void()>& what);
    void MakeStatus();
    bool Take(std::string bytes, const QString& path);
    bool Write(QString path, const QString& filter, const QString& suffix, const Writer& writer);
    [[nodiscard]] std::string PdfBytes() const;
    [[nodiscard]] QString Proposed(const QString& suffix) const;
    [[nodiscard]] Questions Dialogs();
    void SetZoom(double zoom);
    void Tell();

    std::string bytes_;
    QString name_; ///< the file name last used, with its folder once there is one
    viewer::PaperView* paper_;
    viewer::FindBar* find_;
    QLabel* problem_;
    QLabel* pages_ = nullptr;
    QLabel* zoom_ = nullptr;
    Questions questions_;
    bool fits_ = false; ///< the zoom follows the window's width
};

} // namespace kaloria
