// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help_pages.h"

#include "application/disclaimer_text.h"
#include "ui/field_card.h"
#include "ui/file_dialogs.h"
#include "ui/minor_windows.h"
#include "ui/theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>

namespace kaloria {

namespace {
constexpr qint64 longestGuide = qint64{4} << 20U;
constexpr int widestPicture = 900;
constexpr int readableWidth = 760;
constexpr int laidOut = 1; ///< state of a page's first block

/// "Costs, payback, emissions" is found as "costs-payback-emissions".
QString AnchorOf(const QString& heading) {
    QString anchor;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == u'-' || c == u'_') {
            anchor += c;
        } else if (c == u' ') {
            anchor += u'-';
        }
    }
    return anchor;
}

void LayOutTable(QTextTable& table) {
    const QTextTableCell corner = table.cellAt(0, 0);
    if (QTextCursor cursor = corner.firstCursorPosition();
        cursor.block().text().isEmpty() && corner.lastPosition() > corner.firstPosition()) {
        cursor.deleteChar(); // Qt's reader begins a table behind a listing with an empty line
    }
    QTextTableFormat format = table.format();
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(theme::Current().line);
    format.setCellSpacing(0);
    format.setCellPadding(theme::gap / 2.0);
    format.setTopMargin(theme::gap);
    format.setBottomMargin(theme::gap);
    table.setFormat(format);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    for (int column = 0; column < table.columns(); ++column) {
        QTextCursor heading = table.cellAt(0, column).firstCursorPosition();
        heading.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        heading.mergeCharFormat(bold);
    }
}

/// Listings stand a little to the right, and headings have the names by which references know them.
void LayOutBlock(const QTextBlock& block) {
    QTextCursor cursor(block);
    if (block.blockFormat().hasProperty(QTextFormat::BlockCodeFence)) {
        QTextBlockFormat listing;
        listing.setLeftMargin(theme::pageMargin);
        cursor.mergeBlockFormat(listing);
    } else if (block.blockFormat().headingLevel() > 0) {
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({AnchorOf(block.text())});
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(named);
    }
}
} // namespace

GuidePage::GuidePage(const std::filesystem::path& programFolder, QWidget* parent)
    : QTextBrowser(parent), file_(programFolder / "user-guide.md") {
    setObjectName(QStringLiteral("fraData13"));
    setAccessibleName(tr("Guide"));
    setOpenExternalLinks(true);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(theme::pageMargin);
}

void GuidePage::showEvent(QShowEvent* event) {
    QTextBrowser::showEvent(event);
    if (!isLoaded_) {
        isLoaded_ = true; // not at start-up: pictures take their time
        setSource(QUrl::fromLocalFile(files::ToQt(file_)), QTextDocument::MarkdownResource);
    }
}

void GuidePage::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    const QFileInfo page(name.toLocalFile());
    if (page.isFile() && page.size() <= longestGuide) {
        QTextBrowser::doSetSource(name, type);
        LayOut();
        if (name.hasFragment()) {
            scrollToAnchor(name.fragment());
        }
    } else if (source().isEmpty()) {
        setPlainText(tr("The guide is not there: %1").arg(files::ToQt(file_)));
    } // a reference to what does not ship leaves the page in hand
}

void GuidePage::LayOut() {
    QTextBlock first = document()->begin();
    if (first.userState() == laidOut) {
        return; // a reference within the page
    }
    first.setUserState(laidOut);
    for (QTextFrame* const frame : document()->rootFrame()->childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame)) {
            LayOutTable(*table);
        }
    }
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        LayOutBlock(block);
    }
}

QVariant GuidePage::loadResource(int type, const QUrl& name) {
    const QVariant found = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) {
        return found;
    }
    // Pictures of the whole window are wider than a page of text.
    const QImage picture = found.metaType().id() == QMetaType::QByteArray
                               ? QImage::fromData(found.toByteArray())
                               : found.value<QImage>();
    return picture.width() > widestPicture ? picture.scaledToWidth(widestPicture, Qt::SmoothTransformation)
                                           : picture;
}

AboutPage::AboutPage(Session& session, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("fraData14"));
    setAccessibleName(tr("About"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const card = new Card(tr("Kaloria %1").arg(QApplication::applicationVersion()), this);
    card->setMaximumWidth(readableWidth);
    auto* const what = new QLabel(tr("Engineering calculator for industrial thermal insulation"), card);
    what->setFont(theme::HeadingFont());
    card->Content()->addWidget(what);
    auto* const title = new QLabel(ToQt(disclaimerTitle), card);
    theme::SetRole(*title, "cardTitle");
    card->Content()->addWidget(title);
    auto* const text = new QLabel(ToQt(disclaimerText), card);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    card->Content()->addWidget(text);
    auto* const row = new QHBoxLayout;
    auto* const about = new QPushButton(tr("A&bout Kaloria..."), card);
    about->setObjectName(QStringLiteral("cmdAbout"));
    about->setAccessibleName(tr("About Kaloria"));
    row->addWidget(about);
    row->addStretch(1);
    card->Content()->addLayout(row);
    connect(about, &QPushButton::clicked, this, [this, &session] { windows::ShowAbout(session, window()); });
    layout->addWidget(card);
    layout->addStretch(1);
}

} // namespace kaloria
