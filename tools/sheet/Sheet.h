#pragma once

#include <QImage>
#include <QPainter>
#include <QString>
#include <vector>

/// A contact sheet: captioned tiles of one size, row by row.
class Sheet {
public:
    Sheet(QSize newTileSize, int newColumns);

    /// Adds a picture, fitted into the next tile.
    void add(const QImage &picture, const QString &caption);

    bool save(const QString &fileName) const;

private:
    struct Tile {
        QImage picture;
        QString caption;
    };

    QSize tileSize;
    int columns;
    std::vector<Tile> tiles;
};
