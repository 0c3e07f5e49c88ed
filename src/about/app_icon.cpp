#include "about/app_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <iterator>

namespace marl {

// The application's picture: a block of marlstone, bands of clay and lime,
// with the program's initial on it.
QPixmap appPicture(int side, qreal ratio) {
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF block(1, 1, side - 2, side - 2);
    QPainterPath outline;
    outline.addRoundedRect(block, side / 6.0, side / 6.0);
    painter.setClipPath(outline);
    const QColor bands[] = {QColor(0xdb, 0xce, 0xb3), QColor(0xbd, 0xac, 0x8b),
                            QColor(0xd2, 0xc4, 0xa7), QColor(0x9e, 0x8d, 0x70),
                            QColor(0xc6, 0xb8, 0x99)};
    const qreal band = block.height() / std::size(bands);
    for (std::size_t i = 0; i < std::size(bands); ++i)
        painter.fillRect(QRectF(block.left(), block.top() + static_cast<qreal>(i) * band,
                                block.width(), band + 0.5),
                         bands[i]);
    painter.setClipping(false);
    painter.setPen(QPen(QColor(0x6b, 0x5d, 0x45), 1.5));
    painter.drawPath(outline);

    QFont initial = painter.font();
    initial.setBold(true);
    initial.setPixelSize(side * 3 / 5);
    painter.setFont(initial);
    painter.setPen(QColor(0x4a, 0x3f, 0x2e));
    painter.drawText(block.translated(1.5, 1.5), Qt::AlignCenter, QStringLiteral("M"));
    painter.setPen(Qt::white);
    painter.drawText(block, Qt::AlignCenter, QStringLiteral("M"));
    return pixmap;
}

QIcon appIcon() {
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(appPicture(side, 1.0));
    return icon;
}

} // namespace marl
