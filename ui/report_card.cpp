// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/report_card.h"

#include "ui/file_dialogs.h"
#include "ui/theme.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

/// Labels of the inputs have these two names already.
QString ObjectName(const std::string& control) {
    if (control == "lblMaxSurfaceTemp" || control == "lblHeatFlowLimit") {
        return QStringLiteral("lblReport%1").arg(ToQt(control).mid(3));
    }
    return ToQt(control);
}

} // namespace

ReportCard::ReportCard(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    setObjectName(QStringLiteral("fraReport"));
    setAttribute(Qt::WA_StyledBackground);
    theme::SetRole(*this, "card");
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::cardPadding, 10, theme::cardPadding, 12);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("lblReportTitle"));
    theme::SetRole(*title_, "cardTitle");
    layout->addWidget(title_);
    lines_ = new QWidget(this);
    layout->addWidget(lines_);
    audit_ = BuildAudit();
    layout->addWidget(audit_);
    audit_->hide();
}

QWidget* ReportCard::BuildAudit() {
    auto* const audit = new QWidget(this);
    auto* const layout = new QHBoxLayout(audit);
    layout->setContentsMargins(0, 4, 0, 0);
    auto* const caption = new QLabel(tr("Audit file:"), audit);
    theme::SetRole(*caption, "quiet");
    auditPath_ = new QLabel(audit);
    auditPath_->setObjectName(QStringLiteral("lblAuditPath"));
    auditPath_->setAccessibleName(tr("Path of the audit file"));
    auto* const browse = new QPushButton(tr("Bro&wse..."), audit);
    browse->setObjectName(QStringLiteral("cmdAuditBrowse"));
    browse->setAccessibleName(tr("Choose the audit file"));
    append_ = new QPushButton(tr("Append &to audit"), audit);
    append_->setObjectName(QStringLiteral("cmdAppendToAudit"));
    append_->setAccessibleName(tr("Append this case to the audit file"));
    layout->addWidget(caption);
    layout->addWidget(auditPath_, 1);
    layout->addWidget(browse);
    layout->addWidget(append_);
    connect(browse, &QPushButton::clicked, this, &ReportCard::Browse);
    connect(append_, &QPushButton::clicked, this, &ReportCard::Append);
    return audit;
}

QLabel* ReportCard::ValueLabel(const PanelLine& line) {
    auto* const value = new QLabel(ToQt(line.text), lines_);
    value->setObjectName(ObjectName(line.control));
    value->setTextFormat(Qt::PlainText); // a description may look like markup
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setWordWrap(true);
    value->setAccessibleName(ToQt(line.caption));
    return value;
}

void ReportCard::Refresh() {
    const CalculationResult& result = session_.Result();
    title_->setText(ToQt(result.title));
    setAccessibleName(ToQt(result.title));
    // Lines come and go with the calculation type; building them anew costs less than a millisecond.
    delete lines_;
    lines_ = new QWidget(this);
    auto* const grid = new QGridLayout(lines_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(3);
    const auto columns = static_cast<std::size_t>(columns_);
    const int rows = std::max(1, static_cast<int>((result.panel.size() + columns - 1) / columns));
    int place = 0;
    for (const PanelLine& line : result.panel) {
        auto* const caption = new QLabel(ToQt(line.caption), lines_);
        theme::SetRole(*caption, "quiet");
        if (line.control == "lblCondensationControlThickness") {
            caption->setObjectName(QStringLiteral("Label4"));
        }
        grid->addWidget(caption, place % rows, place / rows * 2);
        grid->addWidget(ValueLabel(line), place % rows, place / rows * 2 + 1);
        ++place;
    }
    for (int column = 0; column < columns_; ++column) {
        grid->setColumnStretch(column * 2 + 1, 1);
    }
    qobject_cast<QVBoxLayout*>(layout())->insertWidget(1, lines_);
    audit_->setVisible(result.done);
    ShowAuditPath();
}

void ReportCard::SetColumns(int columns) {
    if (columns != columns_) {
        columns_ = columns;
        Refresh();
    }
}

void ReportCard::ShowAuditPath() {
    const QString path = QString::fromStdString(session_.App().AuditPath.string());
    auditPath_->setText(path.isEmpty() ? tr("none chosen") : path);
    auditPath_->setToolTip(path);
}

void ReportCard::Browse() {
    const QString before = QString::fromStdString(session_.App().AuditPath.string());
    // A dialog that opens would not take a new name, and one that saves would ask about overwriting.
    const QString path = files::AskSave(
        this, tr("Audit file"), before.isEmpty() ? QStringLiteral("NewAudit.aud") : before,
        tr("Audit File (Tab Delimited) (*.aud)"), QStringLiteral("aud"), files::Overwrite::dontAsk);
    if (!path.isEmpty()) {
        session_.App().AuditPath = path.toStdString();
        append_->setEnabled(true);
        ShowAuditPath();
    }
}

void ReportCard::Append() {
    if (!session_.IsCurrent()) {
        session_.Calculate();
    }
    if (session_.App().AppendAudit(session_.Result())) {
        Q_EMIT Appended(
            tr("Appended to %1")
                .arg(QFileInfo(QString::fromStdString(session_.App().AuditPath.string())).fileName()));
    }
}

} // namespace kaloria
