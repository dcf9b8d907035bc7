#include "app/FormShadow.h"

#include "app/ApplicationState.h"
#include "toolkit/ucShadow.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class FormShadowTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    ApplicationState state_ { folder_.path(), folder_.filePath(QStringLiteral("settings")) };
    QWidget form_;
};

TEST_F(FormShadowTest, WithWindowFadesAShadowIsSoftAndTheFormFadesIn)
{
    state_.FadeOuts = true;
    const ucShadow& shadow = AddShadow(form_, state_);
    EXPECT_EQ(shadow.parent(), &form_);
    EXPECT_TRUE(shadow.SoftShadow() && shadow.FadeIn() && shadow.Visible());
    DropShadow(form_, state_);
    EXPECT_TRUE(shadow.Visible());
}

TEST_F(FormShadowTest, WithoutWindowFadesItIsHardEdgedNothingFadesAndItMayBeDropped)
{
    state_.FadeOuts = false;
    const ucShadow& shadow = AddShadow(form_, state_);
    EXPECT_FALSE(shadow.SoftShadow() || shadow.FadeIn());
    EXPECT_TRUE(shadow.Visible());
    EXPECT_TRUE(FadeAtClosing(form_, state_));
    DropShadow(form_, state_);
    EXPECT_FALSE(shadow.Visible());
    state_.FadeOuts = true;
    DropShadow(form_, state_);
    EXPECT_FALSE(shadow.Visible()) << "what was dropped does not come back";
}

TEST_F(FormShadowTest, AFormMayGiveItsShadowOtherProperties)
{
    state_.FadeOuts = true;
    AddShadow(form_, state_).SetVisible(false);
    EXPECT_FALSE(form_.findChild<ucShadow*>(QStringLiteral("Shadow"))->Visible());
}

} // namespace
