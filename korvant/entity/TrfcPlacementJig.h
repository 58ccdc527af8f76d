// The jig of every placement: asks stage by stage, each a row of a table, and adds the entity to the drawing
// when all were answered and the class confirms. The entity is the drawing's when it was appended, and
// released otherwise.
#pragma once

#include "AcEdJig.h"
#include "AfxApp.h"

#include <memory>
#include <span>
#include <string>

// What a stage was answered with: drawing units, radians.
struct TrfcPlacementAnswer {
    AcGePoint3d point;
    double number = 0.0; // an angle or a distance
};

template <class E> struct TrfcPlacementStage {
    unsigned prompt; // of the string table
    void (*update)(E& entity, const TrfcPlacementAnswer& answer);
};

template <class E> class TrfcPlacementJig : public AcEdJig {
public:
    // kNormal when the prompts were answered, whether or not the placement was confirmed; otherwise what
    // ended the drag. kCancel when the entity refuses to be placed.
    DragStatus run(std::unique_ptr<E> entity) {
        mEntity = entity.get();
        const DragStatus status = takeSymbol(*mEntity) ? dragAll() : kCancel;
        if (status == kNormal && confirm(*mEntity))
            mAppended = !append().isNull();
        if (mAppended) {
            mEntity->recordGraphicsModified(true);
            entity.release(); // the drawing's now
        }
        mEntity = nullptr;
        return status;
    }
    bool appended() const { return mAppended; }

    // The point of the stage; the cursor at rest on the last sampled point, of whatever stage, needs no redraw.
    DragStatus sampler() override { return samplePoint(static_cast<UserInputControls>(0)); }
    bool update() override {
        if (mStage < stages().size())
            stages()[mStage].update(*mEntity, mAnswers[mStage]);
        mDimData.removeAll();
        return true;
    }
    AcDbEntity* entity() const override { return mEntity; }
    AcDbDimDataPtrArray* dimData(double) override { return nullptr; }
    Acad::ErrorStatus setDimValue(const AcEdDimData*, double) override { return Acad::eOk; }

protected:
    virtual std::span<const TrfcPlacementStage<E>> stages() const = 0;
    // The symbol that the entity is dragged with; false, with a line, refuses the placement.
    virtual bool takeSymbol(E&) { return true; }
    // Before a stage is asked; the prompt's text, which a class may complete.
    virtual std::wstring promptOf(std::size_t stage) const { return AfxResourceString(stages()[stage].prompt); }
    virtual void beginStage(E&, std::size_t) {}
    virtual void endStage(E&, std::size_t) {}
    // After the last stage: true adds the entity to the drawing.
    virtual bool confirm(E&) = 0;

    DragStatus samplePoint(UserInputControls controls) {
        setUserInputControls(controls);
        setSpecialCursorType(kCrosshair);
        AcGePoint3d& point = mAnswers[mStage].point;
        const DragStatus status = acquirePoint(point);
        if (!(point == lastPoint())) {
            lastPoint() = point;
            return status;
        }
        return status == kNormal ? kNoChange : status;
    }
    std::size_t stage() const { return mStage; }
    TrfcPlacementAnswer& answer(std::size_t stage) { return mAnswers[stage]; }
    E& placed() const { return *mEntity; }

private:
    DragStatus dragAll() {
        mAnswers.assign(stages().size(), TrfcPlacementAnswer());
        for (mStage = 0; mStage < stages().size(); ++mStage) {
            setDispPrompt(L"%s", promptOf(mStage).c_str());
            setKeywordList(L"");
            beginStage(*mEntity, mStage);
            const DragStatus status = drag();
            if (status != kNormal)
                return status;
            endStage(*mEntity, mStage);
        }
        return kNormal;
    }
    // Kept between the runs of the class.
    static AcGePoint3d& lastPoint() {
        static AcGePoint3d point;
        return point;
    }

    std::size_t mStage = 0;
    std::vector<TrfcPlacementAnswer> mAnswers;
    AcDbDimDataPtrArray mDimData; // stays empty: the prompts show no dimensions
    E* mEntity = nullptr;
    bool mAppended = false;
};
