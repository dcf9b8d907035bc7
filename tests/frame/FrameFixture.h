#pragma once

#include "imaging/PictureFile.h"
#include "tests/frame/PartsOf.h"
#include "tests/testing/FakePlayer.h"
#include "toolkit/ChildForm.h"

#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

/// The real frame over faked neighbours, shown, in a folder of its own.
class FrameFixture : public testing::Test, protected FrameNeighbours {
protected:
    QPointer<FakePlayer> player;
    bool playersFailStills = false;
    std::unique_ptr<Main> main =
        std::make_unique<Main>(PartsOf(*this, [this](QWidget* parent) { return MakePlayer(parent); }));

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
    void ClickOn(const char* form, const char* button)
    {
        QTest::mouseClick(Find(form)->findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
    ChildForm& Form(const char* name) { return *Find<ChildForm>(name); }
    void ChooseInPopup(int item)
    {
        Click("Image3");
        Find<QMenu>("Menus")->actions().at(item)->trigger();
    }
    static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
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
