// The command handlers. A handler does only the first steps: it begins a placement, opens a
// dialog or calls the job that owns the work.
#include "TrfcCommands.h"

#include "AcDbDatabase.h"
#include "AcEdAds.h"
#include "AcUtText.h"
#include "CTrfcAboutDlg.h"
#include "CTrfcStateChangeDlg.h"
#include "TrfcAppSettings.h"
#include "showHelpTopic.h"
#include "TrfcBlockJig.h"
#include "TrfcEntityFamily.h"
#include "TrfcPostJig.h"
#include "TrfcScaleTracking.h"
#include "applyStateChange.h"
#include "checkSignOrder.h"

#include <array>
#include <iterator>
#include <memory>

bool trustedPathPending = false;
bool crossingOnCyclePath = false;

namespace {

// Commands that do not set scale tracking, so that KVSCALEOFF outlasts them, do without this.
void beginTracking() {
    scaleTrackingEnabled = true;
}

void beginTrusted() {
    beginTracking();
    if (!trustedPathPending)
        return;
    ensureTrustedPath();
    trustedPathPending = isTrustedPathMissing();
}

// The one honest line of a command whose job is not built yet.
void printNotBuilt(const ACHAR* localName) {
    acutPrintf(L"A %s parancs ebben a változatban még nem érhető el; a rajz nem változott.\n", localName);
}

std::wstring trustedPaths() {
    resbuf value{};
    if (acedGetVar(L"TRUSTEDPATHS", &value) != RTNORM || value.restype != RTSTR)
        return std::wstring();
    const std::wstring paths = value.resval.rstring != nullptr ? value.resval.rstring : L"";
    acutDelString(value.resval.rstring);
    return paths;
}

// The one selected entity, open for write; null when the pick-first selection is not a single one.
AcDbEntity* openSelectedEntity() {
    AcDbObjectIdArray ids;
    if (acedGetCurrentSelectionSet(ids) != Acad::eOk || ids.length() != 1)
        return nullptr;
    AcDbEntity* entity = nullptr;
    return acdbOpenObject(entity, ids[0], AcDb::kForWrite) == Acad::eOk ? entity : nullptr;
}

bool isCrossingAnswer(const ACHAR* answer) {
    const ACHAR first = answer[0];
    return first == L'\0' || first == L'g' || first == L'G' || first == L'k' || first == L'K';
}

// False when the prompt was cancelled.
bool askCrossingType() {
    std::array<ACHAR, 10> answer{L'?'}; // anything that is no answer, so that the first round asks
    while (!isCrossingAnswer(answer.data())) {
        if (acedGetString(0, L"Adja meg a gyalogátkelőhely típusát [Gyalogos/Kerékpárúton] <Gyalogos>: ", answer.data(), answer.size()) != RTNORM)
            return false;
    }
    crossingOnCyclePath = answer[0] == L'k' || answer[0] == L'K';
    return true;
}

void placePost() {
    beginTrusted();
    TrfcPostJig jig;
    jig.run(std::make_unique<TrfcPost>());
}
void scaleOff() {
    scaleTrackingEnabled = false;
}
void scaleOn() {
    scaleTrackingEnabled = true;
}
void placeCrossing() {
    beginTrusted();
    if (askCrossingType())
        printNotBuilt(L"KVZ");
}
bool gEarlierCrossingsRun = false; // KVTF's own flag; nothing reads it
void convertCrossings() {
    gEarlierCrossingsRun = true;
    printNotBuilt(L"KVTF");
}
void openSettings() {
    beginTrusted();
    printNotBuilt(L"KVB");
}
void placePostPair() {
    beginTrusted();
    printNotBuilt(L"KVK");
}
void openHelp() {
    beginTrusted();
    showHelpTopic(nullptr, L"Welcome.html");
}
void openAbout() {
    beginTrusted();
    CTrfcAboutDlg().DoModal();
}
void exportDatabase() {
    beginTracking();
    printNotBuilt(L"KVEXP");
}
void exportQuantities() {
    printNotBuilt(L"KVQ");
}
void exportXml() {
    beginTracking();
    printNotBuilt(L"KVSDF");
}
void changeState() {
    beginTrusted();
    if (CTrfcStateChangeDlg().DoModal() == IDOK)
        applyStateChange();
}
void checkSigns() {
    beginTracking();
    checkSignOrder();
}
void placeMarking() {
    beginTrusted();
    TrfcBlockJig jig;
    jig.run(std::make_unique<TrfcBlockEnt>());
}
void importDatabase() {
    beginTracking();
    printNotBuilt(L"KVIMP");
}
void openProperties() {
    beginTracking();
    AcDbEntity* entity = openSelectedEntity();
    if (entity == nullptr)
        return;
    if (const TrfcEntityFamily* family = familyOf(*entity)) {
        editOnClone(*entity, family->commandPage);
        entity->recordGraphicsModified(true);
    }
    entity->close();
}
void toggleStripeGrips() {
    beginTracking();
    if (AcDbEntity* entity = openSelectedEntity())
        entity->close(); // only a crossing has the flag
}
void runEarlierCrossing() {
    acedCommandS(RTSTR, L"KorvantCW", RTNONE);
}

} // namespace

bool isTrustedPathMissing() {
    return acToAnsi(trustedPaths()).find(acToAnsi(TrfcAppSettings::moduleDirectory())) == std::string::npos;
}

void ensureTrustedPath() {
    if (!isTrustedPathMissing())
        return;
    const std::wstring value = trustedPaths() + L";" + TrfcAppSettings::moduleDirectory();
    acedCommandS(RTSTR, L"TRUSTEDPATHS", RTSTR, value.c_str(), RTNONE);
}

const AcRxCommandRow kCommandRows[] = {
    {kCommandGroup, L"TrfcPost", L"KVO", 1, placePost},
    {kCommandGroup, L"TrfcScaleOFF", L"KVSCALEOFF", 1, scaleOff},
    {kCommandGroup, L"TrfcScaleON", L"KVSCALEON", 1, scaleOn},
    {kCommandGroup, L"TrfcCrossWalk", L"KVZ", 1, placeCrossing},
    {kCommandGroup, L"TrfcSzerkeszt", L"KVTF", 1, convertCrossings},
    {kCommandGroup, L"TrfcSettings", L"KVB", 1, openSettings},
    {kCommandGroup, L"TrfcPPair", L"KVK", 1, placePostPair},
    {kCommandGroup, L"TrfcHelp", L"KVS", 1, openHelp},
    {kCommandGroup, L"TrfcAbout", L"KVN", 1, openAbout},
    {kCommandGroup, L"TrfcExport", L"KVEXP", 1, exportDatabase},
    {kCommandGroup, L"TrfcQuantityExport", L"KVQ", 1, exportQuantities},
    {kCommandGroup, L"TrfcXMLExport", L"KVSDF", 1, exportXml},
    {kCommandGroup, L"TrfcStateChange", L"KVST", 1, changeState},
    {kCommandGroup, L"TrfcCheck", L"KVELL", 1, checkSigns},
    {kCommandGroup, L"TrfcBlock", L"KVBLOKK", 1, placeMarking},
    {kCommandGroup, L"TrfcImport", L"KVIMP", 1, importDatabase},
    {kCommandGroup, L"TrfcPostSettings", L"KVT", 1, openProperties},
    {kCommandGroup, L"TrfcCrossWalkSettings", L"KVTS", 1, toggleStripeGrips},
    {kEarlierCommandGroup, L"TrfcCrossWalk", L"KVG", 1, runEarlierCrossing},
};
const std::size_t kCommandCount = std::size(kCommandRows);
