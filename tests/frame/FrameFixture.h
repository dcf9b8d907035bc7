#pragma once

#include "app/ApplicationState.h"
#include "frame/Main.h"
#include "imaging/PictureFile.h"
#include "tests/testing/FakeClipboard.h"
#include "tests/testing/FakeDocuments.h"
#include "tests/testing/FakePlayer.h"
#include "tests/testing/ScriptedTalk.h"

#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

/// The real frame over faked neighbours, shown, in a folder of its own.
class FrameFixture : public testing::Test {
protected:
    QTemporaryDir folder;
    ApplicationState state { folder.path(), folder.filePath(QStringLiteral("settings")) };
    FakeClipboard clipboard;
    ScriptedDialogs dialogs;
    ScriptedErrors errors;
    FakeDocuments documents;
    QPointer<FakePlayer> player;
    bool playersFailStills = false;
    std::unique_ptr<Main> main = std::make_unique<Main>(FrameParts { state, clipboard, dialogs, errors,
        documents, [this](QWidget* parent) { return MakePlayer(parent); } });

    FakePlayer* MakePlayer(QWidget* parent)
    {
        player = new FakePlayer(parent);
        player->failsStills = playersFailStills;
        return player;
    }
    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    void SetUp() override
    {
        main->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(main.get()));
        QDir::setCurrent(folder.path());
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    template <typename Widget = QWidget> Widget* Find(const char* name)
    {
        return main->findChild<Widget*>(QLatin1String(name));
    }
    void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }
    QString Label(const char* name) { return Find<QLabel>(name)->text(); }
    bool IsEnabled(Command command) { return main->IsCommandEnabled(command); }

    void OpenOne()
    {
        dialogs.openNames.push(folder.filePath(QStringLiteral("a.avi")));
        Click("Cmds(0)");
    }
    void Store(const char* key, const char* value)
    {
        ASSERT_TRUE(
            state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(value)));
    }
};
