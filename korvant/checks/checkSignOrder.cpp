#include "checkSignOrder.h"

#include "CCheckProgressDialog.h"
#include "TrfcDrawingUtils.h"
#include "TrfcPost.h"


namespace {
enum CheckTask { kCountTask = 0, kOrderTask = 1 };

bool isPostInOrder(const AcDbEntity& entity) {
    bool ordered = true;
    static_cast<const TrfcPost&>(entity).signChain().checkTableOrder(&ordered);
    return ordered;
}

// The classes that carry plates, with the question whether an object's plates stand in order: an object
// is reported once, however many of its chains are at fault. The post pair joins here, with its list of chains.
struct CheckedClass {
    AcRxClass* (*desc)();
    bool (*isInOrder)(const AcDbEntity& entity);
};
constexpr CheckedClass kCheckedClasses[] = {
    {&TrfcPost::desc, &isPostInOrder},
};

const CheckedClass* classOf(const AcDbEntity& entity) {
    for (const CheckedClass& checked : kCheckedClasses)
        if (entity.isKindOf(checked.desc()))
            return &checked;
    return nullptr;
}

int countChecked() {
    int count = 0;
    walkModelSpace(AcDb::kForRead, [&count](const AcDbEntity& entity) {
        count += classOf(entity) != nullptr ? 1 : 0;
        return true;
    });
    return count;
}

// False when the user broke it off.
bool checkObjects(CCheckProgressDialog& window) {
    bool goesOn = true;
    walkModelSpace(AcDb::kForRead, [&](const AcDbEntity& entity) {
        const CheckedClass* const checked = classOf(entity);
        if (checked == nullptr)
            return true;
        window.stepIt();
        goesOn = !window.checkCancel();
        if (goesOn && !checked->isInOrder(entity))
            window.addReport(checked->desc()->dxfName(), L"Helytelen tábla sorrend", entity.objectId().handle().text());
        return goesOn;
    });
    return goesOn;
}
} // namespace

bool checkSignOrder() {
    auto* const window = new CCheckProgressDialog; // deletes itself
    window->setTaskTexts({L"Modelltér analizálása", L"Tábla sorrend ellenőrzése"});
    window->setKeepSelection(false);
    window->setStep(1);
    window->create(nullptr);
    window->ShowWindow(SW_SHOW);

    window->setCurrentTask(kCountTask);
    const int count = countChecked();
    window->setCurrentTask(kOrderTask);
    bool cameToEnd = true;
    if (count > 0) {
        window->setRange(0, count);
        window->setPos(0);
        cameToEnd = checkObjects(*window);
    }
    if (cameToEnd)
        window->finish();
    else
        window->abort();
    return cameToEnd;
}
