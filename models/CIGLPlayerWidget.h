#pragma once

#include <QOpenGLWidget>
#include <QTimer>
#include <string>

class Md2Model;

/// Shows a character, animated in place, with its weapon in hand. The two models belong to the
/// process: every preview loads into them and draws them, so one is shown at a time.
class CIGLPlayerWidget : public QOpenGLWidget {
    Q_OBJECT

public:
    explicit CIGLPlayerWidget(QWidget *parent = nullptr, const QString &name = {});

    static Md2Model &characterModel();
    static Md2Model &weaponModel();

    /// Set after the paths were changed: the next paint reads the files and starts the animation anew.
    bool reloadPending = true;

    /// The files shown, in the system's 8-bit encoding.
    std::string modelPath = "./data/terminator/tris.md2";
    std::string modelSkinPath = "./data/terminator/Blue.png";
    std::string weaponPath = "./data/terminator/standard.md2";
    std::string weaponSkinPath = "./data/terminator/standard.png";

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QTimer refreshTimer_{this}; ///< Runs while the preview is visible.
};
