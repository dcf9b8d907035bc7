#include "tests/testing/AccessFaults.h"
#include "toolkit/Button_XP.h"
#include "toolkit/ChildForm.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

struct Window : QWidget {
    QVBoxLayout* column = new QVBoxLayout(this);
    template <typename Control> Control* Add(const char* caption)
    {
        auto* control = new Control;
        control->SetCaption(QLatin1String(caption));
        column->addWidget(control);
        return control;
    }
};

} // namespace

TEST(AccessWalk, FindsAControlWithoutAName)
{
    Window window;
    window.Add<Button_XP>("Fine");
    window.Add<Button_XP>("")->setObjectName(QStringLiteral("mute"));
    EXPECT_EQ(AccessFaults(window), "Button_XP \"mute\" has no name");
}

TEST(AccessWalk, FindsAControlThatTabDoesNotComeTo)
{
    Window window;
    window.Add<xpcheckbox>("Fine");
    window.Add<xpcheckbox>("Click only")->setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(AccessFaults(window), "xpcheckbox \"\" is not reached by keys");
}

TEST(AccessWalk, FindsADisabledControlThatTabWillNotComeTo)
{
    Window window;
    window.Add<TAQbutton>("Fine");
    auto* off = window.Add<TAQbutton>("Off");
    off->setEnabled(false);
    EXPECT_EQ(AccessFaults(window), "");
    off->setFocusPolicy(Qt::NoFocus);
    EXPECT_EQ(AccessFaults(window), "TAQbutton \"\" is not reached by keys");
}

TEST(AccessWalk, AWindowWithoutAnyControlIsAFault)
{
    QWidget window;
    EXPECT_EQ(AccessFaults(window), "no control was found");
}

TEST(AccessWalk, EveryControlOfTheToolkitCanBeNamedAndReached)
{
    Window window;
    window.Add<Button_XP>("Accept");
    window.Add<TAQbutton>("Capture");
    window.Add<xpcheckbox>("Check");
    window.Add<xpradiobutton>("One");
    window.Add<xpradiobutton>("Other");
    window.column->addWidget(new xptopbuttons);
    window.column->addWidget(new smallXPbuttons);
    window.column->addWidget(new Videobuttons);
    window.column->addWidget(new VideoEditButtons);
    window.column->addWidget(new ToolButtons);
    window.column->addWidget(new Front);
    window.column->addWidget(new xphelp);
    auto* slider = new PositionSlider;
    slider->setAccessibleName(QStringLiteral("Position"));
    window.column->addWidget(slider);
    EXPECT_EQ(AccessFaults(window), "");
}
