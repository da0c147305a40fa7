#pragma once

/// A target area for the painter to fit: its extent and its middle, in logical millimetres with y upward. The middle is
/// the point of the board itself, never negated for a mirrored view. Plain record; hosts fill it in this order.
struct KRectangleD
{
    double width;  ///< 0 takes the value of the height
    double height; ///< 0 takes the value of the width
    /// @{
    /// The middle.
    double centerX;
    double centerY;
    /// @}
};
