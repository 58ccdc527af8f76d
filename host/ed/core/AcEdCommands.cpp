// Nested commands, queued expressions and variables of the API.
#include "AcEdAds.h"
#include "EdCommandRunner.h"
#include "EdDocuments.h"
#include "select/EdSets.h"
#include "EdSysVars.h"

#include <cstdarg>
#include <cstring>

namespace {
std::wstring pointAnswer(const double* p) {
    return acFormat(L"%.17g,%.17g,%.17g", p[0], p[1], p[2]);
}
std::wstring entityAnswer(const ads_name name) {
    AcDbObjectId id;
    return acdbGetObjectId(id, name) == Acad::eOk ? L"(handent \"" + id.handle().text() + L"\")" : std::wstring();
}
int runAnswers(std::deque<std::wstring> answers) {
    if (answers.empty())
        return RTERROR;
    const std::wstring name = std::move(answers.front());
    answers.pop_front();
    switch (EdCommandRunner::instance().runWith(name, std::move(answers))) {
    case EdRunResult::kEnded:
        return RTNORM;
    case EdRunResult::kCancelled:
        return RTCAN;
    case EdRunResult::kFailed:
    case EdRunResult::kUnknown:
        break;
    }
    return RTERROR;
}
bool appendAnswer(std::deque<std::wstring>& answers, const resbuf& item) {
    switch (item.restype) {
    case RTSTR:
        answers.emplace_back(item.resval.rstring != nullptr ? item.resval.rstring : L"");
        return true;
    case RTREAL:
    case RTANG:
    case RTORINT:
        answers.push_back(acFormat(L"%.17g", item.resval.rreal));
        return true;
    case RTSHORT:
        answers.push_back(std::to_wstring(item.resval.rint));
        return true;
    case RTLONG:
        answers.push_back(std::to_wstring(item.resval.rlong));
        return true;
    case RTPOINT:
    case RT3DPOINT: {
        const double p[3] = {item.resval.rpoint[0], item.resval.rpoint[1], item.restype == RTPOINT ? 0.0 : item.resval.rpoint[2]};
        answers.push_back(pointAnswer(p));
        return true;
    }
    case RTENAME:
        answers.push_back(entityAnswer(item.resval.rlname));
        return true;
    case RTPICKS:
        answers.push_back(edSetForm(item.resval.rlname));
        return true;
    case RTVOID:
    case RTLB:
    case RTLE:
        return true;
    default:
        return false;
    }
}
// One (type, value) pair of the variable arguments; false for a type that is unknown.
bool readArgument(int type, va_list& args, std::deque<std::wstring>& answers) {
    resbuf item;
    std::memset(&item, 0, sizeof item);
    item.restype = static_cast<short>(type);
    switch (type) {
    case RTSTR:
        item.resval.rstring = const_cast<ACHAR*>(va_arg(args, const ACHAR*));
        break;
    case RTREAL:
    case RTANG:
    case RTORINT:
        item.resval.rreal = va_arg(args, double);
        break;
    case RTSHORT:
        item.resval.rint = static_cast<short>(va_arg(args, int));
        break;
    case RTLONG:
        item.resval.rlong = va_arg(args, Adesk::Int32);
        break;
    case RTPOINT:
    case RT3DPOINT:
        std::memcpy(item.resval.rpoint, va_arg(args, const double*), (type == RTPOINT ? 2 : 3) * sizeof(double));
        break;
    case RTENAME:
    case RTPICKS:
        std::memcpy(item.resval.rlname, va_arg(args, const std::intptr_t*), sizeof item.resval.rlname);
        break;
    default:
        break;
    }
    return appendAnswer(answers, item);
}
EdVar valueOf(const resbuf& value) {
    switch (value.restype) {
    case RTSTR:
        return std::wstring(value.resval.rstring != nullptr ? value.resval.rstring : L"");
    case RTSHORT:
        return value.resval.rint;
    case RTLONG:
        return static_cast<int>(value.resval.rlong);
    case RTPOINT:
    case RT3DPOINT:
        return AcGePoint3d(value.resval.rpoint[0], value.resval.rpoint[1], value.restype == RTPOINT ? 0.0 : value.resval.rpoint[2]);
    default:
        return value.resval.rreal;
    }
}
} // namespace

int acedCommandS(int type, ...) {
    std::deque<std::wstring> answers;
    va_list args;
    va_start(args, type);
    bool understood = true;
    for (int t = type; understood && t != RTNONE && t != 0; t = va_arg(args, int))
        understood = readArgument(t, args, answers);
    va_end(args);
    return understood ? runAnswers(std::move(answers)) : RTERROR;
}
int acedCmdS(const resbuf* chain) {
    std::deque<std::wstring> answers;
    for (const resbuf* item = chain; item != nullptr && item->restype != RTNONE; item = item->rbnext)
        if (!appendAnswer(answers, *item))
            return RTERROR;
    return runAnswers(std::move(answers));
}
void ads_queueexpr(const ACHAR* expression) {
    if (expression != nullptr)
        EdCommandRunner::instance().queueExpression(expression);
}
const ACHAR* acedGetAppName() {
    static std::wstring thePath;
    thePath = acrxCurrentModulePath();
    return thePath.c_str();
}
Adesk::UInt32 acedGetRGB(int colorIndex) {
    const Adesk::UInt32 rgb = acgiPaletteRgb(colorIndex);
    return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF);
}
// The console draws nothing by itself; a program with a window repaints by its own changes.
void acedUpdateDisplay() {}

int acedGetVar(const ACHAR* name, resbuf* result) {
    if (name == nullptr || result == nullptr)
        return RTERROR;
    const auto value = EdSysVars::instance().get(name);
    if (!value)
        return RTERROR;
    std::memset(result, 0, sizeof *result);
    if (const auto* text = std::get_if<std::wstring>(&*value)) {
        result->restype = RTSTR;
        result->resval.rstring = acutNewString(text->c_str());
    } else if (const auto* p = std::get_if<AcGePoint3d>(&*value)) {
        result->restype = RT3DPOINT;
        result->resval.rpoint[0] = p->x;
        result->resval.rpoint[1] = p->y;
        result->resval.rpoint[2] = p->z;
    } else if (const auto* real = std::get_if<double>(&*value)) {
        result->restype = RTREAL;
        result->resval.rreal = *real;
    } else if (const auto* number = std::get_if<int>(&*value)) {
        result->restype = RTLONG;
        result->resval.rlong = *number;
    } else {
        result->restype = RTSHORT;
        result->resval.rint = std::get<short>(*value);
    }
    return RTNORM;
}
int acedSetVar(const ACHAR* name, const resbuf* value) {
    if (name == nullptr || value == nullptr)
        return RTERROR;
    return EdSysVars::instance().set(name, valueOf(*value)).empty() ? RTNORM : RTERROR;
}
