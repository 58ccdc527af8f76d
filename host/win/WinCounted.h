// What every object behind an interface shares: it counts its references and gives itself out by id.
#pragma once

#include "WinCom.h"

#include <atomic>

// An object with the one interface chain that ends in Interface. Begins with one reference, the maker's;
// derived classes keep their destructors from callers.
template <class Interface> class WinCounted : public Interface {
public:
    WinCounted(const WinCounted&) = delete;
    WinCounted& operator=(const WinCounted&) = delete;

    HRESULT QueryInterface(REFIID iid, void** object) final {
        if (object == nullptr)
            return E_POINTER;
        *object = answersTo(iid) ? static_cast<Interface*>(this) : nullptr;
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG AddRef() final { return ++mReferences; }
    ULONG Release() final {
        const ULONG left = --mReferences;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    WinCounted() = default;
    virtual ~WinCounted() = default;
    virtual bool answersTo(REFIID iid) const = 0;

private:
    std::atomic<ULONG> mReferences{1};
};
