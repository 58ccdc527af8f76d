// The editor object: tells its reactors of commands and variables.
#pragma once

#include "AcEdReactors.h"

#include <functional>
#include <string>
#include <vector>

class EdEditor : public AcEditor {
public:
    static EdEditor& instance();
    void addReactor(AcEditorReactor* reactor) override;
    void removeReactor(AcEditorReactor* reactor) override;
    void fireWillStart(const std::wstring& name);
    void fireEnded(const std::wstring& name);
    void fireCancelled(const std::wstring& name);
    void fireFailed(const std::wstring& name);
    void fireSysVarChanged(const std::wstring& name, bool success);

private:
    void each(const std::function<void(AcEditorReactor&)>& tell);
    std::vector<AcEditorReactor*> mReactors;
};
