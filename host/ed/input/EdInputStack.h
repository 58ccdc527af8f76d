// The inputs in force and what has been typed ahead. Every prompt of the editor reads its answer here.
#pragma once

#include "EdInput.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

// How a line becomes an answer.
enum class EdTake {
    kWord,      // up to the first blank; the rest answers the prompts that follow
    kName,      // all of a line of its own; up to the first blank of a line that answers several prompts
    kWholeLine, // all of it
};

class EdInputStack {
public:
    static EdInputStack& instance();
    EdInput* top() const;
    void push(EdInput* input);
    void pop();
    // Shows the prompt and takes the next answer. Nothing when the input ended or the user cancelled (a
    // line ^C or *Cancel*); the command that asks is then marked as cancelled.
    std::optional<std::wstring> ask(const std::wstring& prompt, EdTake take);
    // Lines to be taken before the input is asked.
    void typeAhead(const std::wstring& lines);
    // The line behind an answer that is not used up, all of it; for a dialog.
    std::optional<std::wstring> takePending();
    // Takes the word behind an answer on the same line, if it is this keyword: an option that may follow.
    bool takeOption(const std::wstring& keyword);
    void dropPending();
    bool hasPending() const { return !mFrames.empty() && (mFrames.back().pending || !mFrames.back().ahead.empty()); }
    // Tells that what was answered cannot be taken. The run ends after the command unwinds.
    void refuse(const std::wstring& reason);

    // Whether the user asked to break off, or the count of breakAt is reached; each call counts as a test.
    bool breakRequested();
    // The count-th test of the next command says that the user asked to break off.
    void breakAt(int count);
    // For the end of a command. The number of its tests where they did not reach the count of breakAt.
    std::optional<int> endBreakCount();

    bool cancelled() const { return mCancelled; }
    void setCancelled(bool cancelled) { mCancelled = cancelled; }
    bool refused() const { return mRefused; }
    void setRefused(bool refused) { mRefused = refused; }

private:
    struct Frame {
        EdInput* input = nullptr;
        std::optional<std::wstring> pending; // behind a blank; null: nothing
        std::deque<std::wstring> ahead;
    };
    std::optional<std::wstring> nextRaw(const std::wstring& prompt);
    std::deque<Frame> mFrames;
    bool mCancelled = false, mRefused = false;
    int mBreakAt = 0, mBreakTests = 0; // 0: no count is waited for
};

// Ends the line on the command line unless it has just begun.
void edFreshLine();
// A line on the command line.
void edSay(const std::wstring& line);
// Tells that what was asked for cannot be done; a script stops there.
void edFail(const std::wstring& reason);
// Calls what a module has left here to be called. What it throws is told in one line, and the caller goes on.
void edGuarded(const wchar_t* who, const std::function<void()>& call);
