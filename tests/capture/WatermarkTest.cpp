#include "capture/ApplyWatermarkToFile.h"
#include "imaging/FormatTable.h"
#include "tests/capture/SaveFixture.h"

#include "app/Hourglass.h"
#include "tests/testing/RunningDialog.h"
#include "tests/testing/SmallDisk.h"
#include "text/GetFonts.h"
#include "text/frmWatermark.h"
#include "toolkit/TAQbutton.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QTest>

#include <thread>

namespace {

QImage Plain()
{
    QImage picture(160, 90, QImage::Format_BGR888);
    picture.fill(QColor(20, 30, 60));
    return picture;
}

int TextPixels(const QImage& picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += pixel.red() > 180 && pixel.green() > 180 && pixel.blue() < 100;
        }
    return count;
}

/// Letters as large as the picture, in a colour of their own.
class WatermarkTest : public SaveFixture {
protected:
    WatermarkTest()
    {
        ApplicationState& state = frame_.state;
        state.AutoSave = true;
        state.UseWatermark = true;
        state.WatermarkBATCH = true;
        state.SFontName = QStringLiteral("DejaVu Sans");
        state.SFontSize = 40;
        state.sFontColor = 0x00FFFF;
        state.sFontText = QStringLiteral("III");
        state.PositionX = 4;
        state.PositionY = 4;
        lead_->SetBitmap(Plain());
    }

    /// What stands in a file, by our own reader of all seven formats.
    QImage Written(const QString& path)
    {
        Lead reader;
        reader.Load(path, 0, 0, 1);
        return reader.Bitmap();
    }
    void TypeWhenAsked(const QString& text)
    {
        WhenOpen<frmWatermark>([text](frmWatermark& asked) {
            asked.findChild<QLineEdit*>()->setText(text);
            QTest::mouseClick(asked.findChild<TAQbutton*>(), Qt::LeftButton);
        });
    }
};

TEST_F(WatermarkTest, ASavedCaptureBearsTheText)
{
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.bmp"));
    EXPECT_GT(TextPixels(Written(Current("auto1.bmp"))), 300);
    EXPECT_EQ(TextPixels(lead_->Bitmap()), TextPixels(Written(Current("auto1.bmp"))));
}

TEST_F(WatermarkTest, WithoutTheMasterSwitchItDoesNotAndNobodyIsAsked)
{
    frame_.state.UseWatermark = false;
    frame_.state.WatermarkBATCH = false;
    SaveCapture(frame_);
    EXPECT_EQ(Written(Current("auto1.bmp")), Plain());
}

TEST_F(WatermarkTest, UnlessEveryCaptureGetsTheSameTheWordsAreAskedForFirst)
{
    frame_.state.WatermarkBATCH = false;
    frame_.state.sFontText = QStringLiteral(".");
    TypeWhenAsked(QStringLiteral("IIIII"));
    SaveCapture(frame_);
    EXPECT_EQ(frame_.state.sFontText, QStringLiteral("IIIII"));
    EXPECT_GT(TextPixels(Written(Current("auto1.bmp"))), 300);
    ExpectSaved(Current("auto1.bmp"));
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(WatermarkTest, BlankWordsSaveWithTheEarlierText)
{
    frame_.state.WatermarkBATCH = false;
    TypeWhenAsked({});
    SaveCapture(frame_);
    EXPECT_EQ(frame_.state.sFontText, QStringLiteral("III"));
    EXPECT_GT(TextPixels(Written(Current("auto1.bmp"))), 300);
}

TEST_F(WatermarkTest, AClosedQuestionSavesWithTheEarlierText)
{
    frame_.state.WatermarkBATCH = false;
    WhenOpen<frmWatermark>([](frmWatermark& asked) { asked.reject(); });
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.bmp"));
    EXPECT_GT(TextPixels(Written(Current("auto1.bmp"))), 300);
}

TEST_F(WatermarkTest, TheNameIsAskedForBeforeTheWords)
{
    frame_.state.AutoSave = false;
    frame_.state.WatermarkBATCH = false;
    QStringList order;
    frame_.dialogs.whileShown = [&order] { order << QStringLiteral("name"); };
    Answer(Current("shot.bmp"));
    WhenOpen<frmWatermark>([&order](frmWatermark& asked) {
        order << QStringLiteral("words");
        asked.reject();
    });
    SaveCapture(frame_);
    EXPECT_EQ(order, QStringList({ QStringLiteral("name"), QStringLiteral("words") }));
}

TEST_F(WatermarkTest, ACancelledNameAsksForNoWordsAndLeavesTheCapture)
{
    frame_.state.AutoSave = false;
    frame_.state.WatermarkBATCH = false;
    Answer({});
    SaveCapture(frame_);
    EXPECT_EQ(lead_->Bitmap(), Plain());
}

TEST_F(WatermarkTest, ThePictureOfTheVideoGetsNoText)
{
    frame_.state.VidSave = true;
    frame_.state.WatermarkBATCH = false;
    frame_.player.size = Plain().size();
    SaveCapture(frame_);
    EXPECT_EQ(TextPixels(Written(Current("auto1.bmp"))), 0);
    EXPECT_EQ(lead_->Bitmap(), Plain());
}

TEST_F(WatermarkTest, TheImmediateSaveGetsNoText)
{
    frame_.player.size = Plain().size();
    ImmediateSave(frame_);
    EXPECT_EQ(TextPixels(Written(AutoSave("auto1.bmp"))), 0);
}

TEST_F(WatermarkTest, ASecondSaveDrawsTheTextOnceMore)
{
    SaveCapture(frame_);
    frame_.state.PositionY = 40;
    const int once = TextPixels(lead_->Bitmap());
    SaveCapture(frame_);
    EXPECT_GT(TextPixels(lead_->Bitmap()), once);
}

TEST_F(WatermarkTest, ASaveThatFailsTakesTheTextOffTheCaptureAgain)
{
    frame_.state.SpecialFolder = true;
    frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("gone"));
    ExpectMessage();
    SaveCapture(frame_);
    EXPECT_EQ(lead_->Bitmap(), Plain());
}

TEST_F(WatermarkTest, ACaptureThatClosesWhileTheWordsAreAskedForIsAFailure)
{
    frame_.state.WatermarkBATCH = false;
    WhenOpen<frmWatermark>([this](frmWatermark& asked) {
        delete form_;
        asked.reject();
    });
    ExpectMessage();
    SaveCapture(frame_);
    EXPECT_TRUE(FilesIn(current_.path()).isEmpty());
}

TEST_F(WatermarkTest, ATextBesideThePictureIsNotSeenAndTheSaveGoesOn)
{
    frame_.state.PositionX = 1000;
    SaveCapture(frame_);
    ExpectSaved(Current("auto1.bmp"));
    EXPECT_EQ(Written(Current("auto1.bmp")), Plain());
}

class FileWatermarkTest : public WatermarkTest {
protected:
    /// A file as an automatic capture leaves it: a bitmap under whatever extension.
    static void MakeCapture(const QString& path)
    {
        Lead lead;
        lead.SetBitmap(Plain());
        lead.Save(path, imaging::Bmp, 24, 0, false);
    }
    /// As the user does in the dialog of fonts.
    void SaveFontOfStyle(const QString& style)
    {
        GetFonts form(
            frame_, &frame_.window, [](QWidget*, const QString&, const QColor&) { return QColor(); });
        auto* styles = form.findChild<QListWidget*>(QStringLiteral("List2"));
        styles->setCurrentItem(styles->findItems(style, Qt::MatchExactly).value(0));
        form.show();
        QTest::mouseClick(form.findChild<TAQbutton*>(QStringLiteral("CmdOK")), Qt::LeftButton);
    }
    void Apply(const QString& path) { ApplyWatermarkToFile(path, TextForFiles(frame_.state, path).value()); }
};

TEST_F(FileWatermarkTest, TheFileIsRewrittenInTheTrueFormatOfItsExtension)
{
    const struct {
        const char* ext;
        QByteArray mark;
    } formats[] = { { ".bmp", "BM" }, { ".jpg", "\xFF\xD8\xFF" }, { ".gif", "GIF8" }, { ".tif", "II*" },
        { ".png", "\x89PNG" }, { ".psd", "8BPS" }, { ".tga", QByteArray(2, '\0') + '\2' } };
    for (const auto& format : formats) {
        StoreExt(format.ext);
        const QString path = Current((QByteArray("auto1") + format.ext).constData());
        MakeCapture(path);
        Apply(path);
        EXPECT_TRUE(FileBytes(path).startsWith(format.mark)) << format.ext;
        EXPECT_GT(TextPixels(Written(path)), 300) << format.ext;
    }
}

TEST_F(FileWatermarkTest, TheFileGetsTheTextThatACaptureWouldGet)
{
    MakeCapture(Current("auto1.bmp"));
    Apply(Current("auto1.bmp"));
    SaveCapture(frame_);
    EXPECT_EQ(Written(Current("auto1.bmp")), Written(Current("auto2.bmp")));
}

TEST_F(FileWatermarkTest, ABoldFontThatWasChosenAndStoredIsNotPrinted)
{
    QMap<QString, QByteArrayList> files;
    for (const QString& style : { QStringLiteral("Regular"), QStringLiteral("Bold") }) {
        SaveFontOfStyle(style);
        lead_->SetBitmap(Plain());
        SaveCapture(frame_);
        const QString ofRun = Current("run.bmp");
        MakeCapture(ofRun);
        Apply(ofRun);
        files[style] = { FileBytes(frame_.state.CurrentFile), FileBytes(ofRun) };
    }
    EXPECT_TRUE(frame_.state.SFontBold);
    EXPECT_EQ(files.value(QStringLiteral("Bold")), files.value(QStringLiteral("Regular")));
}

TEST_F(FileWatermarkTest, AnotherThreadDrawsTheSameText)
{
    MakeCapture(Current("auto1.bmp"));
    MakeCapture(Current("auto2.bmp"));
    Apply(Current("auto1.bmp"));
    const FileText text = TextForFiles(frame_.state, QStringLiteral(".bmp")).value();
    std::thread([&] { ApplyWatermarkToFile(Current("auto2.bmp"), text); }).join();
    EXPECT_EQ(FileBytes(Current("auto2.bmp")), FileBytes(Current("auto1.bmp")));
}

TEST_F(FileWatermarkTest, ARunThatNamesItsFilesItselfKeepsTheirFormat)
{
    StoreExt(".jpg");
    frame_.state.CurrentExt = QStringLiteral(".bmp");
    MakeCapture(Current("auto1.bmp"));
    Apply(Current("auto1.bmp"));
    EXPECT_TRUE(FileBytes(Current("auto1.bmp")).startsWith("BM"));
    EXPECT_EQ(frame_.state.CurrentExt, QStringLiteral(".bmp"));
}

TEST_F(FileWatermarkTest, AnExtensionOfNoFormatIsWrittenInTheOneInForce)
{
    StoreExt(".png");
    MakeCapture(Current("auto1.xyz"));
    Apply(Current("auto1.xyz"));
    EXPECT_TRUE(FileBytes(Current("auto1.xyz")).startsWith("\x89PNG"));
}

TEST_F(FileWatermarkTest, WithoutTheMasterSwitchThereIsNoTextForFiles)
{
    frame_.state.UseWatermark = false;
    EXPECT_FALSE(TextForFiles(frame_.state, QStringLiteral(".bmp")).has_value());
}

TEST_F(FileWatermarkTest, NobodyIsAskedForWords)
{
    frame_.state.WatermarkBATCH = false;
    MakeCapture(Current("auto1.bmp"));
    Apply(Current("auto1.bmp"));
    EXPECT_GT(TextPixels(Written(Current("auto1.bmp"))), 300);
}

TEST_F(FileWatermarkTest, AFileThatCannotBeReadIsAFailureAndStaysAsItWas)
{
    for (const QByteArray& content : { QByteArray("no picture"), QByteArray() }) {
        ASSERT_TRUE(MakeFile(Current("auto1.bmp"), content));
        EXPECT_THROW(Apply(Current("auto1.bmp")), ControlError);
        EXPECT_EQ(FileBytes(Current("auto1.bmp")), content);
    }
    EXPECT_THROW(Apply(Current("gone.bmp")), ControlError);
    EXPECT_FALSE(QFileInfo::exists(Current("gone.bmp")));
}

TEST_F(FileWatermarkTest, AFullDiskLeavesTheFileAsItWasAndNothingBesideIt)
{
    const SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "no disk of its own may be mounted here";
    const QString path = disk.Path() + QStringLiteral("/auto1.bmp");
    MakeCapture(path);
    const QByteArray before = FileBytes(path);
    EXPECT_THROW(Apply(path), ControlError);
    EXPECT_EQ(FileBytes(path), before);
    EXPECT_EQ(FilesIn(disk.Path()).size(), 1);
}

} // namespace
