// CANNOSCALE, SCALELISTEDIT, SETVAR.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbAnnotationScale.h"

namespace {
AcDbObjectContextCollection* scales() {
    return edDatabase()->objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
}
void listScales() {
    const std::unique_ptr<AcDbObjectContextCollectionIterator> it(scales()->newIterator());
    const std::wstring current = EdSysVars::instance().getText(L"CANNOSCALE");
    for (it->start(); !it->done(); it->next()) {
        AcDbObjectContext* context = nullptr;
        if (it->getContext(context) != Acad::eOk)
            continue;
        const std::unique_ptr<AcDbObjectContext> owned(context);
        const auto* const scale = dynamic_cast<const AcDbAnnotationScale*>(context);
        if (scale == nullptr)
            continue;
        std::wstring name;
        double paper = 0.0, drawing = 0.0;
        scale->getName(name);
        scale->getPaperUnits(paper);
        scale->getDrawingUnits(drawing);
        edSay(L"  \"" + name + L"\"  " + edNumber(paper, 8) + L" paper units = " + edNumber(drawing, 8) + L" drawing units" + (edSameWord(name, current) ? L"  (current)" : L""));
    }
}
void addScale() {
    std::wstring name;
    if (!EdPrompt(L"Enter name for new scale: ").name(name).ok())
        return;
    name = edTrim(name);
    if (scales()->hasContext(name))
        return edFail(L"A scale of the name \"" + name + L"\" is in the list already.");
    EdRefusals refusals;
    double paper = 0.0, drawing = 0.0;
    for (;;) {
        std::wstring ratio;
        if (!EdPrompt(L"Enter scale ratio (paper units:drawing units): ").noNull().name(ratio).ok())
            return;
        const auto parts = edSplitAt(ratio, L':');
        if (parts.size() == 2) {
            paper = edParseReal(edTrim(parts[0])).value_or(0.0);
            drawing = edParseReal(edTrim(parts[1])).value_or(0.0);
        }
        if (paper > 0.0 && drawing > 0.0)
            break;
        if (!refusals.again(L"A ratio is two positive numbers with a colon between them.", ratio))
            return;
    }
    AcDbAnnotationScale scale;
    scale.setName(name);
    scale.setPaperUnits(paper);
    scale.setDrawingUnits(drawing);
    if (const Acad::ErrorStatus es = scales()->addContext(&scale); es != Acad::eOk)
        edFail(std::wstring(L"The scale cannot be added: ") + acadErrorStatusText(es));
}
void deleteScale() {
    std::wstring name;
    if (!EdPrompt(L"Enter scale name to delete: ").name(name).ok())
        return;
    name = edTrim(name);
    if (edSameWord(name, EdSysVars::instance().getText(L"CANNOSCALE")))
        return edFail(L"The current scale cannot be deleted.");
    if (const Acad::ErrorStatus es = scales()->removeContext(name); es != Acad::eOk)
        edFail(es == Acad::eKeyNotFound ? L"There is no scale of the name \"" + name + L"\"." : std::wstring(L"The scale cannot be deleted: ") + acadErrorStatusText(es));
}
// The list of a new drawing; the current scale stays in it.
void resetScales() {
    const AcDbDatabase fresh(true, true);
    const std::wstring current = EdSysVars::instance().getText(L"CANNOSCALE");
    const auto namesOf = [](const AcDbObjectContextCollection& list) {
        std::vector<std::wstring> names;
        const std::unique_ptr<AcDbObjectContextCollectionIterator> it(list.newIterator());
        for (it->start(); !it->done(); it->next()) {
            AcDbObjectContext* context = nullptr;
            std::wstring name;
            if (it->getContext(context) == Acad::eOk && context->getName(name) == Acad::eOk)
                names.push_back(name);
            delete context;
        }
        return names;
    };
    const AcDbObjectContextCollection& usual = *fresh.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
    for (const std::wstring& name : namesOf(*scales()))
        if (!edSameWord(name, current) && !usual.hasContext(name))
            scales()->removeContext(name);
    for (const std::wstring& name : namesOf(usual))
        if (!scales()->hasContext(name)) {
            const std::unique_ptr<AcDbObjectContext> context(usual.getContext(name));
            scales()->addContext(context.get());
        }
}
} // namespace

void edCmdCAnnoScale() {
    EdRefusals refusals;
    for (;;) {
        std::wstring name;
        const std::wstring now = EdSysVars::instance().getText(L"CANNOSCALE");
        if (!EdPrompt(L"Enter new value for CANNOSCALE, or . for none <\"" + now + L"\">: ").name(name).ok())
            return;
        const std::wstring reason = EdSysVars::instance().set(L"CANNOSCALE", edTrim(name));
        if (reason.empty() || !refusals.again(reason, name))
            return;
    }
}

void edCmdScaleListEdit() {
    while (!EdInputStack::instance().refused()) {
        const EdReply reply = EdPrompt(L"Enter option [Add/Delete/List/Reset/Exit] <Exit>: ", L"Add Delete List Reset Exit").keyword();
        if (reply.cancelled() || reply.is(L"Exit"))
            return;
        if (reply.none())
            return;
        if (reply.is(L"Add"))
            addScale();
        else if (reply.is(L"Delete"))
            deleteScale();
        else if (reply.is(L"Reset"))
            resetScales();
        else
            listScales();
        if (EdInputStack::instance().cancelled())
            return;
    }
}

void edCmdSetVar() {
    EdRefusals refusals;
    for (;;) {
        std::wstring name;
        if (!EdPrompt(L"Enter variable name or [?]: ").word(name).ok())
            return;
        EdSysVars& vars = EdSysVars::instance();
        if (name == L"?") {
            for (const std::wstring& each : vars.names())
                edSay(acFormat(L"%-16s %s%s", each.c_str(), edVarText(*vars.get(each)).c_str(), vars.isReadOnly(each) ? L" (read only)" : L""));
            return;
        }
        if (vars.exists(name))
            return edAskVariable(name);
        if (!refusals.again(L"Unknown variable name \"" + name + L"\".", name))
            return;
    }
}
