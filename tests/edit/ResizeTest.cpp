#include "edit/Resize.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeCapture.h"
#include "toolkit/xpcheckbox.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <gtest/gtest.h>

namespace {

class ResizeTest : public testing::Test {
protected:
    FakeFrame frame;
    std::unique_ptr<Resize> form;

    void SetUp() override
    {
        frame.state.FadeOuts = false;
        Open({ 640, 480 });
    }
    void Open(QSize size)
    {
        form = std::make_unique<Resize>(frame, nullptr, size);
        form->show();
    }
    template <typename Widget> Widget* Find(const char* name)
    {
        return form->findChild<Widget*>(QLatin1String(name));
    }
    QLineEdit& Box(const char* name) { return *Find<QLineEdit>(name); }
    QSlider& Bar(const char* name) { return *Find<QSlider>(name); }
    void Type(const char* name, const char* text)
    {
        Box(name).selectAll();
        QTest::keyClick(&Box(name), Qt::Key_Delete);
        QTest::keyClicks(&Box(name), QLatin1String(text));
    }
    /// The text to the left of a box.
    static QString LabelBefore(const QLineEdit& box)
    {
        const QPoint before(0, box.geometry().center().y());
        const auto* label = qobject_cast<QLabel*>(box.parentWidget()->childAt(before));
        return label ? label->text() : QString();
    }
    void Click(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }
};

} // namespace

TEST_F(ResizeTest, OpensWithThePicturesSizeTheRatioOnAndResamplingOff)
{
    EXPECT_EQ(Box("Value1Box").text(), QStringLiteral("640"));
    EXPECT_EQ(Box("Value2Box").text(), QStringLiteral("480"));
    EXPECT_EQ(Bar("Value1Bar").value(), 640);
    EXPECT_EQ(Bar("Value2Bar").maximum(), 12288);
    EXPECT_EQ(Bar("Value1Bar").pageStep(), 100);
    EXPECT_EQ(Find<xpcheckbox>("AspectRatioBox")->Value(), int(xpcheckbox::Set));
    EXPECT_EQ(Find<xpcheckbox>("ResampleBox")->Value(), int(xpcheckbox::Clear));
    EXPECT_EQ(Box("Value1Box").selectedText(), QStringLiteral("640"));
    EXPECT_EQ(Box("Value2Box").selectedText(), QStringLiteral("480"));
}

TEST_F(ResizeTest, TheControlsBearTheirCaptions)
{
    for (const auto& [name, caption] : { std::pair("AspectRatioBox", "Maintain Aspect-Ratio"),
             { "ResampleBox", "Resample" }, { "Ok", "Accept" }, { "cancel", "Cancel" } })
        EXPECT_EQ(Find<QAbstractButton>(name)->text(), QLatin1String(caption)) << name;
    for (const auto& [name, caption] : { std::pair("Value1Box", "Width"), { "Value2Box", "Height" } })
        EXPECT_EQ(LabelBefore(Box(name)), QLatin1String(caption)) << name;
}

TEST_F(ResizeTest, WhatIsTypedMovesTheOtherSideAndStands)
{
    Type("Value1Box", "321");
    EXPECT_EQ(Box("Value1Box").text(), QStringLiteral("321"));
    EXPECT_EQ(Bar("Value1Bar").value(), 321);
    EXPECT_EQ(Box("Value2Box").text(), QStringLiteral("241"));
}

TEST_F(ResizeTest, ABarMovesItsBoxAndTheOtherSide)
{
    Bar("Value2Bar").setValue(240);
    EXPECT_EQ(Box("Value2Box").text(), QStringLiteral("240"));
    EXPECT_EQ(Box("Value1Box").text(), QStringLiteral("320"));
}

TEST_F(ResizeTest, TheRatioBoxResetsTheHeightWheneverItIsClicked)
{
    Click("AspectRatioBox");
    Bar("Value1Bar").setValue(320);
    EXPECT_EQ(Bar("Value2Bar").value(), 480) << "off";
    Click("AspectRatioBox");
    EXPECT_EQ(Bar("Value2Bar").value(), 240) << "on again";
    Click("AspectRatioBox");
    Bar("Value2Bar").setValue(100);
    EXPECT_EQ(Bar("Value1Bar").value(), 320);
}

TEST_F(ResizeTest, AcceptGivesTheSizeAndTheWayOfResampling)
{
    Type("Value1Box", "320");
    Click("ResampleBox");
    Click("Ok");
    EXPECT_FALSE(form->isVisible());
    const Resize::Results results = form->GetResults();
    EXPECT_TRUE(results.accepted);
    EXPECT_EQ(results.width, 320);
    EXPECT_EQ(results.height, 240);
    EXPECT_TRUE(results.resample);
}

TEST_F(ResizeTest, OnlyASetResampleBoxAsksForSmoothing)
{
    for (const auto& [value, isSmooth] :
        { std::pair(xpcheckbox::Grey, false), { xpcheckbox::Set, true }, { xpcheckbox::Clear, false } }) {
        Find<xpcheckbox>("ResampleBox")->SetValue(value);
        Click("Ok");
        EXPECT_EQ(form->GetResults().resample, isSmooth) << value;
        form->show();
    }
}

TEST_F(ResizeTest, AClickedGreyResampleBoxIsSetBeforeItTurnsOver)
{
    auto& box = *Find<xpcheckbox>("ResampleBox");
    QList<int> meanwhile;
    QObject::connect(&box, &xpcheckbox::Click, &box, [&] { meanwhile << box.Value(); });
    box.SetValue(xpcheckbox::Grey);
    Click("ResampleBox");
    EXPECT_EQ(meanwhile, QList<int> { xpcheckbox::Set });
    EXPECT_EQ(box.Value(), int(xpcheckbox::Clear));
}

TEST_F(ResizeTest, AClickTurnsResamplingOnAndOff)
{
    for (const bool isSmooth : { true, false }) {
        Click("ResampleBox");
        EXPECT_EQ(form->GetResults().resample, isSmooth);
    }
}

TEST_F(ResizeTest, CancelAcceptsNothing)
{
    Click("cancel");
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->GetResults().accepted);
}

TEST_F(ResizeTest, AnEmptiedBoxKeepsTheDialogOpen)
{
    Type("Value1Box", "");
    EXPECT_EQ(Bar("Value1Bar").value(), 640);
    Click("Ok");
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->GetResults().accepted);
}

TEST_F(ResizeTest, ANumberBeyondAllBecomes32767AndKeepsTheDialogOpen)
{
    Type("Value1Box", "40000");
    EXPECT_EQ(Bar("Value1Bar").value(), 4000) << "the last one in the range";
    EXPECT_EQ(Box("Value1Box").text(), QStringLiteral("40000"));
    Click("Ok");
    EXPECT_EQ(Bar("Value1Bar").value(), 16384);
    EXPECT_EQ(Bar("Value2Bar").value(), 3000);
    EXPECT_EQ(Box("Value1Box").text(), QStringLiteral("32767"));
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ResizeTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*form), "");
}
