// A user who types lines into a new drawing, and what the command line showed.
#pragma once

#include "AcUtText.h"
#include "EdInput.h"
#include "core/EdCommandRunner.h"
#include "core/EdDocuments.h"
#include "core/EdSysVars.h"
#include "input/EdInputStack.h"

#include <deque>
#include <string>
#include <vector>

class EdSession : public EdInput {
public:
    EdSession() {
        mEarlier = acSetPrintSink([this](std::wstring_view text) { output += text; });
        edRegisterHostCommands();
        EdSysVars::instance().reset();
        EdCommandRunner::instance().reset();
        edPushInput(this);
        EdDocuments::instance().createNew();
    }
    ~EdSession() override {
        EdDocuments::instance().closeAll();
        edPopInput();
        EdCommandRunner::instance().reset();
        acSetPrintSink(mEarlier);
    }
    // Types the lines at the Command prompt; the run ends with them.
    EdSession& type(std::vector<std::wstring> typed) {
        lines.assign(typed.begin(), typed.end());
        EdCommandRunner::instance().loop();
        return *this;
    }
    std::optional<std::wstring> nextLine(const std::wstring&) override {
        if (lines.empty() || !refusal.empty())
            return std::nullopt;
        std::wstring line = lines.front();
        lines.pop_front();
        acutPrintf(L"%s\n", line.c_str());
        return line;
    }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring& reason) override { refusal = reason; }
    bool continuesAfterCancel() const override { return !lines.empty() && refusal.empty(); }

    AcDbDatabase& db() { return *edDatabase(); }
    std::vector<AcDbObjectId> entities() {
        std::vector<AcDbObjectId> ids;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(db().modelSpaceId());
        for (const AcDbObjectId id : space->entityIds())
            if (!id.isErased())
                ids.push_back(id);
        return ids;
    }
    template <class T> AcDbObjectPointer<T> only() { return AcDbObjectPointer<T>(entities().size() == 1 ? entities()[0] : AcDbObjectId::kNull); }
    bool printed(const wchar_t* text) const { return output.find(text) != std::wstring::npos; }

    std::deque<std::wstring> lines;
    std::wstring output, refusal;

private:
    AcPrintSink mEarlier;
};
