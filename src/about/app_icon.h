#pragma once
// The program's picture, drawn rather than shipped as a file: the About box
// shows it and every window carries it as its icon.

#include <QIcon>
#include <QPixmap>

namespace marl {

// The picture `side` pixels square, for a screen of the given pixel ratio.
QPixmap appPicture(int side, qreal ratio);
// The picture in the sizes window frames and task bars ask for.
QIcon appIcon();

} // namespace marl
