// Runtime classes and their registry.
#include "AcRxObject.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

struct AcRxClass::Impl {
    std::wstring name, dxfName, appName;
    bool hasDxfName = false, hasAppName = false;
    AcRxClass* parent = nullptr;
    std::wstring parentName; // of a parent that was not registered yet
    int dwgVersion = 0, maintenanceVersion = 0, proxyFlags = 0;
    AcRxConstructor constructor = nullptr;
};

namespace {
// Made on first use: host classes register themselves before main, in no certain order.
struct ClassRegistry {
    std::map<std::wstring, AcRxClass*, std::less<>> byName;
    std::vector<AcRxClass*> inOrder;
    std::vector<AcRxClass*> retired; // taken out by deleteAcRxClass; kept for the objects they made
};
ClassRegistry& registry() {
    static ClassRegistry* const theRegistry = new ClassRegistry; // outlives every static object
    return *theRegistry;
}
} // namespace

AcRxClass* AcRxObject::desc() {
    static AcRxClass* const theClass = newAcRxClass(L"AcRxObject", nullptr);
    return theClass;
}
AcRxClass* AcRxObject::isA() const {
    return desc();
}
bool AcRxObject::isKindOf(const AcRxClass* type) const {
    return isA()->isDerivedFrom(type);
}

AcRxClass* AcRxClass::desc() {
    static AcRxClass* const theClass = newAcRxClass(L"AcRxClass", AcRxObject::desc());
    return theClass;
}
AcRxClass* AcRxClass::isA() const {
    return desc();
}
const ACHAR* AcRxClass::name() const {
    return mImpl->name.c_str();
}
const ACHAR* AcRxClass::dxfName() const {
    return mImpl->hasDxfName ? mImpl->dxfName.c_str() : nullptr;
}
const ACHAR* AcRxClass::appName() const {
    return mImpl->hasAppName ? mImpl->appName.c_str() : nullptr;
}
AcRxClass* AcRxClass::myParent() const {
    return mImpl->parent;
}
bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    if (other == nullptr)
        return false;
    for (const AcRxClass* c = this; c != nullptr; c = c->mImpl->parent)
        if (c == other)
            return true;
    return false;
}
AcRxObject* AcRxClass::create() const {
    return mImpl->constructor == nullptr ? nullptr : mImpl->constructor();
}
int AcRxClass::proxyFlags() const {
    return mImpl->proxyFlags;
}
void AcRxClass::getClassVersion(int& dwgVersion, int& maintenanceVersion) const {
    dwgVersion = mImpl->dwgVersion;
    maintenanceVersion = mImpl->maintenanceVersion;
}

AcRxClass* newAcRxClass(const ACHAR* name, AcRxClass* parent, int dwgVersion, int maintenanceVersion, int proxyFlags,
                        AcRxConstructor constructor, const ACHAR* dxfName, const ACHAR* appName, const ACHAR* parentName) {
    if (AcRxClass* const known = acrxFindClass(name)) {
        // A module that left its class behind comes back: what it derives from may be a class of its own that
        // went and came again. A host class names no parent and stays as it is.
        if (parentName != nullptr) {
            known->mImpl->parent = acrxFindClass(parentName);
            known->mImpl->parentName = parentName;
        }
        return known;
    }
    auto impl = std::make_unique<AcRxClass::Impl>();
    impl->name = name;
    impl->hasDxfName = dxfName != nullptr;
    impl->dxfName = dxfName != nullptr ? dxfName : L"";
    impl->hasAppName = appName != nullptr;
    impl->appName = appName != nullptr ? appName : L"";
    // The pointer that a module holds may be of its earlier life: the name is what tells the parent, and one that
    // is not registered yet is found when the tree is completed.
    impl->parent = parentName != nullptr ? acrxFindClass(parentName) : parent;
    impl->parentName = parentName != nullptr ? parentName : L"";
    impl->dwgVersion = dwgVersion;
    impl->maintenanceVersion = maintenanceVersion;
    impl->proxyFlags = proxyFlags;
    impl->constructor = constructor;
    auto* const type = new AcRxClass;
    type->mImpl = impl.release();
    registry().byName.emplace(name, type);
    registry().inOrder.push_back(type);
    return type;
}

void deleteAcRxClass(AcRxClass* type) {
    if (type == nullptr)
        return;
    ClassRegistry& r = registry();
    std::erase(r.inOrder, type);
    for (AcRxClass* const child : r.inOrder)
        if (child->mImpl->parent == type)
            child->mImpl->parent = type->mImpl->parent;
    r.byName.erase(type->mImpl->name);
    // Objects of the class may live on in open drawings, and answer isA() with it until they are closed.
    r.retired.push_back(type);
}

void acrxBuildClassHierarchy() {
    for (AcRxClass* const type : registry().inOrder)
        if (type->mImpl->parent == nullptr && !type->mImpl->parentName.empty())
            type->mImpl->parent = acrxFindClass(type->mImpl->parentName.c_str());
}

AcRxClass* acrxFindClass(const ACHAR* name) {
    const auto found = registry().byName.find(std::wstring_view(name));
    return found == registry().byName.end() ? nullptr : found->second;
}

AcRxClass* acrxFindClassByDxfName(const ACHAR* dxfName) {
    for (AcRxClass* const type : registry().inOrder)
        if (type->dxfName() != nullptr && std::wstring_view(type->dxfName()) == dxfName)
            return type;
    return nullptr;
}
