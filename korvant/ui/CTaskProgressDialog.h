// The window of a long job: its tasks with their states, a bar with the percentage, and a button that
// breaks the job off. The job runs on the main thread inside a command and keeps the window alive
// itself: setPos, offsetPos, stepIt and checkCancel let the windows have their messages.
//
// Made with new, the window deletes itself when it is closed. While the job runs the user cannot close
// it; after finish() or abort() he can at any time, so the job must not touch it again.
#pragma once

#include "CBrush.h"
#include "CDialog.h"
#include "CImageList.h"
#include "CListCtrl.h"
#include "CProgressCtrl.h"

#include <string>
#include <vector>

class CTaskProgressDialog : public CDialog {
public:
    CTaskProgressDialog();
    // Before create() or after it; all tasks begin without a mark and a state.
    void setTaskTexts(const std::vector<std::wstring>& texts);
    // true: the current task's row is shown selected; false: it is only scrolled into view.
    void setKeepSelection(bool keep) { mKeepSelection = keep; }
    // Makes the hidden window. An enabled parent is disabled until the job has ended.
    BOOL create(CWnd* parent);
    // The earlier task is done, this one runs. Nothing for an index that is no task's. The command
    // line tells the task, for those who see no window.
    void setCurrentTask(int index);
    void setRange(int low, int high);
    void setStep(int step);
    void setPos(int position);
    void offsetPos(int delta);
    void stepIt();
    // Whether the user asked to break off, in the window or with Ctrl-C.
    bool checkCancel();
    virtual void finish(); // the job came to its end
    virtual void abort();  // the job was broken off

protected:
    enum TaskMark { kNoMark = -1, kDoneMark = 0, kActiveMark = 1, kFailedMark = 2 }; // as the marks stand in their picture
    explicit CTaskProgressDialog(UINT templateId);
    ~CTaskProgressDialog() override; // by itself, behind the window
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override {} // Enter must not hide the window
    void OnCancel() override;
    void PostNcDestroy() override;
    void OnDestroy();
    CBrush* OnCtlColor(CDC* context, CWnd* control, UINT kind);
    // Closes and deletes it; also where the window could not be made.
    void close();
    std::wstring caption() const;
    DECLARE_MESSAGE_MAP()

private:
    void pump();
    void fillTasks();
    void markTask(int index, TaskMark mark, LPCTSTR state);
    void showTask(int index);
    void showPercent();
    void endJob(TaskMark mark, LPCTSTR state);
    void releaseParent();

    UINT mTemplateId;
    CListCtrl mTaskList;
    CProgressCtrl mBar;
    CImageList mMarks;
    CBrush mTransparent;
    std::vector<std::wstring> mTaskTexts;
    std::wstring mPercentText;
    CWnd* mParent = nullptr; // only while it is disabled by this window
    int mCurrentTask = -1;
    int mLow = 0, mHigh = 100, mPosition = 0, mStep = 1;
    bool mKeepSelection = false;
    bool mCancelled = false;
    bool mFinished = false;
};
