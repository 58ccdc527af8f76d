// Chains of typed values in files: the data of xrecords and the extended data of objects.
#pragma once

#include "DwgCommonData.h"
#include "DwgFieldStreams.h"

// Names of registered applications and layers by handle, and handles by name; extended data names both.
class DwgNames {
public:
    void addApplication(Adesk::UInt64 handle, const std::wstring& name);
    void addLayer(Adesk::UInt64 handle, const std::wstring& name);
    // Empty or 0 where there is none. Names compare without regard to case.
    const std::wstring& applicationName(Adesk::UInt64 handle) const;
    const std::wstring& layerName(Adesk::UInt64 handle) const;
    Adesk::UInt64 application(const std::wstring& name) const;
    Adesk::UInt64 layer(const std::wstring& name) const;

private:
    struct Index {
        std::unordered_map<Adesk::UInt64, std::wstring> names;
        std::unordered_map<std::wstring, Adesk::UInt64> handles; // by upper-case name
        void add(Adesk::UInt64 handle, const std::wstring& name);
    };
    Index mApplications, mLayers;
};

// Extended data of one object. False when an item is of an unknown kind: the caller then keeps the
// record as it is. The chain is the caller's.
bool dwgReadExtended(const std::vector<DwgExtendedItem>& items, const DwgNames& names, const DwgTextCodec& text, resbuf*& chain);
// Applications that are not registered are left out.
std::vector<DwgExtendedItem> dwgWriteExtended(const resbuf* chain, const DwgNames& names, const DwgTextCodec& text);

bool dwgReadXrecordData(DwgBitReader in, const DwgIdSource& ids, resbuf*& chain);
void dwgWriteXrecordData(DwgBitWriter& out, const resbuf* chain);
