// What a long day of captures leaves behind.
#include "app/ApplicationState.h"
#include "frame/Main.h"
#include "imaging/PictureFile.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/Clips.h"
#include "tests/testing/FakeClipboard.h"
#include "tests/testing/FakeDocuments.h"
#include "tests/testing/ScriptedTalk.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
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
    QTemporaryDir folder;
    ApplicationState state(folder.path(), folder.filePath(QStringLiteral("settings")));
    FakeClipboard clipboard;
    ScriptedDialogs dialogs;
    ScriptedErrors errors;
    FakeDocuments documents;
    Main main({ state, clipboard, dialogs, errors, documents,
        [](QWidget* parent) { return new PlayerControl(parent); } });
    state.Settings.SaveSetting(QStringLiteral("Options"), QStringLiteral("OpThumb"), QStringLiteral("2"));
    main.show();
    const QString clip = ClipPath(QStringLiteral("mpeg4_bf.avi"));
    QDir::setCurrent(QFileInfo(clip).path());
    dialogs.openNames.push(clip);
    const auto click = [&](const char* name) {
        QTest::mouseClick(main.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    };
    click("Cmds(0)");
    const auto captures = [&](int count) {
        for (int i = 0; i < count; ++i) {
            click("Cmds(8)");
            ASSERT_EQ(state.KidCount, 1);
            clipboard.log.clear();
            main.findChild<Viewer*>()->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    };
    captures(50);
    const Holdings before = Held();
    captures(1000);
    const Holdings after = Held();
    EXPECT_EQ(after.widgets, before.widgets);
    EXPECT_EQ(after.handles, before.handles);
    const qsizetype grown = after.bytes - before.bytes;
    std::printf("%lld widgets, %lld handles, %lld bytes more after a thousand captures\n", after.widgets,
        after.handles, grown);
    EXPECT_TRUE(!HasOwnAllocator || grown < 1000 * 100) << "less than a hundred bytes for each capture";
    main.close();
    QDir::setCurrent(QDir::rootPath());
}
