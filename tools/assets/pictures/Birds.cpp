#include "tools/assets/pictures/Birds.h"

#include "tools/assets/pictures/Feather.h"
#include "tools/assets/pictures/Noise.h"

#include <QPainterPath>
#include <QRadialGradient>
#include <QtMath>

namespace {

constexpr int canvasSide = 1024;
constexpr int pictureSide = 256;

/// The bones of a raised wing.
struct WingBones {
    QPointF shoulder, wrist, hand;
};

QPointF between(QPointF a, QPointF b, double share) {
    return a + share * (b - a);
}

QColor varied(const QColor &color, Random &random, double amount) {
    const double step = amount * static_cast<double>(random.bell());
    return step < 0 ? mixed(color, Qt::black, -step) : mixed(color, Qt::white, step);
}

/// A row of feathers along a bone, from `first` to `last` in place and angle; the last lies on top.
struct Row {
    QPointF first, last;
    double firstAngle = 0, lastAngle = 0;
    double firstLength = 0, lastLength = 0;
    double width = 30;
    double bend = 0.05;
    int count = 10;
    QColor base, tip;
};

void paintRow(QPainter &painter, const Row &row, Random &random) {
    for (int i = 0; i < row.count; ++i) {
        const double share = row.count > 1 ? static_cast<double>(i) / (row.count - 1) : 0;
        Feather feather;
        feather.root = between(row.first, row.last, share);
        feather.angle = row.firstAngle + share * (row.lastAngle - row.firstAngle) +
                        0.012 * static_cast<double>(random.bell());
        feather.length = (row.firstLength + share * (row.lastLength - row.firstLength)) *
                         static_cast<double>(random.between(0.96F, 1.04F));
        feather.width = row.width;
        feather.bend = row.bend;
        feather.base = varied(row.base, random, 0.035);
        feather.tip = varied(row.tip, random, 0.035);
        paintFeather(painter, feather);
    }
}

/// Angles of a raised wing's feathers: from straight back to the tip's direction.
void paintWing(QPainter &painter, const BirdLook &look, const WingBones &bones, double dim, Random &random) {
    const auto shaded = [dim](const QColor &color) { return mixed(color, QColor(24, 26, 34), dim); };
    const double back = M_PI * 0.97;
    const QPointF arm = bones.hand - bones.wrist;
    const double tipAngle = std::atan2(arm.y(), arm.x()) + 2 * M_PI;
    const double reach = look.wingLength;
    Row row;
    row = {bones.shoulder + QPointF(-70, 26),
           bones.wrist,
           back - 0.06,
           back + 0.22,
           170 * reach,
           262 * reach,
           54,
           -0.06,
           12,
           shaded(look.secondary),
           shaded(look.secondaryTip)};
    paintRow(painter, row, random);
    row = {bones.wrist,
           bones.hand,
           back + 0.24,
           tipAngle + look.fingers * 0.2,
           272 * reach,
           330 * reach,
           50,
           -0.08,
           10,
           shaded(look.primary),
           shaded(look.primaryTip)};
    paintRow(painter, row, random);
    row = {bones.shoulder + QPointF(-62, 14),
           bones.wrist,
           back - 0.03,
           back + 0.25,
           112,
           150,
           44,
           -0.03,
           13,
           shaded(look.covert),
           shaded(mixed(look.covert, look.secondaryTip, 0.25))};
    paintRow(painter, row, random);
    row = {bones.wrist,
           between(bones.wrist, bones.hand, 0.95),
           back + 0.27,
           tipAngle - 0.05,
           145,
           118,
           38,
           -0.03,
           11,
           shaded(look.covert),
           shaded(mixed(look.covert, look.primaryTip, 0.25))};
    paintRow(painter, row, random);
    for (const double share : {0.66, 0.4}) {
        const QColor color = shaded(share > 0.5 ? look.middleCovert : look.smallCovert);
        row = {bones.shoulder + QPointF(-40, 6),
               bones.wrist,
               back,
               back + 0.28,
               120 * share,
               120 * share,
               34,
               0,
               17,
               color,
               mixed(color, Qt::white, 0.06)};
        paintRow(painter, row, random);
        row = {bones.wrist,
               bones.hand,
               back + 0.3,
               tipAngle - 0.08,
               110 * share,
               78 * share,
               28,
               0,
               15,
               color,
               mixed(color, Qt::white, 0.06)};
        paintRow(painter, row, random);
    }
    // The leading edge: the arm under its smallest feathers.
    QPainterPath edge(bones.shoulder + QPointF(8, 10));
    edge.quadTo(between(bones.shoulder, bones.wrist, 0.6) + QPointF(24, 6), bones.wrist + QPointF(4, 2));
    edge.quadTo(bones.wrist + QPointF(6, -40), bones.hand);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(shaded(mixed(look.smallCovert, Qt::black, 0.08)), 17, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPath(edge);
    painter.setPen(QPen(shaded(mixed(look.smallCovert, Qt::white, 0.12)), 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(edge.translated(5, -1));
}

QPainterPath bodyPath() {
    QPainterPath body(QPointF(330, 652));
    body.cubicTo(430, 575, 540, 545, 640, 545);
    body.cubicTo(690, 520, 735, 498, 785, 503);
    body.cubicTo(835, 508, 858, 540, 852, 572);
    body.cubicTo(846, 600, 812, 612, 784, 622);
    body.cubicTo(740, 690, 640, 726, 540, 722);
    body.cubicTo(450, 718, 380, 690, 330, 652);
    body.closeSubpath();
    return body;
}

/// Small overlapping feathers all over the body, following its length.
void paintBody(QPainter &painter, const BirdLook &look, Random &random) {
    const QPainterPath body = bodyPath();
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.back);
    painter.drawPath(body);
    painter.setClipPath(body);
    painter.setBrush(look.head);
    painter.drawEllipse(QPointF(800, 560), 75, 85);
    for (double x = 330; x < 868; x += 12) {
        for (double y = 500; y < 740; y += 11) {
            const double across = qBound(0.0, (y - 555 + 0.12 * (x - 600)) / 130, 1.0);
            QColor color = mixed(look.back, look.belly, across);
            const double toHead = qBound(0.0, (x - 690 + 0.35 * (y - 560)) / 60, 1.0);
            color = mixed(color, toHead > 0.75 ? look.head : look.nape, toHead);
            Feather feather;
            feather.root = {x + 6.0 * static_cast<double>(random.bell()),
                            y + 4.0 * static_cast<double>(random.bell())};
            feather.angle = M_PI - 0.12 + 0.2 * static_cast<double>(random.bell());
            feather.length = x > 735 ? 24 : 40;
            feather.width = x > 735 ? 12 : 19;
            feather.base = varied(color, random, 0.05);
            feather.tip = varied(mixed(color, Qt::black, 0.06), random, 0.05);
            paintFeather(painter, feather);
        }
    }
    // Round in form: lighter along the back, darker below.
    QLinearGradient round(0, 505, 0, 725);
    round.setColorAt(0, QColor(255, 255, 255, 70));
    round.setColorAt(0.45, QColor(0, 0, 0, 0));
    round.setColorAt(1, QColor(0, 0, 10, 120));
    painter.fillPath(body, round);
    painter.restore();
}

void paintHead(QPainter &painter, const BirdLook &look) {
    const double k = look.hook;
    const QPointF root(846, 552);
    QPainterPath lower(root + QPointF(-14, 22));
    lower.cubicTo(root + QPointF(8 * k, 26), root + QPointF(26 * k, 30 * k), root + QPointF(30 * k, 34 * k));
    lower.cubicTo(root + QPointF(14 * k, 48 * k), root + QPointF(-4, 48), root + QPointF(-26, 42));
    painter.setPen(QPen(mixed(look.lowerBeak, Qt::black, 0.5), 3));
    painter.setBrush(look.lowerBeak);
    painter.drawPath(lower);
    QPainterPath upper(root + QPointF(-22, -22));
    upper.cubicTo(root + QPointF(24 * k, -34), root + QPointF(64 * k, -4), root + QPointF(54 * k, 56 * k));
    upper.cubicTo(root + QPointF(40 * k, 24), root + QPointF(14 * k, 26), root + QPointF(-18, 26));
    upper.closeSubpath();
    QLinearGradient shade(0, root.y() - 30, 0, root.y() + 50);
    shade.setColorAt(0, mixed(look.beak, Qt::white, 0.35));
    shade.setColorAt(0.6, look.beak);
    shade.setColorAt(1, mixed(look.beak, Qt::black, 0.45));
    painter.setPen(QPen(mixed(look.beak, Qt::black, 0.55), 3));
    painter.setBrush(shade);
    painter.drawPath(upper);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(look.beak, Qt::black, 0.7));
    painter.drawEllipse(root + QPointF(4 * k, -8), 5, 3);
    painter.setBrush(look.face);
    painter.drawEllipse(QPointF(811, 545), 25, 20);
    painter.setBrush(QColor(20, 16, 14));
    painter.drawEllipse(QPointF(812, 543), 14, 14);
    painter.setBrush(look.eye);
    painter.drawEllipse(QPointF(812, 543), 11, 11);
    painter.setBrush(QColor(10, 8, 8));
    painter.drawEllipse(QPointF(814, 543), 6, 6);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(817, 539), 3, 3);
    // The brow gives a bird of prey its look.
    if (look.talons) {
        painter.setPen(QPen(mixed(look.head, Qt::black, 0.55), 7, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(789, 528), QPointF(832, 536));
    }
}

void paintFeet(QPainter &painter, const BirdLook &look) {
    painter.setPen(QPen(mixed(look.feet, Qt::black, 0.35), 17, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(520, 712), QPointF(452, 738));
    painter.setPen(QPen(look.feet, 12, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(520, 710), QPointF(452, 736));
    for (const double angle : {2.7, 3.0, 3.35}) {
        const QPointF toe = QPointF(452, 736) + 40 * QPointF(std::cos(angle), std::sin(angle) + 0.25);
        painter.setPen(QPen(look.feet, 11, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(452, 736), toe);
        painter.setPen(QPen(QColor(30, 28, 28), 6, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(toe, toe + QPointF(-12, 10));
    }
}

void paintTail(QPainter &painter, const BirdLook &look, Random &random) {
    Row row{{372, 640},
            {372, 672},
            M_PI + 0.10 + 0.5 * look.tailSpread,
            M_PI - 0.12 - 0.5 * look.tailSpread,
            look.tailLength * 0.96,
            look.tailLength * 0.92,
            48,
            0.0,
            9,
            look.tail,
            look.tailTip};
    paintRow(painter, row, random);
    row = {{400, 640},
           {400, 678},
           M_PI + 0.1 + 0.3 * look.tailSpread,
           M_PI - 0.1 - 0.3 * look.tailSpread,
           100,
           100,
           34,
           0.0,
           8,
           look.back,
           mixed(look.back, look.tail, 0.4)};
    paintRow(painter, row, random);
}

} // namespace

QImage paintBird(const BirdLook &look) {
    Random random(look.seed);
    QImage canvas(canvasSide, canvasSide, QImage::Format_RGB32);
    canvas.fill(look.ground);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(30, 120);
    painter.scale(0.96, 0.96);
    paintWing(painter, look, {{664, 566}, {806, 392}, {836, 250}}, 0.34, random);
    paintTail(painter, look, random);
    if (look.talons) {
        paintFeet(painter, look);
    }
    paintBody(painter, look, random);
    paintHead(painter, look);
    paintWing(painter, look, {{630, 590}, {700, 388}, {626, 246}}, 0.0, random);
    painter.end();
    return canvas.scaled(pictureSide, pictureSide, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
