#pragma once

class ApplicationState;
class ChildForm;

/// While "SetFocusYES" is on, a form comes to the top as soon as the mouse comes over it.
void RaiseUnderMouse(ChildForm& form, const ApplicationState& state);
