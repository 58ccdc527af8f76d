// The table of system variables. One row a variable.
#include "AcDbAnnotationScale.h"
#include "EdDocuments.h"
#include "input/EdParse.h"
#include "EdProperties.h"
#include "input/EdPrompt.h"
#include "EdSysVars.h"
#include "EdView.h"

#include <functional>
#include <memory>

namespace {
using Db = AcDbDatabase;
std::wstring statusText(Acad::ErrorStatus es) {
    return es == Acad::eOk ? L"" : acadErrorStatusText(es);
}
std::wstring textOf(const EdVar& value) {
    return std::get<std::wstring>(value);
}
short shortOf(const EdVar& value) {
    return std::get<short>(value);
}
double realOf(const EdVar& value) {
    return std::get<double>(value);
}

template <class Table> std::wstring setByName(Db& db, const std::wstring& name, Acad::ErrorStatus (Db::*set)(AcDbObjectId), const wchar_t* what) {
    const AcDbObjectId id = edFindRecord<Table>(db, name);
    return id.isNull() ? L"Cannot find " + std::wstring(what) + L" \"" + name + L"\"." : statusText((db.*set)(id));
}
EdVar getScaleName(Db& db) {
    const std::unique_ptr<AcDbAnnotationScale> scale(db.cannoscale());
    std::wstring name;
    if (scale)
        scale->getName(name);
    return name;
}
std::wstring setScaleName(Db& db, const EdVar& value) {
    const AcDbObjectContextCollection* const scales = db.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
    const std::unique_ptr<AcDbObjectContext> context(scales != nullptr ? scales->getContext(textOf(value)) : nullptr);
    const auto* const scale = dynamic_cast<const AcDbAnnotationScale*>(context.get());
    if (scale == nullptr)
        return L"\"" + textOf(value) + L"\" is not in the scale list of the drawing.";
    return statusText(db.setCannoscale(scale));
}
EdVar getScaleValue(Db& db) {
    const std::unique_ptr<AcDbAnnotationScale> scale(db.cannoscale());
    double value = 1.0;
    if (scale)
        scale->getScale(value);
    return value;
}
std::wstring setColorName(Db& db, const EdVar& value) {
    const auto color = edParseColor(textOf(value));
    return color ? statusText(db.setCecolor(*color)) : L"A colour is a number from 1 to 255, a name, BYLAYER, BYBLOCK or red,green,blue.";
}
std::wstring setWeight(Db& db, const EdVar& value) {
    const auto weight = edNearestLineWeight(shortOf(value));
    return weight ? statusText(db.setCelweight(*weight)) : L"A line weight is a number of 1/100 mm from the list, -1, -2 or -3.";
}
std::wstring setPositive(double value, const std::function<Acad::ErrorStatus(double)>& set) {
    return value > 0.0 ? statusText(set(value)) : L"Value must be positive and nonzero.";
}
EdVar documentText(std::wstring (EdDocument::*part)() const) {
    const EdDocument* const document = EdDocuments::instance().current();
    return document != nullptr ? (document->*part)() : std::wstring();
}

std::vector<EdVarRow> makeRows() {
    const EdVar none = std::wstring();
    const auto v = [](int value) { return EdVar(static_cast<short>(value)); };
    return {
        // ---- of the drawing
        {L"CLAYER", none, false, [](Db& db) -> EdVar { return edRecordName(db.clayer()); },
         [](Db& db, const EdVar& x) { return setByName<AcDbLayerTable>(db, textOf(x), &Db::setClayer, L"layer"); }},
        {L"CELTYPE", none, false, [](Db& db) -> EdVar { return edRecordName(db.celtype()); },
         [](Db& db, const EdVar& x) { return setByName<AcDbLinetypeTable>(db, textOf(x), &Db::setCeltype, L"linetype"); }},
        {L"TEXTSTYLE", none, false, [](Db& db) -> EdVar { return edRecordName(db.textstyle()); },
         [](Db& db, const EdVar& x) { return setByName<AcDbTextStyleTable>(db, textOf(x), &Db::setTextstyle, L"text style"); }},
        {L"CECOLOR", none, false, [](Db& db) -> EdVar { return edColorName(db.cecolor()); }, setColorName},
        {L"CELWEIGHT", v(-1), false, [](Db& db) -> EdVar { return static_cast<short>(db.celweight()); }, setWeight},
        {L"CELTSCALE", 1.0, false, [](Db& db) -> EdVar { return db.celtscale(); },
         [](Db& db, const EdVar& x) { return setPositive(realOf(x), [&](double d) { return db.setCeltscale(d); }); }},
        {L"LTSCALE", 1.0, false, [](Db& db) -> EdVar { return db.ltscale(); },
         [](Db& db, const EdVar& x) { return setPositive(realOf(x), [&](double d) { return db.setLtscale(d); }); }},
        {L"TEXTSIZE", 2.5, false, [](Db& db) -> EdVar { return db.textsize(); },
         [](Db& db, const EdVar& x) { return setPositive(realOf(x), [&](double d) { return db.setTextsize(d); }); }},
        {L"MEASUREMENT", v(1), false, [](Db& db) -> EdVar { return static_cast<short>(db.measurement()); },
         [](Db& db, const EdVar& x) { return statusText(db.setMeasurement(shortOf(x))); }, 0.0, 1.0},
        {L"INSBASE", AcGePoint3d(), false, [](Db& db) -> EdVar { return db.insbase(); },
         [](Db& db, const EdVar& x) { return statusText(db.setInsbase(std::get<AcGePoint3d>(x))); }},
        {L"EXTMIN", AcGePoint3d(), true, [](Db& db) -> EdVar { const AcDbExtents e = db.extents(); return e.isValid() ? e.minPoint() : AcGePoint3d(1e20, 1e20, 1e20); }},
        {L"EXTMAX", AcGePoint3d(), true, [](Db& db) -> EdVar { const AcDbExtents e = db.extents(); return e.isValid() ? e.maxPoint() : AcGePoint3d(-1e20, -1e20, -1e20); }},
        {L"CANNOSCALE", none, false, getScaleName, setScaleName},
        {L"CANNOSCALEVALUE", 1.0, true, getScaleValue},
        {L"DBMOD", v(0), true, [](Db& db) -> EdVar { return static_cast<short>(db.hasChangedSinceSave() ? 1 : 0); }},
        {L"DWGNAME", none, true, [](Db&) -> EdVar { return documentText(&EdDocument::title); }},
        {L"DWGPREFIX", none, true, [](Db&) -> EdVar { return documentText(&EdDocument::folder); }},
        {L"DWGTITLED", v(0), true, [](Db&) -> EdVar { const EdDocument* d = EdDocuments::instance().current(); return static_cast<short>(d != nullptr && d->hasFile() ? 1 : 0); }},
        {L"VIEWCTR", AcGePoint3d(), true, [](Db& db) -> EdVar { return edView(db).center; }},
        {L"VIEWSIZE", 297.0, true, [](Db& db) -> EdVar { return edView(db).height; }},
        {L"HANDSEED", none, true, [](Db& db) -> EdVar { return db.handseed().text(); }},
        // ---- of the session
        {L"ACADVER", std::wstring(L"15.0"), true},
        {L"ANNOALLVISIBLE", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"ANNOAUTOSCALE", v(-4), false, nullptr, nullptr, -4.0, 4.0},
        {L"APERTURE", v(10), false, nullptr, nullptr, 1.0, 50.0},
        {L"ATTDIA", v(0), false, nullptr, nullptr, 0.0, 1.0},
        {L"ATTREQ", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"CMDECHO", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"CTAB", std::wstring(L"Model"), true},
        {L"CVPORT", v(2), true},
        {L"EXPERT", v(0), false, nullptr, nullptr, 0.0, 5.0},
        {L"FILEDIA", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"GRIPCOLOR", v(150), false, nullptr, nullptr, 1.0, 255.0},
        {L"GRIPHOT", v(12), false, nullptr, nullptr, 1.0, 255.0},
        {L"GRIPHOVER", v(11), false, nullptr, nullptr, 1.0, 255.0},
        {L"GRIPS", v(1), false, nullptr, nullptr, 0.0, 2.0},
        {L"GRIPSIZE", v(5), false, nullptr, nullptr, 1.0, 255.0},
        {L"HIGHLIGHT", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"HPANG", 0.0},
        {L"HPNAME", std::wstring(L"ANSI31")},
        {L"HPSCALE", 1.0, false, nullptr, nullptr, 1e-9, 1e9},
        {L"LASTPOINT", AcGePoint3d(), false, [](Db&) -> EdVar { return edLastPoint(); },
         [](Db&, const EdVar& x) { edSetLastPoint(std::get<AcGePoint3d>(x)); return std::wstring(); }},
        {L"MIRRTEXT", v(0), false, nullptr, nullptr, 0.0, 1.0},
        {L"NOMUTT", v(0), false, nullptr, nullptr, 0.0, 1.0},
        {L"OSMODE", v(4133), false, nullptr, nullptr, 0.0, 32767.0},
        {L"PICKADD", v(1), false, nullptr, nullptr, 0.0, 2.0},
        {L"PICKBOX", v(3), false, nullptr, nullptr, 0.0, 50.0},
        {L"PICKFIRST", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"PROXYSHOW", v(1), false, nullptr, nullptr, 0.0, 2.0},
        {L"REGENMODE", v(1), false, nullptr, nullptr, 0.0, 1.0},
        {L"TILEMODE", v(1), true},
        {L"TRUSTEDPATHS", none, false, nullptr, nullptr, 0.0, 0.0, true},
    };
}
} // namespace

const std::vector<EdVarRow>& edVarRows() {
    static const std::vector<EdVarRow> theRows = makeRows();
    return theRows;
}
