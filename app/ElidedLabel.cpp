#include "app/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

void ElidedLabel::showText(const QString &whole) {
    setText(whole);
    updateToolTip();
}

QString ElidedLabel::cutText() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

void ElidedLabel::updateToolTip() {
    const QString whole = text();
    const bool isCut = cutText() != whole;
    // The tool tip would take what looks like markup for markup.
    setToolTip(!isCut ? QString() : Qt::mightBeRichText(whole) ? whole.toHtmlEscaped() : whole);
}

void ElidedLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void ElidedLabel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), int(alignment()) | Qt::TextSingleLine, palette(),
                          isEnabled(), cutText(), foregroundRole());
}
