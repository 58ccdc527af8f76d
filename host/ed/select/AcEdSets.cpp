// Selection sets of the API.
#include "AcDbBlockReference.h"
#include "AcEdAds.h"
#include "core/EdDocuments.h"
#include "input/EdParse.h"
#include "EdPick.h"
#include "core/EdProperties.h"
#include "EdSelect.h"
#include "EdSets.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace {
constexpr std::intptr_t kSetMark = 0x5E7;
constexpr short kTypeFilter = 5020; // the entity type of a filter may also be given by this number
// The order in which the members came, and a quick answer to who is one: jobs ask it of every object.
struct NamedSet {
    AcDbObjectIdArray ids;
    std::unordered_set<AcDbObjectId> members;
    void add(AcDbObjectId id) {
        if (!id.isNull() && members.insert(id).second)
            ids.append(id);
    }
};
std::map<std::intptr_t, NamedSet> gSets;
std::intptr_t gNextSet = 0;

NamedSet* setOf(const ads_name name) {
    if (name[1] != kSetMark)
        return nullptr;
    const auto found = gSets.find(name[0]);
    return found == gSets.end() ? nullptr : &found->second;
}
void nameSet(const AcDbObjectIdArray& ids, ads_name name) {
    name[0] = ++gNextSet;
    name[1] = kSetMark;
    NamedSet& set = gSets[name[0]];
    for (const AcDbObjectId id : ids)
        set.add(id);
}

bool acceptsItem(const AcDbEntity& entity, const resbuf& item) {
    switch (item.restype) {
    case 0:
    case kTypeFilter:
        return edMatchesPattern(edTypeName(entity), item.resval.rstring) || edMatchesPattern(entity.isA()->name(), item.resval.rstring);
    case 2: {
        const AcDbBlockReference* const reference = AcDbBlockReference::cast(&entity);
        return reference != nullptr && edMatchesPattern(edRecordName(reference->blockTableRecord()), item.resval.rstring);
    }
    case 6:
        return edMatchesPattern(entity.linetypeName(), item.resval.rstring);
    case 8:
        return edMatchesPattern(entity.layerName(), item.resval.rstring);
    case 62:
        return entity.colorIndex() == item.resval.rint;
    default:
        return false; // a condition that is not understood is not met
    }
}
bool accepts(const AcDbEntity& entity, const resbuf* filter) {
    for (const resbuf* item = filter; item != nullptr; item = item->rbnext)
        if (!acceptsItem(entity, *item))
            return false;
    return true;
}
AcGePoint3d pointOf(const void* p) {
    const auto* const xyz = static_cast<const double*>(p);
    return p != nullptr ? AcGePoint3d(xyz[0], xyz[1], xyz[2]) : AcGePoint3d();
}
AcDbObjectIdArray lastOne() {
    AcDbObjectIdArray ids;
    const AcDbObjectIdArray all = edAllEntities(true);
    if (!all.isEmpty())
        ids.append(all.last());
    return ids;
}
AcDbObjectIdArray pickedAt(const void* point) {
    AcDbObjectIdArray ids;
    if (const AcDbObjectId id = edPickOne(pointOf(point)); !id.isNull())
        ids.append(id);
    return ids;
}
// Nothing for a mode that asks the user.
std::optional<AcDbObjectIdArray> byMode(const std::wstring& mode, const void* point1, const void* point2) {
    EdDocument::Selection& selection = EdDocuments::instance().current()->selection();
    if (mode == L"X" || mode == L"_X" || mode == L"A" || mode == L"_A")
        return edAllEntities();
    if (mode == L"I" || mode == L"_I")
        return edStanding(selection.pickFirst);
    if (mode == L"P" || mode == L"_P")
        return edStanding(selection.previous);
    if (mode == L"L" || mode == L"_L")
        return lastOne();
    if (mode == L"W" || mode == L"_W" || mode == L"C" || mode == L"_C")
        return edPickWindow(pointOf(point1), pointOf(point2), mode.back() == L'C');
    if (mode.empty() && point1 != nullptr)
        return pickedAt(point1);
    return std::nullopt;
}
} // namespace

std::wstring edSetForm(const ads_name set) {
    return L"(sset " + std::to_wstring(set[0]) + L")";
}
std::optional<AcDbObjectIdArray> edSetOfForm(const std::wstring& text) {
    const auto form = edParseForm(text);
    const auto number = form && form->head == L"SSET" && form->items.size() == 1 ? edParseInt(form->items[0]) : std::nullopt;
    const auto found = number ? gSets.find(*number) : gSets.end();
    return found != gSets.end() ? std::optional<AcDbObjectIdArray>(found->second.ids) : std::nullopt;
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point pick) {
    AcDbObjectId id;
    AcGePoint3d at;
    const EdReply reply = edSelectOne(prompt != nullptr ? prompt : L"Select object: ", L"", id, at);
    if (reply.cancelled())
        return RTCAN;
    if (!reply.ok())
        return RTERROR;
    acdbGetAdsName(*reinterpret_cast<ads_name*>(entity), id);
    pick[0] = at.x;
    pick[1] = at.y;
    pick[2] = at.z;
    return RTNORM;
}
int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter, ads_name set) {
    if (EdDocuments::instance().current() == nullptr)
        return RTERROR;
    auto ids = byMode(edUpper(mode != nullptr ? mode : L""), point1, point2);
    if (!ids) {
        ids = edSelectObjects(L"Select objects: ", [filter](const AcDbEntity& e) { return accepts(e, filter); });
        if (!ids)
            return RTERROR;
    }
    AcDbObjectIdArray taken;
    for (const AcDbObjectId id : *ids)
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity && accepts(*entity.object(), filter))
            taken.append(id);
    if (taken.isEmpty())
        return RTERROR;
    nameSet(taken, set);
    return RTNORM;
}
int acedSSLength(const ads_name set, Adesk::Int32* length) {
    const NamedSet* const named = setOf(set);
    if (named == nullptr || length == nullptr)
        return RTERROR;
    *length = named->ids.length();
    return RTNORM;
}
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
    const NamedSet* const named = setOf(set);
    if (named == nullptr || index < 0 || index >= named->ids.length())
        return RTERROR;
    return acdbGetAdsName(*reinterpret_cast<ads_name*>(entity), named->ids[index]) == Acad::eOk ? RTNORM : RTERROR;
}
int acedSSMemb(const ads_name entity, const ads_name set) {
    const NamedSet* const named = setOf(set);
    AcDbObjectId id;
    if (named == nullptr || entity == nullptr || acdbGetObjectId(id, entity) != Acad::eOk)
        return RTERROR;
    return named->members.contains(id) ? RTNORM : RTERROR;
}
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
    AcDbObjectId id;
    if (entity != nullptr && acdbGetObjectId(id, entity) != Acad::eOk)
        return RTERROR;
    NamedSet* const named = set != nullptr ? setOf(set) : nullptr;
    if (named == nullptr) {
        AcDbObjectIdArray made;
        if (!id.isNull())
            made.append(id);
        nameSet(made, result);
        return RTNORM;
    }
    named->add(id);
    std::copy_n(set, 2, result);
    return RTNORM;
}
int acedSSFree(ads_name set) {
    return set[1] == kSetMark && gSets.erase(set[0]) != 0 ? RTNORM : RTERROR;
}
int acedSSSetFirst(const ads_name, const ads_name pickFirst) {
    EdDocument* const document = EdDocuments::instance().current();
    if (document == nullptr)
        return RTERROR;
    const NamedSet* const named = pickFirst != nullptr ? setOf(pickFirst) : nullptr;
    document->selection().pickFirst = named != nullptr ? named->ids : AcDbObjectIdArray();
    return RTNORM;
}
Acad::ErrorStatus acedGetCurrentSelectionSet(AcDbObjectIdArray& ids) {
    const EdDocument* const document = EdDocuments::instance().current();
    ids.removeAll();
    if (document == nullptr)
        return Acad::eNotApplicable;
    ids = edStanding(const_cast<EdDocument*>(document)->selection().pickFirst);
    return ids.isEmpty() ? Acad::eNotApplicable : Acad::eOk;
}
