#include "driver/AfxFinder.h"

#include "AcUtText.h"
#include "AfxApp.h"
#include "controls/AfxControlText.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"

namespace {
void collect(const CWnd& parent, std::vector<CWnd*>& controls) {
    for (CWnd* child : parent.window()->children) {
        const AfxWindow& window = *child->window();
        if (window.widget == nullptr || window.isTopLevel)
            continue;
        if (window.kind != AfxKind::Dialog)
            controls.push_back(child);
        collect(*child, controls);
    }
}

bool hasCaption(const CWnd& control) {
    switch (control.window()->kind) {
    case AfxKind::Static:
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio:
    case AfxKind::Group: return true;
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Edit:
    case AfxKind::MultiEdit:
    case AfxKind::Combo:
    case AfxKind::ListBox:
    case AfxKind::List:
    case AfxKind::Tree:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: return false;
    }
    return false;
}

bool isLabel(const CWnd& control) {
    return control.window()->kind == AfxKind::Static || control.window()->kind == AfxKind::Group;
}

// What a label speaks of: the first control behind it that is no label itself.
CWnd* labelled(const std::vector<CWnd*>& controls, std::size_t label) {
    for (std::size_t i = label + 1; i < controls.size(); ++i)
        if (!isLabel(*controls[i]))
            return controls[i];
    return nullptr;
}

CWnd* byCaption(const std::vector<CWnd*>& controls, const std::wstring& caption, bool isClick) {
    CWnd* hidden = nullptr;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (!hasCaption(*controls[i]) || acutWcsicmp(afxSeenText(*controls[i]).c_str(), caption.c_str()) != 0)
            continue;
        CWnd* meant = isLabel(*controls[i]) && !isClick ? labelled(controls, i) : controls[i];
        if (meant != nullptr && meant->IsWindowVisible())
            return meant;
        hidden = hidden == nullptr ? meant : hidden;
    }
    return hidden;
}

CWnd* byId(const std::vector<CWnd*>& controls, int id) {
    CWnd* hidden = nullptr;
    for (CWnd* control : controls) {
        if (control->GetDlgCtrlID() != id)
            continue;
        if (control->IsWindowVisible())
            return control;
        hidden = hidden == nullptr ? control : hidden;
    }
    return hidden;
}
} // namespace

std::vector<CWnd*> afxControlsOf(const CDialog& dialog) {
    std::vector<CWnd*> controls;
    collect(dialog, controls);
    return controls;
}

CWnd* afxFindControl(const CDialog& dialog, const AfxWord& word, bool isClick) {
    const std::vector<CWnd*> controls = afxControlsOf(dialog);
    if (word.isQuoted)
        return byCaption(controls, word.text, isClick);
    const int id = word.isNumber() ? acWtoi(word.text.c_str()) : static_cast<int>(AfxResourceId(word.text.c_str()));
    return id == 0 || id == IDC_STATIC ? nullptr : byId(controls, id);
}

const wchar_t* afxKindName(const CWnd& control) {
    switch (control.window()->kind) {
    case AfxKind::Static: return L"label";
    case AfxKind::Push: return L"button";
    case AfxKind::Check: return L"check";
    case AfxKind::Radio: return L"option";
    case AfxKind::Group: return L"group";
    case AfxKind::Edit: return L"edit";
    case AfxKind::MultiEdit: return L"text";
    case AfxKind::Combo: return L"combo";
    case AfxKind::ListBox: return L"listbox";
    case AfxKind::List: return L"list";
    case AfxKind::Tree: return L"tree";
    case AfxKind::Tab: return L"tabs";
    case AfxKind::Progress: return L"progress";
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Custom: return L"window";
    }
    return L"";
}

std::wstring afxSeenText(const CWnd& control) {
    CString text;
    control.GetWindowText(text);
    return toWide(afxWithoutMarks(toQt(text.text())));
}
