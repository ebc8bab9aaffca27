#pragma once

#include "map/math/Quaternion.h"

struct Matrix4;

/// Turns mouse drags into an accumulated rotation about the vertical axis. Positions are widget
/// pixels, y downward; a view of width or height 0 is ignored.
class Trackball {
public:
    /// Stores the view's size and resets the rotation to the identity.
    void init(int width, int height);

    /// Stores the view's size; the rotation stays.
    void resize(int width, int height);

    /// Sets the reference position of the drag that follows. The third argument is ignored.
    void beginDrag(int x, int y, int unused = 0);

    void endDrag(int x, int y);

    /// Turns by the way from the previous position to (x, y); out = the accumulated rotation.
    void drag(Matrix4 &out, int x, int y);

    /// Turns as a drag between two positions on the view's upper edge does, beside a drag that may
    /// be under way; out = the accumulated rotation.
    void turn(Matrix4 &out, int x1, int x2);

    const Quaternion &rotation() const { return accumulated; }

private:
    void turnBy(int x1, int y1, int x2, int y2);
    Quaternion rotationBetween(int x1, int y1, int x2, int y2) const;

    int viewWidth = 0;
    int viewHeight = 0;
    Quaternion accumulated;
    Quaternion lastIncrement;
    int lastX = 0;
    int lastY = 0;
    bool moved = false;
};
