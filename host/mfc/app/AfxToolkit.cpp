// The toolkit's application object and its few texts of its own, in Hungarian.
#include "AfxDialogDriver.h"
#include "app/AfxToolkitTexts.h"
#include "driver/AfxDriverState.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {
bool hasScreen() {
    const char* x11 = getenv("DISPLAY");
    const char* wayland = getenv("WAYLAND_DISPLAY");
    return (x11 != nullptr && *x11 != 0) || (wayland != nullptr && *wayland != 0);
}

// Two notes of the toolkit speak of an environment without a screen, which is ours by intent; all else
// that it has to say reaches the error output.
void showToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith(QStringLiteral("QStandardPaths: XDG_RUNTIME_DIR")) && !text.startsWith(QStringLiteral("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

struct Toolkit {
    int argc = 1;
    char name[8] = "korvant";
    char* argv[2] = {name, nullptr};
    AfxToolkitTexts texts;
    QApplication application;

    Toolkit() : application(argc, argv) {
        application.setQuitOnLastWindowClosed(false);
        application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSize(8);
        application.setFont(font);
        application.setAttribute(Qt::AA_DontUseNativeDialogs);
        QCoreApplication::installTranslator(&texts);
    }
};

// Without an event loop nobody looks on, and a screen or platform that the environment names is not tried: one
// that leads nowhere would end the program.
void prepare(bool offscreen) {
    if (offscreen || !afxUsesEventLoop() || (!hasScreen() && getenv("QT_QPA_PLATFORM") == nullptr)) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        unsetenv("QT_QPA_PLATFORMTHEME"); // the themes of some desktops end a program that reaches no screen
    }
}
} // namespace

void AfxInitToolkit(bool offscreen) {
    if (QCoreApplication::instance() != nullptr)
        return;
    prepare(offscreen);
    qInstallMessageHandler(showToolkitMessage);
    // Never destroyed: windows of a module may go after the statics of this layer.
    static Toolkit* const toolkit = new Toolkit;
    (void)toolkit;
}
