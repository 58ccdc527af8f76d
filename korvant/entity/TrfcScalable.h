// Base of the entities that keep their size on paper: live fields for the current scale, and a
// filed snapshot of the same fields for every other scale the entity has been shown at.
#pragma once

#include "AcDbEntity.h"

#include <map>
#include <memory>
#include <vector>

class TrfcScalable : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(TrfcScalable);
    // currentScale comes from the working drawing.
    TrfcScalable();
    ~TrfcScalable() override;

    // ---- what a derived class supplies: its scale-dependent fields, one order for memory and file
    virtual Acad::ErrorStatus dwgOutScale(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInScale(AcDbDwgFiler* filer);
    // Carries one record from filer to filer, field by field; the entity is not touched.
    virtual Acad::ErrorStatus copyFiler(AcDbDwgFiler* source, AcDbDwgFiler* target) const;
    // The change of scale; the entity is open for write. Called after DOC_CURRENT_SCALE has changed,
    // and by the derived classes when they walk all scales. With the current denominator nothing is
    // exchanged, and geometryChanged runs.
    virtual void setScale(int newScale);
    // Derives the live fields for a scale without a record.
    virtual void createNewScale(int oldScale, int newScale);
    // Brings what hangs on the live fields up to date: sizes from the settings, owned blocks.
    virtual void geometryChanged();

    int currentScale() const; // denominator of the scale the live fields are valid for
    // Denominators that have a record, ascending; the record of the current scale is stale.
    std::vector<int> recordedScales() const;

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    // Drops the records of all other scales: a plain transformation moves the live geometry alone.
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    // Runs the change in every recorded scale and then in the current one, which is live again at the end.
    template <class Change> void inAllScales(const Change& change) {
        const int current = mCurrentScale;
        for (const int scale : recordedScales()) {
            if (scale == current)
                continue;
            setScale(scale);
            change();
        }
        setScale(current);
        change();
    }

private:
    int mCurrentScale;
    std::map<Adesk::Int32, std::unique_ptr<AcDbDeepCloneFiler>> mScaleRecords;
};
