// What the keyboard does on a screen: where the focus starts, the order of Tab, and the access keys. All of it follows
// from the kinds and roles of the controls.
#pragma once
#include "desktop/Window.h"

namespace Keyboard
{
// Puts the focus on theWanted; if that is null or cannot take the focus, on the control where a user would begin.
void SetInitialFocus(Window &theWindow, const Control *theWanted);
// Puts the focus on the text box that is still empty, or else on the first one.
void FocusMissing(const Window &theWindow);
// Puts the focus on the box that theLabel names: the one just below it or to its right.
void FocusBoxOf(const Window &theWindow, const Control &theLabel);
// Tab visits the notice on the menu bar, then the controls in the order in which the screen's file declares them.
void SetTabOrder(Window &theWindow);
// Alt+N and Alt+B press the buttons with the roles Next and Back, F1 opens the first help topic, Esc closes the help.
void BindAccessKeys(Window &theWindow);
// The access key of a role as the user reads it, such as "Alt+N"; empty when the role has none or it is a common key.
QString AccessKeyText(Role theRole);
// A control that only the mouse uses; the keyboard has another control for the same action.
bool IsMouseOnly(const Control &theControl);
}  // namespace Keyboard
