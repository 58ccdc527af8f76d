// A window: a dialog or a control. The object wraps the window's widget; a window made from a
// template has a wrapper of its control's kind from the start, so GetDlgItem may be cast to that
// kind. Coordinates are pixels of the parent's client area unless said otherwise.
//
// Ownership: destroying a window destroys its child windows; a wrapper that is a member of a
// dialog outlives its window and may be used for another. PostNcDestroy is the last call for a
// window and the place for "delete this".
#pragma once

#include "AfxMessageMap.h"
#include "CString.h"

#include <memory>

class CDataExchange;
class CFont;
class CMenu;
struct CREATESTRUCT;
struct AfxWindow; // the widget and what belongs to it

class CWnd {
public:
    CWnd();
    virtual ~CWnd(); // destroys the window
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Opaque and unique while the window lives; null without a window.
    HWND GetSafeHwnd() const;
    BOOL IsWindow() const { return GetSafeHwnd() != nullptr; }
    static CWnd* FromHandle(HWND window); // null for a window that is gone

    void SetWindowText(LPCTSTR text);
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;
    BOOL EnableWindow(BOOL enable = TRUE); // TRUE where it was disabled before
    BOOL IsWindowEnabled() const;          // itself and all its parents
    BOOL ShowWindow(int show);             // SW_HIDE or SW_SHOW; TRUE where it was visible
    BOOL IsWindowVisible() const;          // itself and all its parents
    CWnd* SetFocus();
    static CWnd* GetFocus();
    void Invalidate(BOOL erase = TRUE);
    void UpdateWindow();
    void RedrawWindow() { Invalidate(); }
    void SetRedraw(BOOL redraw = TRUE);
    void SetFont(CFont* font, BOOL redraw = TRUE); // the font is copied
    DWORD GetStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add);
    int GetDlgCtrlID() const;
    int SetDlgCtrlID(int id);

    void GetClientRect(CRect* rect) const;
    void GetClientRect(CRect& rect) const { GetClientRect(&rect); }
    void GetWindowRect(CRect* rect) const; // screen
    void GetWindowRect(CRect& rect) const { GetWindowRect(&rect); }
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const CRect& rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* after, int x, int y, int cx, int cy, UINT flags);
    void BringWindowToTop();
    void CenterWindow();
    void ClientToScreen(CPoint* point) const;
    void ClientToScreen(CRect* rect) const;
    void ScreenToClient(CPoint* point) const;
    void ScreenToClient(CRect* rect) const;

    CWnd* GetParent() const;
    BOOL SetParent(CWnd* parent);
    CWnd* GetDlgItem(int id) const; // null where there is none
    void SetDlgItemText(int id, LPCTSTR text);
    int GetDlgItemText(int id, CString& text) const;
    void SetDlgItemInt(int id, int value);
    int GetDlgItemInt(int id) const; // 0 for non-numbers
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    void CheckRadioButton(int first, int last, int check);
    // Makes this object the wrapper of a control of a template.
    BOOL SubclassDlgItem(UINT id, CWnd* parent);

    // Sends at once, or when the program next looks for input. Understood for every window:
    // WM_COMMAND, WM_NOTIFY, WM_CLOSE, WM_SETFONT and messages that a map handles.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, void* unused = nullptr);
    BOOL KillTimer(UINT_PTR id);
    CWnd* SetCapture();

    virtual BOOL DestroyWindow();
    int MessageBox(LPCTSTR text, LPCTSTR caption = nullptr, UINT type = 0);
    BOOL UpdateData(BOOL saveAndValidate = TRUE); // FALSE where a value does not fit

    // A key before the focused window sees it; TRUE swallows it. Asked of the focused window and
    // then of its parents.
    virtual BOOL PreTranslateMessage(MSG* message);
    // Lets this window or a window in it have the message; FALSE where it is for neither.
    BOOL IsDialogMessage(MSG* message);
    virtual void PreSubclassWindow() {} // the window has just been bound to this object

    // Default handlers; a class that maps a message calls its base's to let the control act.
    void OnSize(UINT, int, int) {}
    void OnDestroy() {}
    void OnClose();
    void OnShowWindow(BOOL, UINT) {}
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnMouseLeave() { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSetFocus(CWnd*) {}
    void OnKillFocus(CWnd*) {}
    void OnTimer(UINT_PTR) {}
    CBrush* OnCtlColor(CDC*, CWnd*, UINT) { return nullptr; }

    AfxWindow* window() const { return mWindow.get(); } // host use

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    virtual void DoDataExchange(CDataExchange*) {}
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void PostNcDestroy() {}
    void Default(); // lets the control act on the message being handled

private:
    friend struct AfxWindow;
    friend struct AfxDispatch;
    std::unique_ptr<AfxWindow> mWindow;
};
