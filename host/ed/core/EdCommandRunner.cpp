#include "EdCommandRunner.h"

#include "AcFault.h"
#include "AcUtText.h"
#include "DbOpenState.h"
#include "EdAliases.h"
#include "input/EdAnswerInput.h"
#include "EdDocuments.h"
#include "EdEditor.h"
#include "input/EdInputStack.h"
#include "input/EdParse.h"
#include "EdSysVars.h"

#include <utility>

namespace {
constexpr const wchar_t* kCancelAt = L"@cancel-at";

// Runs what may be a module's and may throw; empty where it did not, else what it threw in one line.
template <class Call> std::wstring faultOf(const Call& call) {
    try {
        call();
    } catch (...) {
        return acFaultText();
    }
    return L"";
}
// A command that was broken off cannot close what it has opened, and an object that stays open is lost to
// every command after it.
void closeWhatIsOpen() {
    for (EdDocument* const document : EdDocuments::instance().all())
        dbCloseOpenObjects(*document->database());
}
// Answers are taken from another input while this lives.
class InputInForce {
public:
    explicit InputInForce(EdInput& input) { EdInputStack::instance().push(&input); }
    ~InputInForce() { EdInputStack::instance().pop(); }
    InputInForce(const InputInForce&) = delete;
    InputInForce& operator=(const InputInForce&) = delete;
};
} // namespace

EdCommandRunner& EdCommandRunner::instance() {
    static EdCommandRunner theRunner;
    return theRunner;
}
void EdCommandRunner::reset() {
    mExpressions.clear();
    mTexts.clear();
    mQuit = mRunningQueued = false;
    EdInputStack::instance().setCancelled(false);
    EdInputStack::instance().setRefused(false);
    EdInputStack::instance().breakAt(0);
}

void EdCommandRunner::loop() {
    EdInputStack& stack = EdInputStack::instance();
    while (!mQuit && !stack.refused()) {
        runQueued();
        if (mQuit || stack.refused())
            return;
        edFreshLine();
        stack.setCancelled(false);
        const auto line = stack.ask(kEdCommandPrompt, EdTake::kWord);
        if (!line) {
            if (edInput() == nullptr || !edInput()->continuesAfterCancel())
                return;
            continue;
        }
        const std::wstring fault = faultOf([&] { runLine(*line); });
        if (!fault.empty())
            edFail(L"\"" + *line + L"\" failed: " + fault);
    }
}

void EdCommandRunner::runQueued() {
    if (mRunningQueued || mDepth > 0)
        return;
    mRunningQueued = true;
    while (!mQuit && !EdInputStack::instance().refused()) {
        if (!mExpressions.empty()) {
            const std::wstring expression = std::move(mExpressions.front());
            mExpressions.pop_front();
            const std::wstring fault = faultOf([&] { runForm(expression); });
            if (!fault.empty())
                edFail(expression + L" failed: " + fault);
        } else if (!mTexts.empty()) {
            // Typed ahead: what the commands in it ask for beyond its end, the user answers.
            EdInputStack::instance().typeAhead(mTexts.front());
            mTexts.pop_front();
            break;
        } else {
            break;
        }
    }
    mRunningQueued = false;
}

EdRunResult EdCommandRunner::runLine(const std::wstring& line) {
    const std::wstring word = edTrim(line);
    if (word.empty() || word.front() == L';')
        return EdRunResult::kEnded;
    if (word.front() == L'@') {
        const std::optional<std::wstring> rest = EdInputStack::instance().takePending();
        const std::wstring whole = rest ? word + L" " + *rest : word;
        return edSameWord(word, kCancelAt) ? runCancelAt(whole) : runDialogLine(whole);
    }
    if (word.front() == L'(')
        return runForm(word);
    const EdRunResult result = runNamed(word);
    if (result == EdRunResult::kUnknown)
        edFail(L"Unknown command \"" + word + L"\".");
    return result;
}

EdRunResult EdCommandRunner::runDialogLine(const std::wstring& line) {
    const std::wstring reason = mDialogLines ? mDialogLines(line) : L"no dialog is open";
    if (!reason.empty())
        edFail(L"\"" + line + L"\": " + reason);
    return reason.empty() ? EdRunResult::kEnded : EdRunResult::kFailed;
}
EdRunResult EdCommandRunner::runCancelAt(const std::wstring& line) {
    const auto count = edParseInt(edTrim(line.substr(std::wstring_view(kCancelAt).size())));
    if (!count || *count < 1) {
        edFail(L"\"" + line + L"\": the form is @cancel-at N, with N from 1");
        return EdRunResult::kFailed;
    }
    EdInputStack::instance().breakAt(*count);
    return EdRunResult::kEnded;
}

EdRunResult EdCommandRunner::runNamed(const std::wstring& typed) {
    std::wstring name = typed;
    bool hostOnly = false;
    while (!name.empty() && (name.front() == L'_' || name.front() == L'.' || name.front() == L'-' || name.front() == L'\'')) {
        hostOnly = hostOnly || name.front() == L'.';
        name.erase(0, 1);
    }
    AcEdCommandStack* const stack = acedRegCmds();
    for (const std::wstring& candidate : {name, edAliasOf(name)}) {
        if (candidate.empty())
            continue;
        if (hostOnly) {
            for (const AcEdCommand* const command : stack->commands())
                if (command->group == kEdHostGroup && edSameWord(command->globalName, candidate))
                    return runCommand(*command);
        } else if (const AcEdCommand* const command = stack->lookupCmd(candidate.c_str())) {
            return runCommand(*command);
        }
    }
    if (EdSysVars::instance().exists(name)) {
        edAskVariable(name);
        return EdInputStack::instance().refused() ? EdRunResult::kFailed : EdRunResult::kEnded;
    }
    return EdRunResult::kUnknown;
}

EdRunResult EdCommandRunner::runCommand(const AcEdCommand& command) {
    // Copied: the command may remove its own record.
    const std::wstring name = command.globalName;
    const int flags = command.flags;
    const AcRxFunctionPtr function = command.function;
    EdInputStack& stack = EdInputStack::instance();
    AcDbDatabase* const db = edDatabase();
    if (db != nullptr && mDepth == 0 && (flags & kEdNoUndoGroup) == 0)
        db->startUndoRecord();
    const bool wasCancelled = stack.cancelled();
    stack.setCancelled(false);
    ++mDepth;
    EdEditor::instance().fireWillStart(name);
    const std::wstring fault = faultOf(function);
    --mDepth;
    if (!fault.empty()) {
        mFaulted = true;
        edFail(L"The command " + name + L" failed: " + fault);
    }
    if (mDepth == 0 && std::exchange(mFaulted, false)) // what the commands around a nested one have open is theirs
        closeWhatIsOpen();
    EdRunResult result = stack.cancelled() ? EdRunResult::kCancelled : EdRunResult::kEnded;
    if (stack.refused()) {
        result = EdRunResult::kFailed;
        EdEditor::instance().fireFailed(name);
    } else if (result == EdRunResult::kCancelled) {
        EdEditor::instance().fireCancelled(name);
    } else {
        EdEditor::instance().fireEnded(name);
    }
    if (mDepth == 0)
        if (const auto tests = stack.endBreakCount())
            acutPrintf(L"The command was not broken off: it asked %d times.\n", *tests);
    if (EdDocument* const document = EdDocuments::instance().current(); document != nullptr && mDepth == 0 && (flags & kEdKeepsPickFirst) == 0)
        document->selection().pickFirst.removeAll();
    stack.setCancelled(wasCancelled);
    return result;
}

EdRunResult EdCommandRunner::runWith(const std::wstring& name, std::deque<std::wstring> answers) {
    EdInputStack& stack = EdInputStack::instance();
    EdAnswerInput input(std::move(answers));
    const bool wasRefused = stack.refused();
    stack.setRefused(false);
    EdRunResult result = EdRunResult::kUnknown;
    {
        const InputInForce inForce(input);
        edSay(name);
        result = runNamed(name);
    }
    stack.setRefused(wasRefused);
    if (result == EdRunResult::kUnknown) {
        edSay(L"Unknown command \"" + name + L"\".");
    } else if (input.wasRefused()) {
        result = EdRunResult::kFailed;
    }
    return result;
}

// What a form can do here: run a command, read and set a variable.
EdRunResult EdCommandRunner::runForm(const std::wstring& text) {
    const auto form = edParseForm(text);
    const auto failed = [&](const std::wstring& reason) {
        edFail(L"\"" + text + L"\": " + reason);
        return EdRunResult::kFailed;
    };
    if (!form)
        return failed(L"is no form of the shape (command \"NAME\" ...)");
    if (form->head == L"COMMAND" || form->head == L"COMMAND-S" || form->head == L"VL-CMDF") {
        if (form->items.empty())
            return EdRunResult::kEnded;
        std::deque<std::wstring> answers(form->items.begin() + 1, form->items.end());
        return runWith(form->items.front(), std::move(answers));
    }
    EdSysVars& vars = EdSysVars::instance();
    if (form->head == L"GETVAR" && form->items.size() == 1 && vars.exists(form->items[0])) {
        acutPrintf(L"%s\n", edVarText(*vars.get(form->items[0])).c_str());
        return EdRunResult::kEnded;
    }
    if (form->head == L"SETVAR" && form->items.size() == 2) {
        const std::wstring reason = vars.setFromText(form->items[0], form->items[1]);
        return reason.empty() ? EdRunResult::kEnded : failed(reason);
    }
    return failed(L"is not known here");
}
