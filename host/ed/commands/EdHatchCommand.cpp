// HATCH: fills closed objects, solid or with a pattern of the pattern file.
#include "EdCommandKit.h"
#include "EdHatchPattern.h"
#include "EdHatchBoundary.h"
#include "EdHostCommands.h"

namespace {
struct Filling {
    bool solid = false;
    EdHatchPattern pattern;
    double scale = 1.0, angle = 0.0;
};
void listPatterns() {
    for (const std::wstring& line : edHatchPatternNames())
        edSay(L"  " + line);
}
bool askPattern(Filling& filling) {
    EdSysVars& vars = EdSysVars::instance();
    EdRefusals refusals;
    for (;;) {
        std::wstring name;
        const std::wstring usual = vars.getText(L"HPNAME");
        const EdReply reply = EdPrompt(L"Enter a pattern name or [?/Solid] <" + usual + L">: ").word(name);
        if (reply.cancelled())
            return false;
        if (reply.none())
            name = usual;
        if (name == L"?") {
            listPatterns();
            continue;
        }
        if (edSameWord(name, L"SOLID") || edSameWord(name, L"S")) {
            filling.solid = true;
            vars.set(L"HPNAME", std::wstring(L"SOLID"));
            return true;
        }
        if (const auto pattern = edFindHatchPattern(name)) {
            filling.pattern = *pattern;
            vars.set(L"HPNAME", pattern->name);
            return true;
        }
        if (!refusals.again(L"There is no pattern \"" + name + L"\".", name))
            return false;
    }
}
bool askFilling(Filling& filling) {
    if (!askPattern(filling))
        return false;
    if (filling.solid)
        return true;
    EdSysVars& vars = EdSysVars::instance();
    filling.scale = vars.getReal(L"HPSCALE");
    filling.angle = vars.getReal(L"HPANG");
    if (EdPrompt(L"Specify a scale for the pattern <" + edNumber(filling.scale) + L">: ").noZero().noNegative().real(filling.scale).cancelled() ||
        EdPrompt(L"Specify an angle for the pattern <" + edDegrees(filling.angle) + L">: ").angle(filling.angle).cancelled())
        return false;
    vars.set(L"HPSCALE", filling.scale);
    vars.set(L"HPANG", filling.angle);
    return true;
}
} // namespace

void edCmdHatch() {
    Filling filling;
    if (!askFilling(filling))
        return;
    edSay(L"Select objects to define hatch boundary.");
    const auto ids = edSelectObjects();
    if (!ids)
        return;
    const auto loops = edHatchLoops(*ids);
    if (loops.empty())
        return edFail(L"The objects close no area.");
    auto hatch = std::make_unique<AcDbHatch>();
    hatch->setDatabaseDefaults(edDatabase());
    if (filling.solid)
        hatch->setSolid();
    else
        hatch->setPattern(filling.pattern.name.c_str(), filling.scale, filling.angle, edScaledLines(filling.pattern, filling.scale, filling.angle));
    for (const AcDbHatch::Loop& loop : loops)
        hatch->appendLoop(loop);
    edDraw(std::move(hatch));
}
