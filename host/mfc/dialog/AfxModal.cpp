#include "dialog/AfxModal.h"

#include "AcUtText.h"
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
    AfxDialogRun::cancel(*run.dialog);
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

void takeLines(AfxModalRun& run, AfxDialogDriver& driver) {
    while (!run.hasEnded) {
        afxSettle();
        if (run.hasEnded)
            return;
        if (gIsAborting)
            return cancel(run);
        std::wstring line;
        if (!driver.nextDialogLine(line)) {
            abortAll(driver, L"the window \"" + captionOf(*run.dialog) + L"\" is open; a line that begins with @ is needed");
            continue;
        }
        const std::wstring reason = AfxApplyDialogLine(line);
        if (!reason.empty())
            abortAll(driver, reason);
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
