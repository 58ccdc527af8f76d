// A user who answers prompts with the lines given, in order; then the input has ended.
#pragma once

#include "AcUtText.h"
#include "EdInput.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

class Typist : public EdInput {
public:
    explicit Typist(std::deque<std::wstring> answers) : lines(std::move(answers)) { edPushInput(this); }
    ~Typist() override { edPopInput(); }
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override {
        prompts.push_back(prompt);
        if (lines.empty())
            return std::nullopt;
        const std::wstring line = lines.front();
        lines.pop_front();
        return line;
    }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring& reason) override { ADD_FAILURE() << "refused: " << acToUtf8(reason); }

    std::deque<std::wstring> lines; // not typed yet
    std::vector<std::wstring> prompts;
};
