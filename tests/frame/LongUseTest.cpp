// What a long day of captures leaves behind.
#include "imaging/PictureFile.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/Clips.h"
#include "tests/frame/PartsOf.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <gtest/gtest.h>
#include <malloc.h>

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool HasOwnAllocator = false;
#else
constexpr bool HasOwnAllocator = true;
#endif

struct Holdings {
    qsizetype widgets;
    qsizetype handles;
    qsizetype bytes;
};

Holdings Held()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto heap = mallinfo2();
    return { QApplication::allWidgets().size(),
        QDir(QStringLiteral("/proc/self/fd"))
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size(),
        qsizetype(heap.uordblks + heap.hblkhd) };
}

} // namespace

TEST(LongUse, AThousandCapturesOpenedAndClosedLeaveMemoryAndHandlesWhereTheyWere)
{
    imaging::PictureFile::Initialise();
    FrameNeighbours neighbours;
    ApplicationState& state = neighbours.state;
    Main main(PartsOf(neighbours, [](QWidget* parent) { return new PlayerControl(parent); }));
    state.Settings.SaveSetting(QStringLiteral("Options"), QStringLiteral("OpThumb"), QStringLiteral("2"));
    main.show();
    const QString clip = ClipPath(QStringLiteral("mpeg4_bf.avi"));
    QDir::setCurrent(QFileInfo(clip).path());
    neighbours.dialogs.openNames.push(clip);
    const auto click = [&](const char* name) {
        QTest::mouseClick(main.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    };
    click("Cmds(0)");
    const auto captures = [&](int count) {
        for (int i = 0; i < count; ++i) {
            click("Cmds(8)");
            ASSERT_EQ(state.KidCount, 1);
            neighbours.clipboard.log.clear();
            main.findChild<Viewer*>()->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    };
    captures(50);
    const Holdings before = Held();
    captures(1000);
    const Holdings after = Held();
    RecordProperty("BytesMoreAfterAThousandCaptures", std::to_string(after.bytes - before.bytes));
    RecordProperty("Handles", std::to_string(after.handles));
    RecordProperty("Widgets", std::to_string(after.widgets));
    EXPECT_EQ(after.widgets, before.widgets);
    EXPECT_EQ(after.handles, before.handles);
    if (HasOwnAllocator) {
        EXPECT_LT(after.bytes - before.bytes, 1000 * 100) << "less than a hundred bytes for each capture";
    }
    main.close();
    QDir::setCurrent(QDir::rootPath());
}
