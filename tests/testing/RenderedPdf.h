#pragma once

#include "tests/testing/Files.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// What one of poppler's programs makes of a PDF document's only page.
inline QImage PictureOfPdf(const QByteArray& document, const QString& program, const QStringList& arguments)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("page.pdf"));
    EXPECT_TRUE(MakeFile(file, document));
    QProcess reader;
    reader.start(program, arguments + QStringList { file, folder.filePath(QStringLiteral("page")) });
    EXPECT_TRUE(reader.waitForFinished() && reader.exitCode() == 0)
        << program.toStdString() << ": " << reader.readAllStandardError().toStdString();
    const QStringList pictures = QDir(folder.path()).entryList({ QStringLiteral("*.p?m") });
    EXPECT_EQ(pictures.size(), 1);
    return pictures.isEmpty() ? QImage() : QImage(folder.filePath(pictures.first()));
}

/// The sheet as a printer of that resolution would see it.
inline QImage RenderedPdf(const QByteArray& document, int dotsPerInch)
{
    return PictureOfPdf(
        document, QStringLiteral("pdftoppm"), { QStringLiteral("-r"), QString::number(dotsPerInch) });
}

/// The only picture that stands in the document, as it stands there.
inline QImage EmbeddedInPdf(const QByteArray& document)
{
    return PictureOfPdf(document, QStringLiteral("pdfimages"), {});
}
