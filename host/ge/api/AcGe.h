// Points, vectors and tolerances of the API, in drawing units; angles in radians.
#pragma once

#include "AcArray.h"

#include <cmath>

class AcGeMatrix3d;
class AcGeVector3d;

// Two points are equal when they lie within equalPoint(), two vectors when within equalVector().
class AcGeTol {
public:
    double equalPoint() const { return mPoint; }
    double equalVector() const { return mVector; }
    void setEqualPoint(double v) { mPoint = v; }
    void setEqualVector(double v) { mVector = v; }

private:
    double mPoint = 1.0e-10;
    double mVector = 1.0e-10;
};
class AcGeContext {
public:
    static AcGeTol gTol;
};

constexpr double kHalfPi = 1.57079632679489661923;
constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 6.28318530717958647692;

class AcGeVector2d {
public:
    double x = 0.0, y = 0.0;
    AcGeVector2d() = default;
    AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}
    double length() const { return std::hypot(x, y); }
    double angle() const; // from the X axis, 0 up to two pi
    AcGeVector2d operator*(double f) const { return {x * f, y * f}; }
    AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
};
class AcGePoint2d {
public:
    double x = 0.0, y = 0.0;
    static const AcGePoint2d kOrigin;
    AcGePoint2d() = default;
    AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}
    AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    double distanceTo(const AcGePoint2d& p) const { return (p - *this).length(); }
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
        return distanceTo(p) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
};

class AcGeVector3d {
public:
    double x = 0.0, y = 0.0, z = 0.0;
    static const AcGeVector3d kIdentity, kXAxis, kYAxis, kZAxis;

    AcGeVector3d() = default;
    AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    void set(double xx, double yy, double zz) { x = xx, y = yy, z = zz; }
    AcGeVector3d operator*(double f) const { return {x * f, y * f, z * f}; }
    AcGeVector3d operator/(double f) const { return {x / f, y / f, z / f}; }
    AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d& operator*=(double f) { return *this = *this * f; }
    AcGeVector3d& operator/=(double f) { return *this = *this / f; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    AcGeVector3d& negate() { return *this = -*this; }
    double length() const { return std::sqrt(lengthSqrd()); }
    double lengthSqrd() const { return x * x + y * y + z * z; }
    double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    // Unit vector; a zero vector stays zero.
    AcGeVector3d normal() const;
    AcGeVector3d& normalize() { return *this = normal(); }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
        return (*this - v).length() <= tol.equalVector();
    }
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    // Unsigned angle, 0 to pi.
    double angleTo(const AcGeVector3d& v) const;
    // Angle from this to v, counter-clockwise as seen against refVec, 0 up to two pi.
    double angleTo(const AcGeVector3d& v, const AcGeVector3d& refVec) const;
    AcGeVector3d& transformBy(const AcGeMatrix3d& m);
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& mirror(const AcGeVector3d& normalToPlane);
    // A vector perpendicular to this one; for a vector in the XY plane, it turned by +pi/2.
    AcGeVector3d perpVector() const;
    // This vector projected along projectDirection on the plane through the origin with that normal.
    AcGeVector3d project(const AcGeVector3d& planeNormal, const AcGeVector3d& projectDirection) const;
    AcGeVector3d orthoProject(const AcGeVector3d& planeNormal) const;
};
inline AcGeVector3d operator*(double f, const AcGeVector3d& v) { return v * f; }

class AcGePoint3d {
public:
    double x = 0.0, y = 0.0, z = 0.0;
    static const AcGePoint3d kOrigin;

    AcGePoint3d() = default;
    AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    void set(double xx, double yy, double zz) { x = xx, y = yy, z = zz; }
    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    AcGeVector3d asVector() const { return {x, y, z}; }
    double distanceTo(const AcGePoint3d& p) const { return (p - *this).length(); }
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
        return distanceTo(p) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    AcGePoint3d& transformBy(const AcGeMatrix3d& m);
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& base = kOrigin);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& base = kOrigin) {
        return *this = base + (*this - base) * factor;
    }
};

class AcGeScale3d {
public:
    double sx = 1.0, sy = 1.0, sz = 1.0;
    AcGeScale3d() = default;
    explicit AcGeScale3d(double uniform) : sx(uniform), sy(uniform), sz(uniform) {}
    AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
    double& operator[](int i) { return i == 0 ? sx : i == 1 ? sy : sz; }
    double operator[](int i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    bool operator==(const AcGeScale3d&) const = default;
};

// Row-major 4x4: entry[row][column], points are columns multiplied from the right.
class AcGeMatrix3d {
public:
    double entry[4][4];
    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d(); // identity
    double operator()(int row, int column) const { return entry[row][column]; }
    double& operator()(int row, int column) { return entry[row][column]; }
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const; // applies right first
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGePoint3d operator*(const AcGePoint3d& p) const;
    AcGeVector3d operator*(const AcGeVector3d& v) const; // without the translation
    AcGeMatrix3d inverse() const; // of a singular matrix: itself unchanged
    double det() const;           // of the upper left 3x3
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    double scale() const; // length of the longest column
    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    AcGeMatrix3d& setToIdentity();
    AcGeMatrix3d& setTranslation(const AcGeVector3d& v);
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y,
                                 const AcGeVector3d& z);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z) const;
    static AcGeMatrix3d translation(const AcGeVector3d& v);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(const AcGeScale3d& factors, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePoint3d& onPlane, const AcGeVector3d& planeNormal);
    // From the coordinate system of an object with that normal (the arbitrary axis rule of
    // drawing files: X = Y x N where |Nx| and |Ny| are below 1/64, else Z x N) to world.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
};

// An infinite line.
class AcGeLine3d {
public:
    AcGeLine3d() = default;
    AcGeLine3d(const AcGePoint3d& point, const AcGeVector3d& direction) : mPoint(point), mDirection(direction) {}
    AcGeLine3d(const AcGePoint3d& a, const AcGePoint3d& b) : mPoint(a), mDirection(b - a) {}
    AcGePoint3d pointOnLine() const { return mPoint; }
    AcGeVector3d direction() const { return mDirection.normal(); }
    // The foot of the perpendicular; the line's point where the direction is zero.
    AcGePoint3d closestPointTo(const AcGePoint3d& p) const;
    double distanceTo(const AcGePoint3d& p) const { return p.distanceTo(closestPointTo(p)); }

private:
    AcGePoint3d mPoint;
    AcGeVector3d mDirection{1.0, 0.0, 0.0};
};

using AcGePoint2dArray = AcArray<AcGePoint2d>;
using AcGePoint3dArray = AcArray<AcGePoint3d>;
using AcGeVector3dArray = AcArray<AcGeVector3d>;
using AcGeDoubleArray = AcArray<double>;

// Box of points; empty (invalid) until the first point.
class AcDbExtents {
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& lower, const AcGePoint3d& upper) : mMin(lower), mMax(upper), mValid(true) {}
    bool isValid() const { return mValid; }
    AcGePoint3d minPoint() const { return mMin; }
    AcGePoint3d maxPoint() const { return mMax; }
    void addPoint(const AcGePoint3d& p);
    void addExt(const AcDbExtents& other);
    void expandBy(const AcGeVector3d& v) { addPoint(mMin + v), addPoint(mMax + v); }
    void set(const AcGePoint3d& lower, const AcGePoint3d& upper) { *this = AcDbExtents(lower, upper); }
    void transformBy(const AcGeMatrix3d& m); // the box of the eight turned corners

private:
    AcGePoint3d mMin, mMax;
    bool mValid = false;
};
