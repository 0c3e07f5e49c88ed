#pragma once
// Gives the main window every kind's editor window, as the kinds' entries
// name them (a kind without one keeps its menu greyed).

namespace marl {

class FormMain;

void useKindWindows(FormMain& main);

} // namespace marl
