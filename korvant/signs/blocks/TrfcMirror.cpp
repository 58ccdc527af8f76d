// How the reference of a symbol holds a mirror.
#include "TrfcMirror.h"

#include <cmath>

void trfcLayMirrorOnWidth(AcDbBlockReference& reference) {
    AcGeScale3d scale = reference.scaleFactors();
    double rotation = reference.rotation();
    if (reference.normal().isEqualTo(-AcGeVector3d::kZAxis)) { // seen from below, turns run the other way
        reference.setNormal(AcGeVector3d::kZAxis);
        rotation = -rotation;
        scale = AcGeScale3d(-scale.sx, scale.sy, -scale.sz);
    }
    if (scale.sy < 0.0) { // half a turn changes both signs
        rotation += kPi;
        scale = AcGeScale3d(-scale.sx, -scale.sy, scale.sz);
    }
    reference.setRotation(rotation);
    reference.setScaleFactors(scale);
}

double trfcMirrorSign(const AcDbBlockReference& reference) {
    return reference.scaleFactors().sx < 0.0 ? -1.0 : 1.0;
}

AcGeScale3d trfcUniformScale(double factor) {
    const double size = std::abs(factor);
    return {factor, size, size};
}
