// The table that binds messages and notifications to member functions. An entry names a member
// function of the class; its parameters must be those of the message, which the compiler checks.
//
//   BEGIN_MESSAGE_MAP(CMyDlg, CDialog)
//       ON_BN_CLICKED(IDC_ADD, &CMyDlg::OnAdd)
//       ON_NOTIFY(TVN_SELCHANGED, IDC_TREE, &CMyDlg::OnTree)
//       ON_WM_SIZE()
//   END_MESSAGE_MAP()
//
// An entry not found in a class is looked for in its base.
#pragma once

#include "AfxMessages.h"
#include "CRect.h"

class CWnd;
class CDC;
class CBrush;

// One message on its way to a handler.
struct AfxMessage {
    UINT message = 0; // WM_...
    UINT code = 0;    // notification code
    UINT id = 0;      // control id
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    UINT flags = 0;   // mouse keys, size kind, repeat count
    CPoint point;
    CWnd* other = nullptr; // control of a colour question, window that gains or loses focus
    NMHDR* header = nullptr;
    LRESULT result = 0;
};
using AfxHandler = void (*)(CWnd*, AfxMessage&);
struct AFX_MSGMAP_ENTRY {
    UINT message; // 0 ends the table
    UINT code;
    UINT id, lastId;
    AfxHandler handler;
};
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*base)(); // null at the root
    const AFX_MSGMAP_ENTRY* entries;
};

// A notification of the control itself, offered to it before its parent sees it.
constexpr UINT AFX_WM_REFLECT = 0xBC00;

// ---- from a member function to a handler ---------------------------------------------
template <class C> void afxCall(CWnd* w, AfxMessage&, void (C::*fn)()) { (static_cast<C*>(w)->*fn)(); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, BOOL (C::*fn)()) { m.result = (static_cast<C*>(w)->*fn)(); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(UINT)) { (static_cast<C*>(w)->*fn)(m.id); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(NMHDR*, LRESULT*)) { (static_cast<C*>(w)->*fn)(m.header, &m.result); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, LRESULT (C::*fn)(WPARAM, LPARAM)) { m.result = (static_cast<C*>(w)->*fn)(m.wParam, m.lParam); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(UINT, int, int)) { (static_cast<C*>(w)->*fn)(m.flags, m.point.x, m.point.y); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(UINT, CPoint)) { (static_cast<C*>(w)->*fn)(m.flags, m.point); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(UINT, UINT, UINT)) { (static_cast<C*>(w)->*fn)(static_cast<UINT>(m.wParam), m.flags, 0); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(CWnd*)) { (static_cast<C*>(w)->*fn)(m.other); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(UINT_PTR)) { (static_cast<C*>(w)->*fn)(m.wParam); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, void (C::*fn)(BOOL, UINT)) { (static_cast<C*>(w)->*fn)(static_cast<BOOL>(m.wParam), m.flags); }
template <class C> void afxCall(CWnd* w, AfxMessage& m, CBrush* (C::*fn)(CDC*, CWnd*, UINT)) { m.result = reinterpret_cast<LRESULT>((static_cast<C*>(w)->*fn)(nullptr, m.other, m.flags)); }
template <auto Fn> void afxThunk(CWnd* w, AfxMessage& m) { afxCall(w, m, Fn); }

// clang-format off
#define DECLARE_MESSAGE_MAP()                                   \
protected:                                                      \
    static const AFX_MSGMAP* GetThisMessageMap();               \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                       \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                                \
        using ThisClass [[maybe_unused]] = theClass;                                                 \
        using TheBaseClass = baseClass;                                                              \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                            \
            {0, 0, 0, 0, nullptr}};                                                                  \
        static const AFX_MSGMAP map = {[] { return TheBaseClass::GetThisMessageMap(); }, entries};   \
        return &map;                                                                                 \
    }

#define ON_CONTROL(code, id, fn)          {WM_COMMAND, code, static_cast<UINT>(id), static_cast<UINT>(id), &afxThunk<fn>},
#define ON_CONTROL_RANGE(code, a, b, fn)  {WM_COMMAND, code, static_cast<UINT>(a), static_cast<UINT>(b), &afxThunk<fn>},
#define ON_CONTROL_REFLECT(code, fn)      {AFX_WM_REFLECT + WM_COMMAND, code, 0, 0, &afxThunk<fn>},
#define ON_COMMAND(id, fn)                ON_CONTROL(BN_CLICKED, id, fn)
#define ON_BN_CLICKED(id, fn)             ON_CONTROL(BN_CLICKED, id, fn)
#define ON_STN_CLICKED(id, fn)            ON_CONTROL(STN_CLICKED, id, fn)
#define ON_EN_CHANGE(id, fn)              ON_CONTROL(EN_CHANGE, id, fn)
#define ON_EN_SETFOCUS(id, fn)            ON_CONTROL(EN_SETFOCUS, id, fn)
#define ON_EN_KILLFOCUS(id, fn)           ON_CONTROL(EN_KILLFOCUS, id, fn)
#define ON_CBN_SELCHANGE(id, fn)          ON_CONTROL(CBN_SELCHANGE, id, fn)
#define ON_CBN_EDITCHANGE(id, fn)         ON_CONTROL(CBN_EDITCHANGE, id, fn)
#define ON_CBN_KILLFOCUS(id, fn)          ON_CONTROL(CBN_KILLFOCUS, id, fn)
#define ON_LBN_SELCHANGE(id, fn)          ON_CONTROL(LBN_SELCHANGE, id, fn)
#define ON_NOTIFY(code, id, fn)           {WM_NOTIFY, code, static_cast<UINT>(id), static_cast<UINT>(id), &afxThunk<fn>},
#define ON_NOTIFY_REFLECT(code, fn)       {AFX_WM_REFLECT + WM_NOTIFY, code, 0, 0, &afxThunk<fn>},
#define ON_MESSAGE(message, fn)           {message, 0, 0, 0, &afxThunk<fn>},
#define ON_WM_SIZE()                      {WM_SIZE, 0, 0, 0, &afxThunk<&ThisClass::OnSize>},
#define ON_WM_DESTROY()                   {WM_DESTROY, 0, 0, 0, &afxThunk<&ThisClass::OnDestroy>},
#define ON_WM_CLOSE()                     {WM_CLOSE, 0, 0, 0, &afxThunk<&ThisClass::OnClose>},
#define ON_WM_SHOWWINDOW()                {WM_SHOWWINDOW, 0, 0, 0, &afxThunk<&ThisClass::OnShowWindow>},
#define ON_WM_MOUSEMOVE()                 {WM_MOUSEMOVE, 0, 0, 0, &afxThunk<&ThisClass::OnMouseMove>},
#define ON_WM_MOUSELEAVE()                {WM_MOUSELEAVE, 0, 0, 0, &afxThunk<&ThisClass::OnMouseLeave>},
#define ON_WM_LBUTTONDOWN()               {WM_LBUTTONDOWN, 0, 0, 0, &afxThunk<&ThisClass::OnLButtonDown>},
#define ON_WM_LBUTTONUP()                 {WM_LBUTTONUP, 0, 0, 0, &afxThunk<&ThisClass::OnLButtonUp>},
#define ON_WM_LBUTTONDBLCLK()             {WM_LBUTTONDBLCLK, 0, 0, 0, &afxThunk<&ThisClass::OnLButtonDblClk>},
#define ON_WM_KEYDOWN()                   {WM_KEYDOWN, 0, 0, 0, &afxThunk<&ThisClass::OnKeyDown>},
#define ON_WM_CHAR()                      {WM_CHAR, 0, 0, 0, &afxThunk<&ThisClass::OnChar>},
#define ON_WM_SETFOCUS()                  {WM_SETFOCUS, 0, 0, 0, &afxThunk<&ThisClass::OnSetFocus>},
#define ON_WM_KILLFOCUS()                 {WM_KILLFOCUS, 0, 0, 0, &afxThunk<&ThisClass::OnKillFocus>},
#define ON_WM_TIMER()                     {WM_TIMER, 0, 0, 0, &afxThunk<&ThisClass::OnTimer>},
#define ON_WM_CTLCOLOR()                  {WM_CTLCOLOR, 0, 0, 0, &afxThunk<&ThisClass::OnCtlColor>},
// clang-format on
