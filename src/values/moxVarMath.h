#pragma once

#include "TRL_OBKR_MOX/moxVarMath.h"

#include <vector>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Sine and cosine by table, and rotation on them, in whole degrees or tenths. The Y axis points down. The tables run backwards:
/// the sine is that of the negated angle, and a positive angle turns counter-clockwise on the screen.
class moxVarMath final : public Implements<moxVarMath> {
public:
    void RotateRect(const RECT& rcRotate, Integer Degree, Array<POINTAPI>& ptRotated, RECT& rcRotatedBoundaries);
    void RotatePoint(POINTAPI& ptRotate, Single xCenter, Single yCenter, Integer Degree);
    void RotatePointTenthsDegree(POINTAPI& ptRotate, Single xCenter, Single yCenter, Integer TenthsDegree);
    Double Cosinus(Integer Degree);
    Double CosinusTenths(Integer TenthsDegree);
    void RotateRectEx(const RECT& rcRotate, Integer Degree, Single xOrigin, Single yOrigin, Array<POINTAPI>& ptRotated,
                      RECT& rcRotatedBoundaries);
    void RotateRectTenthsDegree(const RECT& rcRotate, Integer TenthsDegree, Array<POINTAPI>& ptRotated,
                                RECT& rcRotatedBoundaries);
    Double Sinus(Integer Degree);
    Double SinusTenths(Integer TenthsDegree);

private:
    using Table = std::vector<Double>;

    // Built on first use.
    Table cosines_;
    Table cosinesTenths_;
    Table sines_;
    Table sinesTenths_;
};

} // namespace mox::server
