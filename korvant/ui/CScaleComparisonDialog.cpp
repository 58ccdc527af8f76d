#include "CScaleComparisonDialog.h"

#include "AcDbAnnotationScale.h"
#include "CDataExchange.h"
#include "CEditScaleDialog.h"
#include "Resource.h"
#include "scaleNumber.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

#include <memory>

BEGIN_MESSAGE_MAP(CScaleComparisonDialog, CDialog)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_SCALE_LIST, &CScaleComparisonDialog::OnRowChanged)
    ON_BN_CLICKED(IDC_HELP_BUTTON, &CScaleComparisonDialog::OnHelp)
END_MESSAGE_MAP()

namespace {
constexpr int kImageSize = 16;

struct ColumnRow {
    LPCTSTR title;
    int width, format;
};
constexpr ColumnRow kColumns[] = {
    {L"Aktív", 45, LVCFMT_CENTER}, {L"Korvant lépték", 110, LVCFMT_LEFT}, {L"ACAD lépték", 110, LVCFMT_LEFT},
    {L"Papír", 60, LVCFMT_LEFT},   {L"Rajz", 60, LVCFMT_LEFT},            {L"Állapot", 80, LVCFMT_CENTER},
};

AcDbObjectContextCollection* scalesOfDrawing(const AcDbDatabase* drawing) {
    const AcDbObjectContextManager* const manager = drawing != nullptr ? drawing->objectContextManager() : nullptr;
    return manager != nullptr ? manager->contextCollection(acdbAnnotationScaleCollectionName) : nullptr;
}

// A scale that cannot be (no name, or a length of nothing) is left out without a word: the list it comes
// from may hold anything.
void addScale(AcDbObjectContextCollection& scales, const AcDbAnnotationScale& pattern, const ScaleComparisonItem& item) {
    AcDbAnnotationScale scale;
    const bool isWhole = scale.copyFrom(&pattern) == Acad::eOk && scale.setName(item.name) == Acad::eOk &&
                         scale.setPaperUnits(item.paperUnits) == Acad::eOk && scale.setDrawingUnits(item.drawingUnits) == Acad::eOk;
    if (isWhole)
        scales.addContext(&scale);
}
} // namespace

CScaleComparisonDialog::CScaleComparisonDialog(std::vector<ScaleComparisonItem> items, CWnd* parent)
    : CDialog(IDD_SCALE_COMPARISON, parent), mItems(std::move(items)) {}

void CScaleComparisonDialog::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_SCALE_LIST, mList);
}

BOOL CScaleComparisonDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    mImages.Create(kImageSize, kImageSize, ILC_COLOR32 | ILC_MASK, 2, 0);
    for (const UINT id : {IDB_SCALE_ACTIVE, IDB_SCALE_INACTIVE}) {
        CBitmap image;
        image.LoadBitmap(id);
        mImages.Add(&image);
    }
    mList.SetImageList(&mImages, LVSIL_SMALL);
    mList.SetExtendedStyle(mList.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
    addColumns();
    for (const ScaleComparisonItem& item : mItems)
        addRow(item);
    return TRUE;
}

void CScaleComparisonDialog::addColumns() {
    int index = 0;
    for (const ColumnRow& column : kColumns)
        mList.InsertColumn(index++, column.title, column.format, column.width);
}

void CScaleComparisonDialog::addRow(const ScaleComparisonItem& item) {
    const int row = mList.InsertItem(mList.GetItemCount(), L"", item.matchesCurrent ? kActiveImage : kInactiveImage);
    mList.SetItemText(row, kListScale, item.scaleText.c_str());
    mList.SetItemText(row, kSource, item.source.c_str());
    showEdited(row);
}

void CScaleComparisonDialog::showEdited(int row) {
    const ScaleComparisonItem& item = mItems[static_cast<std::size_t>(row)];
    mList.SetItemText(row, kName, item.name.c_str());
    mList.SetItemText(row, kPaper, scaleNumber(item.paperUnits).c_str());
    mList.SetItemText(row, kDrawing, scaleNumber(item.drawingUnits).c_str());
}

void CScaleComparisonDialog::OnRowChanged(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto* const change = reinterpret_cast<const NMLISTVIEW*>(header);
    const bool becameSelected = (change->uNewState & LVIS_SELECTED) != 0 && (change->uOldState & LVIS_SELECTED) == 0;
    if (becameSelected && change->iItem >= 0 && change->iItem < static_cast<int>(mItems.size()))
        editRow(change->iItem);
}

// The drawing's own scales are not the module's to change.
void CScaleComparisonDialog::editRow(int row) {
    ScaleComparisonItem& item = mItems[static_cast<std::size_t>(row)];
    if (item.source == kScaleOfDrawing)
        return;
    CEditScaleDialog editor(item, this);
    if (editor.DoModal() != IDOK)
        return;
    item = editor.item();
    showEdited(row);
}

void CScaleComparisonDialog::OnOK() {
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectContextCollection* const scales = scalesOfDrawing(drawing);
    if (scales != nullptr) {
        const std::unique_ptr<AcDbAnnotationScale> current(drawing->cannoscale());
        for (const ScaleComparisonItem& item : mItems)
            if (item.source != kScaleOfDrawing && current != nullptr && !scales->hasContext(item.name))
                addScale(*scales, *current, item);
    }
    CDialog::OnOK();
}

void CScaleComparisonDialog::OnHelp() { showHelpTopic(this, L"Settings_Scale.html"); }
