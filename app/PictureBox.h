#pragma once

#include <QComboBox>

/// A combo box that shows a small picture beside each item that has one. The chosen item's is read when the
/// box is shown, the others when the list is opened for the first time.
class PictureBox : public QComboBox {
    Q_OBJECT

public:
    explicit PictureBox(QWidget *parent = nullptr);

    /// The file of an item's picture; "%1" stands for the item's data, which is its name.
    QString pictureFile;

    /// The whole picture is shown, not as much as fills its place.
    bool wholePictures = false;

    void showPopup() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void readPicture(int item);
};
