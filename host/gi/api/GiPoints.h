// Points of a primitive, in place up to four, on the heap beyond: most of what a drawing
// shows are single segments and small polygons, and an allocation each would double the cost
// of a regeneration.
#pragma once

#include "AcGe.h"

#include <memory>
#include <utility>

class GiPoints {
public:
    GiPoints() = default;
    GiPoints(const AcGePoint3d* points, std::size_t count) { assign(points, count); }
    GiPoints(const GiPoints& other) { assign(other.data(), other.mCount); }
    GiPoints(GiPoints&& other) noexcept { take(other); }
    GiPoints& operator=(const GiPoints& other) {
        if (this != &other)
            assign(other.data(), other.mCount);
        return *this;
    }
    GiPoints& operator=(GiPoints&& other) noexcept {
        if (this != &other)
            take(other);
        return *this;
    }
    ~GiPoints() = default;

    std::size_t size() const { return mCount; }
    bool empty() const { return mCount == 0; }
    AcGePoint3d* data() { return mHeap ? mHeap.get() : mInline; }
    const AcGePoint3d* data() const { return mHeap ? mHeap.get() : mInline; }
    AcGePoint3d* begin() { return data(); }
    AcGePoint3d* end() { return data() + mCount; }
    const AcGePoint3d* begin() const { return data(); }
    const AcGePoint3d* end() const { return data() + mCount; }
    AcGePoint3d& operator[](std::size_t i) { return data()[i]; }
    const AcGePoint3d& operator[](std::size_t i) const { return data()[i]; }
    const AcGePoint3d& front() const { return data()[0]; }
    const AcGePoint3d& back() const { return data()[mCount - 1]; }

private:
    static constexpr std::size_t kInline = 4;
    void assign(const AcGePoint3d* points, std::size_t count) {
        std::unique_ptr<AcGePoint3d[]> heap;
        if (count > kInline)
            heap = std::make_unique<AcGePoint3d[]>(count);
        AcGePoint3d* const target = heap ? heap.get() : mInline;
        for (std::size_t i = 0; i < count; ++i)
            target[i] = points[i];
        mHeap = std::move(heap);
        mCount = count;
    }
    void take(GiPoints& other) noexcept {
        mCount = std::exchange(other.mCount, 0);
        mHeap = std::move(other.mHeap);
        if (!mHeap)
            for (std::size_t i = 0; i < mCount; ++i)
                mInline[i] = other.mInline[i];
    }
    std::size_t mCount = 0;
    std::unique_ptr<AcGePoint3d[]> mHeap;
    AcGePoint3d mInline[kInline];
};
