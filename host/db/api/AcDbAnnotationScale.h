// Annotation scales: the drawing's scale list and the contexts it is kept in.
#pragma once

#include "AcDbDatabase.h"

class AcDbObjectContext : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContext);
    virtual Acad::ErrorStatus getName(std::wstring& name) const = 0;
    virtual Acad::ErrorStatus setName(const std::wstring& name) = 0;
    virtual std::wstring collectionName() const = 0;
};

// "1:500" is paper 1, drawing 0.5 where a drawing unit is a metre and a paper unit a millimetre.
class AcDbAnnotationScale : public AcDbObjectContext {
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotationScale);
    Acad::ErrorStatus getName(std::wstring& name) const override;
    Acad::ErrorStatus setName(const std::wstring& name) override;
    std::wstring collectionName() const override;
    Acad::ErrorStatus getPaperUnits(double& units) const;
    Acad::ErrorStatus setPaperUnits(double units); // eInvalidInput unless above 0 and finite
    Acad::ErrorStatus getDrawingUnits(double& units) const;
    Acad::ErrorStatus setDrawingUnits(double units);
    Acad::ErrorStatus getScale(double& scale) const; // paper / drawing
    Acad::ErrorStatus copyFrom(const AcRxObject* other);
    AcDbObjectId scaleObjectId() const { return mObject; } // the file object behind it, null when none yet

private:
    friend struct DbObjectAccess;
    std::wstring mName;
    double mPaper = 1.0, mDrawing = 1.0;
    AcDbObjectId mObject;
};

class AcDbObjectContextCollectionIterator {
public:
    virtual ~AcDbObjectContextCollectionIterator() = default;
    virtual Acad::ErrorStatus start() = 0;
    virtual bool done() const = 0;
    virtual bool next() = 0;
    virtual Acad::ErrorStatus getContext(AcDbObjectContext*& context) const = 0; // a copy, the caller's
};
class AcDbObjectContextCollection : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextCollection);
    ~AcDbObjectContextCollection() override = default;
    virtual std::wstring name() const;
    virtual AcDbObjectContext* getContext(const std::wstring& name) const; // a copy, the caller's; null when absent
    virtual bool hasContext(const std::wstring& name) const;
    virtual Acad::ErrorStatus addContext(const AcDbObjectContext* context); // takes a copy
    virtual Acad::ErrorStatus removeContext(const std::wstring& name);
    virtual AcDbObjectContextCollectionIterator* newIterator() const; // the caller's
};
class AcDbObjectContextManager {
public:
    virtual ~AcDbObjectContextManager() = default;
    virtual AcDbObjectContextCollection* contextCollection(const std::wstring& name) const = 0; // owned by the database
};
inline const std::wstring acdbAnnotationScaleCollectionName = L"ACDB_ANNOTATIONSCALES";

// The file object of a scale, in the dictionary ACAD_SCALELIST.
class AcDbScale : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbScale);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    std::wstring mName;
    double mPaper = 1.0, mDrawing = 1.0;
    bool mUnitScale = false;
};
// A named text of the drawing, in the dictionary AcDbVariableDictionary (CANNOSCALE lives there).
class AcDbDictionaryVar : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionaryVar);
    std::wstring value() const { return mValue; }
    Acad::ErrorStatus setValue(const ACHAR* value);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    std::wstring mValue;
    Adesk::UInt8 mSchema = 0;
};

class AcDbAnnotationScaleReactor {
public:
    virtual ~AcDbAnnotationScaleReactor() = default;
    // initializing: the drawing is being set up and has no change to follow.
    virtual void annotationScaleChanged(AcDbDatabase* database, AcDbObjectId viewport, AcDbAnnotationScale* scale, bool initializing) = 0;
};
void acdbAddAnnotationScaleReactor(AcDbAnnotationScaleReactor* reactor); // not owned
void acdbRemoveAnnotationScaleReactor(AcDbAnnotationScaleReactor* reactor);
