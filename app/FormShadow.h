#pragma once

class ApplicationState;
class QWidget;
class ucShadow;

/// Gives a form its shadow, which belongs to the form; the form may give it other properties. Without window
/// fades ("FadeOuts") the shadow is hard-edged and the form does not fade in: whoever has switched them off
/// would wonder at any.
ucShadow& AddShadow(QWidget& form, const ApplicationState& state);
/// Without window fades the form has no shadow any more.
void DropShadow(QWidget& form, const ApplicationState& state);
/// What a form does when it closes: with window fades it hides and fades. Events are handled meanwhile, so
/// anything may have happened. False when the form is gone, or was shown again and is to stay.
bool FadeAtClosing(QWidget& form, const ApplicationState& state);
/// Begins that without waiting for the end, so that forms which close one after another fade together: the
/// form is hidden, and its own close finds nothing left to fade. A form without a shadow is left as it is.
void BeginFadeAtClosing(const QWidget& form, const ApplicationState& state);
