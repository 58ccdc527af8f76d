// Growable array with the API family's operation names, over std::vector.
#pragma once

#include <utility>
#include <vector>

template <class T> class AcArray {
public:
    AcArray() = default;
    explicit AcArray(int physicalLength) { mItems.reserve(static_cast<std::size_t>(physicalLength)); }
    int length() const { return static_cast<int>(mItems.size()); }
    int logicalLength() const { return length(); }
    bool isEmpty() const { return mItems.empty(); }
    T& operator[](int i) { return mItems[static_cast<std::size_t>(i)]; }
    const T& operator[](int i) const { return mItems[static_cast<std::size_t>(i)]; }
    T& at(int i) { return (*this)[i]; }
    const T& at(int i) const { return (*this)[i]; }
    const T& first() const { return mItems.front(); }
    const T& last() const { return mItems.back(); }
    T& last() { return mItems.back(); }
    int append(const T& value) {
        mItems.push_back(value);
        return length() - 1;
    }
    AcArray& append(const AcArray& other) {
        mItems.insert(mItems.end(), other.mItems.begin(), other.mItems.end());
        return *this;
    }
    AcArray& insertAt(int i, const T& value) {
        mItems.insert(mItems.begin() + i, value);
        return *this;
    }
    AcArray& removeAt(int i) {
        mItems.erase(mItems.begin() + i);
        return *this;
    }
    AcArray& setLogicalLength(int n) {
        mItems.resize(static_cast<std::size_t>(n));
        return *this;
    }
    AcArray& setPhysicalLength(int n) {
        mItems.reserve(static_cast<std::size_t>(n));
        if (n < length())
            setLogicalLength(n);
        return *this;
    }
    bool contains(const T& value) const {
        int i = 0;
        return find(value, i);
    }
    bool find(const T& value, int& index, int start = 0) const {
        for (int i = start; i < length(); ++i)
            if ((*this)[i] == value) {
                index = i;
                return true;
            }
        return false;
    }
    void removeAll() { mItems.clear(); }
    T* asArrayPtr() { return mItems.data(); }
    const T* asArrayPtr() const { return mItems.data(); }
    auto begin() { return mItems.begin(); }
    auto end() { return mItems.end(); }
    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

private:
    std::vector<T> mItems;
};

using AcIntArray = AcArray<int>;
class AcRxObject;
using AcRxObjectPtrArray = AcArray<AcRxObject*>;
