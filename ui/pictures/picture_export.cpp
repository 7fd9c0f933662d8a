// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/picture_export.h"

#include "data/atomic_file.h"
#include "ui/file_dialogs.h"
#include "ui/theme.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QImage>
#include <QMenu>
#include <QMessageBox>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgGenerator>

namespace kaloria::picture {

namespace {

constexpr int pictureScale = 2;

/// The dots that the sizes of fonts were laid out for: with others, words would not fit into their places.
int LayoutDotsPerInch() { return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch()); }

QImage ImageOf(const Drawing& drawing) {
    QImage image(drawing.size * pictureScale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pictureScale);
    image.fill(theme::Current().panel);
    drawing.draw(image);
    return image;
}

void WriteSvg(const Drawing& drawing, QBuffer& buffer) {
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(LayoutDotsPerInch());
    generator.setSize(drawing.size);
    generator.setViewBox(QRect({0, 0}, drawing.size));
    generator.setTitle(drawing.name);
    drawing.draw(generator);
}

void WritePdf(const Drawing& drawing, QBuffer& buffer) {
    const int dots = LayoutDotsPerInch();
    QPdfWriter writer(&buffer);
    writer.setTitle(drawing.name);
    writer.setResolution(dots);
    writer.setPageSize(
        QPageSize(QSizeF(drawing.size) / dots, QPageSize::Inch, drawing.name, QPageSize::ExactMatch));
    writer.setPageMargins({});
    drawing.draw(writer);
}

} // namespace

void Copy(const Drawing& drawing) { QApplication::clipboard()->setImage(ImageOf(drawing)); }

QString Save(const Drawing& drawing, const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (suffix == QStringLiteral("png")) {
        ImageOf(drawing).save(&buffer, "PNG");
    } else if (suffix == QStringLiteral("svg")) {
        WriteSvg(drawing, buffer);
    } else if (suffix == QStringLiteral("pdf")) {
        WritePdf(drawing, buffer);
    } else {
        return QObject::tr("A picture can be saved as PNG, SVG or PDF.");
    }
    try {
        ReplaceFile(files::FromQt(path), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (const FileError& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

namespace {

void AskAndSave(QWidget& owner, const Drawing& drawing) {
    QString name = drawing.name;
    for (const QChar reserved : QStringLiteral("/\\:")) {
        name.replace(reserved, u'-');
    }
    const QString path = files::AskSave(
        &owner, QObject::tr("Save picture"), name + QStringLiteral(".png"),
        QObject::tr("PNG picture (*.png);;SVG drawing (*.svg);;PDF document (*.pdf)"), QStringLiteral("png"));
    if (path.isEmpty()) {
        return;
    }
    const QString problem = Save(drawing, path);
    if (!problem.isEmpty()) {
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                        QObject::tr("The picture could not be saved."), QMessageBox::Ok, &owner);
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(problem);
        box.exec();
    }
}

} // namespace

void AddActions(QMenu& menu, QWidget& owner, const std::function<Drawing()>& drawing) {
    menu.addAction(QObject::tr("&Copy picture"), &owner, [drawing] { Copy(drawing()); });
    menu.addAction(QObject::tr("&Save picture..."), &owner,
                   [&owner, drawing] { AskAndSave(owner, drawing()); });
}

} // namespace kaloria::picture
