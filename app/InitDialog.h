#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

/// Asks for the size of a new map. Computes nothing: read the current texts after exec().
class InitDialog : public QDialog {
    Q_OBJECT

public:
    /// An empty name stands for "InitDialog".
    explicit InitDialog(QWidget *parent = nullptr, const QString &name = {}, bool modal = false,
                        Qt::WindowFlags flags = {});

    QLabel *textLabel1 = nullptr;
    QComboBox *mapDimension = nullptr;
    QLabel *textLabel2 = nullptr;
    QComboBox *mapScale = nullptr;
    QPushButton *buttonOk = nullptr;
    QPushButton *buttonCancel = nullptr;

public slots:
    /// Sets every text in the application's language; the combo boxes start anew.
    virtual void languageChange();

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildRows();
};
