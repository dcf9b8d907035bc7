#include "capture/AutoName.h"

#include "app/ControlError.h"
#include "capture/SavePicture.h"
#include "tests/testing/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <thread>

namespace {

class AutoNameTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    AutoName names_ { folder_.path(), QStringLiteral(".bmp") };

    QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
};

TEST_F(AutoNameTest, TheFirstNameIsOne)
{
    EXPECT_EQ(names_.NextFree(), 1);
    EXPECT_EQ(names_.At(1), Path("auto1.bmp"));
}

TEST_F(AutoNameTest, AGapIsFilled)
{
    for (const char* name : { "auto1.bmp", "auto2.bmp", "auto4.bmp" })
        ASSERT_TRUE(MakeFile(Path(name), "x"));
    EXPECT_EQ(names_.NextFree(), 3);
    EXPECT_EQ(names_.NextFree(3), 5);
}

TEST_F(AutoNameTest, AFileOfLengthZeroIsFree)
{
    ASSERT_TRUE(MakeFile(Path("auto1.bmp"), {}));
    EXPECT_EQ(names_.NextFree(), 1);
}

TEST_F(AutoNameTest, FoldersAndLinksAreNotFree)
{
    ASSERT_TRUE(QDir().mkdir(Path("auto1.bmp")));
    ASSERT_TRUE(QFile::link(Path("nowhere"), Path("auto2.bmp")));
    EXPECT_EQ(names_.NextFree(), 3);
}

TEST_F(AutoNameTest, NumbersArePerExtensionAndStem)
{
    ASSERT_TRUE(MakeFile(Path("auto1.bmp"), "x"));
    EXPECT_EQ(AutoName(folder_.path(), QStringLiteral(".jpg")).NextFree(), 1);
    EXPECT_EQ(AutoName(folder_.path(), QStringLiteral(".bmp"), QStringLiteral("AutoThumb")).NextFree(), 1);
}

TEST_F(AutoNameTest, NumbersGoOnBeyondSixteenBits)
{
    ASSERT_TRUE(MakeFile(Path("auto32768.bmp"), "x"));
    EXPECT_EQ(names_.NextFree(32767), 32769);
    EXPECT_EQ(names_.At(100000), Path("auto100000.bmp"));
}

TEST_F(AutoNameTest, ANameLikeANumberedOneFoolsNobody)
{
    ASSERT_TRUE(MakeFile(Path("auto0001.bmp"), "x"));
    EXPECT_EQ(names_.NextFree(), 1);
}

TEST_F(AutoNameTest, ABlankFolderIsRefused)
{
    EXPECT_THROW(AutoName(QStringLiteral(" "), QStringLiteral(".bmp")), ControlError);
}

TEST_F(AutoNameTest, ANameTakenMeanwhileIsPassedOver)
{
    QStringList tried;
    const int number = names_.Write([&](const QString& path) {
        tried << path;
        return tried.size() == 3;
    });
    EXPECT_EQ(number, 3);
    EXPECT_EQ(tried, QStringList({ Path("auto1.bmp"), Path("auto2.bmp"), Path("auto3.bmp") }));
}

TEST_F(AutoNameTest, TwoWritersAtOnceBothKeepCompleteSets)
{
    const auto write = [this](int red) {
        QImage picture(8, 8, QImage::Format_BGR888);
        picture.fill(QColor(red, 0, 0));
        for (int i = 0; i < 100; ++i)
            names_.Write([&](const QString& path) { return SaveNewPicture(picture, path); });
    };
    std::thread other(write, 50);
    write(200);
    other.join();
    int fromOther = 0;
    for (int number = 1; number <= 200; ++number)
        fromOther += QImage(names_.At(number)).pixelColor(0, 0).red() == 50;
    EXPECT_EQ(fromOther, 100);
    EXPECT_EQ(FilesIn(folder_.path()).size(), 200);
}

} // namespace
