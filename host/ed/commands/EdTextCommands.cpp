// TEXT, MTEXT, ATTDEF.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbEntities.h"

namespace {
struct Justification {
    const wchar_t* word;
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
};
constexpr Justification kJustifications[] = {
    {L"Left", AcDb::kTextLeft, AcDb::kTextBase},   {L"Center", AcDb::kTextCenter, AcDb::kTextBase}, {L"Right", AcDb::kTextRight, AcDb::kTextBase},
    {L"Align", AcDb::kTextAlign, AcDb::kTextBase}, {L"Middle", AcDb::kTextMid, AcDb::kTextBase},    {L"Fit", AcDb::kTextFit, AcDb::kTextBase},
    {L"TL", AcDb::kTextLeft, AcDb::kTextTop},      {L"TC", AcDb::kTextCenter, AcDb::kTextTop},      {L"TR", AcDb::kTextRight, AcDb::kTextTop},
    {L"ML", AcDb::kTextLeft, AcDb::kTextVertMid},  {L"MC", AcDb::kTextCenter, AcDb::kTextVertMid},  {L"MR", AcDb::kTextRight, AcDb::kTextVertMid},
    {L"BL", AcDb::kTextLeft, AcDb::kTextBottom},   {L"BC", AcDb::kTextCenter, AcDb::kTextBottom},   {L"BR", AcDb::kTextRight, AcDb::kTextBottom},
};
const Justification* justificationOf(const std::wstring& word) {
    for (const Justification& row : kJustifications)
        if (edSameWord(row.word, word))
            return &row;
    return nullptr;
}

// Place, style, size and turn, as TEXT and ATTDEF ask for them.
struct Placing {
    const Justification* justification = kJustifications;
    AcGePoint3d first, second; // the second end of Align and Fit
    double height = 0.0, rotation = 0.0;
    bool ask();
    void give(AcDbText& text) const;

private:
    bool askPlace();
    bool askStyle();
    bool askJustification();
    bool twoPoints() const { return justification->horizontal == AcDb::kTextAlign || justification->horizontal == AcDb::kTextFit; }
};
bool Placing::askStyle() {
    const std::wstring now = EdSysVars::instance().getText(L"TEXTSTYLE");
    std::wstring name;
    EdRefusals refusals;
    for (;;) {
        const EdReply reply = EdPrompt(L"Enter style name <" + now + L">: ").name(name);
        if (!reply.ok())
            return !reply.cancelled();
        const std::wstring reason = EdSysVars::instance().set(L"TEXTSTYLE", edTrim(name));
        if (reason.empty() || !refusals.again(reason, name))
            return reason.empty();
    }
}
bool Placing::askJustification() {
    const EdReply reply = EdPrompt(L"Enter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ",
                                   L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR")
                              .noNull()
                              .keyword();
    if (reply.status != EdStatus::kKeyword)
        return false;
    justification = justificationOf(reply.keyword);
    if (twoPoints())
        return EdPrompt(L"Specify first endpoint of text baseline: ").noNull().point(first).ok() &&
               EdPrompt(L"Specify second endpoint of text baseline: ").base(first).noNull().point(second).ok();
    return EdPrompt(L"Specify insertion point of text: ").noNull().point(first).ok();
}
bool Placing::askPlace() {
    for (;;) {
        const EdReply reply = EdPrompt(L"Specify start point of text or [Justify/Style]: ", L"Justify Style").noNull().point(first);
        if (reply.ok())
            return true;
        if (reply.is(L"Justify"))
            return askJustification();
        if (!reply.is(L"Style") || !askStyle())
            return false;
    }
}
bool Placing::ask() {
    if (!askPlace())
        return false;
    AcDbDatabase& db = *edDatabase();
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(db.textstyle());
    height = style && style->textSize() > 0.0 ? style->textSize() : 0.0;
    if (height == 0.0 && justification->horizontal != AcDb::kTextAlign) {
        height = db.textsize();
        if (EdPrompt(L"Specify height <" + edNumber(height) + L">: ").base(first).noZero().noNegative().distance(height).cancelled())
            return false;
        db.setTextsize(height);
    } else if (height == 0.0) {
        height = db.textsize();
    }
    if (twoPoints())
        return true;
    return !EdPrompt(L"Specify rotation angle of text <0>: ").base(first).angle(rotation).cancelled();
}
void Placing::give(AcDbText& text) const {
    text.setPosition(first);
    text.setTextStyle(edDatabase()->textstyle());
    text.setHeight(height);
    text.setRotation(twoPoints() ? AcGeVector2d(second.x - first.x, second.y - first.y).angle() : rotation);
    if (const AcDbObjectPointer<AcDbTextStyleTableRecord> style(edDatabase()->textstyle()); style) {
        text.setWidthFactor(style->xScale());
        text.setOblique(style->obliquingAngle());
    }
    text.setHorizontalMode(justification->horizontal);
    text.setVerticalMode(justification->vertical);
    if (!text.isDefaultAlignment()) {
        text.setAlignmentPoint(twoPoints() ? second : first);
        text.adjustAlignment(edDatabase());
    }
}
// The flags of an attribute as letters; a letter typed turns its flag over.
bool askModes(bool (&modes)[4]) {
    constexpr const wchar_t* kWords[] = {L"Invisible", L"Constant", L"Verify", L"Preset"};
    for (;;) {
        std::wstring now;
        for (int i = 0; i < 4; ++i)
            now += std::wstring(i > 0 ? L"  " : L"") + kWords[i] + (modes[i] ? L"=Y" : L"=N");
        edSay(L"Current attribute modes:  " + now);
        const EdReply reply = EdPrompt(L"Enter an option to change [Invisible/Constant/Verify/Preset] <done>: ", L"Invisible Constant Verify Preset").keyword();
        if (reply.status != EdStatus::kKeyword)
            return reply.none();
        modes[reply.keywordIndex] = !modes[reply.keywordIndex];
    }
}
bool gAttributeModes[4] = {false, false, false, false};
} // namespace

void edCmdText() {
    Placing placing;
    if (!placing.ask())
        return;
    std::wstring content;
    if (!EdPrompt(L"Enter text: ").text(content, true).ok())
        return;
    auto text = std::make_unique<AcDbText>();
    text->setTextString(content.c_str());
    placing.give(*text);
    edDraw(std::move(text));
}

void edCmdAttDef() {
    if (!askModes(gAttributeModes))
        return;
    std::wstring tag, prompt, value;
    EdRefusals refusals;
    for (;;) {
        if (!EdPrompt(L"Enter attribute tag name: ").noNull().name(tag).ok())
            return;
        tag = edTrim(tag);
        if (tag.find_first_of(L" \t") == std::wstring::npos)
            break;
        if (!refusals.again(L"A tag has no blanks.", tag))
            return;
    }
    if (!gAttributeModes[1] && EdPrompt(L"Enter attribute prompt: ").name(prompt).cancelled())
        return;
    if (EdPrompt(gAttributeModes[1] ? L"Enter attribute value: " : L"Enter default attribute value: ").name(value).cancelled())
        return;
    Placing placing;
    if (!placing.ask())
        return;
    auto definition = std::make_unique<AcDbAttributeDefinition>();
    definition->setTag(edUpper(tag).c_str());
    definition->setPrompt(prompt.empty() ? tag.c_str() : prompt.c_str());
    definition->setTextString(value.c_str());
    definition->setInvisible(gAttributeModes[0]);
    definition->setConstant(gAttributeModes[1]);
    definition->setVerifiable(gAttributeModes[2]);
    definition->setPreset(gAttributeModes[3]);
    placing.give(*definition);
    edDraw(std::move(definition));
}

namespace {
// What MTEXT asks before its lines.
struct MTextFrame {
    AcGePoint3d first;
    double height, rotation = 0.0, width = 0.0;
    int attachment = 1;
    bool ask();

private:
    bool option(const EdReply& reply, bool& done);
};
bool MTextFrame::option(const EdReply& reply, bool& done) {
    if (reply.is(L"Height"))
        return !EdPrompt(L"Specify height <" + edNumber(height) + L">: ").noZero().noNegative().distance(height).cancelled();
    if (reply.is(L"Rotation"))
        return !EdPrompt(L"Specify rotation angle <0>: ").base(first).angle(rotation).cancelled();
    if (reply.is(L"Width")) {
        done = true;
        return !EdPrompt(L"Specify width: ").base(first).noNegative().distance(width).cancelled();
    }
    if (reply.is(L"Style")) {
        std::wstring name;
        if (!EdPrompt(L"Enter style name <" + EdSysVars::instance().getText(L"TEXTSTYLE") + L">: ").name(name).ok())
            return true;
        const std::wstring reason = EdSysVars::instance().set(L"TEXTSTYLE", edTrim(name));
        if (!reason.empty())
            edFail(reason);
        return reason.empty();
    }
    const EdReply word = EdPrompt(L"Enter justification [TL/TC/TR/ML/MC/MR/BL/BC/BR] <TL>: ", L"TL TC TR ML MC MR BL BC BR").keyword();
    if (word.status == EdStatus::kKeyword)
        attachment = word.keywordIndex + 1;
    return !word.cancelled();
}
bool MTextFrame::ask() {
    height = edDatabase()->textsize();
    if (!EdPrompt(L"Specify first corner: ").noNull().point(first).ok())
        return false;
    for (bool done = false; !done;) {
        AcGePoint3d corner;
        const EdReply reply =
            EdPrompt(L"Specify opposite corner or [Height/Justify/Rotation/Style/Width]: ", L"Height Justify Rotation Style Width").base(first).noNull().point(corner);
        if (reply.ok()) {
            width = std::abs(corner.x - first.x);
            return true;
        }
        if (reply.status != EdStatus::kKeyword || !option(reply, done))
            return false;
    }
    return true;
}
} // namespace

void edCmdMText() {
    MTextFrame frame;
    if (!frame.ask())
        return;
    std::wstring contents, line;
    for (;;) {
        const EdReply reply = EdPrompt(L"MText: ").text(line, true);
        if (reply.cancelled())
            return;
        if (reply.none())
            break;
        contents += (contents.empty() ? L"" : L"\\P") + line;
    }
    if (contents.empty())
        return;
    auto text = std::make_unique<AcDbMText>();
    text->setContents(contents.c_str());
    text->setTextStyle(edDatabase()->textstyle());
    text->setLocation(frame.first);
    text->setTextHeight(frame.height);
    text->setWidth(frame.width);
    text->setAttachment(frame.attachment);
    text->setRotation(frame.rotation);
    edDraw(std::move(text));
}
