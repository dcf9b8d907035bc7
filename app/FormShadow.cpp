#include "app/FormShadow.h"

#include "app/ApplicationState.h"
#include "toolkit/ucShadow.h"

namespace {

constexpr int ClosingTime = 400; // milliseconds

ucShadow* FoundOn(const QWidget& form)
{
    return form.findChild<ucShadow*>(QString(), Qt::FindDirectChildrenOnly);
}

ucShadow& ShadowOf(const QWidget& form)
{
    ucShadow* const shadow = FoundOn(form);
    Q_ASSERT(shadow);
    return *shadow;
}

} // namespace

ucShadow& AddShadow(QWidget& form, const ApplicationState& state)
{
    auto* const shadow = new ucShadow(&form);
    shadow->SetSoftShadow(state.FadeOuts);
    shadow->SetFadeIn(state.FadeOuts);
    return *shadow;
}

void DropShadow(QWidget& form, const ApplicationState& state)
{
    if (!state.FadeOuts)
        ShadowOf(form).SetVisible(false);
}

bool FadeAtClosing(QWidget& form, const ApplicationState& state)
{
    return !state.FadeOuts || ShadowOf(form).FadeOut(ClosingTime);
}

void BeginFadeAtClosing(const QWidget& form, const ApplicationState& state)
{
    ucShadow* const shadow = FoundOn(form);
    if (shadow && state.FadeOuts)
        shadow->FadeOut(ClosingTime, false);
}
