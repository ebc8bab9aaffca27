#pragma once

/// Gathers a wheel's turns until they make whole notches: touchpads and fine wheels send parts of
/// one.
class WheelNotches {
public:
    /// Takes the angle of one wheel event, in eighths of a degree and positive away from the
    /// user. The whole notches that are now complete, with the sign of the direction; what is
    /// left waits for the next event in the same direction.
    int take(int angle);

    /// Drops what waits.
    void drop() { rest = 0; }

private:
    int rest = 0; ///< Less than a notch, with its direction's sign.
};
