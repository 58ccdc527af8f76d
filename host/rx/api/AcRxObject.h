// Runtime classes: every API object knows its class, its class's parent, and can be
// made by class name. Classes are registered by rxInit and found in acrxClassDictionary.
#pragma once

#include "AcAdesk.h"

class AcRxClass;

class AcRxObject {
public:
    virtual ~AcRxObject() = default;
    virtual AcRxClass* isA() const;
    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
    // True when the object's class is `type` or derives from it.
    bool isKindOf(const AcRxClass* type) const;

protected:
    AcRxObject() = default;
};

using AcRxConstructor = AcRxObject* (*)();

class AcRxClass : public AcRxObject {
public:
    const ACHAR* name() const;
    const ACHAR* dxfName() const; // null when the class has none
    const ACHAR* appName() const; // null for the host's own classes
    AcRxClass* myParent() const;
    bool isDerivedFrom(const AcRxClass* other) const;
    // A new default-made object; null for an abstract class. The caller owns it.
    AcRxObject* create() const;
    int proxyFlags() const;
    void getClassVersion(int& dwgVersion, int& maintenanceVersion) const;
    AcRxClass* isA() const override;
    static AcRxClass* desc();

private:
    friend AcRxClass* newAcRxClass(const ACHAR*, AcRxClass*, int, int, int, AcRxConstructor, const ACHAR*, const ACHAR*, const ACHAR*);
    friend void acrxBuildClassHierarchy();
    friend void deleteAcRxClass(AcRxClass*);
    AcRxClass() = default;
    ~AcRxClass() override = default;
    struct Impl;
    Impl* mImpl = nullptr;
};

// Registers a class; one of that name that is registered already is returned. A module's class names its
// parent, which is found in the registry now or, where it is registered later, when acrxBuildClassHierarchy
// runs; the pointer counts only where no name is given.
// Texts are copied. The registry owns the class until deleteAcRxClass.
AcRxClass* newAcRxClass(const ACHAR* name, AcRxClass* parent, int dwgVersion = 0, int maintenanceVersion = 0,
                        int proxyFlags = 0, AcRxConstructor constructor = nullptr, const ACHAR* dxfName = nullptr,
                        const ACHAR* appName = nullptr, const ACHAR* parentName = nullptr);
// Takes the class out of the registry; classes derived from it go to its parent. No new object of it
// can be made or read; those that live keep their class until they are closed with their drawing.
void deleteAcRxClass(AcRxClass* type);
// Completes the tree after a batch of rxInit calls; harmless to repeat.
void acrxBuildClassHierarchy();
// The registered class of that name, or null.
AcRxClass* acrxFindClass(const ACHAR* name);
// The registered class with that DXF name (the first registered where several share it), or null.
AcRxClass* acrxFindClassByDxfName(const ACHAR* dxfName);

#define ACRX_DECLARE_MEMBERS(CLASS)                                                                                    \
    AcRxClass* isA() const override;                                                                                   \
    static AcRxClass* gpDesc;                                                                                          \
    static AcRxClass* desc();                                                                                          \
    static CLASS* cast(const AcRxObject* object) {                                                                     \
        return object != nullptr && object->isKindOf(CLASS::desc())                                                    \
                   ? static_cast<CLASS*>(const_cast<AcRxObject*>(object))                                              \
                   : nullptr;                                                                                          \
    }                                                                                                                  \
    static void rxInit()

#define ACRX_MEMBERS_COMMON(CLASS)                                                                                     \
    AcRxClass* CLASS::gpDesc = nullptr;                                                                                \
    AcRxClass* CLASS::desc() { return gpDesc; }                                                                        \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }

// For a module's classes: registered when rxInit is called, gone after deleteAcRxClass.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DWG_VERSION, MAINTENANCE_VERSION, PROXY_FLAGS, DXF_NAME, APP_NAME)      \
    ACRX_MEMBERS_COMMON(CLASS)                                                                                         \
    void CLASS::rxInit() {                                                                                             \
        CLASS::gpDesc = newAcRxClass(                                                                                  \
            L## #CLASS, PARENT::desc(), DWG_VERSION, MAINTENANCE_VERSION, PROXY_FLAGS,                                 \
            []() -> AcRxObject* { return new CLASS; }, DXF_NAME, APP_NAME, L## #PARENT);                               \
    }
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT)                                                                     \
    ACRX_MEMBERS_COMMON(CLASS)                                                                                         \
    void CLASS::rxInit() { CLASS::gpDesc = newAcRxClass(L## #CLASS, PARENT::desc()); }

// For the host's own classes: registered before main and never removed.
#define HOST_RX_REGISTER(CLASS)                                                                                        \
    AcRxClass* CLASS::gpDesc = nullptr;                                                                                \
    AcRxClass* CLASS::desc() {                                                                                         \
        if (gpDesc == nullptr)                                                                                         \
            rxInit();                                                                                                  \
        return gpDesc;                                                                                                 \
    }                                                                                                                  \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }                                                            \
    namespace {                                                                                                        \
    [[maybe_unused]] const AcRxClass* const kRegistered##CLASS = CLASS::desc();                                        \
    }
#define HOST_RX_DEFINE(CLASS, PARENT, DXF_NAME)                                                                        \
    void CLASS::rxInit() {                                                                                             \
        gpDesc = newAcRxClass(                                                                                         \
            L## #CLASS, PARENT::desc(), 0, 0, 0, []() -> AcRxObject* { return new CLASS; }, DXF_NAME);                 \
    }                                                                                                                  \
    HOST_RX_REGISTER(CLASS)
#define HOST_RX_DEFINE_ABSTRACT(CLASS, PARENT)                                                                         \
    void CLASS::rxInit() { gpDesc = newAcRxClass(L## #CLASS, PARENT::desc()); }                                        \
    HOST_RX_REGISTER(CLASS)
