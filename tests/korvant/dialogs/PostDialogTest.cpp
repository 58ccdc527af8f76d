#include "PostDialogTest.h"

#include "AcDbDatabase.h"
#include "CTreeCtrl.h"
#include "TestSupport.h"
#include "TrfcClasses.h"
#include "TrfcDocSettings.h"
#include "TrfcLamp.h"

#include <cstdlib>

namespace {
void registerClasses() {
    static bool done = false;
    if (done)
        return;
    done = true;
    registerTrfcClasses();
}

std::wstring titleOf(const std::wstring& blockFile) {
    const std::wstring name = blockFile.substr(blockFile.rfind(L'\\') + 1);
    return name.substr(0, name.rfind(L'.'));
}
} // namespace

PostDialog::PostDialog() : mEarlierDrawing(acdbHostApplicationServices()->workingDatabase()) {
    setenv("KORVANT_LOCALAPPDATA", testTempPath().c_str(), 1);
    registerClasses();
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
    makeSettings();
    makeLibrary();
    post = std::make_unique<TrfcPost>();
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Jelzőoszlop.dwg"));
    post->setPointA({100.0, 200.0, 0.0});
    post->setPointB({100.0, 210.0, 0.0});
    post->setPointD({110.0, 220.0, 0.0}, true);
}

PostDialog::~PostDialog() {
    mDialog.reset();
    post.reset();
    acdbHostApplicationServices()->setWorkingDatabase(mEarlierDrawing);
}

void PostDialog::makeSettings() {
    using namespace TrfcAppSettings;
    setAppString(APP_SYMBOL_BASE_PATH, library.path(L"Jelek"));
    setAppString(APP_POSTS_BASE_PATH, library.path(L"Oszlop"));
    setAppString(APP_TABLES_BASE_PATH, library.path(L"Tábla"));
    setAppString(APP_LAMPS_BASE_PATH, library.path(L"Lámpa"));
    setAppString(APP_BLOCK_BASE_PATH, library.path(L"Burkolat"));
    setAppString(APP_TABLES_COMPL_DIR, L"Kiegészítő");
    setAppString(APP_TABLES_UNIQ_DIR, L"Egyedi");
    setAppString(APP_TEMP_DIR_PATH, library.path(L"Ideiglenes"));
    setAppInt(BLOCK_VIEW_SIZE, 2);
    setDocDefault(DOC_CURRENT_SCALE, L"500");
    setDocDefault(DOC_BASEPOINTD, L"0.004");
    setDocDefault(DOC_POST_ALPHA0, L"45");
    setDocDefault(DOC_POST_MIN_AB, L"0.01");
    setDocDefault(DOC_POST_MIN_CD, L"0.005");
    setDocDefault(DOC_POST_DEFAULT_TYPE, L"0");
    setDocDefault(DOC_BLOCK_DEFAULT_TYPE, L"0");
    setDocDefault(DOC_BLOCK_ENT_DEFAULT_TYPE, L"0");
    setDocDefault(DOC_ANNO_HEIGHT, L"0.0025");
    setDocDefault(DOC_ANNO_MIN_DIST, L"0.02");
    setDocDefault(DOC_ANNO_TYPE, L"Standard");
    setDocDefault(DOC_ANNO_LINE_TYPE, L"ByLayer");
    for (const TrfcRealKey size : {DOC_EXISTING_TABLE_D, DOC_PLANNED_TABLE_D, DOC_EXISTING_LAMP_D, DOC_PLANNED_LAMP_D})
        setDocDefault(size, L"0.006");
    setDocDefault(DOC_AUTO_ORDER_TABLES, L"1");
}

void PostDialog::makeLibrary() {
    for (const wchar_t* const symbol : {L"TrfcBlockSelect", L"TrfcTableEliminate", L"TrfcTableCovered", L"TrfcBlockNotFound", L"TrfcBlockDefault"})
        library.add(std::wstring(L"Jelek\\") + symbol + L".dwg", "box 1 1\n");
    library.add(L"Oszlop\\Oszlopok\\Jelzőoszlop.dwg", "disk 0.5\nattdef AZON 17\n");
    library.add(L"Oszlop\\Oszlopok\\$Jelzőoszlop.dwg", "disk 0.4\nattdef AZON 17\n");
    library.add(L"Oszlop\\Oszlopok\\Vaskos.dwg", "disk 0.6\n");
    library.add(L"Oszlop\\attributes.xml", "<AttributeList><Attribute><Name>Talaj</Name><DefaultValue>beton</DefaultValue>"
                                          "<ValueList>beton;agyag</ValueList></Attribute></AttributeList>");
    for (const wchar_t* const sign : {L"A-010", L"B-020", L"C-030", L"D-040"})
        library.add(std::wstring(L"Tábla\\Jelzés\\") + sign + L".dwg", "box 1 1\nattdef FELIRAT -\n");
    library.add(L"Tábla\\Kiegészítő\\H-001.dwg", "box 1 0.5\n");
    library.add(L"Tábla\\Kiegészítő\\P-001.dwg", "box 1 0.5\n");
    library.add(L"Tábla\\Jelzés\\Többsoros.dwg", "box 1 1\nmattdef MEGJ x\n");
    library.add(L"Tábla\\Jelzés\\attributes.xml",
                "<AttributeList><Attribute><Name>Fólia</Name><DefaultValue>I.</DefaultValue><ValueList>I.;II.</ValueList></Attribute></AttributeList>");
    library.add(L"Lámpa\\Sárga\\Villogó.dwg", "disk 0.5\n");
}

void PostDialog::addTable(const std::wstring& file) {
    auto* const added = new TrfcTable(loadBlockTemplate(TrfcAppSettings::getAppString(APP_TABLES_BASE_PATH), file));
    ASSERT_EQ(post->signChain().appendBlockUpward(added), Acad::eOk);
}

std::vector<std::wstring> PostDialog::tables() const {
    std::vector<std::wstring> titles;
    for (int i = 0; i < post->signChain().size(); ++i)
        titles.push_back(titleOf(post->signChain().getAt(i)->descriptor().blockFile));
    return titles;
}

CPostPropertiesDlg& PostDialog::open(int page) {
    mDialog = std::make_unique<CPostPropertiesDlg>(*post, page);
    return *mDialog;
}

CWnd& PostDialog::control(int id) { return *mDialog->visiblePage()->GetDlgItem(id); }

std::wstring PostDialog::textOf(int id) {
    CString text;
    control(id).GetWindowText(text);
    return text.text();
}

std::wstring PostDialog::gridValue(const std::wstring& name) {
    for (int row = 0; row < grid().GetItemCount(); ++row)
        if (grid().GetItemText(row, 0).text() == name)
            return grid().GetItemText(row, 1).text();
    return L"(nincs)";
}

std::wstring PostDialog::pathTree() {
    auto& tree = static_cast<CTreeCtrl&>(control(IDC_PATH_TREE));
    std::wstring path;
    for (HTREEITEM item = tree.GetRootItem(); item != nullptr; item = tree.GetChildItem(item))
        path += (path.empty() ? L"" : L"/") + tree.GetItemText(item).text();
    return path;
}

void PostDialog::clickBlock(int index) {
    const AcGePoint3d center = post->signChain().getAt(index)->centroid();
    preview().clickAt(center);
}
