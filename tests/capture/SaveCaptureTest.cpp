#include "tests/capture/SaveFixture.h"

#include "app/Hourglass.h"

namespace {

class SaveCaptureTest : public SaveFixture {
protected:
    SaveCaptureTest() { frame_.state.AutoSave = true; }
};

TEST_F(SaveCaptureTest, AutomaticNamesGoToTheChosenFolder)
{
    frame_.state.SpecialFolder = true;
    SaveCapture(frame_);
    ExpectSaved(Chosen("auto1.bmp"));
}

TEST_F(SaveCaptureTest, AutomaticNamesGoToTheAutoSaveFolder)
{
    frame_.state.AutoDir = true;
    SaveCapture(frame_);
    ExpectSaved(AutoSave("auto1.bmp"));
}

TEST_F(SaveCaptureTest, AutomaticNamesGoToTheCurrentFolder)
{
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.bmp"));
    EXPECT_EQ(QImage(Current("auto1.bmp")).convertToFormat(QImage::Format_BGR888), Capture());
}

TEST_F(SaveCaptureTest, AGapInTheNumbersIsFilled)
{
    for (const char* name : { "auto1.bmp", "auto2.bmp", "auto4.bmp" })
        ASSERT_TRUE(MakeFile(Current(name), "mine"));
    SaveCapture(frame_);
    ExpectSaved(Current("auto3.bmp"));
    SaveCapture(frame_);
    ExpectSaved(Current("auto5.bmp"));
    EXPECT_EQ(FileBytes(Current("auto4.bmp")), "mine");
}

TEST_F(SaveCaptureTest, AFileOfLengthZeroIsOverwritten)
{
    ASSERT_TRUE(MakeFile(Current("auto1.bmp"), {}));
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.bmp"));
}

TEST_F(SaveCaptureTest, NumbersArePerExtension)
{
    SaveCapture(frame_);
    StoreExt(".jpg");
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.jpg"));
    EXPECT_EQ(
        FilesIn(current_.path()), QStringList({ QStringLiteral("auto1.bmp"), QStringLiteral("auto1.jpg") }));
}

TEST_F(SaveCaptureTest, TheFileIsOfTheFormatInForce)
{
    const struct {
        const char* ext;
        QByteArray mark;
    } formats[] = { { ".bmp", "BM" }, { ".jpg", "\xFF\xD8\xFF" }, { ".gif", "GIF8" }, { ".tif", "II*" },
        { ".png", "\x89PNG" }, { ".psd", "8BPS" } };
    for (const auto& format : formats) {
        StoreExt(format.ext);
        SaveCapture(frame_);
        EXPECT_TRUE(FileBytes(frame_.state.CurrentFile).startsWith(format.mark)) << format.ext;
    }
    StoreExt(".tga");
    SaveCapture(frame_);
    EXPECT_EQ(FileBytes(Current("auto1.tga")).at(16), 32);
}

TEST_F(SaveCaptureTest, AnExtensionWithoutARowKeepsTheFormatOfTheSaveBefore)
{
    StoreExt(".png");
    SaveCapture(frame_);
    StoreExt(".xyz");
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.xyz"));
    EXPECT_TRUE(FileBytes(Current("auto1.xyz")).startsWith("\x89PNG"));
}

TEST_F(SaveCaptureTest, AnExtensionWithoutARowIsABitmapAtFirst)
{
    StoreExt(".xyz");
    SaveCapture(frame_);
    EXPECT_TRUE(FileBytes(Current("auto1.xyz")).startsWith("BM"));
}

TEST_F(SaveCaptureTest, TheWindowStaysUnlessNoWinIsOn)
{
    SaveCapture(frame_);
    EXPECT_TRUE(IsFormOpen());
    frame_.state.NoWin = true;
    SaveCapture(frame_);
    EXPECT_FALSE(IsFormOpen());
    EXPECT_TRUE(QFileInfo::exists(Current("auto2.bmp")));
}

TEST_F(SaveCaptureTest, ThePointerIsNormalAfterwards)
{
    SaveCapture(frame_);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(SaveCaptureTest, TheActiveFormIsSavedAndNotTheWindowThatAsked)
{
    frame_.state.AutoSave = false;
    frame_.state.NoWin = true;
    QPointer<QWidget> other = new QWidget;
    other->setAttribute(Qt::WA_DeleteOnClose);
    auto* picture = new Lead(other);
    picture->SetBitmap(Capture().scaled(5, 3));
    const QImage expected = picture->Bitmap();
    other->show();
    frame_.dialogs.whileShown = [&] {
        frame_.activeForm = other;
        frame_.activeCapture = picture;
    };
    Answer(Current("shot.bmp"));
    SaveCapture(frame_);
    EXPECT_EQ(QImage(Current("shot.bmp")).convertToFormat(QImage::Format_BGR888), expected);
    EXPECT_FALSE(other && other->isVisible());
    EXPECT_TRUE(IsFormOpen());
    delete other;
}

class SaveFromVideo : public SaveCaptureTest {
protected:
    SaveFromVideo()
    {
        frame_.state.VidSave = true;
        frame_.player.frame = 9;
    }
};

TEST_F(SaveFromVideo, WritesAFreshStillAndNotTheWindowsPicture)
{
    SaveCapture(frame_);
    EXPECT_EQ(
        QImage(Current("auto1.bmp")).convertToFormat(QImage::Format_BGR888), frame_.player.StillNumber(9));
    EXPECT_EQ(frame_.player.lastTimeout, 5000);
    EXPECT_EQ(frame_.state.CurrentFile, Current("auto1.bmp"));
}

TEST_F(SaveFromVideo, SaysNothingOfASavedCapture)
{
    SaveCapture(frame_);
    EXPECT_FALSE(frame_.status.contains(StatusLabel::Operation));
    EXPECT_FALSE(frame_.statusShown[StatusLabel::AutoCapture]);
}

TEST_F(SaveFromVideo, ForcesTheBitmapExtensionForThisSaveOnly)
{
    StoreExt(".jpg");
    SaveCapture(frame_);
    EXPECT_EQ(FilesIn(current_.path()), QStringList(QStringLiteral("auto1.bmp")));
    EXPECT_EQ(frame_.state.CurrentExt, QStringLiteral(".jpg"));
    frame_.state.Reload(Key::Ext);
    EXPECT_EQ(frame_.state.CurrentExt, QStringLiteral(".jpg"));
}

TEST_F(SaveFromVideo, TheForcedExtensionCompletesATypedName)
{
    StoreExt(".jpg");
    frame_.state.AutoSave = false;
    Answer(Current("shot.jpg"));
    SaveCapture(frame_);
    EXPECT_TRUE(FileBytes(Current("shot.jpg.bmp")).startsWith("BM"));
}

TEST_F(SaveFromVideo, ClosesTheActiveFormWithNoWin)
{
    frame_.state.NoWin = true;
    SaveCapture(frame_);
    EXPECT_FALSE(IsFormOpen());
}

TEST_F(SaveFromVideo, NeedsNoCaptureWindow)
{
    frame_.activeCapture = nullptr;
    frame_.activeForm = nullptr;
    SaveCapture(frame_);
    EXPECT_TRUE(QFileInfo::exists(Current("auto1.bmp")));
}

class SaveByDialog : public SaveFixture { };

TEST_F(SaveByDialog, AsksFromTheCurrentFolder)
{
    Answer(Current("shot.bmp"));
    SaveCapture(frame_);
    EXPECT_EQ(frame_.dialogs.title, QStringLiteral("Save Video Frame to Preselected Format"));
    EXPECT_TRUE(frame_.dialogs.filter.startsWith(QStringLiteral("Graphic Files (*.bmp;")));
    EXPECT_EQ(frame_.dialogs.folder, QDir::currentPath());
    EXPECT_EQ(frame_.dialogs.owner, form_);
    ExpectSaved(Current("shot.bmp"));
}

TEST_F(SaveByDialog, AsksFromTheChosenFolderWhichBecomesTheCurrentOne)
{
    frame_.state.SpecialFolder = true;
    Answer(Chosen("shot.bmp"));
    SaveCapture(frame_);
    EXPECT_EQ(frame_.dialogs.folder, frame_.state.OldFolder);
    EXPECT_EQ(QDir::currentPath(), frame_.state.OldFolder);
    ExpectSaved(Chosen("shot.bmp"));
}

TEST_F(SaveByDialog, CancelChangesNothing)
{
    frame_.state.CurrentFile = QStringLiteral("before");
    frame_.state.NoWin = true;
    Answer({});
    SaveCapture(frame_);
    EXPECT_TRUE(frame_.status.isEmpty());
    EXPECT_TRUE(frame_.statusShown[StatusLabel::AutoCapture]);
    EXPECT_EQ(frame_.state.CurrentFile, QStringLiteral("before"));
    EXPECT_TRUE(IsFormOpen());
    EXPECT_TRUE(FilesIn(current_.path()).isEmpty());
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(SaveByDialog, ANameInCapitalsStandsAsTyped)
{
    StoreExt(".jpg");
    Answer(Current("shot.JPG"));
    SaveCapture(frame_);
    ExpectSaved(Current("shot.JPG"));
}

TEST_F(SaveByDialog, AnotherExtensionIsCompleted)
{
    StoreExt(".jpg");
    Answer(Current("shot.png"));
    SaveCapture(frame_);
    ExpectSaved(Current("shot.png.jpg"));
    EXPECT_TRUE(FileBytes(Current("shot.png.jpg")).startsWith("\xFF\xD8"));
}

TEST_F(SaveByDialog, AnExtensionStoredWhileTheDialogStandsIsTheOneLastRead)
{
    frame_.dialogs.whileShown = [this] { StoreExt(".png"); };
    Answer(Current("shot"));
    SaveCapture(frame_);
    ExpectSaved(Current("shot.bmp"));
    EXPECT_TRUE(FileBytes(Current("shot.bmp")).startsWith("\x89PNG"));
    EXPECT_EQ(frame_.state.CurrentExt, QStringLiteral(".png"));
}

TEST_F(SaveByDialog, AConfirmedNameIsReplacedWhole)
{
    ASSERT_TRUE(MakeFile(Current("shot.bmp"), QByteArray(100000, 'x')));
    Answer(Current("shot.bmp"));
    SaveCapture(frame_);
    ExpectSaved(Current("shot.bmp"));
    EXPECT_EQ(QImage(Current("shot.bmp")).size(), Capture().size());
    EXPECT_LT(QFileInfo(Current("shot.bmp")).size(), 1000);
}

TEST_F(SaveByDialog, ACompletedNameThatExistsIsAskedAbout)
{
    ASSERT_TRUE(MakeFile(Current("shot.bmp"), "mine"));
    Answer(Current("shot"));
    frame_.dialogs.replaceAnswers.push(false);
    SaveCapture(frame_);
    EXPECT_EQ(frame_.dialogs.replaced, Current("shot.bmp"));
    EXPECT_EQ(FileBytes(Current("shot.bmp")), "mine");
    EXPECT_TRUE(frame_.status.isEmpty());

    Answer(Current("shot"));
    frame_.dialogs.replaceAnswers.push(true);
    SaveCapture(frame_);
    ExpectSaved(Current("shot.bmp"));
}

TEST_F(SaveByDialog, TheQuestionIsAskedWithTheNormalPointer)
{
    Pointer seen = Pointer::Busy;
    frame_.dialogs.whileShown = [&seen] { seen = CurrentPointer(); };
    Answer({});
    SaveCapture(frame_);
    EXPECT_EQ(seen, Pointer::Normal);
}

TEST_F(SaveByDialog, AWindowThatGoesWhileTheDialogStandsIsAFailure)
{
    frame_.dialogs.whileShown = [this] { delete form_; };
    Answer(Current("shot.bmp"));
    ExpectMessage();
    SaveCapture(frame_);
    EXPECT_TRUE(FilesIn(current_.path()).isEmpty());
}

} // namespace
