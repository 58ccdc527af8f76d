// The asking functions of the API, over EdPrompt.
#include "AcEdAds.h"
#include "core/EdDocuments.h"
#include "EdInputStack.h"
#include "EdParse.h"
#include "EdPrompt.h"

#include <algorithm>

namespace {
// acedInitGet holds for the next question alone.
struct InitGet {
    int options = 0;
    std::wstring keywords;
} gInit;
std::wstring gKeyword; // of the last question that was answered by one

EdPrompt promptOf(const ACHAR* text, const ads_point base = nullptr) {
    EdPrompt prompt(text != nullptr ? text : L"", gInit.keywords);
    prompt.noNull((gInit.options & 1) != 0).noZero((gInit.options & 2) != 0).noNegative((gInit.options & 4) != 0);
    if (base != nullptr)
        prompt.base({base[0], base[1], base[2]});
    gInit = InitGet();
    return prompt;
}
int resultOf(const EdReply& reply) {
    switch (reply.status) {
    case EdStatus::kNormal:
        return RTNORM;
    case EdStatus::kNone:
        return RTNONE;
    case EdStatus::kKeyword:
        gKeyword = reply.keyword;
        return RTKWORD;
    case EdStatus::kCancel:
        return RTCAN;
    }
    return RTERROR;
}
int copyText(const std::wstring& text, ACHAR* result, std::size_t length) {
    if (result == nullptr || length == 0)
        return RTERROR;
    const std::size_t count = std::min(text.size(), length - 1);
    std::copy_n(text.begin(), count, result);
    result[count] = L'\0';
    return RTNORM;
}
int getPoint(const ads_point base, const ACHAR* text, ads_point result) {
    AcGePoint3d p;
    const int status = resultOf(promptOf(text, base).point(p));
    if (status == RTNORM) {
        result[0] = p.x;
        result[1] = p.y;
        result[2] = p.z;
    }
    return status;
}
} // namespace

int acedPrompt(const ACHAR* text) {
    acutPrintf(L"%s", text != nullptr ? text : L"");
    return RTNORM;
}
int acedInitGet(int options, const ACHAR* keywords) {
    gInit = {options, keywords != nullptr ? keywords : L""};
    return RTNORM;
}
int acedGetInput(ACHAR* keyword, std::size_t bufferLength) {
    return copyText(gKeyword, keyword, bufferLength);
}
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t bufferLength) {
    std::wstring text;
    const int status = resultOf(promptOf(prompt).text(text, cronly != 0));
    if (status == RTNORM || status == RTNONE)
        return copyText(text, result, bufferLength); // Enter alone is an empty text
    if (status == RTKWORD)
        copyText(gKeyword, result, bufferLength);
    return status;
}
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result) {
    return getPoint(base, prompt, result);
}
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result) {
    return getPoint(base, prompt, result);
}
int acedGetAngle(const ads_point base, const ACHAR* prompt, double* radians) {
    return resultOf(promptOf(prompt, base).angle(*radians));
}
int acedGetDist(const ads_point base, const ACHAR* prompt, double* distance) {
    return resultOf(promptOf(prompt, base).distance(*distance));
}
int acedGetReal(const ACHAR* prompt, double* value) {
    return resultOf(promptOf(prompt).real(*value));
}
int acedGetInt(const ACHAR* prompt, int* value) {
    return resultOf(promptOf(prompt).integer(*value));
}
int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t bufferLength) {
    const int status = resultOf(promptOf(prompt).keyword());
    return status == RTKWORD ? copyText(gKeyword, result, bufferLength) : status;
}
int acedUsrBrk() {
    return EdInputStack::instance().breakRequested() ? 1 : 0;
}
int acedAlert(const ACHAR* text) {
    edFreshLine();
    acutPrintf(L"%s\n", text != nullptr ? text : L"");
    return RTNORM;
}
