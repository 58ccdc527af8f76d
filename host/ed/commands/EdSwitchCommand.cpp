// SWITCHWINDOWS: from drawing to drawing.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include <algorithm>

namespace {
using Documents = std::vector<EdDocument*>;

// The current drawing has a star; those with changes that are not saved say so.
std::wstring lineOf(const EdDocument& document, std::size_t number) {
    const bool isCurrent = &document == EdDocuments::instance().current();
    return acFormat(L"%s%2d  %s%s", isCurrent ? L"*" : L" ", static_cast<int>(number), document.fileName(),
                    document.database()->hasChangedSinceSave() ? L"  (changed)" : L"");
}
bool isCalled(const EdDocument& document, const std::wstring& name) {
    return edSameWord(document.title(), name) || edSameWord(document.title(), name + L".dwg");
}
// The drawings that an answer may mean: by number, by path, by the whole name, else by the beginning of it.
Documents meantBy(const std::wstring& answer, const Documents& all) {
    if (const auto number = edParseInt(answer);
        number && *number >= 1 && static_cast<std::size_t>(*number) <= all.size())
        return {all[static_cast<std::size_t>(*number) - 1]};
    if (answer.find_first_of(L"\\/") != std::wstring::npos)
        if (EdDocument* const open = EdDocuments::instance().ofFile(answer))
            return {open};
    Documents meant;
    const auto collect = [&](const auto& fits) {
        std::copy_if(all.begin(), all.end(), std::back_inserter(meant), fits);
    };
    collect([&](const EdDocument* d) { return isCalled(*d, answer); });
    if (meant.empty())
        collect([&](const EdDocument* d) { return edSameWord(d->title().substr(0, answer.size()), answer); });
    return meant;
}
std::wstring refusalOf(const std::wstring& answer, const Documents& meant, const Documents& all) {
    if (meant.empty())
        return L"No open drawing is called \"" + answer + L"\".";
    std::wstring names;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (std::find(meant.begin(), meant.end(), all[i]) != meant.end())
            names += (names.empty() ? L"" : L", ") + std::to_wstring(i + 1) + L" " + all[i]->fileName();
    return L"\"" + answer + L"\" may be any of " + names + L".";
}
EdDocument* nextOf(const Documents& all) {
    const auto at = std::find(all.begin(), all.end(), EdDocuments::instance().current());
    return at == all.end() || at + 1 == all.end() ? all.front() : *(at + 1);
}
// The drawing that the user names; null where the user gave up.
EdDocument* askDocument(const Documents& all) {
    EdRefusals refusals;
    for (;;) {
        std::wstring answer;
        const EdReply reply = EdPrompt(L"Enter number or name of drawing <next>: ").name(answer);
        if (reply.none())
            return nextOf(all);
        if (!reply.ok())
            return nullptr;
        const Documents meant = meantBy(answer, all);
        if (meant.size() == 1)
            return meant.front();
        if (!refusals.again(refusalOf(answer, meant, all), answer))
            return nullptr;
    }
}
} // namespace

void edCmdSwitchWindows() {
    const Documents all = EdDocuments::instance().all();
    if (all.empty())
        return edFail(L"No drawing is open.");
    for (std::size_t i = 0; i < all.size(); ++i)
        edSay(lineOf(*all[i], i + 1));
    if (EdDocument* const document = askDocument(all)) {
        EdDocuments::instance().activate(document);
        edSay(L"Current drawing: " + std::wstring(document->fileName()));
    }
}
