// Reactors of the editor: what the module prints of variables, and the export that ends tracking.
#include "TrfcEditorReactors.h"

#include "AcEdAds.h"
#include "AcUtText.h"
#include "TrfcScaleTracking.h"

#include <memory>

namespace {

std::unique_ptr<CDocActivatedReactor>& documentReactorSlot() {
    static std::unique_ptr<CDocActivatedReactor> reactor;
    return reactor;
}

const ACHAR* yesFrom(int value, int lowestYes) {
    return value < lowestYes ? L"no" : L"yes";
}

void printDocument(const ACHAR* event, const AcApDocument* document) {
    acutPrintf(L"\r\nDokumentum neve (%s): %s\r\n", event, document != nullptr ? document->fileName() : L"");
}

} // namespace

CEditorReactor* CEditorReactor::instance() {
    static CEditorReactor* reactor = new CEditorReactor; // never removed, so it must outlive the editor
    return reactor;
}

void CEditorReactor::sysVarChanged(const ACHAR* name, bool) {
    resbuf value{};
    if (acedGetVar(name, &value) != RTNORM)
        return;
    if (acutWcscmp(name, L"ANNOAUTOSCALE") == 0)
        acutPrintf(L"\r\nAuto scaling: %s\r\n", yesFrom(value.resval.rint, 0));
    else if (acutWcscmp(name, L"ANNOALLVISIBLE") == 0)
        acutPrintf(L"\r\nAnno visible: %s\r\n", yesFrom(value.resval.rint, 1));
    if (value.restype == RTSTR)
        acutDelString(value.resval.rstring);
}

void CEditorReactor::commandEnded(const ACHAR* globalName) {
    if (acutWcscmp(globalName, L"EXPORTC3DDRAWING") == 0)
        scaleTrackingEnabled = false;
}

void CDocActivatedReactor::add() {
    if (documentReactorSlot() != nullptr)
        return;
    documentReactorSlot() = std::make_unique<CDocActivatedReactor>();
    acDocManagerPtr()->addReactor(documentReactorSlot().get());
}

void CDocActivatedReactor::remove() {
    if (documentReactorSlot() == nullptr)
        return;
    acDocManagerPtr()->removeReactor(documentReactorSlot().get());
    documentReactorSlot().reset();
}

void CDocActivatedReactor::documentCreated(AcApDocument* document) {
    printDocument(L"documentCreated", document);
}

void CDocActivatedReactor::documentToBeActivated(AcApDocument* document) {
    printDocument(L"documentToBeActivated", document);
}

void CDocActivatedReactor::documentActivated(AcApDocument* document) {
    printDocument(L"documentActivated", document);
}

AcApDataManager<CDocData>& docDataManager() {
    static AcApDataManager<CDocData> manager;
    return manager;
}
