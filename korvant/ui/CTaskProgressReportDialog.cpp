#include "CTaskProgressReportDialog.h"

#include "AcDbEntity.h"
#include "AcEdReactors.h"
#include "AcUtText.h"
#include "CDataExchange.h"
#include "CButton.h"
#include "CFileDialog.h"
#include "Resource.h"
#include "TrfcDrawingUtils.h"
#include "WinTextFile.h"

namespace {
constexpr int kScrollBarRoom = 20; // pixels
constexpr int kObjectPercent = 45;
} // namespace

BEGIN_MESSAGE_MAP(CTaskProgressReportDialog, CTaskProgressDialog)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_REPORT_LIST, &CTaskProgressReportDialog::OnReportChanged)
    ON_BN_CLICKED(IDC_SAVE_REPORT, &CTaskProgressReportDialog::OnSaveReport)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CTaskProgressReportDialog::CTaskProgressReportDialog() : CTaskProgressReportDialog(IDD_TASK_REPORT) {}

CTaskProgressReportDialog::CTaskProgressReportDialog(UINT templateId) : CTaskProgressDialog(templateId) {}

CTaskProgressReportDialog::~CTaskProgressReportDialog() = default;

void CTaskProgressReportDialog::DoDataExchange(CDataExchange* exchange) {
    CTaskProgressDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_REPORT_LIST, mReportList);
}

BOOL CTaskProgressReportDialog::OnInitDialog() {
    CTaskProgressDialog::OnInitDialog();
    mReportList.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    CRect client;
    mReportList.GetClientRect(client);
    const int objectWidth = client.Width() * kObjectPercent / 100;
    mReportList.InsertColumn(0, L"Korvant objektum", LVCFMT_LEFT, objectWidth);
    mReportList.InsertColumn(1, L"Leírás", LVCFMT_LEFT, client.Width() - objectWidth - kScrollBarRoom);
    CheckDlgButton(IDC_SHOW_SELECTED, BST_CHECKED);
    for (int row = 0; row < reportCount(); ++row)
        addRow(row);
    return TRUE;
}

// ---- rows -----------------------------------------------------------------------------------
void CTaskProgressReportDialog::addReport(const std::wstring& objectType, const std::wstring& description, const std::wstring& id) {
    const bool hasObject = objectType != kReportWithoutObject;
    mObjectTypes.push_back(hasObject ? objectType : id);
    mDescriptions.push_back(description);
    mIds.push_back(hasObject ? id : std::wstring());
    if (mReportList.IsWindow())
        addRow(reportCount() - 1);
}

void CTaskProgressReportDialog::addRow(int row) {
    const auto place = static_cast<std::size_t>(row);
    mReportList.InsertItem(row, mObjectTypes[place].c_str());
    mReportList.SetItemText(row, 1, mDescriptions[place].c_str());
}

// ---- the object in the drawing ----------------------------------------------------------------
void CTaskProgressReportDialog::OnReportChanged(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto* const change = reinterpret_cast<const NMLISTVIEW*>(header);
    const bool becameSelected = (change->uNewState & LVIS_SELECTED) != 0 && (change->uOldState & LVIS_SELECTED) == 0;
    if (becameSelected && IsDlgButtonChecked(IDC_SHOW_SELECTED) == BST_CHECKED && change->iItem >= 0 && change->iItem < reportCount())
        showObject(mIds[static_cast<std::size_t>(change->iItem)]);
}

namespace {
// The entity of that handle in the working drawing, open for read; null where there is none (any more).
AcDbEntity* openByHandle(const std::wstring& handle) {
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    AcDbEntity* entity = nullptr;
    if (database == nullptr || database->getAcDbObjectId(id, false, AcDbHandle(handle.c_str())) != Acad::eOk)
        return nullptr;
    return acdbOpenObject(entity, id, AcDb::kForRead) == Acad::eOk ? entity : nullptr;
}
} // namespace

// The zoom is left to the command line, which takes it when this window has let go.
void CTaskProgressReportDialog::showObject(const std::wstring& handle) {
    releaseShownObject();
    AcDbEntity* const entity = openByHandle(handle);
    if (entity == nullptr)
        return;
    entity->highlight();
    mShownHandle = handle;
    AcDbExtents extents;
    const Acad::ErrorStatus es = entity->getGeomExtents(extents);
    entity->close();
    reportError(es, L"acdbOpenObject");
    if (es != Acad::eOk)
        return;
    const AcGePoint3d lower = extents.minPoint(), upper = extents.maxPoint();
    const std::wstring zoom = acFormat(L"_zoom %f,%f %f,%f\n", lower.x, lower.y, upper.x, upper.y);
    acDocManager->sendStringToExecute(curDoc(), zoom.c_str(), true, false, false);
}

// Only the object of the row selected last is highlighted.
void CTaskProgressReportDialog::releaseShownObject() {
    if (AcDbEntity* const entity = openByHandle(mShownHandle)) {
        entity->unhighlight();
        entity->close();
    }
    mShownHandle.clear();
}

void CTaskProgressReportDialog::OnDestroy() {
    releaseShownObject();
    CTaskProgressDialog::OnDestroy();
}

// ---- the saved list -----------------------------------------------------------------------------
void CTaskProgressReportDialog::OnSaveReport() {
    CFileDialog dialog(FALSE, L"txt", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, L"Szöveges állományok (*.txt)|*.txt||", this);
    if (dialog.DoModal() == IDOK)
        writeReport(dialog.GetPathName());
}

// Values stand as they are: a comma in one is not marked. A file that cannot be written is left alone,
// and the list stands in the window as before.
void CTaskProgressReportDialog::writeReport(LPCTSTR path) const {
    WinTextFile file;
    if (!file.open(path, L"w,ccs=UTF-8"))
        return;
    file.puts(L"Sorszám,Korvant objektum,Leírás,ID\n");
    for (std::size_t row = 0; row < mIds.size(); ++row)
        file.printf(L"%d,%s,%s,%s\n", static_cast<int>(row) + 1, mObjectTypes[row].c_str(), mDescriptions[row].c_str(), mIds[row].c_str());
    file.close();
}
