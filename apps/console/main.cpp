// korvant-console: opens a drawing, loads the module and runs lines.
#include "AfxDialogDriver.h"
#include "AfxUserVariables.h"
#include "AcPath.h"
#include "AcRxModule.h"
#include "AcUtText.h"
#include "ConsoleBreak.h"
#include "ConsoleOptions.h"
#include "DwgCodec.h"
#include "ScriptInput.h"
#include "TerminalInput.h"
#include "core/EdCommandRunner.h"
#include "core/EdDocuments.h"
#include "input/EdInputStack.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {
enum ExitStatus { kDone = 0, kRefused = 1, kUsage = 2, kNoDrawing = 3, kNoModule = 4 };
namespace fs = std::filesystem;

fs::path programFolder() {
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path() : self.parent_path();
}
// Where an installation folder may be, which holds korvant.arx, bin/, help/, library/ and support/:
// KORVANT_HOME, the folder of which the program's own is bin/, and home/ in a build tree.
std::vector<fs::path> homes() {
    std::vector<fs::path> places;
    if (const char* const home = std::getenv("KORVANT_HOME"); home != nullptr && *home != '\0')
        places.emplace_back(home);
    const fs::path above = programFolder().parent_path();
    places.insert(places.end(), {above, above / "home", programFolder()});
    return places;
}
void setSupportFolders() {
    std::vector<std::wstring> folders;
    for (const fs::path& home : homes())
        if (std::error_code error; fs::is_directory(home / "support", error))
            folders.push_back(acHostPath((home / "support").string()));
    acdbHostApplicationServices()->setSupportPath(std::move(folders));
}
std::string modulePath(const ConsoleOptions& options) {
    if (!options.module.empty())
        return options.module;
    for (const fs::path& home : homes())
        if (std::error_code error; fs::exists(home / "korvant.arx", error))
            return (home / "korvant.arx").string();
    return (programFolder().parent_path() / "korvant.arx").string();
}
bool loadModule(const ConsoleOptions& options) {
    if (!options.loadModule)
        return true;
    const AcRxModuleLoadResult result = acrxLoadModule(acFromUtf8(modulePath(options)));
    if (!result.loaded)
        std::fprintf(stderr, "korvant-console: %s\n", acToUtf8(result.reason).c_str());
    return result.loaded;
}
bool openDrawing(const ConsoleOptions& options) {
    if (options.drawing.empty()) {
        EdDocuments::instance().createNew();
        return true;
    }
    std::wstring error;
    if (EdDocuments::instance().open(acHostPath(options.drawing), error) != nullptr)
        return true;
    std::fprintf(stderr, "korvant-console: %s\n", acToUtf8(error).c_str());
    return false;
}
std::wstring takeDialogLine(const std::wstring& line) {
    return AfxIsDialogOpen() ? AfxApplyDialogLine(line) : L"no dialog is open";
}
void runScript(EdCommandRunner& runner) {
    runner.loop();
    runner.runQueued();
}
// At a terminal a refused line ends its command, not the run, and Ctrl-D is QUIT.
void runTerminal(EdCommandRunner& runner, TerminalInput& input) {
    for (;;) {
        EdInputStack::instance().setRefused(false);
        runner.loop();
        if (runner.quitRequested())
            return;
        if (input.wantsToLeave()) {
            input.goOn();
            EdInputStack::instance().setRefused(false);
            edSay(L"QUIT");
            runner.runNamed(L".QUIT");
            if (runner.quitRequested())
                return;
        }
        if (!input.continuesAfterCancel())
            return;
    }
}
int run(const ConsoleOptions& options) {
    const bool isScript = !options.sources.empty();
    ScriptInput script(options.sources);
    TerminalInput terminal;
    if (isScript && !script.canOpenAll())
        return kUsage;
    EdInput* const input = isScript ? static_cast<EdInput*>(&script) : &terminal;
    edPushInput(input); // the start of the module may ask already
    edRegisterHostCommands();
    AfxKeepUserVariables();
    EdCommandRunner& runner = EdCommandRunner::instance();
    runner.setDialogLineHandler(takeDialogLine);
    int status = kDone;
    if (!loadModule(options))
        status = kNoModule;
    else if (!openDrawing(options))
        status = kNoDrawing;
    else if (isScript)
        runScript(runner);
    else
        runTerminal(runner, terminal);
    if (status == kDone && script.wasRefused())
        status = kRefused;
    AfxCancelAllDialogs();
    edPopInput();
    return status;
}
} // namespace

int main(int argc, char** argv) {
    std::string reason;
    const auto options = consoleParse(argc, argv, reason);
    if (!options) {
        std::fprintf(stderr, "korvant-console: %s\n%s", reason.c_str(), kConsoleUsage);
        return kUsage;
    }
    if (options->showHelp) {
        std::fputs(kConsoleUsage, stdout);
        return kDone;
    }
    consoleCatchBreak();
    dwgInstallCodec();
    setSupportFolders();
    const int status = run(*options);
    std::fflush(stdout);
    std::fflush(stderr);
    // Modules, windows and drawings go with the process; taking them down one by one could only fail.
    std::_Exit(status);
}
