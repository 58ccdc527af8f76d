// 4x4 matrices.
#include "AcGe.h"

#include <algorithm>
#include <utility>

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

AcGeMatrix3d::AcGeMatrix3d() {
    setToIdentity();
}
AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            entry[r][c] = r == c ? 1.0 : 0.0;
    return *this;
}
AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
    AcGeMatrix3d product;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += entry[r][k] * right.entry[k][c];
            product.entry[r][c] = sum;
        }
    return product;
}
AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& p) const {
    const auto row = [&](int r) { return entry[r][0] * p.x + entry[r][1] * p.y + entry[r][2] * p.z + entry[r][3]; };
    const double w = row(3);
    if (w == 1.0 || w == 0.0)
        return {row(0), row(1), row(2)};
    return {row(0) / w, row(1) / w, row(2) / w};
}
AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& v) const {
    const auto row = [&](int r) { return entry[r][0] * v.x + entry[r][1] * v.y + entry[r][2] * v.z; };
    return {row(0), row(1), row(2)};
}
double AcGeMatrix3d::det() const {
    return entry[0][0] * (entry[1][1] * entry[2][2] - entry[1][2] * entry[2][1])
           - entry[0][1] * (entry[1][0] * entry[2][2] - entry[1][2] * entry[2][0])
           + entry[0][2] * (entry[1][0] * entry[2][1] - entry[1][1] * entry[2][0]);
}

// Gauss-Jordan with the largest pivot of each column.
AcGeMatrix3d AcGeMatrix3d::inverse() const {
    AcGeMatrix3d left = *this, right;
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int r = column + 1; r < 4; ++r)
            if (std::fabs(left.entry[r][column]) > std::fabs(left.entry[pivot][column]))
                pivot = r;
        if (left.entry[pivot][column] == 0.0)
            return *this;
        for (int c = 0; pivot != column && c < 4; ++c) {
            std::swap(left.entry[pivot][c], left.entry[column][c]);
            std::swap(right.entry[pivot][c], right.entry[column][c]);
        }
        const double scaleBy = 1.0 / left.entry[column][column];
        for (int c = 0; c < 4; ++c) {
            left.entry[column][c] *= scaleBy;
            right.entry[column][c] *= scaleBy;
        }
        for (int r = 0; r < 4; ++r) {
            const double f = r == column ? 0.0 : left.entry[r][column];
            for (int c = 0; f != 0.0 && c < 4; ++c) {
                left.entry[r][c] -= f * left.entry[column][c];
                right.entry[r][c] -= f * right.entry[column][c];
            }
        }
    }
    return right;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (!(std::fabs(entry[r][c] - m.entry[r][c]) <= tol.equalVector()))
                return false;
    return true;
}
bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    getCoordSystem(origin, x, y, z);
    const double size = x.length();
    const double slack = tol.equalVector() * std::max(1.0, size);
    return size > 0.0 && std::fabs(y.length() - size) <= slack && std::fabs(z.length() - size) <= slack
           && x.isPerpendicularTo(y, tol) && y.isPerpendicularTo(z, tol) && z.isPerpendicularTo(x, tol);
}
double AcGeMatrix3d::scale() const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    getCoordSystem(origin, x, y, z);
    return std::max({x.length(), y.length(), z.length()});
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& v) {
    entry[0][3] = v.x;
    entry[1][3] = v.y;
    entry[2][3] = v.z;
    return *this;
}
AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z) {
    setToIdentity();
    const AcGeVector3d columns[4] = {x, y, z, origin.asVector()};
    for (int c = 0; c < 4; ++c) {
        entry[0][c] = columns[c].x;
        entry[1][c] = columns[c].y;
        entry[2][c] = columns[c].z;
    }
    return *this;
}
void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z) const {
    origin.set(entry[0][3], entry[1][3], entry[2][3]);
    x.set(entry[0][0], entry[1][0], entry[2][0]);
    y.set(entry[0][1], entry[1][1], entry[2][1]);
    z.set(entry[0][2], entry[1][2], entry[2][2]);
}

namespace {
// The linear map with these columns that keeps `fixed` in place.
AcGeMatrix3d about(const AcGePoint3d& fixed, const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z) {
    const AcGeVector3d moved = x * fixed.x + y * fixed.y + z * fixed.z;
    AcGeMatrix3d m;
    return m.setCoordSystem(AcGePoint3d() + (fixed.asVector() - moved), x, y, z);
}
} // namespace

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& v) {
    return AcGeMatrix3d().setTranslation(v);
}
AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    AcGeVector3d x = AcGeVector3d::kXAxis, y = AcGeVector3d::kYAxis, z = AcGeVector3d::kZAxis;
    return about(center, x.rotateBy(angle, axis), y.rotateBy(angle, axis), z.rotateBy(angle, axis));
}
AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center) {
    return scaling(AcGeScale3d(factor), center);
}
AcGeMatrix3d AcGeMatrix3d::scaling(const AcGeScale3d& f, const AcGePoint3d& center) {
    return about(center, {f.sx, 0.0, 0.0}, {0.0, f.sy, 0.0}, {0.0, 0.0, f.sz});
}
AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& onPlane, const AcGeVector3d& planeNormal) {
    AcGeVector3d x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);
    return about(onPlane, x.mirror(planeNormal), y.mirror(planeNormal), z.mirror(planeNormal));
}
AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d n = normal.isZeroLength() ? AcGeVector3d(0.0, 0.0, 1.0) : normal.normal();
    constexpr double kNearZ = 1.0 / 64.0;
    const bool nearZ = std::fabs(n.x) < kNearZ && std::fabs(n.y) < kNearZ;
    const AcGeVector3d helper = nearZ ? AcGeVector3d(0.0, 1.0, 0.0) : AcGeVector3d(0.0, 0.0, 1.0);
    const AcGeVector3d x = helper.crossProduct(n).normal();
    AcGeMatrix3d m;
    return m.setCoordSystem(AcGePoint3d(), x, n.crossProduct(x).normal(), n);
}
AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal) {
    return planeToWorld(normal).inverse();
}
