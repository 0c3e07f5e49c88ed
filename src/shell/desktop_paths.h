#pragma once
// Where the program keeps its state and where its file dialogs start, so that
// an installed program never writes into its installation folders.

#include <QString>

namespace marl {

// The folder recent.dat lives in.  A program run from the folder it was built
// in keeps it beside itself; anywhere else (installed under /usr, a package,
// a copied bundle) it goes to the user's configuration folder, ~/.config/Marl
// on Linux, even when the program's own folder could be written (as it can
// for root).
QString recentFolder(const QString& progDir, const QString& buildDir);

// The folder a New or Open dialog of a kind starts in: the folder of the last
// file of that kind, while it still exists; else the program's folder when it
// holds a file with the kind's extension (".wld"), as the build folder holds
// the example zone; else the user's documents folder.
QString dialogFolder(const QString& lastDir, const QString& progDir, const QString& extension);

} // namespace marl
