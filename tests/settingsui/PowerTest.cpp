#include "settingsui/Power.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/Files.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/xpcheckbox.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Boxes 0 to 5 and 7, with key and run-time copy.
const struct {
    int index;
    const char* label;
    const char* key;
    bool ApplicationState::*copy;
} Rows[] = {
    { 0, "Timed", "AutoCapture", &ApplicationState::AutoCapture },
    { 1, "Watermark", "UseWatermark", &ApplicationState::UseWatermark },
    { 2, "Shadow", "UseShadows", &ApplicationState::UseShadows },
    { 3, "Bold", "SFontBold", &ApplicationState::SFontBold },
    { 4, "Manual", "WatermarkBATCH", &ApplicationState::WatermarkBATCH },
    { 5, "Wordwrap", "WordWrap", &ApplicationState::WordWrap },
    { 7, "Video List", "OpenVidList", &ApplicationState::OpenVidList },
};

class PowerTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    std::unique_ptr<Power> form;

    void SetUp() override { Begin(); }
    void Begin()
    {
        form = std::make_unique<Power>(frame);
        form->setAttribute(Qt::WA_DeleteOnClose, false);
        form->Open();
    }
    void Store(const char* key, const char* text)
    {
        ASSERT_TRUE(
            state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(text)));
    }
    template <typename Widget = QWidget> Widget* Find(const QString& name) { return form->findChild<Widget*>(name); }
    xpcheckbox& Box(int index) { return *Find<xpcheckbox>(QStringLiteral("Control(%1)").arg(index)); }
    bool IsSet(int index) { return Box(index).Value() == xpcheckbox::Set; }
    void Click(int index) { QTest::mouseClick(&Box(index), Qt::LeftButton); }
    void Click(const char* name) { QTest::mouseClick(Find(QLatin1String(name)), Qt::LeftButton); }
};

} // namespace

TEST_F(PowerTest, TheBoxesBearTheirLabels)
{
    for (const auto& row : Rows)
        EXPECT_EQ(Box(row.index).Caption(), QLatin1String(row.label));
    EXPECT_EQ(Box(6).Caption(), QStringLiteral("Thumbnail"));
    EXPECT_NE(Find(QStringLiteral("LblTitle")), nullptr);
}

TEST_F(PowerTest, WithNothingStoredTheDefaultsShow)
{
    for (const int index : { 0, 1, 2, 3, 4, 5 })
        EXPECT_FALSE(IsSet(index)) << index;
    EXPECT_TRUE(IsSet(6));
    EXPECT_TRUE(IsSet(7));
}

TEST_F(PowerTest, EveryBoxShowsItsKeyAndTheCopyTakesIt)
{
    for (const auto& row : Rows) {
        for (const bool isSet : { true, false }) {
            Store(row.key, isSet ? "True" : "False");
            state.*row.copy = !isSet;
            Begin();
            EXPECT_EQ(IsSet(row.index), isSet) << row.key;
            EXPECT_EQ(state.*row.copy, isSet) << row.key;
        }
    }
}

TEST_F(PowerTest, ThumbnailIsSetWhenCapturesGoToTheThumbnails)
{
    const struct {
        const char* text;
        bool isSet;
    } rows[] = { { "0", true }, { "1", true }, { "2", false } };
    for (const auto& row : rows) {
        Store("OpThumb", row.text);
        Begin();
        EXPECT_EQ(IsSet(6), row.isSet) << row.text;
    }
}

TEST_F(PowerTest, ACopyTakesWhatTheBoxHadBeforeTheClick)
{
    for (const auto& row : Rows) {
        const bool before = IsSet(row.index);
        state.*row.copy = !before;
        Click(row.index);
        EXPECT_EQ(state.*row.copy, before) << row.label;
        EXPECT_EQ(IsSet(row.index), !before) << row.label;
    }
}

TEST_F(PowerTest, TwoClicksBringTheCopyToWhatTheBoxHadAfterTheFirst)
{
    for (const auto& row : Rows) {
        Click(row.index);
        const bool afterTheFirst = IsSet(row.index);
        Click(row.index);
        EXPECT_EQ(state.*row.copy, afterTheFirst) << row.label;
    }
}

TEST_F(PowerTest, ThumbnailGoesFromTheStripToTheWindowAloneAndToBoth)
{
    ASSERT_EQ(state.OpThumb, 0);
    Click(6);
    EXPECT_EQ(state.OpThumb, 2);
    EXPECT_FALSE(IsSet(6));
    Click(6);
    EXPECT_EQ(state.OpThumb, 1);
    EXPECT_TRUE(IsSet(6));
}

TEST_F(PowerTest, NothingIsStored)
{
    for (int index = 0; index < 8; ++index)
        Click(index);
    Click("Cmds(0)");
    EXPECT_EQ(FileBytes(state.Settings.FilePath()), "no file");
}

TEST_F(PowerTest, RestoreBringsBackWhatTheStoreHas)
{
    Store("UseWatermark", "True");
    Begin();
    for (int index = 0; index < 8; ++index) {
        Click(index);
        Click(index);
        Click(index);
    }
    Click("smallXPbuttons1");
    EXPECT_TRUE(state.UseWatermark);
    EXPECT_FALSE(state.AutoCapture);
    EXPECT_EQ(state.OpThumb, 0);
    EXPECT_TRUE(state.OpenVidList);
    EXPECT_TRUE(IsSet(1));
    EXPECT_FALSE(IsSet(0));
    EXPECT_TRUE(IsSet(6));
    EXPECT_TRUE(IsSet(7));
}

TEST_F(PowerTest, ItsTipsComeFromTheTagsUnlessTipsAreOff)
{
    EXPECT_EQ(Find(QStringLiteral("smallXPbuttons1"))->toolTip(), QStringLiteral("Restore"));
    state.ToolTip = false;
    Begin();
    for (QWidget* const control : form->findChildren<QWidget*>())
        EXPECT_EQ(control->toolTip(), QString());
}

TEST_F(PowerTest, TheCloseButtonUnloadsIt)
{
    form->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<Power> panel = form.release();
    QTest::mouseClick(panel->findChild<QWidget*>(QStringLiteral("Cmds(0)")), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(panel.isNull());
}

TEST_F(PowerTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*form), "");
}
