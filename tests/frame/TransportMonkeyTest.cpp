// A hand that presses the transport bar in any order, in the real frame over the real player.
// TAQ_MONKEY_ACTIONS sets how often, for a longer run.
#include "media/player/PlayerControl.h"
#include "tests/clips/BarCode.h"
#include "tests/clips/Clips.h"
#include "tests/frame/PartsOf.h"
#include "tests/player/PictureWalk.h"
#include "tests/testing/Await.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripControl.h"

#include <QDir>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>
#include <random>

namespace {

constexpr int ActionsBetweenLooks = 20;

int ActionCount()
{
    bool isSet = false;
    const int count = qEnvironmentVariableIntValue("TAQ_MONKEY_ACTIONS", &isSet);
    return isSet ? count : 400;
}

class TransportMonkeyTest : public testing::TestWithParam<const char*>, protected FrameNeighbours {
protected:
    std::unique_ptr<Main> main =
        std::make_unique<Main>(PartsOf(*this, [](QWidget* parent) { return new PlayerControl(parent); }));
    std::mt19937 random { 20261122 };

    void SetUp() override
    {
        main->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    int Number(int below) { return int(random() % unsigned(below)); }
    QWidget* Find(const QString& name) { return main->findChild<QWidget*>(name); }
    void Open(const QString& path)
    {
        QDir::setCurrent(QFileInfo(path).path()); // as the dialog does
        dialogs.openNames.push(path);
        QTest::mouseClick(Find(QStringLiteral("Cmds(0)")), Qt::LeftButton);
        player = main->findChild<PlayerControl*>();
        ASSERT_TRUE(player && player->SourceKind() == ltmmPlay::FileSource);
    }
    void Press(const char* family, int count)
    {
        QWidget* const button = Find(QStringLiteral("%1(%2)").arg(QLatin1String(family)).arg(Number(count)));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void PressKey()
    {
        static constexpr Qt::Key Keys[] { Qt::Key_Space, Qt::Key_Comma, Qt::Key_Period, Qt::Key_Home,
            Qt::Key_End };
        QTest::keyClick(main.get(), Keys[Number(int(std::size(Keys)))]);
    }
    void ClickSlider()
    {
        QWidget* const slider = Find(QStringLiteral("trkPosition"));
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(Number(slider->width()), slider->height() / 2));
    }
    void Act()
    {
        switch (Number(8)) {
        case 0:
        case 1:
            return Press("Cmd2", 4);
        case 2:
            return Press("Cmd3", 7);
        case 3:
            return Press("speedbtn", 2);
        case 4:
            return PressKey();
        case 5:
            return ClickSlider();
        default:
            return QCoreApplication::processEvents();
        }
    }
    /// The number that the frame shows once nothing moves any more.
    int NumberOnTheLabel()
    {
        const auto shown = [this] {
            return Find(QStringLiteral("LblMsg1(2)"))->property("text").toString().section(u' ', -1).toInt();
        };
        EXPECT_TRUE(Await([&] { return shown() == player->CurrentFrame(); }, std::chrono::seconds(10)));
        return shown();
    }

    PlayerControl* player = nullptr;
};

} // namespace

TEST_P(TransportMonkeyTest, WhateverIsPressedTheLabelNamesThePictureThatIsShown)
{
    const bool isSample = QByteArray(GetParam()).startsWith("samples/");
    const QString path = isSample ? QStringLiteral(SOURCE_DIR "/resources/") + QLatin1String(GetParam())
                                  : ClipPath(QLatin1String(GetParam()));
    const auto walk = isSample ? PicturesInOrder(path) : std::vector<size_t>();
    Open(path);
    int looks = 0;
    for (int action = 1; action <= ActionCount(); ++action) {
        Act();
        if (action % ActionsBetweenLooks != 0)
            continue;
        player->Pause();
        const int named = NumberOnTheLabel();
        QImage still;
        try {
            still = player->GetStillPicture(5000);
        } catch (const ControlError&) {
            continue; // stopped: there is no picture until it moves again
        }
        ASSERT_EQ(isSample ? NumberInWalk(walk, still, named) : NumberIn(still), named)
            << "after " << action << " actions";
        ++looks;
    }
    EXPECT_GE(looks, ActionCount() / ActionsBetweenLooks / 2) << "most looks find a picture";
}

INSTANTIATE_TEST_SUITE_P(Clips, TransportMonkeyTest,
    testing::Values("samples/Aurora.avi", "samples/Sunset.mpg", "samples/Balloons.wmv", "mpeg4_bf.avi",
        "mpeg2_interlaced.mpg"),
    [](const auto& clip) {
        return QString::fromLatin1(clip.param).section(u'/', -1).section(u'.', 0, 0).toStdString();
    });
