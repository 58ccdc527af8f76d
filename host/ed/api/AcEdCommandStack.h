// Registered commands. A command has a global and a local name; both are typed without
// regard to case, the global one with a leading underscore too.
#pragma once

#include "AcRxModule.h"

#include <string>
#include <vector>

using AcRxFunctionPtr = void (*)();
enum AcEdCommandFlags { ACRX_CMD_MODAL = 0x0, ACRX_CMD_TRANSPARENT = 0x1, ACRX_CMD_USEPICKSET = 0x2, ACRX_CMD_REDRAW = 0x4 };

class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);
    std::wstring group, globalName, localName;
    int flags = 0;
    AcRxFunctionPtr function = nullptr;
};
class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);
    // eDuplicateKey when the group has a command of that local name already.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags, AcRxFunctionPtr function,
                                         void* uiContext = nullptr, int resourceId = -1, void* moduleHandle = nullptr, AcEdCommand** command = nullptr);
    virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName);
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group); // eKeyNotFound
    // By local name, then by global name; the command added last wins. Null when unknown.
    virtual AcEdCommand* lookupCmd(const ACHAR* name) const;
    virtual std::vector<const AcEdCommand*> commands() const; // in order of adding
};
// acrxSysRegistry()->at(ACRX_COMMAND_DOCK) is the command stack.
inline constexpr const ACHAR* ACRX_COMMAND_DOCK = L"ACAD_REGISTERED_COMMANDS";
inline AcEdCommandStack* acedRegCmds() { return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(ACRX_COMMAND_DOCK)); }
