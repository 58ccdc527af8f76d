// LAYER: makes layers and changes what they look like.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include <functional>

namespace {
constexpr const wchar_t* kOptions = L"[?/Make/Set/New/Rename/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: ";
constexpr const wchar_t* kWords = L"Make Set New Rename ON OFF Color Ltype LWeight Plot Freeze Thaw LOck Unlock";

void listLayers(AcDbDatabase& db) {
    edSay(L"Layer name            State         Color    Linetype         Lineweight");
    for (const AcDbObjectId id : edRecordsByName(db, AcDbLayerTable::desc())) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
        std::wstring state = layer->isOff() ? L"off" : L"on";
        state += layer->isFrozen() ? L",frozen" : L"";
        state += layer->isLocked() ? L",locked" : L"";
        state += layer->isPlottable() ? L"" : L",no plot";
        edSay(acFormat(L"%-21s %-13s %-8s %-16s %s", (L"\"" + layer->name() + L"\"").c_str(), state.c_str(), edColorName(layer->color()).c_str(),
                       edRecordName(layer->linetypeObjectId()).c_str(), edLineWeightName(layer->lineWeight()).c_str()));
    }
    edSay(L"Current layer: \"" + edRecordName(db.clayer()) + L"\"");
}
// The layer of that name, made when absent; null with the reason told.
AcDbObjectId makeLayer(AcDbDatabase& db, const std::wstring& name) {
    AcDbObjectId id = edFindRecord<AcDbLayerTable>(db, name);
    if (!id.isNull())
        return id;
    if (!edIsSymbolName(name)) {
        edFail(L"\"" + name + L"\" cannot be the name of a layer.");
        return id;
    }
    AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
    auto* const record = new AcDbLayerTableRecord;
    record->setName(name.c_str());
    record->setLinetypeObjectId(db.continuousLinetype());
    if (!table || table->add(id, record) != Acad::eOk) {
        delete record;
        edFail(L"The layer cannot be made.");
        return AcDbObjectId::kNull;
    }
    record->close();
    return id;
}
// Applies the change to every layer whose name matches one of the patterns.
void changeLayers(AcDbDatabase& db, const std::wstring& names, const std::function<void(AcDbLayerTableRecord&)>& change) {
    int count = 0;
    for (const AcDbObjectId id : edRecordsByName(db, AcDbLayerTable::desc())) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (!layer || !edMatchesPattern(layer->name(), names))
            continue;
        change(*layer.object());
        ++count;
    }
    if (count == 0)
        edFail(L"No matching layer names: \"" + names + L"\".");
}
std::optional<std::wstring> askNames(const std::wstring& prompt, const std::wstring& byDefault = L"") {
    std::wstring names;
    const EdReply reply = EdPrompt(prompt).name(names);
    if (reply.cancelled())
        return std::nullopt;
    return reply.none() ? byDefault : edTrim(names);
}
// Which layers a colour, line type or weight is for.
std::optional<std::wstring> askFor(AcDbDatabase& db, const std::wstring& what) {
    const std::wstring current = edRecordName(db.clayer());
    const auto names = askNames(L"Enter name list of layer(s) for " + what + L" <" + current + L">: ", current);
    return names && !names->empty() ? names : std::nullopt;
}
// A value typed and read, asked for again until it is one.
template <class T> std::optional<T> askValue(const std::wstring& prompt, const std::wstring& refusal, const std::function<std::optional<T>(const std::wstring&)>& read) {
    EdRefusals refusals;
    for (;;) {
        std::wstring text;
        if (!EdPrompt(prompt).name(text).ok())
            return std::nullopt;
        if (const auto value = read(edTrim(text)))
            return value;
        if (!refusals.again(refusal, text))
            return std::nullopt;
    }
}
void optionColor(AcDbDatabase& db) {
    const auto color = askValue<AcCmColor>(L"New color (1-255, name or red,green,blue) <7>: ", L"That is no colour.", edParseColor);
    if (!color)
        return;
    if (const auto names = askFor(db, L"color " + edColorName(*color)))
        changeLayers(db, *names, [&](AcDbLayerTableRecord& l) { l.setColor(*color); });
}
void optionLtype(AcDbDatabase& db) {
    const auto type = askValue<AcDbObjectId>(L"Enter loaded linetype name <Continuous>: ", L"There is no loaded linetype of that name.", [&](const std::wstring& name) {
        const AcDbObjectId id = edFindRecord<AcDbLinetypeTable>(db, name);
        return id.isNull() ? std::nullopt : std::optional<AcDbObjectId>(id);
    });
    if (!type)
        return;
    if (const auto names = askFor(db, L"linetype " + edRecordName(*type)))
        changeLayers(db, *names, [&](AcDbLayerTableRecord& l) { l.setLinetypeObjectId(*type); });
}
void optionWeight(AcDbDatabase& db) {
    const auto weight = askValue<AcDb::LineWeight>(L"Enter lineweight (0.0mm - 2.11mm): ", L"A line weight is a number of millimetres up to 2.11.", edParseLineWeight);
    if (!weight)
        return;
    if (const auto names = askFor(db, L"lineweight " + edLineWeightName(*weight)))
        changeLayers(db, *names, [&](AcDbLayerTableRecord& l) { l.setLineWeight(*weight); });
}
void optionPlot(AcDbDatabase& db) {
    const EdReply reply = EdPrompt(L"Enter a plotting preference [Plot/No plot] <Plot>: ", L"Plot No").keyword();
    if (reply.cancelled())
        return;
    const bool plots = !reply.is(L"No");
    if (const auto names = askFor(db, L"this plotting preference"))
        changeLayers(db, *names, [&](AcDbLayerTableRecord& l) { l.setIsPlottable(plots); });
}
void optionMakeOrSet(AcDbDatabase& db, bool make) {
    const std::wstring current = edRecordName(db.clayer());
    const auto name = askNames(make ? L"Enter name for new layer (becomes the current layer) <" + current + L">: "
                                    : L"Enter layer name to make current <" + current + L">: ", current);
    if (!name)
        return;
    const AcDbObjectId id = make ? makeLayer(db, *name) : edFindRecord<AcDbLayerTable>(db, *name);
    if (!id.isNull())
        db.setClayer(id);
    else if (!make)
        edFail(L"Cannot find layer \"" + *name + L"\".");
}
void optionNew(AcDbDatabase& db) {
    const auto names = askNames(L"Enter name list for new layer(s): ");
    if (!names || names->empty())
        return;
    for (const std::wstring& name : edSplitAt(*names, L','))
        if (makeLayer(db, edTrim(name)).isNull())
            return;
}
void optionRename(AcDbDatabase& db) {
    const auto from = askNames(L"Enter layer name to rename: ");
    const auto to = from ? askNames(L"Enter new name for layer: ") : std::nullopt;
    if (!to)
        return;
    const AcDbObjectId id = edFindRecord<AcDbLayerTable>(db, *from);
    if (id.isNull() || id == db.layerZero())
        return edFail(L"\"" + *from + L"\" cannot be renamed.");
    const AcDbObjectId taken = edFindRecord<AcDbLayerTable>(db, *to); // names know no case: it may be the layer itself
    if (!edIsSymbolName(*to) || (!taken.isNull() && taken != id))
        return edFail(L"\"" + *to + L"\" cannot be the new name.");
    AcDbObjectPointer<AcDbLayerTableRecord>(id, AcDb::kForWrite)->setName(to->c_str());
}
struct Switch {
    const wchar_t* word;
    const wchar_t* prompt;
    Acad::ErrorStatus (AcDbLayerTableRecord::*set)(bool);
    bool value;
};
constexpr Switch kSwitches[] = {
    {L"ON", L"Enter name list of layer(s) to turn on: ", &AcDbLayerTableRecord::setIsOff, false},
    {L"OFF", L"Enter name list of layer(s) to turn off: ", &AcDbLayerTableRecord::setIsOff, true},
    {L"Freeze", L"Enter name list of layer(s) to freeze: ", &AcDbLayerTableRecord::setIsFrozen, true},
    {L"Thaw", L"Enter name list of layer(s) to thaw: ", &AcDbLayerTableRecord::setIsFrozen, false},
    {L"LOck", L"Enter name list of layer(s) to lock: ", &AcDbLayerTableRecord::setIsLocked, true},
    {L"Unlock", L"Enter name list of layer(s) to unlock: ", &AcDbLayerTableRecord::setIsLocked, false},
};
void optionSwitch(AcDbDatabase& db, const Switch& row) {
    const auto names = askNames(row.prompt);
    if (!names || names->empty())
        return;
    const AcDbObjectId current = db.clayer();
    changeLayers(db, *names, [&](AcDbLayerTableRecord& layer) {
        if (row.set == &AcDbLayerTableRecord::setIsFrozen && row.value && layer.objectId() == current)
            edSay(L"Cannot freeze layer \"" + layer.name() + L"\". It is the CURRENT layer.");
        else
            (layer.*row.set)(row.value);
    });
}
} // namespace

void edCmdLayer() {
    AcDbDatabase& db = *edDatabase();
    edSay(L"Current layer: \"" + edRecordName(db.clayer()) + L"\"");
    EdRefusals refusals;
    while (!EdInputStack::instance().refused()) {
        std::wstring answer;
        const EdReply reply = EdPrompt(std::wstring(L"Enter an option ") + kOptions, kWords).word(answer);
        if (reply.none() || reply.cancelled())
            return;
        if (reply.ok()) {
            if (answer == L"?")
                listLayers(db);
            else if (!refusals.again(L"Invalid option keyword.", answer))
                return;
            continue;
        }
        if (reply.is(L"Make") || reply.is(L"Set"))
            optionMakeOrSet(db, reply.is(L"Make"));
        else if (reply.is(L"New"))
            optionNew(db);
        else if (reply.is(L"Rename"))
            optionRename(db);
        else if (reply.is(L"Color"))
            optionColor(db);
        else if (reply.is(L"Ltype"))
            optionLtype(db);
        else if (reply.is(L"LWeight"))
            optionWeight(db);
        else if (reply.is(L"Plot"))
            optionPlot(db);
        else
            for (const Switch& row : kSwitches)
                if (reply.is(row.word))
                    optionSwitch(db, row);
        if (EdInputStack::instance().cancelled())
            return;
    }
}
