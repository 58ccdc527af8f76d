#include "driver/AfxEditorDriver.h"

#include "AcEdAds.h"
#include "AcUtText.h"
#include "EdInput.h"

namespace {
class EditorDriver : public AfxDialogDriver {
public:
    bool nextDialogLine(std::wstring& line) override {
        const auto next = edInput()->nextDialogLine();
        if (next)
            line = *next;
        return next.has_value();
    }
    void refuseDialogLine(const std::wstring& reason) override { edInput()->refuse(reason); }
    bool asksAgain() const override { return edInput()->asksWindowsAgain(); }
    bool askFilePath(const std::wstring& prompt, std::wstring& path) override {
        resbuf filedia = {};
        if (acedGetVar(L"FILEDIA", &filedia) == RTNORM && filedia.resval.rint != 0)
            return false;
        acutPrintf(L"%s", prompt.c_str());
        path = edInput()->nextLine(prompt).value_or(L"");
        return true;
    }
};
} // namespace

AfxDialogDriver* afxEditorDriver() {
    static EditorDriver driver;
    return edInput() == nullptr ? nullptr : &driver;
}
