#include "AcEdCommandStack.h"

#include "input/EdParse.h"

#include <memory>

HOST_RX_DEFINE(AcEdCommand, AcRxObject, nullptr)
HOST_RX_DEFINE_ABSTRACT(AcEdCommandStack, AcRxObject)

namespace {
// The stack itself keeps the records, so that a module's own stack object is never needed.
std::vector<std::unique_ptr<AcEdCommand>>& records() {
    static auto* const theRecords = new std::vector<std::unique_ptr<AcEdCommand>>;
    return *theRecords;
}
const bool kRegistered = [] {
    static AcEdCommandStack theStack; // lives as long as the program
    acrxSysRegistry()->atPut(ACRX_COMMAND_DOCK, &theStack);
    return true;
}();
} // namespace

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags,
                                               AcRxFunctionPtr function, void*, int, void*, AcEdCommand** command) {
    if (group == nullptr || globalName == nullptr || localName == nullptr || function == nullptr)
        return Acad::eInvalidInput;
    for (const auto& other : records())
        if (edSameWord(other->group, group) && edSameWord(other->localName, localName))
            return Acad::eDuplicateKey;
    auto added = std::make_unique<AcEdCommand>();
    added->group = group;
    added->globalName = globalName;
    added->localName = localName;
    added->flags = flags;
    added->function = function;
    if (command != nullptr)
        *command = added.get();
    records().push_back(std::move(added));
    return Acad::eOk;
}
Acad::ErrorStatus AcEdCommandStack::removeCmd(const ACHAR* group, const ACHAR* globalName) {
    const auto gone = std::erase_if(records(), [&](const auto& c) { return edSameWord(c->group, group) && edSameWord(c->globalName, globalName); });
    return gone > 0 ? Acad::eOk : Acad::eKeyNotFound;
}
Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* group) {
    const auto gone = std::erase_if(records(), [&](const auto& c) { return edSameWord(c->group, group); });
    return gone > 0 ? Acad::eOk : Acad::eKeyNotFound;
}
AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* name) const {
    for (const auto part : {&AcEdCommand::localName, &AcEdCommand::globalName})
        for (auto it = records().rbegin(); it != records().rend(); ++it)
            if (edSameWord((**it).*part, name))
                return it->get();
    return nullptr;
}
std::vector<const AcEdCommand*> AcEdCommandStack::commands() const {
    std::vector<const AcEdCommand*> all;
    for (const auto& record : records())
        all.push_back(record.get());
    return all;
}
