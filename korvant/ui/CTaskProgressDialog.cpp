#include "CTaskProgressDialog.h"

#include "AcEdAds.h"
#include "AcUtText.h"
#include "AfxApp.h"
#include "CDataExchange.h"
#include "Resource.h"
#include "setProductTitle.h"

#include <algorithm>

namespace {
enum TaskColumn { kMarkColumn = 0, kTextColumn = 1, kStateColumn = 2 };
constexpr int kMarkSize = 16;
constexpr int kMarkWidth = 26, kStateWidth = 120, kScrollBarRoom = 20; // pixels
} // namespace

BEGIN_MESSAGE_MAP(CTaskProgressDialog, CDialog)
    ON_WM_CTLCOLOR()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CTaskProgressDialog::CTaskProgressDialog() : CTaskProgressDialog(IDD_TASK_PROGRESS) {}

CTaskProgressDialog::CTaskProgressDialog(UINT templateId) : CDialog(templateId), mTemplateId(templateId) {}

CTaskProgressDialog::~CTaskProgressDialog() = default;

// ---- the window ---------------------------------------------------------------------------
void CTaskProgressDialog::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_TASK_LIST, mTaskList);
    DDX_Control(exchange, IDC_PROGRESS_BAR, mBar);
}

BOOL CTaskProgressDialog::create(CWnd* parent) {
    if (!Create(mTemplateId, parent))
        return FALSE;
    if (parent != nullptr && parent->IsWindowEnabled()) {
        parent->EnableWindow(FALSE);
        mParent = parent;
    }
    return TRUE;
}

BOOL CTaskProgressDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    CBitmap marks;
    marks.LoadBitmap(IDB_TASK_MARKS);
    mMarks.Create(kMarkSize, kMarkSize, ILC_COLOR32, 3, 0);
    mMarks.Add(&marks);
    mTaskList.SetImageList(&mMarks, LVSIL_SMALL);
    mTaskList.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES);
    CRect client;
    mTaskList.GetClientRect(client);
    mTaskList.InsertColumn(kMarkColumn, L"", LVCFMT_LEFT, kMarkWidth);
    mTaskList.InsertColumn(kTextColumn, L"Folyamat", LVCFMT_LEFT, client.Width() - kMarkWidth - kStateWidth - kScrollBarRoom);
    mTaskList.InsertColumn(kStateColumn, L"Állapot", LVCFMT_LEFT, kStateWidth);
    fillTasks();
    mBar.SetRange32(mLow, mHigh);
    mBar.SetStep(mStep);
    return TRUE;
}

// The backdrop is white: what has a background of its own by default shows it, lists and bars do not.
CBrush* CTaskProgressDialog::OnCtlColor(CDC* context, CWnd* control, UINT kind) {
    if (kind == CTLCOLOR_STATIC || kind == CTLCOLOR_BTN)
        return &mTransparent;
    return CDialog::OnCtlColor(context, control, kind);
}

std::wstring CTaskProgressDialog::caption() const {
    CString text;
    GetWindowText(text);
    return text.text();
}

void CTaskProgressDialog::OnCancel() {
    if (mFinished)
        close();
    else
        mCancelled = true; // seen at the job's next checkCancel; a second click changes nothing
}

void CTaskProgressDialog::close() {
    if (!DestroyWindow())
        delete this;
}

void CTaskProgressDialog::OnDestroy() {
    releaseParent();
}

void CTaskProgressDialog::PostNcDestroy() {
    delete this;
}

void CTaskProgressDialog::releaseParent() {
    if (mParent != nullptr)
        mParent->EnableWindow(TRUE);
    mParent = nullptr;
}

// ---- tasks ----------------------------------------------------------------------------------
void CTaskProgressDialog::setTaskTexts(const std::vector<std::wstring>& texts) {
    mTaskTexts = texts;
    mCurrentTask = -1;
    if (mTaskList.IsWindow())
        fillTasks();
}

void CTaskProgressDialog::fillTasks() {
    mTaskList.DeleteAllItems();
    int row = 0;
    for (const std::wstring& text : mTaskTexts) {
        mTaskList.InsertItem(row, L"");
        mTaskList.SetItemText(row++, kTextColumn, text.c_str());
    }
}

void CTaskProgressDialog::setCurrentTask(int index) {
    const int count = static_cast<int>(mTaskTexts.size());
    if (index < 0 || index >= count)
        return;
    if (mCurrentTask >= 0)
        markTask(mCurrentTask, kDoneMark, L"Kész");
    mCurrentTask = index;
    markTask(index, kActiveMark, L"Folyamatban...");
    showTask(index);
    acutPrintf(L"%s: %s\n", caption().c_str(), mTaskTexts[static_cast<std::size_t>(index)].c_str());
}

void CTaskProgressDialog::markTask(int index, TaskMark mark, LPCTSTR state) {
    mTaskList.SetItem(index, kMarkColumn, LVIF_IMAGE, nullptr, mark, 0, 0, 0);
    mTaskList.SetItemText(index, kStateColumn, state);
}

// What comes next is of interest too: half a page of it is shown.
void CTaskProgressDialog::showTask(int index) {
    if (mKeepSelection)
        mTaskList.SetItemState(index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    else
        mTaskList.EnsureVisible(index, FALSE);
    mTaskList.EnsureVisible(std::min(index + mTaskList.GetCountPerPage() / 2, mTaskList.GetItemCount() - 1), FALSE);
}

// ---- progress -------------------------------------------------------------------------------
void CTaskProgressDialog::setRange(int low, int high) {
    mLow = low;
    mHigh = high;
    mBar.SetRange32(low, high);
}

void CTaskProgressDialog::setStep(int step) {
    mStep = step;
    mBar.SetStep(step);
}

void CTaskProgressDialog::setPos(int position) {
    pump();
    mPosition = position;
    mBar.SetPos(position);
    showPercent();
}

void CTaskProgressDialog::offsetPos(int delta) {
    setPos(mPosition + delta);
}

void CTaskProgressDialog::stepIt() {
    offsetPos(mStep);
}

// The label is touched only when its text changes: a job steps far more often than that.
void CTaskProgressDialog::showPercent() {
    if (mHigh == mLow)
        return; // no part of nothing
    long long percent = (static_cast<long long>(mPosition) - mLow) * 100 / (static_cast<long long>(mHigh) - mLow);
    if (percent != 100)
        percent %= 100;
    const std::wstring text = acFormat(L"%d%c", static_cast<int>(percent), L'%');
    if (text == mPercentText)
        return;
    mPercentText = text;
    SetDlgItemText(IDC_PROGRESS_TEXT, text.c_str());
}

void CTaskProgressDialog::pump() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        if (!IsDialogMessage(&message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
}

bool CTaskProgressDialog::checkCancel() {
    pump();
    if (acedUsrBrk() != 0)
        mCancelled = true;
    return mCancelled;
}

// ---- the end --------------------------------------------------------------------------------
void CTaskProgressDialog::endJob(TaskMark mark, LPCTSTR state) {
    if (mCurrentTask >= 0)
        markTask(mCurrentTask, mark, state);
    mFinished = true;
    releaseParent();
    SetDlgItemText(IDCANCEL, L"Bezár");
    for (const int id : {IDC_PROGRESS_BAR, IDC_PROGRESS_TEXT})
        if (CWnd* const item = GetDlgItem(id))
            item->ShowWindow(SW_HIDE);
}

void CTaskProgressDialog::finish() {
    endJob(kDoneMark, L"Kész");
}

void CTaskProgressDialog::abort() {
    endJob(kFailedMark, L"Megszakítva");
    acutPrintf(L"%s: Megszakítva\n", caption().c_str());
}
