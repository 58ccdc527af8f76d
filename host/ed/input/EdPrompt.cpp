#include "EdPrompt.h"

#include "AcUtText.h"
#include "EdInputStack.h"
#include "select/EdOsnap.h"
#include "EdParse.h"

namespace {
AcGePoint3d gLastPoint;
constexpr int kMaxRefusals = 3;

// A word of osnap stands before its point, on the same line or the next.
std::optional<AcGePoint3d> readPoint(const std::wstring& answer, const AcGePoint3d& from) {
    const std::optional<AcDb::OsnapMode> mode = edOsnapModeOf(answer);
    if (!mode)
        return edParsePoint(answer, from);
    const auto next = EdInputStack::instance().ask(L" of ", EdTake::kWord);
    const auto pick = next ? edParsePoint(*next, from) : std::nullopt;
    return pick ? edSnap(*mode, *pick, from) : std::nullopt;
}
} // namespace

AcGePoint3d edLastPoint() {
    return gLastPoint;
}
void edSetLastPoint(const AcGePoint3d& p) {
    gLastPoint = p;
}

bool EdRefusals::again(const std::wstring& message, const std::wstring& answer) {
    edFreshLine();
    acutPrintf(L"%s\n", message.c_str());
    if (++mCount < kMaxRefusals)
        return true;
    EdInputStack::instance().refuse(L"\"" + answer + L"\": " + message);
    return false;
}

// take(answer, reply): true when the answer was understood.
template <class Taker> EdReply EdPrompt::askUntil(const wchar_t* refusal, EdTake how, const Taker& take) const {
    const auto words = edParseKeywords(mKeywords);
    EdRefusals refusals;
    for (;;) {
        EdReply reply;
        const auto answer = EdInputStack::instance().ask(mText, how);
        if (!answer)
            return reply;
        if (answer->empty()) {
            if (!mNoNull) {
                reply.status = EdStatus::kNone;
                return reply;
            }
        } else if (const auto word = edMatchKeyword(words, edTrim(*answer), &reply.keywordIndex)) {
            reply.status = EdStatus::kKeyword;
            reply.keyword = *word;
            return reply;
        } else if (take(*answer, reply)) {
            return reply;
        }
        if (EdInputStack::instance().refused() || !refusals.again(refusal, *answer))
            return EdReply();
    }
}

EdReply EdPrompt::point(AcGePoint3d& value) const {
    const wchar_t* const refusal = mKeywords.empty() ? L"Invalid point." : L"Point or option keyword required.";
    return askUntil(refusal, EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        const auto p = readPoint(answer, mBase.value_or(gLastPoint));
        if (!p)
            return false;
        value = *p;
        if (!mKeepLastPoint)
            gLastPoint = *p;
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::real(double& value) const {
    const wchar_t* const refusal = mNoZero ? L"Value must be positive and nonzero." : L"Requires numeric value.";
    return askUntil(refusal, EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        const auto number = edParseReal(answer);
        if (!number || (mNoZero && *number == 0.0) || (mNoNegative && *number < 0.0))
            return false;
        value = *number;
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::integer(int& value) const {
    return askUntil(L"Requires an integer value.", EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        const auto number = edParseInt(answer);
        if (!number || (mNoZero && *number == 0) || (mNoNegative && *number < 0))
            return false;
        value = *number;
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::distance(double& value) const {
    return askUntil(L"Requires numeric distance or a point.", EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        auto number = edParseReal(answer);
        if (!number) {
            const auto p = readPoint(answer, mBase.value_or(gLastPoint));
            if (!p)
                return false;
            AcGePoint3d second = *p;
            if (!mBase) {
                gLastPoint = *p;
                reply = EdPrompt(L"Specify second point: ").base(*p).noNull().point(second);
                if (!reply.ok())
                    return true;
            }
            number = second.distanceTo(mBase.value_or(*p));
        }
        if ((mNoZero && *number == 0.0) || (mNoNegative && *number < 0.0))
            return false;
        value = *number;
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::angle(double& radians) const {
    return askUntil(L"Requires a valid angle or a point.", EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        const bool bare = !answer.empty() && answer.front() == L'<';
        if (const auto degrees = edParseReal(bare ? std::wstring_view(answer).substr(1) : answer)) {
            radians = *degrees * kPi / 180.0;
            reply.status = EdStatus::kNormal;
            return true;
        }
        const auto p = readPoint(answer, mBase.value_or(gLastPoint));
        if (!p)
            return false;
        AcGePoint3d from = mBase.value_or(*p), to = *p;
        if (!mBase) {
            gLastPoint = *p;
            reply = EdPrompt(L"Specify second point: ").base(*p).noNull().point(to);
            if (!reply.ok())
                return true;
        }
        const AcGeVector2d direction(to.x - from.x, to.y - from.y);
        radians = direction.angle();
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::keyword() const {
    return askUntil(L"Invalid option keyword.", EdTake::kWord, [](const std::wstring&, EdReply&) { return false; });
}

EdReply EdPrompt::text(std::wstring& value, bool blanks) const {
    value.clear();
    return askUntil(L"Requires a text.", blanks ? EdTake::kWholeLine : EdTake::kWord, [&](const std::wstring& answer, EdReply& reply) {
        value = answer;
        reply.status = EdStatus::kNormal;
        return true;
    });
}

EdReply EdPrompt::name(std::wstring& value) const {
    value.clear();
    return askUntil(L"Requires a name.", EdTake::kName, [&](const std::wstring& answer, EdReply& reply) {
        value = edTrim(answer);
        if (value.size() >= 2 && value.front() == L'"' && value.back() == L'"')
            value = value.substr(1, value.size() - 2);
        reply.status = EdStatus::kNormal;
        return true;
    });
}
EdReply EdPrompt::word(std::wstring& value) const {
    return text(value, false);
}
