#include "app/PictureBox.h"

#include "environment/TextureUpload.h"

#include <QImageReader>
#include <QPixmap>

namespace {

/// A picture's middle in that many device pixels, or the whole of it in no more; decoded no larger
/// than need be. Null where there is none that a texture could show.
QImage smallPicture(const QString &fileName, const QSize &size, bool whole) {
    QImageReader reader;
    if (!openPicture(reader, findPicture(fileName))) {
        return {};
    }
    reader.setScaledSize(
        reader.size().scaled(size, whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding));
    const QImage picture = reader.read();
    if (picture.isNull() || whole) {
        return picture;
    }
    QRect middle(QPoint(), size);
    middle.moveCenter(picture.rect().center());
    return picture.copy(middle);
}

} // namespace

PictureBox::PictureBox(QWidget *parent) : QComboBox(parent) {
    // As high as the style's own icons: the box must not grow when it gets pictures.
    setIconSize(QSize(32, 16));
    connect(this, &QComboBox::currentIndexChanged, this, [this](int item) {
        if (isVisible()) {
            readPicture(item);
        }
    });
}

void PictureBox::readPicture(int item) {
    if (item < 0 || !itemIcon(item).isNull()) {
        return;
    }
    const QImage picture = smallPicture(pictureFile.arg(itemData(item).toString()),
                                        iconSize() * devicePixelRatioF(), wholePictures);
    if (!picture.isNull()) {
        QPixmap pixmap = QPixmap::fromImage(picture);
        pixmap.setDevicePixelRatio(devicePixelRatioF());
        setItemIcon(item, pixmap);
    }
}

void PictureBox::showEvent(QShowEvent *event) {
    readPicture(currentIndex());
    QComboBox::showEvent(event);
}

void PictureBox::showPopup() {
    for (int i = 0; i < count(); ++i) {
        readPicture(i);
    }
    QComboBox::showPopup();
}
