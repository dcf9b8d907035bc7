#include "app/FormShadow.h"

#include "app/ApplicationState.h"
#include "toolkit/ucShadow.h"

namespace {

constexpr int ClosingTime = 400; // milliseconds

ucShadow& ShadowOf(const QWidget& form)
{
    auto* shadow = form.findChild<ucShadow*>(QString(), Qt::FindDirectChildrenOnly);
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
