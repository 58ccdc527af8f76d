// Open Design description of DWG, chapters "Extended entity data" and "XRECORD".
#include "DwgChains.h"

#include "AcUtText.h"
#include "ResbufKind.h"

#include <cstring>
#include <cwctype>

namespace {
std::wstring upper(std::wstring text) {
    for (wchar_t& c : text)
        c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return text;
}
const std::wstring kNoName;

// Collects items in order; releases them unless taken.
class Chain {
public:
    Chain() = default;
    ~Chain() { acutRelRb(mFirst); }
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;
    resbuf* add(int type) { return append(acutNewRb(type)); }
    resbuf* addText(int type, const std::wstring& text) { return append(rbNewText(type, text.c_str())); }
    resbuf* take() { return std::exchange(mFirst, nullptr); }

private:
    resbuf* append(resbuf* item) {
        if (item == nullptr)
            return nullptr;
        (mLast != nullptr ? mLast->rbnext : mFirst) = item;
        mLast = item;
        return item;
    }
    resbuf* mFirst = nullptr;
    resbuf* mLast = nullptr;
};

bool setBinary(resbuf* item, const std::vector<Adesk::UInt8>& bytes) {
    if (item == nullptr)
        return false;
    item->resval.rbinary.clen = static_cast<short>(bytes.size());
    item->resval.rbinary.buf = new char[bytes.size() + 1];
    if (!bytes.empty())
        std::memcpy(item->resval.rbinary.buf, bytes.data(), bytes.size());
    return true;
}
void setPoint(resbuf& item, const AcGePoint3d& p) {
    item.resval.rpoint[0] = p.x;
    item.resval.rpoint[1] = p.y;
    item.resval.rpoint[2] = p.z;
}
AcGePoint3d pointOf(const resbuf& item) {
    return {item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]};
}
// Eight bytes, the lowest first (observed in the xrecords of the drawings).
Adesk::UInt64 readHandle64(DwgBitReader& in) {
    const Adesk::UInt64 low = in.RL();
    return low | static_cast<Adesk::UInt64>(in.RL()) << 32U;
}
void writeHandle64(DwgBitWriter& out, Adesk::UInt64 handle) {
    out.RL(static_cast<Adesk::UInt32>(handle));
    out.RL(static_cast<Adesk::UInt32>(handle >> 32U));
}
std::string readNarrow(DwgBitReader& in, std::size_t length) {
    const std::vector<Adesk::UInt8> raw = in.bytes(length);
    return std::string(raw.begin(), raw.end());
}

// Codes of extended data are stored less 1000.
enum ExtendedCode { kText = 0, kBrace = 2, kLayer = 3, kBinary = 4, kHandle = 5, kFirstPoint = 10, kLastPoint = 13, kFirstReal = 40, kLastReal = 42, kShort = 70, kLong = 71 };
constexpr int kExtendedBase = 1000;
constexpr std::size_t kLongestExtendedText = 255;

bool readExtendedValue(DwgBitReader& in, int code, const DwgNames& names, const DwgTextCodec& text, Chain& chain) {
    const int type = kExtendedBase + code;
    if (code == kText) {
        const std::size_t length = in.RC();
        in.bits(16); // the code page; the drawing's own is used by every writer seen
        return chain.addText(type, text.decode(readNarrow(in, length))) != nullptr;
    }
    if (code == kBrace)
        return chain.addText(type, in.RC() == 0 ? L"{" : L"}") != nullptr;
    if (code == kLayer)
        return chain.addText(type, names.layerName(readHandle64(in))) != nullptr;
    if (code == kHandle)
        return chain.addText(type, AcDbHandle(readHandle64(in)).text()) != nullptr;
    if (code == kBinary) {
        const std::size_t length = in.RC();
        return setBinary(chain.add(type), in.bytes(length));
    }
    const bool known = (code >= kFirstPoint && code <= kLastPoint) || (code >= kFirstReal && code <= kLastReal) || code == kShort || code == kLong;
    resbuf* const item = known ? chain.add(type) : nullptr;
    if (item == nullptr)
        return false;
    if (code == kShort)
        item->resval.rint = static_cast<short>(in.RS());
    else if (code == kLong)
        item->resval.rlong = static_cast<Adesk::Int32>(in.RL());
    else if (code >= kFirstReal)
        item->resval.rreal = in.RD();
    else
        setPoint(*item, in.RD3());
    return true;
}

void writeExtendedValue(DwgBitWriter& out, const resbuf& item, const DwgNames& names, const DwgTextCodec& text) {
    const int code = item.restype - kExtendedBase;
    if (code < 0 || code > kLong)
        return;
    out.RC(static_cast<unsigned>(code));
    const auto wide = [&item] { return std::wstring(item.resval.rstring != nullptr ? item.resval.rstring : L""); };
    if (code == kText) {
        const std::string narrow = text.encode(wide()).substr(0, kLongestExtendedText);
        out.RC(static_cast<unsigned>(narrow.size()));
        out.bits(static_cast<unsigned>(text.codePage()), 16); // high byte first (observed)
        out.bytes(reinterpret_cast<const Adesk::UInt8*>(narrow.data()), narrow.size());
    } else if (code == kBrace) {
        out.RC(wide() == L"{" ? 0 : 1);
    } else if (code == kLayer) {
        writeHandle64(out, names.layer(wide()));
    } else if (code == kHandle) {
        writeHandle64(out, AcDbHandle(wide().c_str()));
    } else if (code == kBinary) {
        const auto length = static_cast<std::size_t>(item.resval.rbinary.clen < 0 ? 0 : item.resval.rbinary.clen);
        out.RC(static_cast<unsigned>(length));
        out.bytes(reinterpret_cast<const Adesk::UInt8*>(item.resval.rbinary.buf), length & 0xFFU);
    } else if (code == kShort) {
        out.RS(static_cast<unsigned>(item.resval.rint));
    } else if (code == kLong) {
        out.RL(static_cast<Adesk::UInt32>(item.resval.rlong));
    } else if (code >= kFirstReal) {
        out.RD(item.resval.rreal);
    } else {
        out.RD3(pointOf(item));
    }
}
} // namespace

void DwgNames::Index::add(Adesk::UInt64 handle, const std::wstring& name) {
    names.emplace(handle, name);
    handles.emplace(upper(name), handle);
}
void DwgNames::addApplication(Adesk::UInt64 handle, const std::wstring& name) {
    mApplications.add(handle, name);
}
void DwgNames::addLayer(Adesk::UInt64 handle, const std::wstring& name) {
    mLayers.add(handle, name);
}
const std::wstring& DwgNames::applicationName(Adesk::UInt64 handle) const {
    const auto found = mApplications.names.find(handle);
    return found == mApplications.names.end() ? kNoName : found->second;
}
const std::wstring& DwgNames::layerName(Adesk::UInt64 handle) const {
    const auto found = mLayers.names.find(handle);
    return found == mLayers.names.end() ? kNoName : found->second;
}
Adesk::UInt64 DwgNames::application(const std::wstring& name) const {
    const auto found = mApplications.handles.find(upper(name));
    return found == mApplications.handles.end() ? 0 : found->second;
}
Adesk::UInt64 DwgNames::layer(const std::wstring& name) const {
    const auto found = mLayers.handles.find(upper(name));
    return found == mLayers.handles.end() ? 0 : found->second;
}

bool dwgReadExtended(const std::vector<DwgExtendedItem>& items, const DwgNames& names, const DwgTextCodec& text, resbuf*& chain) {
    chain = nullptr;
    Chain made;
    for (const DwgExtendedItem& item : items) {
        const std::wstring& name = names.applicationName(item.application);
        if (name.empty())
            return false;
        made.addText(kExtendedBase + 1, name);
        DwgBitReader in(item.bytes.data(), item.bytes.size(), &text);
        while (in.left() > 0)
            if (!readExtendedValue(in, in.RC(), names, text, made) || in.failed())
                return false;
    }
    chain = made.take();
    return true;
}

std::vector<DwgExtendedItem> dwgWriteExtended(const resbuf* chain, const DwgNames& names, const DwgTextCodec& text) {
    std::vector<DwgExtendedItem> items;
    const resbuf* item = chain;
    while (item != nullptr) {
        const std::wstring name = item->restype == kExtendedBase + 1 && item->resval.rstring != nullptr ? item->resval.rstring : L"";
        DwgBitWriter out(&text);
        for (item = item->rbnext; item != nullptr && item->restype != kExtendedBase + 1; item = item->rbnext)
            writeExtendedValue(out, *item, names, text);
        const Adesk::UInt64 application = names.application(name);
        const std::vector<Adesk::UInt8>& bytes = out.finish();
        if (application != 0 && !bytes.empty() && bytes.size() <= 0xFFFF)
            items.push_back({application, bytes});
    }
    return items;
}

namespace {
// Shorts of these codes take one byte in an xrecord (observed: 280 and 290 as one byte).
bool isByteCode(int type) {
    return type >= 280 && type <= 299;
}
bool readXrecordValue(DwgBitReader& in, int type, const DwgIdSource& ids, Chain& chain) {
    switch (rbKindOf(type)) {
    case RbKind::kUnknown:
    case RbKind::kNothing: return false;
    case RbKind::kText: {
        const std::size_t length = in.RS();
        in.RC(); // the code page
        const std::string narrow = readNarrow(in, length);
        return chain.addText(type, in.text()->decode(narrow)) != nullptr;
    }
    case RbKind::kBinary: {
        const std::size_t length = in.RC();
        return setBinary(chain.add(type), in.bytes(length));
    }
    case RbKind::kReal:
    case RbKind::kPoint:
    case RbKind::kShort:
    case RbKind::kLong:
    case RbKind::kInt64:
    case RbKind::kName: break;
    }
    resbuf* const item = chain.add(type);
    if (item == nullptr)
        return false;
    switch (rbKindOf(type)) {
    case RbKind::kReal: item->resval.rreal = in.RD(); break;
    case RbKind::kPoint: setPoint(*item, in.RD3()); break;
    case RbKind::kShort: item->resval.rint = static_cast<short>(isByteCode(type) ? in.RC() : in.RS()); break;
    case RbKind::kLong: item->resval.rlong = static_cast<Adesk::Int32>(in.RL()); break;
    case RbKind::kInt64: item->resval.mnInt64 = static_cast<Adesk::Int64>(readHandle64(in)); break;
    case RbKind::kName: item->resval.rlname[0] = ids.id(readHandle64(in)).asOldId(); break;
    case RbKind::kUnknown:
    case RbKind::kNothing:
    case RbKind::kText:
    case RbKind::kBinary: break;
    }
    return true;
}
void writeXrecordValue(DwgBitWriter& out, const resbuf& item) {
    const ads_u_val& v = item.resval;
    switch (rbKindOf(item.restype)) {
    case RbKind::kUnknown:
    case RbKind::kNothing: break;
    case RbKind::kText: {
        const std::string narrow = out.text()->encode(v.rstring != nullptr ? v.rstring : L"").substr(0, 0xFFFF);
        out.RS(static_cast<unsigned>(narrow.size()));
        out.RC(static_cast<unsigned>(out.text()->codePage()));
        out.bytes(reinterpret_cast<const Adesk::UInt8*>(narrow.data()), narrow.size());
        break;
    }
    case RbKind::kReal: out.RD(v.rreal); break;
    case RbKind::kPoint: out.RD3(pointOf(item)); break;
    case RbKind::kShort:
        if (isByteCode(item.restype))
            out.RC(static_cast<unsigned>(v.rint));
        else
            out.RS(static_cast<unsigned>(v.rint));
        break;
    case RbKind::kLong: out.RL(static_cast<Adesk::UInt32>(v.rlong)); break;
    case RbKind::kInt64: writeHandle64(out, static_cast<Adesk::UInt64>(v.mnInt64)); break;
    case RbKind::kBinary: {
        const auto length = static_cast<std::size_t>(v.rbinary.clen < 0 ? 0 : v.rbinary.clen) & 0xFFU;
        out.RC(static_cast<unsigned>(length));
        out.bytes(reinterpret_cast<const Adesk::UInt8*>(v.rbinary.buf), length);
        break;
    }
    case RbKind::kName: writeHandle64(out, AcDbObjectId(reinterpret_cast<AcDbStub*>(v.rlname[0])).handle()); break;
    }
}
} // namespace

bool dwgReadXrecordData(DwgBitReader in, const DwgIdSource& ids, resbuf*& chain) {
    chain = nullptr;
    Chain made;
    while (in.left() >= 16)
        if (!readXrecordValue(in, static_cast<Adesk::Int16>(in.RS()), ids, made) || in.failed())
            return false;
    chain = made.take();
    return in.left() == 0;
}

void dwgWriteXrecordData(DwgBitWriter& out, const resbuf* chain) {
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        const RbKind kind = rbKindOf(item->restype);
        if (kind == RbKind::kUnknown || kind == RbKind::kNothing)
            continue;
        out.RS(static_cast<unsigned>(item->restype));
        writeXrecordValue(out, *item);
    }
}
