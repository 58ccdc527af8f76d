#include "dialog/AfxModal.h"

#include "AcFault.h"
#include "AcUtText.h"
#include "core/AfxFault.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "driver/AfxDriverState.h"
#include "driver/AfxLines.h"

#include <QApplication>
#include <QPixmapCache>
#include <algorithm>

namespace {
std::vector<AfxModalRun*>& runs() {
    static std::vector<AfxModalRun*> open;
    return open;
}
std::vector<CDialog*>& modeless() {
    static std::vector<CDialog*> open;
    return open;
}
bool gIsAborting = false; // a line was refused: every open window is cancelled on the way out

void cancel(AfxModalRun& run) {
    afxGuarded([&] { AfxDialogRun::cancel(*run.dialog); });
    if (!run.hasEnded) // the dialog's own cancel did not end it
        run.dialog->EndDialog(IDCANCEL);
}

std::wstring captionOf(const CDialog& dialog) {
    CString caption;
    dialog.GetWindowText(caption);
    return caption.text();
}

void abortAll(AfxDialogDriver& driver, const std::wstring& reason) {
    gIsAborting = true;
    driver.refuseDialogLine(reason);
}

std::wstring lineNeeded(const AfxModalRun& run) {
    return L"the window \"" + captionOf(*run.dialog) + L"\" is open; a line that begins with @ is needed";
}

void takeLine(AfxModalRun& run, AfxDialogDriver& driver) {
    std::wstring line;
    if (!driver.nextDialogLine(line)) {
        if (driver.asksAgain())
            afxGuarded([&] { AfxDialogRun::cancel(*run.dialog); });
        else
            abortAll(driver, lineNeeded(run));
        return;
    }
    const bool isOurs = !line.empty() && line.front() == L'@';
    const std::wstring reason =
        isOurs ? AfxApplyDialogLine(line) : (line.empty() ? L"" : L"\"" + line + L"\": ") + lineNeeded(run);
    if (reason.empty())
        return;
    if (driver.asksAgain())
        acutPrintf(L"%s\n", reason.c_str());
    else
        abortAll(driver, reason);
}

void takeLines(AfxModalRun& run, AfxDialogDriver& driver) {
    while (!run.hasEnded) {
        afxSettle();
        if (run.hasEnded)
            return;
        if (gIsAborting)
            return cancel(run);
        takeLine(run, driver);
    }
}

void runEventLoop(const AfxModalRun& run) {
    while (!run.hasEnded) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
} // namespace

void afxRunModal(AfxModalRun& run) {
    runs().push_back(&run);
    run.dialog->ShowWindow(SW_SHOW);
    run.dialog->window()->widget->activateWindow();
    AfxDialogDriver* driver = afxDriver();
    if (driver != nullptr) {
        takeLines(run, *driver);
    } else if (afxUsesEventLoop()) {
        runEventLoop(run);
    } else {
        acutPrintf(L"Nincs, aki válaszoljon: %s\n", captionOf(*run.dialog).c_str());
        cancel(run);
    }
    std::erase(runs(), &run);
    if (runs().empty()) {
        gIsAborting = false;
        // The toolkit keeps each picture that a window showed until its cache is full, though the next window loads
        // its pictures anew and never asks for these again.
        QPixmapCache::clear();
    }
}

void afxTellFault() {
    const std::wstring fault = acFaultText();
    const CDialog* const top = afxTopDialog();
    const std::wstring reason =
        (top == nullptr ? L"A window" : L"The window \"" + captionOf(*top) + L"\"") + L" failed: " + fault;
    AfxDialogDriver* const driver = afxDriver();
    if (driver == nullptr || driver->asksAgain())
        acutPrintf(L"%s\n", reason.c_str());
    else if (runs().empty())
        driver->refuseDialogLine(reason);
    else
        abortAll(*driver, reason);
}

CDialog* afxTopModal() {
    return runs().empty() ? nullptr : runs().back()->dialog;
}

CDialog* afxTopDialog() {
    if (CDialog* top = afxTopModal())
        return top;
    for (auto at = modeless().rbegin(); at != modeless().rend(); ++at)
        if ((*at)->IsWindowVisible())
            return *at;
    return nullptr;
}

void afxModelessOpened(CDialog& dialog) {
    modeless().push_back(&dialog);
}

void afxModelessClosed(CDialog& dialog) {
    std::erase(modeless(), &dialog);
}

bool AfxIsDialogOpen() {
    return afxTopDialog() != nullptr;
}

void AfxCancelAllDialogs() {
    // Modal runs unwind by themselves once they are cancelled; modeless windows are closed here.
    for (auto at = runs().rbegin(); at != runs().rend(); ++at)
        if (!(*at)->hasEnded)
            (*at)->dialog->EndDialog(IDCANCEL);
    while (!modeless().empty()) {
        CDialog* dialog = modeless().back();
        modeless().pop_back();
        dialog->DestroyWindow();
    }
    if (QApplication::instance() != nullptr)
        afxSettle();
}
