// Runs commands: by name, from the command line, from queued expressions and nested in other commands.
#pragma once

#include "AcEdCommandStack.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

enum class EdRunResult {
    kEnded,
    kCancelled,
    kFailed, // it crashed out or its line was refused
    kUnknown // there is no such command
};

// Flags of host commands beyond those of the API.
enum EdCommandFlags { kEdKeepsPickFirst = 0x10000, kEdNoUndoGroup = 0x20000 };
inline constexpr const wchar_t* kEdCommandPrompt = L"Command: ";
inline constexpr const wchar_t* kEdHostGroup = L"HOST";

class EdCommandRunner {
public:
    static EdCommandRunner& instance();
    // Reads and runs lines until the input ends, a line is refused or QUIT.
    void loop();
    // What the Command prompt does with one answer.
    EdRunResult runLine(const std::wstring& line);
    // Runs a command or asks for a variable by that name (prefixes _ . - allowed, any case).
    EdRunResult runNamed(const std::wstring& name);
    // Runs it with these answers instead of the user's.
    EdRunResult runWith(const std::wstring& name, std::deque<std::wstring> answers);

    void queueExpression(const std::wstring& expression) { mExpressions.push_back(expression); }
    void queueText(const std::wstring& text) { mTexts.push_back(text); }
    // Runs what is queued; the loop does it before each prompt.
    void runQueued();

    void requestQuit() { mQuit = true; }
    bool quitRequested() const { return mQuit; }
    // Forgets the state of an earlier run.
    void reset();
    // Takes "@" lines at the Command prompt for a window that is open beside it; answers a reason when
    // the line cannot be taken. The line "@cancel-at N" is the runner's own: the next command's N-th
    // question whether the user asked to break off is answered with yes.
    void setDialogLineHandler(std::function<std::wstring(const std::wstring&)> handler) { mDialogLines = std::move(handler); }
    int depth() const { return mDepth; }

private:
    EdRunResult runCommand(const AcEdCommand& command);
    EdRunResult runForm(const std::wstring& text);
    EdRunResult runDialogLine(const std::wstring& line);
    EdRunResult runCancelAt(const std::wstring& line);
    std::deque<std::wstring> mExpressions, mTexts;
    std::function<std::wstring(const std::wstring&)> mDialogLines;
    int mDepth = 0;
    bool mQuit = false, mRunningQueued = false;
    bool mFaulted = false; // since the outermost command began
};

// Registers the host's own commands, once.
void edRegisterHostCommands();
