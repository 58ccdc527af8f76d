// One question to the user: its text, its keywords, what it accepts. Asks again after an answer it
// cannot take, and gives up the run at the third.
#pragma once

#include "AcGe.h"
#include "EdInputStack.h"

#include <optional>
#include <string>

enum class EdStatus { kNormal, kNone, kKeyword, kCancel };
struct EdReply {
    EdStatus status = EdStatus::kCancel;
    std::wstring keyword; // as the prompt's list gives it
    int keywordIndex = -1;
    bool ok() const { return status == EdStatus::kNormal; }
    bool none() const { return status == EdStatus::kNone; }
    bool cancelled() const { return status == EdStatus::kCancel; }
    bool is(const wchar_t* word) const { return status == EdStatus::kKeyword && keyword == word; }
};

class EdPrompt {
public:
    explicit EdPrompt(std::wstring text, std::wstring keywords = L"") : mText(std::move(text)), mKeywords(std::move(keywords)) {}
    EdPrompt& base(const AcGePoint3d& point) { mBase = point; return *this; }
    EdPrompt& noNull(bool on = true) { mNoNull = on; return *this; }         // Enter alone is asked again
    EdPrompt& noZero(bool on = true) { mNoZero = on; return *this; }
    EdPrompt& noNegative(bool on = true) { mNoNegative = on; return *this; }
    EdPrompt& keepLastPoint(bool on = true) { mKeepLastPoint = on; return *this; }

    EdReply point(AcGePoint3d& value) const;
    EdReply real(double& value) const;
    EdReply integer(int& value) const;
    // A number, or a point whose distance from the base counts; without a base two points.
    EdReply distance(double& value) const;
    // Degrees typed, radians given; a point gives the direction from the base.
    EdReply angle(double& radians) const;
    EdReply keyword() const;
    // With blanks the whole line. Enter alone gives kNone and an empty text.
    EdReply text(std::wstring& value, bool blanks) const;
    // A name or a short text; one with blanks among the answers of a line stands in quotes, which are taken off.
    EdReply name(std::wstring& value) const;
    // Any single answer, unchecked: for prompts with a reading of their own.
    EdReply word(std::wstring& value) const;

private:
    template <class Taker> EdReply askUntil(const wchar_t* refusal, EdTake how, const Taker& take) const;
    std::wstring mText, mKeywords;
    std::optional<AcGePoint3d> mBase;
    bool mNoNull = false, mNoZero = false, mNoNegative = false, mKeepLastPoint = false;
};

// The point that relative answers count from; each point answered becomes it.
AcGePoint3d edLastPoint();
void edSetLastPoint(const AcGePoint3d& p);

// Counts refused answers of one question: prints the message, and after the third ends the run.
class EdRefusals {
public:
    // True while the question may be asked again.
    bool again(const std::wstring& message, const std::wstring& answer);

private:
    int mCount = 0;
};
