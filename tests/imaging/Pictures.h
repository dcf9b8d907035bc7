#pragma once

#include "imaging/FormatTable.h"
#include "imaging/PictureFile.h"
#include <QImage>
#include <QStringList>
#include <gtest/gtest.h>
#include <random>
#include <vector>

/// Pictures that captures are made of, and a reader and writer of files that is not ours.
namespace Pictures {

/// Soft light, edges and noise, the same at every call.
QImage Photo(QSize size, QImage::Format format = QImage::Format_BGR888);
QImage Plain(QSize size, QColor colour);
QImage TwoColours(QSize size);
QImage GreyRamp(QSize size);

/// Peak signal to noise ratio in decibels over red, green and blue; 1000 for the same pixels.
double Likeness(const QImage& one, const QImage& other);

/// The pixels of picture files of one kind as the ffmpeg program reads them, as Format_RGB888.
std::vector<QImage> ReadElsewhere(const std::vector<QByteArray>& files, const QString& extension);
/// A picture file as the ffmpeg program writes it, with these arguments in front of its name.
QByteArray WriteElsewhere(const QImage& picture, const QString& extension, const QStringList& arguments);
/// A file in which this many bits were turned over, all within its first bytes.
QByteArray Damaged(QByteArray file, unsigned reach, int flips, std::mt19937& random);
} // namespace Pictures

/// The picture as a file of a row of imaging::FormatTable.
QByteArray Encode(const QImage& picture, const imaging::FormatRow& row);

/// A test of files: the coders are ready.
class PictureFileTest : public testing::Test {
protected:
    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
};
