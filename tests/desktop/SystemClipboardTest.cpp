#include "desktop/SystemClipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

namespace {

QImage Sample(QImage::Format format = QImage::Format_BGR888)
{
    QImage image(37, 11, format);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 6, y * 20, 255 - x));
    return image;
}

class SystemClipboardTest : public testing::Test {
protected:
    void Give(const QImage& image)
    {
        ASSERT_TRUE(clipboard.Open(nullptr));
        clipboard.Empty();
        clipboard.SetDib(Dib::FromImage(image));
        clipboard.Close();
    }
    const QMimeData& Data() const { return *QGuiApplication::clipboard()->mimeData(); }

    SystemClipboard clipboard;
};

} // namespace

TEST_F(SystemClipboardTest, ACaptureComesBackPixelForPixel)
{
    Give(Sample());
    ASSERT_TRUE(clipboard.HasPicture());
    EXPECT_EQ(clipboard.Picture(), Sample());
    EXPECT_EQ(clipboard.Picture().format(), QImage::Format_BGR888);
}

TEST_F(SystemClipboardTest, AllPastesOfOneCaptureShareItsPixels)
{
    Give(Sample());
    const QImage first = clipboard.Picture(), second = clipboard.Picture();
    EXPECT_EQ(first.cacheKey(), second.cacheKey());
    EXPECT_EQ(first.constBits(), second.constBits());
}

TEST_F(SystemClipboardTest, TheLastCaptureIsPasted)
{
    Give(Sample());
    QImage black(5, 5, QImage::Format_BGR888);
    black.fill(Qt::black);
    Give(black);
    EXPECT_EQ(clipboard.Picture(), black);
}

TEST_F(SystemClipboardTest, OtherProgramsGetItAsBitmapPngAndPicture)
{
    Give(Sample());
    for (const char* type : { "image/bmp", "image/png" }) {
        ASSERT_TRUE(Data().hasFormat(type)) << type;
        const QImage got = QImage::fromData(Data().data(type));
        EXPECT_EQ(got.convertToFormat(QImage::Format_BGR888), Sample()) << type;
    }
    EXPECT_EQ(qvariant_cast<QImage>(Data().imageData()), Sample());
}

TEST_F(SystemClipboardTest, APictureOfAnotherProgramCanBePasted)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    Sample().save(&buffer, "PNG");
    auto* data = new QMimeData;
    data->setImageData(QImage::fromData(png));
    QGuiApplication::clipboard()->setMimeData(data);
    ASSERT_TRUE(clipboard.HasPicture());
    EXPECT_EQ(clipboard.Picture(), Sample());
    EXPECT_EQ(clipboard.Picture().format(), QImage::Format_BGR888);
}

TEST_F(SystemClipboardTest, TransparencyOfAnotherProgramIsKept)
{
    QImage image = Sample(QImage::Format_ARGB32_Premultiplied);
    image.setPixelColor(3, 3, Qt::transparent);
    QGuiApplication::clipboard()->setImage(image);
    EXPECT_EQ(clipboard.Picture().format(), QImage::Format_ARGB32);
    EXPECT_EQ(clipboard.Picture().pixelColor(3, 3).alpha(), 0);
}

TEST_F(SystemClipboardTest, TextIsNoPicture)
{
    Give(Sample());
    QGuiApplication::clipboard()->setText("words");
    EXPECT_FALSE(clipboard.HasPicture());
    EXPECT_TRUE(clipboard.Picture().isNull());
}

TEST_F(SystemClipboardTest, EmptyTakesTheCaptureAway)
{
    Give(Sample());
    ASSERT_TRUE(clipboard.Open(nullptr));
    clipboard.Empty();
    clipboard.Close();
    EXPECT_FALSE(clipboard.HasPicture());
}

TEST_F(SystemClipboardTest, IsRefusedWhileItIsOpen)
{
    ASSERT_TRUE(clipboard.Open(nullptr));
    EXPECT_FALSE(clipboard.Open(nullptr));
    clipboard.Close();
    EXPECT_TRUE(clipboard.Open(nullptr));
}

TEST_F(SystemClipboardTest, IsOnlyChangedWhileItIsOpen)
{
    Give(Sample());
    clipboard.Empty();
    clipboard.SetDib(Dib::FromImage(QImage(1, 1, QImage::Format_RGB32)));
    EXPECT_EQ(clipboard.Picture(), Sample());
}
