// The grips of an entity class as a table of rows: name, place, glyph, what a drag and a click do, when it
// is shown. One table serves all that the host asks of grips: their places, the moves and the end of a drag,
// clicks, glyphs.
//
// The class E supplies
//     static std::span<const TrfcGripGroup<E>> gripGroups();
// and, where a drag changes its picture, setActiveGrip(const TrfcGripAppData&) and clearActiveGrip().
#pragma once

#include "TrfcGrips.h"

#include <optional>
#include <span>
#include <type_traits>

// Where a grip stands and what it carries.
struct TrfcGripPlace {
    AcGePoint3d at;
    AcGeVector3d vector{};                        // direction of the glyph; what a drag counts from
    std::optional<AcGePoint3d> from = std::nullopt; // the point in the grip's data, where it is not the place itself
};

// Draws a grip at its place; mode: 1 hover, 2 hot, else resting; size in drawing units.
using TrfcGripGlyph = void (*)(AcGiWorldDraw* worldDraw, int mode, const TrfcGripAppData& grip, const AcGePoint3d& at, double size);
// One of the glyphs of TrfcGrips.h, those with a direction taking the grip's vector.
template <auto Draw> void gripGlyph(AcGiWorldDraw* worldDraw, int mode, const TrfcGripAppData& grip, const AcGePoint3d& at, double size) {
    if constexpr (std::is_invocable_v<decltype(Draw), AcGiCommonDraw*, AcGiGeometry&, int, const AcGePoint3d&, double, const AcGeVector3d&>)
        Draw(worldDraw, worldDraw->geometry(), mode, at, size, grip.vector);
    else
        Draw(worldDraw, worldDraw->geometry(), mode, at, size);
}

enum TrfcGripPart : unsigned {
    kGripStatus = 1,       // the entity hears of the end of a drag
    kGripNoRubberBand = 2, // no line from where the drag began
    kGripNoKeywords = 4,   // no other grip modes while it is dragged
    kGripHalfSize = 8,     // the glyph at half the size
};

// One kind of grip. A row of a repeated group is asked with the number of the repetition.
template <class E> struct TrfcGripRow {
    const ACHAR* name;
    TrfcGripPlace (*place)(const E& entity, int number);
    unsigned parts = 0;                        // of TrfcGripPart
    TrfcGripGlyph glyph = nullptr;             // the host's own when null
    bool (*shown)(const E& entity) = nullptr;  // always when null
    // The drag by the vector, from where the grip stood when it began.
    void (*drag)(E& entity, const TrfcGripAppData& grip, const AcGeVector3d& vector) = nullptr;
    // The drag ended and was not aborted.
    void (*drop)(E& entity, const TrfcGripAppData& grip) = nullptr;
    void (*click)(E& entity, const TrfcGripAppData& grip) = nullptr;
};

// Rows that stand once, or as often as count says: row by row within a repetition.
template <class E> struct TrfcGripGroup {
    std::span<const TrfcGripRow<E>> rows;
    int (*count)(const E& entity) = nullptr; // once, without a number, when null
};

template <class E> class TrfcGripTable {
public:
    // The grips of the entity, for subGetGripPoints.
    static void append(const E& entity, AcDbGripDataPtrArray& grips) {
        for (const TrfcGripGroup<E>& group : E::gripGroups()) {
            const bool single = group.count == nullptr;
            const int count = single ? 1 : group.count(entity);
            for (int i = 0; i < count; ++i)
                for (const TrfcGripRow<E>& row : group.rows)
                    if (row.shown == nullptr || row.shown(entity))
                        grips.append(makeGrip(row, row.place(entity, i), single ? -1 : i));
        }
    }

    // One move of a drag, for subMoveGripPointsAt; the entity is open for write.
    static void move(E& entity, const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector) {
        if (gripAppData.isEmpty() || gripAppData.first() == nullptr)
            return;
        // A copy: the grip may go before the drag ends.
        const TrfcGripAppData grip = *static_cast<const TrfcGripAppData*>(gripAppData.first());
        if constexpr (requires { entity.setActiveGrip(grip); })
            entity.setActiveGrip(grip);
        const TrfcGripRow<E>* row = find(grip.name);
        if (row != nullptr && row->drag != nullptr)
            row->drag(entity, grip, vector);
    }

private:
    static const TrfcGripRow<E>* find(const std::wstring& name) {
        for (const TrfcGripGroup<E>& group : E::gripGroups())
            for (const TrfcGripRow<E>& row : group.rows)
                if (name == row.name)
                    return &row;
        return nullptr;
    }

    static AcDbGripData* makeGrip(const TrfcGripRow<E>& row, const TrfcGripPlace& place, int number) {
        AcDbGripData* grip = newGrip(TrfcGripAppData(row.name, place.from.value_or(place.at), place.vector, number), place.at);
        if ((row.parts & kGripStatus) != 0)
            grip->setGripOpStatFunc(status);
        if (row.glyph != nullptr)
            grip->setWorldDraw(draw);
        if (row.click != nullptr)
            grip->setHotGripFunc(hot);
        grip->setRubberBandLineDisabled((row.parts & kGripNoRubberBand) != 0);
        grip->setAreModeKeywordsDisabled((row.parts & kGripNoKeywords) != 0);
        return grip;
    }

    static void endDrag(E& entity) {
        if constexpr (requires { entity.clearActiveGrip(); })
            entity.clearActiveGrip();
    }

    // ---- what the host calls; an entity that cannot be opened for write is left alone
    static void status(AcDbGripData* grip, const AcDbObjectId& id, AcDbGripOperations::GripStatus happened) {
        const bool ended = happened == AcDbGripOperations::kGripEnd;
        const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
        if (data == nullptr || (!ended && happened != AcDbGripOperations::kGripAbort))
            return;
        const AcDbObjectPointer<E> entity(id, AcDb::kForWrite);
        if (!entity)
            return;
        endDrag(*entity.object());
        const TrfcGripRow<E>* row = find(data->name);
        if (ended && row != nullptr && row->drop != nullptr)
            row->drop(*entity.object(), *data);
        entity->recordGraphicsModified(true);
    }

    static AcDbGripOperations::ReturnStatus hot(AcDbGripData* grip, const AcDbObjectId& id, int) {
        const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
        const AcDbObjectPointer<E> entity(id, AcDb::kForWrite);
        if (data != nullptr && entity) {
            endDrag(*entity.object());
            const TrfcGripRow<E>* row = find(data->name);
            if (row != nullptr && row->click != nullptr)
                row->click(*entity.object(), *data);
            entity->recordGraphicsModified(true);
        }
        return AcDbGripOperations::GripHotToWarm;
    }

    static bool draw(AcDbGripData* grip, AcGiWorldDraw* worldDraw, const AcDbObjectId&, AcDbGripOperations::DrawType type, AcGePoint3d*, double size) {
        const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
        const TrfcGripRow<E>* row = data != nullptr ? find(data->name) : nullptr;
        if (row != nullptr && row->glyph != nullptr)
            row->glyph(worldDraw, type, *data, grip->gripPoint(), (row->parts & kGripHalfSize) != 0 ? size / 2.0 : size);
        return true;
    }
};
