// LINETYPE, STYLE, COLOR.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

namespace {
void listLinetypes(AcDbDatabase& db) {
    edSay(L"Name                 Description");
    for (const AcDbObjectId id : edRecordsByName(db, AcDbLinetypeTable::desc())) {
        const AcDbObjectPointer<AcDbLinetypeTableRecord> type(id);
        edSay(acFormat(L"%-20s %s", (L"\"" + type->name() + L"\"").c_str(), type->comments().c_str()));
    }
}
void loadLinetypes(AcDbDatabase& db) {
    std::wstring names;
    if (!EdPrompt(L"Enter linetype(s) to load: ").name(names).ok())
        return;
    const std::wstring usual = db.measurement() != 0 ? L"acadiso.lin" : L"acad.lin";
    const auto file = edAskPath(L"Enter name of linetype file to search <" + usual + L">: ", usual);
    if (!file)
        return;
    for (const std::wstring& part : edSplitAt(names, L',')) {
        const std::wstring name = edTrim(part);
        const bool had = !edFindRecord<AcDbLinetypeTable>(db, name).isNull();
        const Acad::ErrorStatus es = db.loadLineTypeFile(name.c_str(), edWithEnding(*file, L".lin").c_str());
        if (es == Acad::eFileNotFound)
            return edFail(L"The linetype file \"" + *file + L"\" cannot be found.");
        if (es == Acad::eUndefinedLineType)
            return edFail(L"The linetype \"" + name + L"\" is not in the file \"" + *file + L"\".");
        if (es != Acad::eOk && !(es == Acad::eDuplicateKey && had))
            return edFail(L"The linetype \"" + name + L"\" cannot be loaded: " + acadErrorStatusText(es));
        edSay(had ? L"Linetype \"" + name + L"\" is loaded already." : L"Linetype \"" + name + L"\" loaded.");
    }
}
} // namespace

void edCmdLinetype() {
    AcDbDatabase& db = *edDatabase();
    EdRefusals refusals;
    while (!EdInputStack::instance().refused()) {
        std::wstring answer;
        edSay(L"Current line type: \"" + edRecordName(db.celtype()) + L"\"");
        const EdReply reply = EdPrompt(L"Enter an option [?/Load/Set]: ", L"Load Set").word(answer);
        if (reply.none() || reply.cancelled())
            return;
        if (reply.is(L"Load")) {
            loadLinetypes(db);
        } else if (reply.is(L"Set")) {
            std::wstring name;
            if (!EdPrompt(L"Specify linetype name <" + edRecordName(db.celtype()) + L">: ").name(name).ok())
                continue;
            const std::wstring reason = EdSysVars::instance().set(L"CELTYPE", edTrim(name));
            if (!reason.empty())
                return edFail(reason);
        } else if (answer == L"?") {
            listLinetypes(db);
        } else if (!refusals.again(L"Invalid option keyword.", answer)) {
            return;
        }
        if (EdInputStack::instance().cancelled())
            return;
    }
}

namespace {
void listStyles(AcDbDatabase& db) {
    for (const AcDbObjectId id : edRecordsByName(db, AcDbTextStyleTable::desc())) {
        const AcDbObjectPointer<AcDbTextStyleTableRecord> style(id);
        if (!style->isShapeFile())
            edSay(L"Style name: \"" + style->name() + L"\"  Font: " + style->fileName() + L"  Height: " + edNumber(style->textSize()) + L"  Width factor: " +
                  edNumber(style->xScale()) + L"  Obliquing angle: " + edDegrees(style->obliquingAngle()));
    }
}
} // namespace

void edCmdStyle() {
    AcDbDatabase& db = *edDatabase();
    std::wstring name, font;
    const std::wstring current = edRecordName(db.textstyle());
    const EdReply first = EdPrompt(L"Enter name of text style or [?] <" + current + L">: ").name(name);
    if (first.cancelled())
        return;
    name = first.none() ? current : edTrim(name);
    if (name == L"?")
        return listStyles(db);
    if (!edIsSymbolName(name))
        return edFail(L"\"" + name + L"\" cannot be the name of a text style.");
    AcDbObjectId id = edFindRecord<AcDbTextStyleTable>(db, name);
    std::wstring oldFont = L"txt";
    double size = 0.0, width = 1.0, oblique = 0.0;
    if (const AcDbObjectPointer<AcDbTextStyleTableRecord> old(id); old) {
        oldFont = old->fileName();
        size = old->textSize();
        width = old->xScale();
        oblique = old->obliquingAngle();
    }
    if (EdPrompt(L"Specify full font name or font filename <" + oldFont + L">: ").name(font).cancelled() ||
        EdPrompt(L"Specify height of text <" + edNumber(size) + L">: ").noNegative().distance(size).cancelled() ||
        EdPrompt(L"Specify width factor <" + edNumber(width) + L">: ").noZero().noNegative().real(width).cancelled() ||
        EdPrompt(L"Specify obliquing angle <" + edDegrees(oblique) + L">: ").angle(oblique).cancelled())
        return;
    if (id.isNull()) {
        AcDbObjectPointer<AcDbTextStyleTable> table(db.textStyleTableId(), AcDb::kForWrite);
        auto* const record = new AcDbTextStyleTableRecord;
        record->setName(name.c_str());
        if (!table || table->add(id, record) != Acad::eOk) {
            delete record;
            return edFail(L"The text style cannot be made.");
        }
        record->close();
    }
    AcDbObjectPointer<AcDbTextStyleTableRecord> style(id, AcDb::kForWrite);
    style->setFileName(font.empty() ? oldFont.c_str() : edTrim(font).c_str());
    style->setTextSize(size);
    style->setXScale(width);
    style->setObliquingAngle(oblique);
    style.close();
    db.setTextstyle(id);
    edSay(L"\"" + name + L"\" is now the current text style.");
}

void edCmdColor() {
    EdRefusals refusals;
    for (;;) {
        std::wstring text;
        if (!EdPrompt(L"Enter default object color <" + edColorName(edDatabase()->cecolor()) + L">: ").name(text).ok())
            return;
        const std::wstring reason = EdSysVars::instance().set(L"CECOLOR", edTrim(text));
        if (reason.empty() || !refusals.again(reason, text))
            return;
    }
}
