// Pictures that a user opens: any of them ends in a picture or in words.
#include "app/OpenUserPicture.h"

#include "imaging/FormatTable.h"
#include "imaging/PictureFile.h"
#include "tests/testing/Files.h"
#include "tests/testing/ReasonOf.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class OpenUserPictureTest : public testing::Test {
protected:
    QTemporaryDir folder_;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    QString Path(const char* name) const { return folder_.filePath(QLatin1String(name)); }
    QString Refusal(const char* name) const
    {
        return ReasonOf([&] { OpenUserPicture(Path(name), [] {}); });
    }
};

} // namespace

TEST_F(OpenUserPictureTest, APictureComesAtItsOwnDepthWhateverItsName)
{
    QImage picture(13, 7, QImage::Format_BGR888);
    picture.fill(QColor(10, 200, 30));
    ASSERT_TRUE(
        MakeFile(Path("%s|msl:x.txt"), imaging::PictureFile::Encode(picture, imaging::Png, 24, 0).Joined()));
    EXPECT_EQ(OpenUserPicture(Path("%s|msl:x.txt"), [] {}), picture);
}

TEST_F(OpenUserPictureTest, WhatIsNoPictureIsRefusedInWords)
{
    ASSERT_TRUE(MakeFile(Path("drawing.png"), "<svg xmlns='http://www.w3.org/2000/svg'/> and some more"));
    ASSERT_TRUE(MakeFile(Path("empty.png"), ""));
    EXPECT_EQ(Refusal("drawing.png"), "The file is not a picture of a known kind.");
    EXPECT_TRUE(Refusal("empty.png").contains(QStringLiteral("the file is empty.")));
    EXPECT_TRUE(Refusal("gone.png").contains(Path("gone.png")));
    EXPECT_FALSE(Refusal(".").isEmpty());
}

TEST_F(OpenUserPictureTest, APipeIsRefusedAtOnce)
{
    ASSERT_EQ(::mkfifo(qPrintable(Path("pipe.png")), 0600), 0);
    EXPECT_TRUE(Refusal("pipe.png").contains(QStringLiteral("it is not an ordinary file.")));
}
