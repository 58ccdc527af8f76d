#include "driver/AfxDriverState.h"

#include "AfxApp.h"
#include "driver/AfxEditorDriver.h"

#include <QApplication>

namespace {
AfxDialogDriver* gDriver = nullptr;
bool gUseEventLoop = false;
constexpr int kRounds = 3; // what one round posts (activation, then focus) the next one delivers
} // namespace

AfxDialogDriver* AfxSetDialogDriver(AfxDialogDriver* driver) {
    AfxDialogDriver* const earlier = gDriver;
    gDriver = driver;
    return earlier;
}

void AfxUseEventLoop(bool use) {
    gUseEventLoop = use;
}

AfxDialogDriver* afxDriver() {
    if (gDriver != nullptr || gUseEventLoop)
        return gDriver;
    return afxEditorDriver();
}

bool afxUsesEventLoop() {
    return gUseEventLoop;
}

void afxSettle() {
    AfxInitToolkit();
    for (int round = 0; round < kRounds; ++round) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
