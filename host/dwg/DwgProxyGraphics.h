// Proxy graphics: the picture of an object as a list of chunks, which programs draw that do not know the
// object's class. World coordinates, but for what stands between a pushed matrix and its pop.
#pragma once

#include "DbObjectAccess.h"
#include "DwgBits.h"

#include <optional>
#include <unordered_map>

// Records what entities draw. One recorder serves one saving: block definitions are drawn once in it.
class DwgPictureRecorder {
public:
    DwgPictureRecorder(AcDbDatabase& db, const DwgTextCodec& text);
    // Empty when the entity draws nothing.
    std::vector<Adesk::UInt8> record(AcDbEntity& entity);
    // What record drew last; what it shares with others stays as long as the recorder.
    const GiDisplayList& lastPicture() { return mBuilder.list(); }

private:
    void write(const GiDisplayList& list, const GiTraits& inherited);
    void write(const GiPrimitive& primitive, const GiTraits& traits);
    void writeTraits(const GiTraits& traits);
    void writeArc(const GiArc& arc);
    void writeFill(const GiFill& fill);
    void writeText(const GiText& text);
    void writePoints(int type, const std::vector<AcGePoint3d>& points);
    void padded(const std::string& bytes);
    void begin(int type);
    void end();

    AcDbObjectId mLayerZero, mByBlock, mByLayer;
    std::unordered_map<AcDbObjectId, Adesk::UInt32> mLayerIndex, mLineTypeIndex;
    const DwgTextCodec& mText;
    GiDisplayListBuilder mBuilder;
    DwgBitWriter mOut;
    std::size_t mChunkAt = 0;
    Adesk::UInt32 mCount = 0;
    std::optional<GiTraits> mState; // what the last traits' chunks said
};

// Draws chunks; unknown ones are passed over, damaged ones end the picture.
void dwgPlayProxyGraphics(const std::vector<Adesk::UInt8>& graphics, AcDbDatabase* database, AcGiWorldDraw& worldDraw);

// Numbers of the chunks (Open Design description of DWG, chapter "Proxy entity graphics").
enum DwgChunk {
    kChunkExtents = 1, kChunkCircle = 2, kChunkArc = 4, kChunkPolyline = 6, kChunkPolygon = 7, kChunkText = 10, kChunkText2 = 11,
    kChunkColor = 14, kChunkLayer = 16, kChunkLineType = 18, kChunkFill = 20, kChunkTrueColor = 22, kChunkLineWeight = 23,
    kChunkLineTypeScale = 24, kChunkPushMatrix = 29, kChunkPushMatrix2 = 30, kChunkPopMatrix = 31, kChunkPolylineNormal = 32,
};
// Line types that have no place in the table's list.
enum DwgChunkLineType { kChunkLineTypeByBlock = 32766, kChunkLineTypeByLayer = 32767 };
