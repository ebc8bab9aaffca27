#pragma once

#include <QDialog>

class CIGLPlayerWidget;
class CharacterNode;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// Asks for a player's name, character, team, weapon and shooting behaviour, and shows the choice
/// in a live preview. It always opens with its own defaults.
class PlayerDialog : public QDialog {
    Q_OBJECT

public:
    explicit PlayerDialog(QWidget *parent = nullptr, const QString &name = {}, bool modal = false,
                          Qt::WindowFlags flags = {});

    /// Stores the choices in a player; where it stands and whether it takes part stay as they are.
    void copyTo(CharacterNode &player) const;

    QLabel *textLabel1 = nullptr; ///< Of waitForBox.
    QLabel *textLabel2 = nullptr; ///< Of Name.
    QLabel *textLabel3 = nullptr; ///< Of ModelBox.
    QLabel *textLabel4 = nullptr; ///< Of TeamBox.
    QLabel *textLabel5 = nullptr; ///< Of WeaponBox.
    QLineEdit *Name = nullptr;
    QComboBox *ModelBox = nullptr;
    QComboBox *TeamBox = nullptr;
    QComboBox *WeaponBox = nullptr;
    QSpinBox *waitForBox = nullptr;
    QCheckBox *ifWait = nullptr;
    CIGLPlayerWidget *PreviewPlayerWidget = nullptr;
    QPushButton *buttonOk = nullptr;
    QPushButton *buttonCancel = nullptr;

public slots:
    virtual void ChangeModel();
    virtual void ChangeTeam();
    virtual void ChangeWeapon();

protected slots:
    /// Sets every text in the current language and fills the boxes anew, at their defaults.
    virtual void languageChange();

protected:
    void changeEvent(QEvent *event) override;

private:
    void makeControls();
    void makePreview();
    void layOut();
    QGridLayout *layOutControls();
    QHBoxLayout *layOutButtons();
    void connectControls();

    QString defaultName_; ///< In the current language.
};
