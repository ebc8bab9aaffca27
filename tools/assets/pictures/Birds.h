#pragma once

#include <QColor>
#include <QImage>
#include <cstdint>
#include <vector>

/// What makes one bird differ from another; lengths are those of a canvas of 1024.
struct BirdLook {
    const char *name;   ///< Of the picture.
    std::uint32_t seed; ///< Of what differs from feather to feather.
    QColor ground;
    QColor back, belly, head, nape;
    QColor beak, lowerBeak, face, eye, feet;
    QColor primary, primaryTip, secondary, secondaryTip;
    QColor covert, middleCovert, smallCovert;
    QColor tail, tailTip;
    double tailLength = 240;
    double tailSpread = 0.5;
    double wingLength = 1;
    double fingers = 0.3; ///< How far apart the wing's outermost feathers stand.
    double hook = 1;      ///< Size of the beak.
    bool talons = true;
};

const std::vector<BirdLook> &birdLooks();

/// A bird in flight from the side, 256 x 256, looking right on a plain ground.
QImage paintBird(const BirdLook &look);
