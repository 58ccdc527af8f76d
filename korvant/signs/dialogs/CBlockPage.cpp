#include "CBlockPage.h"

#include "CDataExchange.h"
#include "CSelectTableDlg.h"
#include "Resource.h"
#include "TrfcAppSettings.h"
#include "TrfcBlock.h"
#include "fillAttributeList.h"

BEGIN_MESSAGE_MAP(CBlockPage, CPropertyPage)
    ON_NOTIFY(LVN_ENDLABELEDIT, IDC_ATTRIBUTE_LIST, &CBlockPage::OnGridEdited)
END_MESSAGE_MAP()

namespace {
std::wstring attributeText(const AcDbAttribute& attribute) {
    if (!attribute.isMTextAttribute())
        return attribute.textStringConst();
    const std::unique_ptr<AcDbMText> text(attribute.getMTextAttribute());
    return text != nullptr ? text->contentsText() : std::wstring();
}
} // namespace

void CBlockPage::DoDataExchange(CDataExchange* exchange) {
    CPropertyPage::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_PREVIEW, mPreview);
    DDX_Control(exchange, IDC_PATH_TREE, mPathTree);
    DDX_Control(exchange, IDC_TYPE_COMBO, mType);
    DDX_Control(exchange, IDC_ATTRIBUTE_LIST, mGrid);
}

BOOL CBlockPage::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    mGrid.addColumns();
    for (const LPCTSTR state : {L"Meglévő", L"Tervezett", L"Megszüntetendő"})
        mType.AddString(state);
    return TRUE;
}

void CBlockPage::showPath(const std::wstring& blockFile) {
    mPathTree.DeleteAllItems();
    if (blockFile.empty())
        return;
    const std::size_t separator = blockFile.rfind(L'\\');
    HTREEITEM folder = TVI_ROOT;
    if (separator != std::wstring::npos)
        folder = mPathTree.InsertItem(blockFile.substr(0, separator).c_str());
    mPathTree.InsertItem(blockFile.substr(separator + 1).c_str(), folder); // npos + 1 is 0
    if (folder != TVI_ROOT)
        mPathTree.Expand(folder, TVE_EXPAND);
}

void CBlockPage::addPageField(const std::wstring& name, const std::wstring& value) {
    attributeRow row;
    row.name = name;
    row.value = value;
    mGrid.addRow(row);
}

void CBlockPage::addBlockRows(const TrfcBlock& block, const std::wstring& baseFolder) {
    for (int i = 0; i < block.attributeCount(); ++i) {
        attributeRow row;
        row.source = attributeRow::kBlockAttribute;
        row.name = block.attributeAt(i)->tagConst();
        row.value = attributeText(*block.attributeAt(i));
        mGrid.addRow(row);
    }
    fillAttributeLists(mGrid, baseFolder, block.descriptor().blockFile,
                       [&block](const ACHAR* name) { return std::wstring(block.getUserParam(name)); });
}

std::wstring CBlockPage::chooseBlock(const ACHAR* base) {
    mGrid.commitEdit();
    CSelectTableDlg dialog(TrfcAppSettings::libraryFolder(base), this);
    return dialog.DoModal() == IDOK ? dialog.selectedPath() : std::wstring();
}

void CBlockPage::OnGridEdited(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int index = reinterpret_cast<const NMLVDISPINFO*>(header)->item.iItem;
    const attributeRow row = mGrid.rowAt(index);
    TrfcBlock* const block = gridBlock();
    if (row.source == attributeRow::kPageField)
        writePageField(index);
    else if (block != nullptr && row.source == attributeRow::kBlockAttribute)
        block->setAttributeText(row.name.c_str(), row.value.c_str());
    else if (block != nullptr)
        block->setUserParam(row.name.c_str(), row.value.c_str());
    refreshPreview();
}
