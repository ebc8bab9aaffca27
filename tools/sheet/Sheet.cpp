#include "tools/sheet/Sheet.h"

namespace {

constexpr int gap = 8;
constexpr int captionHeight = 18;

} // namespace

Sheet::Sheet(QSize newTileSize, int newColumns) : tileSize(newTileSize), columns(newColumns) {}

void Sheet::add(const QImage &picture, const QString &caption) {
    const bool fits = picture.width() <= tileSize.width() && picture.height() <= tileSize.height();
    tiles.push_back(
        {fits ? picture : picture.scaled(tileSize, Qt::KeepAspectRatio, Qt::SmoothTransformation), caption});
}

bool Sheet::save(const QString &fileName) const {
    const int rows = (static_cast<int>(tiles.size()) + columns - 1) / columns;
    const QSize step(tileSize.width() + gap, tileSize.height() + captionHeight + gap);
    QImage sheet(columns * step.width() + gap, rows * step.height() + gap, QImage::Format_RGB32);
    sheet.fill(QColor(48, 48, 52));
    QPainter painter(&sheet);
    painter.setPen(Qt::white);
    int number = 0;
    for (const Tile &tile : tiles) {
        const QPoint corner(gap + number % columns * step.width(), gap + number / columns * step.height());
        painter.drawImage(corner, tile.picture);
        const QRect caption(corner.x(), corner.y() + tileSize.height(), tileSize.width(), captionHeight);
        painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter, tile.caption);
        ++number;
    }
    painter.end();
    return sheet.save(fileName);
}
