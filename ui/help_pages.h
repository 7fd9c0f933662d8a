// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QTextBrowser>
#include <QWidget>

#include <filesystem>

namespace kaloria {

/// The user guide, "user-guide.md" of the program folder with the pictures beside it and the pages that it
/// refers to; Alt+Left goes back to where one came from.
class GuidePage final : public QTextBrowser {
    Q_OBJECT

public:
    GuidePage(const std::filesystem::path& programFolder, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    void LayOut();
    std::filesystem::path file_;
    bool isLoaded_ = false;
};

/// What the program is and what its figures are not.
class AboutPage final : public QWidget {
    Q_OBJECT

public:
    AboutPage(Session& session, QWidget* parent);
};

} // namespace kaloria
