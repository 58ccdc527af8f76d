#include "EdSelect.h"

#include "AcUtText.h"
#include "core/EdDocuments.h"
#include "core/EdProperties.h"
#include "input/EdInputStack.h"
#include "input/EdParse.h"
#include "EdPick.h"
#include "EdSets.h"
#include "core/EdSysVars.h"

#include <unordered_set>

namespace {
constexpr const wchar_t* kWords = L"Window Crossing Last ALL Previous Add Remove Box Undo";

// A selection as it grows.
class Growing {
public:
    Growing(std::wstring prompt, EdAccept accept) : mPrompt(std::move(prompt)), mAccept(std::move(accept)) {}
    // False when the user cancelled.
    bool ask();
    AcDbObjectIdArray take() { return std::move(mIds); }

private:
    bool takeWord(const std::wstring& word);
    bool window(bool crossing);
    bool box();
    bool takeText(const std::wstring& text);
    void use(const AcDbObjectIdArray& found, bool byPoint = false);
    std::wstring mPrompt;
    EdAccept mAccept;
    AcDbObjectIdArray mIds;
    std::unordered_set<AcDbObjectId> mHas;
    bool mRemoving = false;
};

void Growing::use(const AcDbObjectIdArray& found, bool byPoint) {
    int count = 0, twice = 0;
    for (const AcDbObjectId id : found) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity || (mAccept && !mAccept(*entity.object())))
            continue;
        ++count;
        if (mRemoving) {
            int at = 0;
            if (mHas.erase(id) != 0 && mIds.find(id, at))
                mIds.removeAt(at);
        } else if (mHas.insert(id).second) {
            mIds.append(id);
        } else {
            ++twice;
        }
    }
    if (count == 0 && byPoint)
        return acutPrintf(L"0 found\n"), void();
    std::wstring line = std::to_wstring(count) + L" found";
    if (twice > 0)
        line += L" (" + std::to_wstring(twice) + L" duplicate)";
    if (mRemoving)
        line += L", removed";
    if (mIds.length() != count)
        line += L", " + std::to_wstring(mIds.length()) + L" total";
    acutPrintf(L"%s\n", line.c_str());
}

bool Growing::window(bool crossing) {
    AcGePoint3d first, second;
    if (!EdPrompt(L"Specify first corner: ").noNull().point(first).ok())
        return false;
    if (!EdPrompt(L"Specify opposite corner: ").base(first).noNull().point(second).ok())
        return false;
    use(edPickWindow(first, second, crossing));
    return true;
}
// A box drawn from left to right is a window, from right to left crossing.
bool Growing::box() {
    AcGePoint3d first, second;
    if (!EdPrompt(L"Specify first corner: ").noNull().point(first).ok())
        return false;
    if (!EdPrompt(L"Specify opposite corner: ").base(first).noNull().point(second).ok())
        return false;
    use(edPickWindow(first, second, second.x < first.x));
    return true;
}
bool Growing::takeWord(const std::wstring& word) {
    EdDocument& document = *EdDocuments::instance().current();
    if (word == L"Window" || word == L"Crossing")
        return window(word == L"Crossing");
    if (word == L"Box")
        return box();
    if (word == L"ALL")
        use(edAllEntities());
    else if (word == L"Previous")
        use(edStanding(document.selection().previous));
    else if (word == L"Add" || word == L"Remove")
        mRemoving = word == L"Remove";
    else if (word == L"Undo") {
        if (!mIds.isEmpty()) {
            mHas.erase(mIds.last());
            mIds.removeAt(mIds.length() - 1);
        }
    } else if (word == L"Last") {
        const AcDbObjectIdArray all = edAllEntities(true);
        AcDbObjectIdArray last;
        if (!all.isEmpty())
            last.append(all.last());
        use(last);
    }
    return true;
}
bool Growing::takeText(const std::wstring& text) {
    if (const AcDbObjectId id = edEntityOfForm(text); !id.isNull()) {
        AcDbObjectIdArray one;
        one.append(id);
        use(one);
        return true;
    }
    if (const auto set = edSetOfForm(text)) {
        use(*set);
        return true;
    }
    const auto at = edParsePoint(text, edLastPoint());
    if (!at)
        return false;
    AcDbObjectIdArray hit;
    if (const AcDbObjectId id = edPickOne(*at); !id.isNull())
        hit.append(id);
    edSetLastPoint(*at);
    use(hit, true);
    return true;
}
bool Growing::ask() {
    EdRefusals refusals;
    for (;;) {
        std::wstring answer;
        const EdReply reply = EdPrompt(mRemoving ? L"Remove objects: " : mPrompt, kWords).word(answer);
        if (reply.none())
            return true;
        if (reply.cancelled())
            return false;
        if (reply.status == EdStatus::kKeyword) {
            if (!takeWord(reply.keyword))
                return false;
        } else if (!takeText(answer)) {
            if (!refusals.again(L"Expects a point or Window/Crossing/Last/ALL/Previous/Add/Remove/(handent \"...\").", answer))
                return false;
        }
    }
}
} // namespace

AcDbObjectIdArray edStanding(const AcDbObjectIdArray& ids) {
    AcDbObjectIdArray standing;
    for (const AcDbObjectId id : ids)
        if (id.isValid() && !id.isErased())
            standing.append(id);
    return standing;
}

AcDbObjectId edEntityOfForm(const std::wstring& text) {
    const auto form = edParseForm(text);
    AcDbObjectId id;
    if (!form || form->head != L"HANDENT" || form->items.size() != 1 || edDatabase() == nullptr)
        return id;
    edDatabase()->getAcDbObjectId(id, false, AcDbHandle(form->items[0].c_str()));
    const AcDbObjectPointer<AcDbEntity> entity(id);
    return entity ? id : AcDbObjectId::kNull;
}

std::optional<AcDbObjectIdArray> edSelectObjects(const std::wstring& prompt, const EdAccept& accept, bool usePickFirst) {
    EdDocument* const document = EdDocuments::instance().current();
    if (document == nullptr)
        return std::nullopt;
    AcDbObjectIdArray ids = edStanding(document->selection().pickFirst);
    if (usePickFirst && !ids.isEmpty() && EdSysVars::instance().getShort(L"PICKFIRST") != 0) {
        acutPrintf(L"%s%d found\n", prompt.c_str(), ids.length());
        if (accept) {
            AcDbObjectIdArray accepted;
            for (const AcDbObjectId id : ids)
                if (const AcDbObjectPointer<AcDbEntity> entity(id); entity && accept(*entity.object()))
                    accepted.append(id);
            ids = accepted;
        }
    } else {
        Growing growing(prompt, accept);
        if (!growing.ask())
            return std::nullopt;
        ids = growing.take();
    }
    if (ids.isEmpty())
        return std::nullopt;
    document->selection().previous = ids;
    return ids;
}

std::optional<AcDbObjectIdArray> edSelectForEdit() {
    const auto selected = edSelectObjects();
    if (!selected)
        return std::nullopt;
    AcDbObjectIdArray ids;
    int locked = 0;
    for (const AcDbObjectId id : *selected) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity && edIsOnLockedLayer(*entity.object()))
            ++locked;
        else
            ids.append(id);
    }
    if (locked > 0)
        acutPrintf(L"%d on a locked layer.\n", locked);
    return ids.isEmpty() ? std::nullopt : std::optional<AcDbObjectIdArray>(ids);
}

EdReply edSelectOne(const std::wstring& prompt, const std::wstring& keywords, AcDbObjectId& id, AcGePoint3d& pick) {
    EdRefusals refusals;
    for (;;) {
        std::wstring answer;
        EdReply reply = EdPrompt(prompt, keywords).word(answer);
        if (!reply.ok())
            return reply;
        id = edEntityOfForm(answer);
        if (id.isNull() && edSameWord(answer, L"L")) {
            const AcDbObjectIdArray all = edAllEntities(true);
            id = all.isEmpty() ? AcDbObjectId::kNull : all.last();
        }
        if (!id.isNull())
            return reply;
        if (const auto at = edParsePoint(answer, edLastPoint())) {
            edSetLastPoint(*at);
            pick = *at;
            id = edPickOne(*at);
            if (!id.isNull())
                return reply;
            acutPrintf(L"No object found.\n");
            reply.status = EdStatus::kNone;
            return reply;
        }
        if (!refusals.again(L"Expects a point, L or (handent \"...\").", answer))
            return EdReply();
    }
}
