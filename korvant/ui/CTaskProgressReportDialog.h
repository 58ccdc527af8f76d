// The window of a job that reports what it found: rows of an object and a description below the tasks.
// A selected row shows its object in the drawing, and the list can be saved as a text.
#pragma once

#include "CTaskProgressDialog.h"
#include "TrfcBlockLoader.h"

class CTaskProgressReportDialog : public CTaskProgressDialog, public TrfcTaskReport {
public:
    CTaskProgressReportDialog();
    // id: the handle of the object in hexadecimal digits. A row of the type kReportWithoutObject belongs
    // to no object: what its id names (a file) stands in the place of the object, and nothing is shown
    // when it is selected.
    void addReport(const std::wstring& objectType, const std::wstring& description, const std::wstring& id) override;
    int reportCount() const { return static_cast<int>(mObjectTypes.size()); }

protected:
    explicit CTaskProgressReportDialog(UINT templateId);
    ~CTaskProgressReportDialog() override;
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnReportChanged(NMHDR* header, LRESULT* result);
    void OnSaveReport();
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void addRow(int row);
    void showObject(const std::wstring& handle);
    void releaseShownObject();
    void writeReport(LPCTSTR path) const;

    CListCtrl mReportList;
    // One entry a row: the list control shows the first two.
    std::vector<std::wstring> mObjectTypes, mDescriptions, mIds;
    std::wstring mShownHandle; // of the object that this window highlights; the drawing may go before the window
};
