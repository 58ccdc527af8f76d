// The settings of the working drawing, kept in its dictionary TRFC_DOC_DATA.
#include "TrfcDocSettings.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"
#include "TrfcUnchangedScope.h"
#include "storedItem.h"

#include <memory>

using namespace TrfcAppSettings;

namespace {

// Group codes of the three kinds of setting.
constexpr short kIntCode = 70;
constexpr short kRealCode = 40;
constexpr short kTextCode = 1;

struct RbRelease {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};
using RbChain = std::unique_ptr<resbuf, RbRelease>;

// The settings dictionary of the working drawing, open for write; made when the drawing has none.
class DocDictionary {
public:
    DocDictionary() {
        AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
        AcDbDictionary* named = nullptr;
        if (database == nullptr || database->getNamedObjectsDictionary(named, AcDb::kForWrite) != Acad::eOk)
            return; // no drawing: every setting reads as nothing
        if (named->getAt(TRFC_DOC_DATA, mDictionary, AcDb::kForWrite) == Acad::eKeyNotFound) {
            AcDbObjectId id;
            mDictionary = new AcDbDictionary;
            named->setAt(TRFC_DOC_DATA, mDictionary, id);
        }
        named->close();
    }
    ~DocDictionary() {
        if (mDictionary != nullptr)
            mDictionary->close();
    }
    DocDictionary(const DocDictionary&) = delete;
    DocDictionary& operator=(const DocDictionary&) = delete;
    AcDbDictionary* get() const { return mDictionary; }

private:
    AcDbDictionary* mDictionary = nullptr;
};

void makeRecord(AcDbDictionary& dictionary, const ACHAR* key, const resbuf& value) {
    AcDbObjectId id;
    auto* record = new AcDbXrecord;
    dictionary.setAt(key, record, id);
    record->setFromRbChain(value);
    record->close();
}

void store(const ACHAR* key, const RbChain& value) {
    const DocDictionary dictionary;
    if (dictionary.get() == nullptr)
        return;
    AcDbXrecord* record = nullptr;
    if (dictionary.get()->getAt(key, record, AcDb::kForWrite) == Acad::eOk) {
        record->setFromRbChain(*value);
        record->close();
    } else {
        makeRecord(*dictionary.get(), key, *value);
    }
}

// The stored value of a key, or the default's, which is then stored: from the first reading on
// the drawing keeps its look whatever becomes of the defaults.
// take: value of a stored item; fromText: value of the default's text; item: a chain of the value.
template <class Value, class Take, class FromText, class Item>
Value fetch(const ACHAR* key, Value none, Take take, FromText fromText, Item item) {
    const TrfcUnchangedScope reading(acdbHostApplicationServices()->workingDatabase());
    const DocDictionary dictionary;
    if (dictionary.get() == nullptr)
        return none;
    AcDbXrecord* record = nullptr;
    if (dictionary.get()->getAt(key, record, AcDb::kForRead) == Acad::eOk) {
        const resbuf* first = record->firstItem();
        const Value value = first != nullptr ? take(*first) : none;
        record->close();
        return value;
    }
    const Value value = fromText(getDocDefault(key).c_str());
    makeRecord(*dictionary.get(), key, *item(value));
    return value;
}

RbChain intItem(Adesk::Int32 value) {
    return RbChain(acutBuildList(kIntCode, static_cast<int>(static_cast<Adesk::Int16>(value)), 0));
}
RbChain realItem(double value) {
    return RbChain(acutBuildList(kRealCode, value, 0));
}
RbChain textItem(const std::wstring& value) {
    return RbChain(acutBuildList(kTextCode, value.c_str(), 0));
}

double unitFactor(const ACHAR* unit) {
    if (acutWcscmp(unit, L"wcs") == 0 || acutWcscmp(unit, L"WCS") == 0)
        return TrfcDocSettings::getDocInt(DOC_CURRENT_SCALE);
    if (acutWcscmp(unit, L"mm") == 0 || acutWcscmp(unit, L"MM") == 0)
        return 1000.0;
    return 1.0;
}

} // namespace

Adesk::Int32 TrfcDocSettings::getDocInt(TrfcIntKey key) {
    return fetch<Adesk::Int32>(
        key, 0, [](const resbuf& item) { return static_cast<Adesk::Int32>(item.resval.rint); },
        // A default beyond 16 bits reads as it will be stored, so the first read and later ones agree.
        [](const ACHAR* text) { return static_cast<Adesk::Int32>(static_cast<Adesk::Int16>(acWtoi(text))); }, intItem);
}

double TrfcDocSettings::getDocDouble(TrfcRealKey key) {
    return fetch<double>(key, 0.0, [](const resbuf& item) { return item.resval.rreal; }, acWtof, realItem);
}

double TrfcDocSettings::getDocDoubleIn(TrfcRealKey key, const ACHAR* unit) {
    return toUnits(getDocDouble(key), unit);
}

std::wstring TrfcDocSettings::getDocString(TrfcTextKey key) {
    return fetch<std::wstring>(
        key, std::wstring(), [](const resbuf& item) { return std::wstring(storedText(&item)); }, [](const ACHAR* text) { return std::wstring(text); }, textItem);
}

void TrfcDocSettings::setDocInt(TrfcIntKey key, Adesk::Int32 value) {
    store(key, intItem(value));
}

void TrfcDocSettings::setDocDouble(TrfcRealKey key, double value) {
    store(key, realItem(value));
}

void TrfcDocSettings::setDocString(TrfcTextKey key, const std::wstring& value) {
    store(key, textItem(value));
}

double TrfcDocSettings::toUnits(double value, const ACHAR* unit) {
    return value * unitFactor(unit);
}

double TrfcDocSettings::fromUnits(double value, const ACHAR* unit) {
    return value / unitFactor(unit);
}
