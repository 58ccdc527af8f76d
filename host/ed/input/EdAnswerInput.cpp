#include "EdAnswerInput.h"

#include "AcUtText.h"

std::optional<std::wstring> EdAnswerInput::nextLine(const std::wstring& prompt) {
    if (mRefused || mAnswers.empty())
        return std::nullopt;
    std::wstring answer = std::move(mAnswers.front());
    mAnswers.pop_front();
    if (answer == L"\\" && mOuter != nullptr)
        return mOuter->nextLine(prompt);
    acutPrintf(L"%s\n", answer.c_str());
    return answer;
}
std::optional<std::wstring> EdAnswerInput::nextDialogLine() {
    return mOuter != nullptr ? mOuter->nextDialogLine() : std::nullopt;
}
void EdAnswerInput::refuse(const std::wstring&) {
    mRefused = true;
}
