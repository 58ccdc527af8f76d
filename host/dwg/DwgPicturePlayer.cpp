// Playing: chunks become drawing calls. The bytes come from strangers' files, so nothing in them is
// believed before it is held against their length.
#include "DwgProxyGraphics.h"

namespace {
class Player {
public:
    Player(AcDbDatabase* db, AcGiWorldDraw& draw) : mDb(db), mTraits(draw.subEntityTraits()), mGeometry(draw.geometry()), mText(dwgTextCodec(codePage(db))) {}

    void play(const std::vector<Adesk::UInt8>& graphics) {
        DwgBitReader in(graphics.data(), graphics.size());
        in.RL(); // the whole size
        for (Adesk::UInt32 left = in.RL(); left > 0 && !in.failed(); --left) {
            const std::size_t start = in.position();
            const std::size_t size = in.RL();
            const Adesk::UInt32 type = in.RL();
            if (size < 8 || in.failed() || size - 8 > in.left() / 8)
                break;
            DwgBitReader chunk = in;
            chunk.setEnd(start + size * 8);
            draw(static_cast<int>(type), chunk);
            in.setPosition(start + size * 8);
        }
        while (mPushed-- > 0)
            mGeometry.popModelTransform();
    }

private:
    static int codePage(AcDbDatabase* db) {
        if (db == nullptr)
            return DwgTextCodec::kAnsi1250;
        const auto& header = DbObjectAccess::header(*db);
        const auto known = header.find(L"DWGCODEPAGE");
        return known == header.end() ? DwgTextCodec::kAnsi1250 : static_cast<int>(known->second.integer);
    }
    static AcGeVector3d vector(DwgBitReader& in) {
        const AcGePoint3d p = in.RD3();
        return {p.x, p.y, p.z};
    }
    static std::vector<AcGePoint3d> points(DwgBitReader& in) {
        std::vector<AcGePoint3d> list(in.count(in.RL(), 192));
        for (AcGePoint3d& p : list)
            p = in.RD3();
        return list;
    }
    std::wstring paddedText(DwgBitReader& in) const {
        std::string bytes;
        const std::size_t start = in.position();
        for (Adesk::UInt8 c = in.RC(); c != 0 && !in.failed(); c = in.RC())
            bytes += static_cast<char>(c);
        in.setPosition(start + (in.position() - start + 31) / 32 * 32);
        return mText.decode(bytes);
    }

    void draw(int type, DwgBitReader& in) {
        switch (type) {
        case kChunkCircle: {
            const AcGePoint3d center = in.RD3();
            const double radius = in.RD();
            const AcGeVector3d normal = vector(in);
            if (!in.failed())
                mGeometry.circle(center, radius, normal);
            break;
        }
        case kChunkArc: drawArc(in); break;
        case kChunkPolyline:
        case kChunkPolylineNormal: {
            const std::vector<AcGePoint3d> list = points(in);
            if (!in.failed() && !list.empty())
                mGeometry.polyline(static_cast<Adesk::UInt32>(list.size()), list.data());
            break;
        }
        case kChunkPolygon: {
            const std::vector<AcGePoint3d> list = points(in);
            if (!in.failed() && !list.empty())
                mGeometry.polygon(static_cast<Adesk::UInt32>(list.size()), list.data());
            break;
        }
        case kChunkText: drawText(in); break;
        case kChunkText2: drawText2(in); break;
        case kChunkPushMatrix:
        case kChunkPushMatrix2: pushMatrix(in); break;
        case kChunkPopMatrix:
            if (mPushed > 0) {
                --mPushed;
                mGeometry.popModelTransform();
            }
            break;
        default: setTrait(type, in); break;
        }
    }

    void drawArc(DwgBitReader& in) {
        const AcGePoint3d center = in.RD3();
        const double radius = in.RD();
        const AcGeVector3d normal = vector(in), start = vector(in);
        const double sweep = in.RD();
        const Adesk::UInt32 kind = in.RL();
        if (!in.failed())
            mGeometry.circularArc(center, radius, normal, start, sweep, kind <= kAcGiArcChord ? static_cast<AcGiArcType>(kind) : kAcGiArcSimple);
    }
    void drawText(DwgBitReader& in) {
        const AcGePoint3d place = in.RD3();
        const AcGeVector3d normal = vector(in), direction = vector(in);
        AcGiTextStyle style;
        style.height = in.RD();
        style.widthFactor = in.RD();
        style.obliqueAngle = in.RD();
        const std::wstring text = paddedText(in);
        if (!in.failed())
            mGeometry.text(place, normal, direction, text.c_str(), style);
    }
    void drawText2(DwgBitReader& in) {
        const AcGePoint3d place = in.RD3();
        const AcGeVector3d normal = vector(in), direction = vector(in);
        const std::wstring text = paddedText(in);
        in.RL(); // length
        in.RL(); // whether control codes count
        AcGiTextStyle style;
        style.height = in.RD();
        style.widthFactor = in.RD();
        style.obliqueAngle = in.RD();
        in.RD(); // tracking
        style.backward = in.RL() != 0;
        style.upsideDown = in.RL() != 0;
        in.RL(); // vertical
        in.RL(); // underlined
        in.RL(); // overlined
        const std::wstring font = paddedText(in);
        if (!font.empty())
            style.fontName = font;
        if (!in.failed())
            mGeometry.text(place, normal, direction, text.c_str(), style);
    }
    void pushMatrix(DwgBitReader& in) {
        AcGeMatrix3d matrix;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                matrix(row, column) = in.RD();
        if (in.failed())
            return;
        mGeometry.pushModelTransform(matrix);
        ++mPushed;
    }

    void setTrait(int type, DwgBitReader& in) {
        if (type == kChunkLineTypeScale) {
            const double scale = in.RD();
            if (!in.failed())
                mTraits.setLineTypeScale(scale);
            return;
        }
        const Adesk::UInt32 value = in.RL();
        if (in.failed())
            return;
        switch (type) {
        case kChunkColor: mTraits.setColor(static_cast<Adesk::UInt16>(value)); break;
        case kChunkTrueColor: setTrueColor(value); break;
        case kChunkLayer:
            if (const AcDbObjectId layer = record(value, mDb != nullptr ? mDb->layerTableId() : AcDbObjectId(), false); !layer.isNull())
                mTraits.setLayer(layer);
            break;
        case kChunkLineType: setLineType(value); break;
        case kChunkFill: mTraits.setFillType(value == kAcGiFillAlways ? kAcGiFillAlways : kAcGiFillNever); break;
        case kChunkLineWeight: mTraits.setLineWeight(static_cast<AcDb::LineWeight>(static_cast<Adesk::Int32>(value))); break;
        default: break; // not drawn by this program
        }
    }
    void setTrueColor(Adesk::UInt32 value) {
        const Adesk::UInt32 method = value >> 24U;
        if (method == AcCmEntityColor::kByColor)
            mTraits.setTrueColor(AcCmEntityColor(static_cast<Adesk::UInt8>(value >> 16U), static_cast<Adesk::UInt8>(value >> 8U), static_cast<Adesk::UInt8>(value)));
        else if (method == AcCmEntityColor::kByBlock || method == AcCmEntityColor::kByLayer)
            mTraits.setColor(method == AcCmEntityColor::kByBlock ? 0 : 256);
        else
            mTraits.setColor(static_cast<Adesk::UInt16>(value & 0xFFU));
    }
    void setLineType(Adesk::UInt32 value) {
        if (mDb == nullptr)
            return;
        if (value == kChunkLineTypeByLayer || value == kChunkLineTypeByBlock)
            mTraits.setLineType(value == kChunkLineTypeByLayer ? mDb->byLayerLinetype() : mDb->byBlockLinetype());
        else if (const AcDbObjectId type = record(value, mDb->linetypeTableId(), true); !type.isNull())
            mTraits.setLineType(type);
    }
    // The record of that place in a table's list.
    AcDbObjectId record(Adesk::UInt32 place, AcDbObjectId table, bool lineTypes) const {
        const auto* records = AcDbSymbolTable::cast(DbObjectAccess::peek(table));
        if (records == nullptr)
            return {};
        for (const AcDbObjectId id : records->recordIds()) {
            const bool apart = lineTypes && (id == mDb->byLayerLinetype() || id == mDb->byBlockLinetype());
            if (id.isValid() && !id.isErased() && !apart && place-- == 0)
                return id;
        }
        return {};
    }

    AcDbDatabase* mDb;
    AcGiSubEntityTraits& mTraits;
    AcGiWorldGeometry& mGeometry;
    const DwgTextCodec& mText;
    int mPushed = 0;
};
} // namespace

void dwgPlayProxyGraphics(const std::vector<Adesk::UInt8>& graphics, AcDbDatabase* database, AcGiWorldDraw& worldDraw) {
    Player(database, worldDraw).play(graphics);
}
