#pragma once

#include <QLabel>

/// A label for a text of any length, which is never markup: what has no room is cut with an ellipsis,
/// and its tool tip shows it whole. text() is always the whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    void showText(const QString &whole);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString cutText() const;
    void updateToolTip();
};
