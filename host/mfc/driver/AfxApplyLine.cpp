// Reads a dialog line and carries it out on the topmost window.
#include "AcPath.h"
#include "AcUtText.h"
#include "AfxDialogDriver.h"
#include "controls/AfxListWidget.h"
#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "dialog/AfxModal.h"
#include "driver/AfxActions.h"
#include "driver/AfxDriverState.h"
#include "driver/AfxFinder.h"
#include "driver/AfxShow.h"

#include <QPixmap>

namespace {
using Words = std::vector<AfxWord>;

std::wstring press(CDialog& dialog, int id, const wchar_t* what) {
    CWnd* button = afxFindControl(dialog, {std::to_wstring(id), false}, true);
    if (button == nullptr)
        return std::wstring(L"there is no ") + what + L" button";
    if (!button->IsWindowVisible())
        return L"the control is hidden";
    return button->IsWindowEnabled() ? afxClick(*button) : L"the control is disabled";
}

std::wstring cancel(CDialog& dialog) {
    if (afxFindControl(dialog, {std::to_wstring(IDCANCEL), false}, true) != nullptr)
        return press(dialog, IDCANCEL, L"cancel");
    AfxDispatch::onCommand(dialog, MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED), 0); // as Escape does
    return {};
}

std::wstring shot(const CDialog& dialog, const std::wstring& file) {
    for (const CWnd* control : afxControlsOf(dialog))
        if (const auto* list = afxWidgetAs<AfxListWidget>(*control))
            list->layOutNow();
    const QPixmap picture = dialog.window()->widget->grab();
    return picture.save(toQt(acFromUtf8(acFileSystemPath(file)))) ? L"" : L"the picture cannot be saved";
}

struct Verb {
    const wchar_t* name;
    std::size_t words; // with the verb
    const wchar_t* form;
    std::wstring (*act)(CDialog& dialog, const Words& words);
};
std::wstring withControl(CDialog& dialog, const Words& words, bool isClick, std::wstring (*act)(CWnd&, const Words&)) {
    CWnd* control = afxFindControl(dialog, words[1], isClick);
    if (control == nullptr)
        return L"there is no such control";
    if (!control->IsWindowVisible())
        return L"the control is hidden";
    if (!control->IsWindowEnabled())
        return L"the control is disabled";
    return act(*control, words);
}

const Verb kVerbs[] = {
    {L"@show", 1, L"@show", [](CDialog& d, const Words&) { afxShow(d); return std::wstring(); }},
    {L"@ok", 1, L"@ok", [](CDialog& d, const Words&) { return press(d, IDOK, L"OK"); }},
    {L"@cancel", 1, L"@cancel", [](CDialog& d, const Words&) { return cancel(d); }},
    {L"@close", 1, L"@close", [](CDialog& d, const Words&) { AfxDispatch::close(d); return std::wstring(); }},
    {L"@shot", 2, L"@shot \"file.png\"", [](CDialog& d, const Words& w) { return shot(d, w[1].text); }},
    {L"@tab", 2, L"@tab \"title\"", [](CDialog& d, const Words& w) { return afxChooseTab(d, w[1].text); }},
    {L"@click", 2, L"@click ID", [](CDialog& d, const Words& w) { return withControl(d, w, true, [](CWnd& c, const Words&) { return afxClick(c); }); }},
    {L"@set", 3, L"@set ID \"text\"", [](CDialog& d, const Words& w) { return withControl(d, w, false, [](CWnd& c, const Words& v) { return afxSetValue(c, v[2].text); }); }},
    {L"@check", 3, L"@check ID on|off", [](CDialog& d, const Words& w) { return withControl(d, w, true, [](CWnd& c, const Words& v) { return afxCheck(c, v[2].text); }); }},
    {L"@select", 3, L"@select ID ROW|\"text\"", [](CDialog& d, const Words& w) { return withControl(d, w, false, [](CWnd& c, const Words& v) { return afxSelect(c, v[2]); }); }},
    {L"@cell", 5, L"@cell ID ROW COLUMN \"text\"", [](CDialog& d, const Words& w) {
         if (!w[2].isNumber() || !w[3].isNumber())
             return std::wstring(L"row and column are numbers");
         return withControl(d, w, false, [](CWnd& c, const Words& v) { return afxEditCell(c, acWtoi(v[2].text.c_str()), acWtoi(v[3].text.c_str()), v[4].text); });
     }},
};

std::wstring carryOut(CDialog& dialog, const Words& words) {
    for (const Verb& verb : kVerbs) {
        if (words.empty() || acutWcsicmp(words[0].text.c_str(), verb.name) != 0)
            continue;
        return words.size() == verb.words ? verb.act(dialog, words) : std::wstring(L"the form is ") + verb.form;
    }
    return L"there is no such dialog line";
}
} // namespace

std::wstring AfxApplyDialogLine(const std::wstring& line) {
    Words words;
    CDialog* dialog = afxTopDialog();
    std::wstring reason;
    if (dialog == nullptr)
        reason = L"no dialog is open";
    else if (!afxSplitLine(line, words))
        reason = L"a quote is not closed";
    else
        reason = carryOut(*dialog, words);
    if (dialog != nullptr)
        afxSettle();
    return reason.empty() ? L"" : line + L": " + reason;
}
