// The two directions of a field list. A list is a function template over the stream: the reading stream
// fills each field in, the writing stream puts it out, so the two cannot drift apart.
// Data bits and handles are separate streams of a record; a list may mix its calls freely.
#pragma once

#include "DbObjectAccess.h"
#include "DwgBits.h"

#include <unordered_map>

// Finds the id of a handle while a drawing is read.
class DwgIdSource {
public:
    explicit DwgIdSource(AcDbDatabase& db) : mDb(db) {}
    AcDbDatabase& database() const { return mDb; }
    // A number that no drawing reaches is a damaged reference; taken as none, so that the next free
    // handle does not run out of numbers.
    AcDbObjectId id(Adesk::UInt64 handle) const {
        return handle == 0 || handle >= kLargestHandle ? AcDbObjectId() : DbObjectAccess::idFor(mDb, AcDbHandle(handle));
    }
    static constexpr Adesk::UInt64 kLargestHandle = Adesk::UInt64{1} << 56U;
    // The names that begin markers of blocks repeat, by the marker's handle. A block record with a "*"
    // name holds it without its number, the marker with it.
    void noteBlockName(Adesk::UInt64 marker, const std::wstring& name) const { mBlockNames[marker] = name; }
    const std::unordered_map<Adesk::UInt64, std::wstring>& blockNames() const { return mBlockNames; }

private:
    AcDbDatabase& mDb;
    mutable std::unordered_map<Adesk::UInt64, std::wstring> mBlockNames;
};

class DwgIn {
public:
    static constexpr bool kReading = true;
    DwgIn(const DwgIdSource& ids, DwgBitReader data, DwgBitReader handles, Adesk::UInt64 self) : mIds(ids), mData(data), mHandles(handles), mSelf(self) {}
    DwgBitReader& data() { return mData; }
    DwgBitReader& handles() { return mHandles; }
    const DwgIdSource& ids() const { return mIds; }
    Adesk::UInt64 self() const { return mSelf; }
    bool failed() const { return mData.failed() || mHandles.failed(); }
    void fail() { mData.fail(); }

    template <class T> void B(T& v) { v = static_cast<T>(mData.B()); }
    template <class T> void BB(T& v) { v = static_cast<T>(mData.BB()); }
    template <class T> void RC(T& v) { v = static_cast<T>(mData.RC()); }
    template <class T> void RS(T& v) { v = static_cast<T>(mData.RS()); }
    template <class T> void RL(T& v) { v = static_cast<T>(mData.RL()); }
    template <class T> void BS(T& v) { v = static_cast<T>(mData.BS()); }
    template <class T> void BL(T& v) { v = static_cast<T>(mData.BL()); }
    // Values of an enumeration: another number than it has makes the record fail.
    template <class T> void enumBS(T& v, int last) { takeEnum(v, mData.BS(), last); }
    template <class T> void enumRC(T& v, int last) { takeEnum(v, mData.RC(), last); }
    void RD(double& v) { v = mData.RD(); }
    void BD(double& v) { v = mData.BD(); }
    void DD(double& v, double standard) { v = mData.DD(standard); }
    void BT(double& v) { v = mData.BT(); }
    void BE(AcGeVector3d& v) { v = mData.BE(); }
    void TV(std::wstring& v) { v = mData.TV(); }
    void RD2(AcGePoint2d& v) { v = mData.RD2(); }
    void RD2(AcGeVector2d& v) { const AcGePoint2d p = mData.RD2(); v = {p.x, p.y}; }
    void BD2(AcGePoint2d& v) { v.x = mData.BD(), v.y = mData.BD(); }
    void BD2(AcGeVector2d& v) { v.x = mData.BD(), v.y = mData.BD(); }
    void RD3(AcGePoint3d& v) { v = mData.RD3(); }
    void BD3(AcGePoint3d& v) { v = mData.BD3(); }
    void BD3(AcGeVector3d& v) { v = mData.BD3v(); }
    void color(AcCmColor& v) { v = dwgColor(mData.BS()); }
    AcDbObjectId H() { return mIds.id(mHandles.H().absolute(mSelf)); }
    void H(unsigned /*code*/, AcDbObjectId& id) { id = H(); }
    void style(AcDbObjectId& id) { id = H(); }
    void layerLineType(AcDbObjectId& id) { id = H(); }
    void plotStyle(AcDbObjectId& id) { id = H(); }
    // A list whose length stands apart from its items: each item takes `least` bits at least.
    template <class T> void sized(std::vector<T>& list, Adesk::Int64 size, std::size_t least) { list.resize(mData.count(size, least)); }

    static AcCmColor dwgColor(int fileIndex);

private:
    template <class T> void takeEnum(T& v, int number, int last) {
        if (number < 0 || number > last)
            fail();
        else
            v = static_cast<T>(number);
    }
    const DwgIdSource& mIds;
    DwgBitReader mData, mHandles;
    Adesk::UInt64 mSelf;
};

// What a record needs to know of the whole drawing while it is written.
struct DwgWriteContext {
    AcDbDatabase* database = nullptr;
    // The references to each block that stand in the drawing, by the block's id.
    std::unordered_map<AcDbObjectId, std::vector<AcDbObjectId>> references;
    // What stands in for an id that an object of the program has left open: strict programs take no
    // text without a style and no layer without a line type.
    AcDbObjectId standardStyle, continuous, normalPlotStyle;
};
// The items that are not erased.
inline std::vector<AcDbObjectId> dwgLiveIds(const AcDbObjectIdArray& ids) {
    std::vector<AcDbObjectId> live;
    live.reserve(static_cast<std::size_t>(ids.length()));
    for (const AcDbObjectId id : ids)
        if (id.isValid() && !id.isErased())
            live.push_back(id);
    return live;
}

class DwgOut {
public:
    static constexpr bool kReading = false;
    DwgOut(const DwgWriteContext& context, DwgBitWriter& data, DwgBitWriter& handles) : mContext(context), mData(data), mHandles(handles) {}
    const DwgWriteContext& context() const { return mContext; }
    DwgBitWriter& data() { return mData; }
    DwgBitWriter& handles() { return mHandles; }

    template <class T> void B(const T& v) { mData.B(static_cast<bool>(v)); }
    template <class T> void BB(const T& v) { mData.BB(static_cast<unsigned>(v)); }
    template <class T> void RC(const T& v) { mData.RC(static_cast<unsigned>(v)); }
    template <class T> void RS(const T& v) { mData.RS(static_cast<unsigned>(v)); }
    template <class T> void RL(const T& v) { mData.RL(static_cast<Adesk::UInt32>(v)); }
    template <class T> void BS(const T& v) { mData.BS(static_cast<Adesk::Int16>(v)); }
    template <class T> void BL(const T& v) { mData.BL(static_cast<Adesk::Int32>(v)); }
    template <class T> void enumBS(const T& v, int) { BS(v); }
    template <class T> void enumRC(const T& v, int) { RC(v); }
    void RD(double v) { mData.RD(v); }
    void BD(double v) { mData.BD(v); }
    void DD(double v, double standard) { mData.DD(v, standard); }
    void BT(double v) { mData.BT(v); }
    void BE(const AcGeVector3d& v) { mData.BE(v); }
    void TV(const std::wstring& v) { mData.TV(v); }
    void RD2(const AcGePoint2d& v) { mData.RD2(v); }
    void RD2(const AcGeVector2d& v) { mData.RD(v.x), mData.RD(v.y); }
    void BD2(const AcGePoint2d& v) { mData.BD(v.x), mData.BD(v.y); }
    void BD2(const AcGeVector2d& v) { mData.BD(v.x), mData.BD(v.y); }
    void RD3(const AcGePoint3d& v) { mData.RD3(v); }
    void BD3(const AcGePoint3d& v) { mData.BD3(v); }
    void BD3(const AcGeVector3d& v) { mData.BD3v(v); }
    void color(const AcCmColor& v) { mData.BS(v.colorIndex()); }
    void H(unsigned code, AcDbObjectId id) { mHandles.H(code, id.handle()); }
    void style(AcDbObjectId id) { H(5, id.isNull() ? mContext.standardStyle : id); }
    void layerLineType(AcDbObjectId id) { H(5, id.isNull() ? mContext.continuous : id); }
    void plotStyle(AcDbObjectId id) { H(5, id.isNull() ? mContext.normalPlotStyle : id); }
    template <class T> void sized(const std::vector<T>&, Adesk::Int64, std::size_t) {}

private:
    const DwgWriteContext& mContext;
    DwgBitWriter& mData;
    DwgBitWriter& mHandles;
};

inline AcCmColor DwgIn::dwgColor(int fileIndex) {
    AcCmColor color;
    color.setColorIndex(static_cast<Adesk::UInt16>(fileIndex < 0 ? -fileIndex : fileIndex)); // outside the palette: by layer stays
    return color;
}
