#include "AcEdJig.h"

#include "AcUtText.h"
#include "core/EdDocuments.h"
#include "EdInputStack.h"
#include "EdPrompt.h"

#include <algorithm>
#include <cstdarg>

HOST_RX_DEFINE_ABSTRACT(AcEdJig, AcRxObject)

namespace {
AcEdJig::DragStatus statusOf(const EdReply& reply) {
    switch (reply.status) {
    case EdStatus::kNormal:
        return AcEdJig::kNormal;
    case EdStatus::kNone:
        return AcEdJig::kNull;
    case EdStatus::kKeyword:
        return static_cast<AcEdJig::DragStatus>(AcEdJig::kKW1 + std::clamp(reply.keywordIndex, 0, 8));
    case EdStatus::kCancel:
        break;
    }
    return AcEdJig::kCancel;
}
EdPrompt promptOf(const AcEdJig& jig) {
    EdPrompt prompt(jig.dispPrompt(), jig.keywordList());
    const int controls = jig.userInputControls();
    prompt.noZero((controls & AcEdJig::kNoZeroResponseAccepted) != 0).noNegative((controls & AcEdJig::kNoNegativeResponseAccepted) != 0);
    prompt.keepLastPoint((controls & AcEdJig::kDontUpdateLastPoint) != 0);
    return prompt;
}
} // namespace

void AcEdJig::setDispPrompt(const ACHAR* format, ...) {
    va_list args;
    va_start(args, format);
    mPrompt = acFormatV(format, args);
    va_end(args);
}

// The console has no cursor to follow: the one sample is the answer. It is shown (update) even where
// the sampler finds it unchanged, since no earlier sample has shown it.
AcEdJig::DragStatus AcEdJig::drag() {
    DragStatus status = sampler();
    if (status == kNoChange)
        status = kNormal;
    if (status == kNormal)
        update();
    return status;
}

AcDbObjectId AcEdJig::append() {
    AcDbEntity* const made = entity();
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (made == nullptr || db == nullptr)
        return AcDbObjectId::kNull;
    AcDbObjectId id;
    return edAppend(*db, made, id) == Acad::eOk ? id : AcDbObjectId::kNull;
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value) {
    return statusOf(promptOf(*this).point(value));
}
AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value, const AcGePoint3d& base) {
    return statusOf(promptOf(*this).base(base).point(value));
}
AcEdJig::DragStatus AcEdJig::acquireAngle(double& value, const AcGePoint3d& base) {
    return statusOf(promptOf(*this).base(base).angle(value));
}
AcEdJig::DragStatus AcEdJig::acquireAngle(double& value) {
    return statusOf(promptOf(*this).angle(value));
}
AcEdJig::DragStatus AcEdJig::acquireDist(double& value, const AcGePoint3d& base) {
    return statusOf(promptOf(*this).base(base).distance(value));
}
AcEdJig::DragStatus AcEdJig::acquireString(ACHAR* value, std::size_t size) {
    std::wstring text;
    const DragStatus status = statusOf(promptOf(*this).text(text, true));
    if (status != kNormal || size == 0)
        return status;
    const std::size_t count = std::min(text.size(), size - 1);
    std::copy_n(text.begin(), count, value);
    value[count] = L'\0';
    return status;
}
