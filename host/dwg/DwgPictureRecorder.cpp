// Recording: the display list of an entity becomes chunks; instances of blocks become a pushed matrix.
#include "DwgProxyGraphics.h"

#include "AcUtText.h"

namespace {
std::unordered_map<AcDbObjectId, Adesk::UInt32> indexOf(AcDbObjectId table, std::initializer_list<AcDbObjectId> apart) {
    std::unordered_map<AcDbObjectId, Adesk::UInt32> index;
    const auto* records = AcDbSymbolTable::cast(DbObjectAccess::peek(table));
    Adesk::UInt32 next = 0;
    if (records != nullptr)
        for (const AcDbObjectId id : records->recordIds())
            if (id.isValid() && !id.isErased() && std::find(apart.begin(), apart.end(), id) == apart.end())
                index.emplace(id, next++);
    return index;
}
constexpr double kStepAngle = kTwoPi / 72.0; // of the chords that stand for an elliptic arc
} // namespace

DwgPictureRecorder::DwgPictureRecorder(AcDbDatabase& db, const DwgTextCodec& text)
    : mLayerZero(db.layerZero()), mByBlock(db.byBlockLinetype()), mByLayer(db.byLayerLinetype()), mLayerIndex(indexOf(db.layerTableId(), {})),
      mLineTypeIndex(indexOf(db.linetypeTableId(), {mByBlock, mByLayer})), mText(text), mBuilder(false, kAcGiSaveWorldDrawForProxy) {}

std::vector<Adesk::UInt8> DwgPictureRecorder::record(AcDbEntity& entity) {
    mBuilder.list().primitives.clear();
    mBuilder.add(entity);
    mOut.clear();
    mOut.RL(0);
    mOut.RL(0);
    mCount = 0;
    mState.reset();
    write(mBuilder.list(), entity.startTraits());
    if (mCount == 0)
        return {};
    mOut.patchRL(0, static_cast<Adesk::UInt32>(mOut.position() / 8));
    mOut.patchRL(32, mCount);
    return mOut.finish();
}

void DwgPictureRecorder::write(const GiDisplayList& list, const GiTraits& inherited) {
    for (const GiPrimitive& primitive : list.primitives) {
        GiTraits traits = primitive.traits;
        if (traits.layer.isNull() || traits.layer == mLayerZero)
            traits.layer = inherited.layer;
        if (traits.color.isByBlock())
            traits.color = inherited.color;
        if (traits.lineType == mByBlock && !mByBlock.isNull())
            traits.lineType = inherited.lineType;
        if (traits.lineWeight == AcDb::kLnWtByBlock)
            traits.lineWeight = inherited.lineWeight;
        write(primitive, traits);
    }
}

void DwgPictureRecorder::write(const GiPrimitive& primitive, const GiTraits& traits) {
    if (const auto* instance = std::get_if<GiInstance>(&primitive.shape)) {
        begin(kChunkPushMatrix);
        const AcGeMatrix3d matrix = instance->transform();
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                mOut.RD(matrix(row, column));
        end();
        write(*instance->picture, traits);
        begin(kChunkPopMatrix);
        end();
        return;
    }
    GiTraits shown = traits;
    if (std::holds_alternative<GiFill>(primitive.shape))
        shown.fill = kAcGiFillAlways;
    writeTraits(shown);
    if (const auto* line = std::get_if<GiPolyline>(&primitive.shape))
        writePoints(kChunkPolyline, {line->points.begin(), line->points.end()});
    else if (const auto* polygon = std::get_if<GiPolygon>(&primitive.shape))
        writePoints(kChunkPolygon, {polygon->points.begin(), polygon->points.end()});
    else if (const auto* arc = std::get_if<GiArc>(&primitive.shape))
        writeArc(*arc);
    else if (const auto* fill = std::get_if<GiFill>(&primitive.shape))
        writeFill(*fill);
    else if (const auto* text = std::get_if<GiText>(&primitive.shape))
        writeText(*text);
}

void DwgPictureRecorder::writeTraits(const GiTraits& traits) {
    const auto number = [this](int type, Adesk::UInt32 value) {
        begin(type);
        mOut.RL(value);
        end();
    };
    if (!mState || !(mState->color == traits.color)) {
        if (traits.color.isByColor())
            number(kChunkTrueColor, static_cast<Adesk::UInt32>(AcCmEntityColor::kByColor) << 24U | static_cast<Adesk::UInt32>(traits.color.red()) << 16U |
                                        static_cast<Adesk::UInt32>(traits.color.green()) << 8U | traits.color.blue());
        else
            number(kChunkColor, traits.color.colorIndex());
    }
    if (!mState || mState->layer != traits.layer)
        if (const auto known = mLayerIndex.find(traits.layer); known != mLayerIndex.end())
            number(kChunkLayer, known->second);
    if (!mState || mState->lineType != traits.lineType) {
        const auto known = mLineTypeIndex.find(traits.lineType);
        number(kChunkLineType, known != mLineTypeIndex.end() ? known->second : static_cast<Adesk::UInt32>(kChunkLineTypeByLayer));
    }
    if (!mState || mState->lineTypeScale != traits.lineTypeScale) {
        begin(kChunkLineTypeScale);
        mOut.RD(traits.lineTypeScale);
        end();
    }
    if (!mState || mState->lineWeight != traits.lineWeight)
        number(kChunkLineWeight, static_cast<Adesk::UInt32>(static_cast<Adesk::Int32>(traits.lineWeight)));
    if (!mState || mState->fill != traits.fill)
        number(kChunkFill, traits.fill);
    mState = traits;
}

void DwgPictureRecorder::writeArc(const GiArc& arc) {
    const double radius = arc.major.length();
    const bool round = std::abs(radius - arc.minor.length()) <= 1.0e-9 * radius && std::abs(arc.major.dotProduct(arc.minor)) <= 1.0e-9 * radius * radius;
    const AcGeVector3d normal = arc.major.crossProduct(arc.minor).normal();
    const auto vector = [this](const AcGeVector3d& v) { mOut.RD(v.x), mOut.RD(v.y), mOut.RD(v.z); };
    if (round && arc.isFullTurn()) {
        begin(kChunkCircle);
        mOut.RD3(arc.center);
        mOut.RD(radius);
        vector(normal);
        end();
        return;
    }
    if (round) {
        begin(kChunkArc);
        mOut.RD3(arc.center);
        mOut.RD(radius);
        vector(normal);
        vector(arc.at(arc.start) - arc.center);
        mOut.RD(arc.end - arc.start);
        mOut.RL(arc.type);
        end();
        return;
    }
    std::vector<AcGePoint3d> chords;
    const int count = std::max(2, static_cast<int>(std::ceil((arc.end - arc.start) / kStepAngle)));
    for (int i = 0; i <= count; ++i)
        chords.push_back(arc.at(arc.start + (arc.end - arc.start) * i / count));
    writePoints(kChunkPolyline, chords);
}

// A chunk fills one ring. Holes are joined to the first ring by bridges of no width, which the
// even-odd rule does not see.
void DwgPictureRecorder::writeFill(const GiFill& fill) {
    std::vector<AcGePoint3d> ring;
    for (const auto& loop : fill.loops) {
        if (loop.empty())
            continue;
        ring.insert(ring.end(), loop.begin(), loop.end());
        ring.push_back(loop.front());
        if (ring.size() > loop.size() + 1)
            ring.push_back(ring.front());
    }
    if (ring.size() > 2)
        writePoints(kChunkPolygon, ring);
}

void DwgPictureRecorder::writeText(const GiText& text) {
    const AcGiTextStyle& style = text.style();
    const AcGeVector3d direction = text.direction(), normal = text.normal();
    const double tall = text.yAxis.length();
    begin(kChunkText2);
    mOut.RD3(text.position);
    mOut.RD3({normal.x, normal.y, normal.z});
    mOut.RD3({direction.x, direction.y, direction.z});
    padded(mText.encode(text.text()));
    mOut.RL(static_cast<Adesk::UInt32>(-1)); // ends with its null
    mOut.RL(0);                              // control codes count
    mOut.RD(text.height());
    mOut.RD(tall > 0.0 ? style.widthFactor * text.xAxis.length() / tall : style.widthFactor);
    mOut.RD(style.obliqueAngle);
    mOut.RD(1.0); // tracking
    mOut.RL(style.backward ? 1 : 0);
    mOut.RL(style.upsideDown ? 1 : 0);
    mOut.RL(0); // vertical
    mOut.RL(0); // underlined
    mOut.RL(0); // overlined
    padded(mText.encode(style.fontName));
    padded({});
    end();
}

void DwgPictureRecorder::writePoints(int type, const std::vector<AcGePoint3d>& points) {
    begin(type);
    mOut.RL(static_cast<Adesk::UInt32>(points.size()));
    for (const AcGePoint3d& p : points)
        mOut.RD3(p);
    end();
}

// A text with its null, filled to a multiple of four bytes.
void DwgPictureRecorder::padded(const std::string& bytes) {
    mOut.bytes(reinterpret_cast<const Adesk::UInt8*>(bytes.data()), bytes.size());
    for (std::size_t i = bytes.size(); i == bytes.size() || i % 4 != 0; ++i)
        mOut.RC(0);
}
void DwgPictureRecorder::begin(int type) {
    mChunkAt = mOut.position();
    mOut.RL(0);
    mOut.RL(static_cast<Adesk::UInt32>(type));
    ++mCount;
}
void DwgPictureRecorder::end() {
    mOut.patchRL(mChunkAt, static_cast<Adesk::UInt32>((mOut.position() - mChunkAt) / 8));
}
