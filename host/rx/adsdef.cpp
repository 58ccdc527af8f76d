// Chains of typed values.
#include "adsdef.h"

#include "AcUtText.h"
#include "ResbufKind.h"

#include <cstdarg>
#include <cstring>
#include <iterator>

namespace {
struct CodeRange {
    short first, last;
    RbKind kind;
};
// Group codes as the drawing interchange format defines them.
constexpr CodeRange kRanges[] = {
    {0, 9, RbKind::kText},       {10, 18, RbKind::kPoint},    {19, 59, RbKind::kReal},     {60, 79, RbKind::kShort},
    {90, 99, RbKind::kLong},     {100, 105, RbKind::kText},   {110, 119, RbKind::kPoint},  {120, 149, RbKind::kReal},
    {160, 169, RbKind::kInt64},  {170, 179, RbKind::kShort},  {210, 219, RbKind::kPoint},  {220, 239, RbKind::kReal},
    {270, 299, RbKind::kShort},  {300, 309, RbKind::kText},   {310, 319, RbKind::kBinary}, {320, 369, RbKind::kName},
    {370, 389, RbKind::kShort},  {390, 399, RbKind::kName},   {400, 409, RbKind::kShort},  {410, 419, RbKind::kText},
    {420, 429, RbKind::kLong},   {430, 439, RbKind::kText},   {440, 459, RbKind::kLong},   {460, 469, RbKind::kReal},
    {470, 479, RbKind::kText},   {480, 481, RbKind::kName},   {999, 1003, RbKind::kText},  {1004, 1004, RbKind::kBinary},
    {1005, 1009, RbKind::kText}, {1010, 1013, RbKind::kPoint}, {1014, 1059, RbKind::kReal}, {1060, 1070, RbKind::kShort},
    {1071, 1071, RbKind::kLong},
};
RbKind kindOfRt(int type) {
    switch (type) {
    case RTREAL:
    case RTANG:
    case RTORINT:
        return RbKind::kReal;
    case RTPOINT:
    case RT3DPOINT:
        return RbKind::kPoint;
    case RTSHORT:
        return RbKind::kShort;
    case RTLONG:
        return RbKind::kLong;
    case RTSTR:
        return RbKind::kText;
    case RTENAME:
    case RTPICKS:
        return RbKind::kName;
    case RTNONE:
    case RTVOID:
    case RTLB:
    case RTLE:
    case RTNIL:
    case RTT:
        return RbKind::kNothing;
    default:
        return RbKind::kUnknown;
    }
}
resbuf* newItem(int type) {
    auto* const item = new resbuf;
    std::memset(item, 0, sizeof *item);
    item->restype = static_cast<short>(type);
    return item;
}
void copyBinary(ads_binary& to, const ads_binary& from) {
    to = from;
    if (from.clen > 0 && from.buf != nullptr) {
        to.buf = new char[static_cast<std::size_t>(from.clen)];
        std::memcpy(to.buf, from.buf, static_cast<std::size_t>(from.clen));
    } else {
        to = {0, nullptr};
    }
}
} // namespace

RbKind rbKindOf(int type) {
    if (type >= RTNONE)
        return kindOfRt(type);
    if (type < 0) // -1 to -4: names and markers of entity lists
        return type >= -2 ? RbKind::kName : type == -3 ? RbKind::kNothing : type == -4 ? RbKind::kText : RbKind::kUnknown;
    for (const CodeRange& range : kRanges)
        if (type <= range.last)
            return type >= range.first ? range.kind : RbKind::kUnknown;
    return RbKind::kUnknown;
}
resbuf* rbNewText(int type, const ACHAR* text) {
    resbuf* const item = newItem(type);
    item->resval.rstring = acutNewString(text);
    return item;
}

resbuf* acutNewRb(int type) {
    return rbKindOf(type) == RbKind::kUnknown ? nullptr : newItem(type);
}

namespace {
// Takes the next argument into the item; false for a type that has no kind.
bool takeValue(resbuf& item, RbKind kind, va_list args) {
    switch (kind) {
    case RbKind::kNothing:
        return true;
    case RbKind::kText: {
        const ACHAR* const text = va_arg(args, const ACHAR*);
        item.resval.rstring = acutNewString(text != nullptr ? text : L"");
        return true;
    }
    case RbKind::kReal:
        item.resval.rreal = va_arg(args, double);
        return true;
    case RbKind::kPoint:
        std::memcpy(item.resval.rpoint, va_arg(args, const double*), sizeof(ads_point));
        return true;
    case RbKind::kShort:
        item.resval.rint = static_cast<short>(va_arg(args, int));
        return true;
    case RbKind::kLong:
        item.resval.rlong = va_arg(args, Adesk::Int32);
        return true;
    case RbKind::kInt64:
        item.resval.mnInt64 = va_arg(args, Adesk::Int64);
        return true;
    case RbKind::kBinary:
        copyBinary(item.resval.rbinary, *va_arg(args, const ads_binary*));
        return true;
    case RbKind::kName:
        std::memcpy(item.resval.rlname, va_arg(args, const std::intptr_t*), sizeof(ads_name));
        return true;
    case RbKind::kUnknown:
        return false;
    }
    return false;
}
} // namespace

resbuf* acutBuildList(int type, ...) {
    resbuf* first = nullptr;
    resbuf** link = &first;
    va_list args;
    va_start(args, type);
    // 0 ends the list, except as its very first type, where it is a text's code.
    for (bool isFirst = true; type != 0 || isFirst; type = va_arg(args, int), isFirst = false) {
        resbuf* const item = newItem(type);
        *link = item;
        link = &item->rbnext;
        if (!takeValue(*item, rbKindOf(type), args)) {
            acutRelRb(first);
            first = nullptr;
            break;
        }
    }
    va_end(args);
    return first;
}

int acutRelRb(resbuf* chain) {
    while (chain != nullptr) {
        resbuf* const next = chain->rbnext;
        const RbKind kind = rbKindOf(chain->restype);
        if (kind == RbKind::kText)
            acutDelString(chain->resval.rstring);
        else if (kind == RbKind::kBinary)
            delete[] chain->resval.rbinary.buf;
        delete chain;
        chain = next;
    }
    return RTNORM;
}

resbuf* acutCopyRb(const resbuf* chain) {
    resbuf* first = nullptr;
    resbuf** link = &first;
    for (; chain != nullptr; chain = chain->rbnext) {
        auto* const item = new resbuf(*chain);
        item->rbnext = nullptr;
        const RbKind kind = rbKindOf(chain->restype);
        if (kind == RbKind::kText)
            item->resval.rstring = acutNewString(chain->resval.rstring);
        else if (kind == RbKind::kBinary)
            copyBinary(item->resval.rbinary, chain->resval.rbinary);
        *link = item;
        link = &item->rbnext;
    }
    return first;
}
