#include "capture/SaveTarget.h"

#include <gtest/gtest.h>

namespace {

using Naming = SaveTarget::Naming;
using Folder = SaveTarget::Folder;

TEST(SaveTarget, TheChosenFolderWinsOverTheOthers)
{
    for (const bool autoDir : { false, true }) {
        EXPECT_EQ(TargetOf(true, true, autoDir), (SaveTarget { Naming::Automatic, Folder::Chosen }));
        EXPECT_EQ(TargetOf(true, false, autoDir), (SaveTarget { Naming::Asked, Folder::Chosen }));
    }
}

TEST(SaveTarget, AutomaticNamesGoToTheFolderThatAutoDirNames)
{
    EXPECT_EQ(TargetOf(false, true, true), (SaveTarget { Naming::Automatic, Folder::AutoSave }));
    EXPECT_EQ(TargetOf(false, true, false), (SaveTarget { Naming::Automatic, Folder::Current }));
}

TEST(SaveTarget, WithoutAutoSaveTheUserIsAskedFromTheCurrentFolder)
{
    for (const bool autoDir : { false, true })
        EXPECT_EQ(TargetOf(false, false, autoDir), (SaveTarget { Naming::Asked, Folder::Current }));
}

TEST(WithExtension, AnExtensionInAnyCaseStandsAsTyped)
{
    EXPECT_EQ(WithExtension(QStringLiteral("shot.JPG"), QStringLiteral(".jpg")), QStringLiteral("shot.JPG"));
}

TEST(WithExtension, AnotherExtensionIsKeptBeforeIt)
{
    EXPECT_EQ(
        WithExtension(QStringLiteral("shot.png"), QStringLiteral(".jpg")), QStringLiteral("shot.png.jpg"));
    EXPECT_EQ(WithExtension(QStringLiteral("s"), QStringLiteral(".jpg")), QStringLiteral("s.jpg"));
}

TEST(SaveFilter, NamesAllFormatsTogetherThenEach)
{
    EXPECT_EQ(SaveFilter(),
        QStringLiteral("Graphic Files (*.bmp;*.jpg;*.tga;*.gif;*.tif;*.png;*.psd)|"
                       "*.bmp;*.jpg;*.tga;*.gif;*.tif;*.png;*.psd|"
                       "BMP Files (*.bmp)|*.bmp|JPEG Files (*.jpg)|*.jpg|TGA Files (*.tga)|*.tga|"
                       "GIF Files (*.gif)|*.gif|TIF Files (*.tif)|*.tif|PNG Files (*.png)|*.png|"
                       "PSD Files (*.psd)|*.psd"));
}

} // namespace
