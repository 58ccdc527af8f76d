// The rows of SETTINGS: the settings of the drawing at the time of the export, each as text.
#include "schema.h"

#include "TrfcDocSettings.h"

namespace exchange {

namespace {
enum class Form { Integer, Real, Text };
struct SettingRow {
    const ACHAR* name;
    Form form;
    const ACHAR* key;
};
constexpr SettingRow kSettings[] = {
    {L"SCALE_LIST", Form::Text, DOC_SCALE_LIST},
    {L"CURRENT_SCALE", Form::Integer, DOC_CURRENT_SCALE},
    {L"BASEPOINTD", Form::Real, DOC_BASEPOINTD},
    {L"POST_ALPHA0", Form::Real, DOC_POST_ALPHA0},
    {L"POST_MIN_AB", Form::Real, DOC_POST_MIN_AB},
    {L"POST_MIN_CD", Form::Real, DOC_POST_MIN_CD},
    {L"POST_OVERLAP_ERR", Form::Real, DOC_POST_OVERLAP_ERR},
    {L"POST_DEFAULT_TYPE", Form::Integer, DOC_POST_DEFAULT_TYPE},
    {L"POST_DEFAULT_DWG", Form::Text, DOC_POST_DEFAULT_DWG},
    {L"POST_ALIEN_DWG", Form::Text, DOC_POST_ALIEN_DWG},
    {L"CROSSWALK_DEFAULT_TYPE", Form::Integer, DOC_CROSSWALK_DEFAULT_TYPE},
    {L"ANNO_MIN_DIST", Form::Real, DOC_ANNO_MIN_DIST},
    {L"ANNO_HEIGHT", Form::Real, DOC_ANNO_HEIGHT},
    {L"ANNO_COLOR", Form::Integer, DOC_ANNO_COLOR},
    {L"ANNO_TYPE", Form::Text, DOC_ANNO_TYPE},
    {L"ANNO_LINE_COLOR", Form::Integer, DOC_ANNO_LINE_COLOR},
    {L"ANNO_LINE_TYPE", Form::Text, DOC_ANNO_LINE_TYPE},
    {L"ANNO_LINE_WEIGHT", Form::Integer, DOC_ANNO_LINE_WEIGHT},
    {L"EXISTING_TABLE_D", Form::Real, DOC_EXISTING_TABLE_D},
    {L"PLANNED_TABLE_D", Form::Real, DOC_PLANNED_TABLE_D},
    {L"EXISTING_LAMP_D", Form::Real, DOC_EXISTING_LAMP_D},
    {L"PLANNED_LAMP_D", Form::Real, DOC_PLANNED_LAMP_D},
    {L"BLOCK_DEFAULT_TYPE", Form::Integer, DOC_BLOCK_DEFAULT_TYPE},
    {L"BLOCK_ENT_DEFAULT_TYPE", Form::Integer, DOC_BLOCK_ENT_DEFAULT_TYPE},
    {L"USE_OTHER_COLOR_TABLES", Form::Integer, DOC_USE_OTHER_COLOR_TABLES},
    {L"USE_GRAYSCALE_TABLES", Form::Integer, DOC_USE_GRAYSCALE_TABLES},
    {L"USE_WHITESCALE_TABLES", Form::Integer, DOC_USE_WHITESCALE_TABLES},
    {L"AUTO_ORDER_TABLES", Form::Integer, DOC_AUTO_ORDER_TABLES},
};

std::wstring valueOf(const SettingRow& row) {
    switch (row.form) {
    case Form::Integer: return integerValue(TrfcDocSettings::getDocInt(row.key));
    case Form::Real: return realValue(TrfcDocSettings::getDocDouble(row.key));
    case Form::Text: break;
    }
    return TrfcDocSettings::getDocString(row.key);
}
std::wstring statementOf(const std::wstring& name, const std::wstring& value) {
    return L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES (" + textValue(name) + L", " + textValue(value) + L")";
}
} // namespace

std::vector<std::wstring> settingsStatements() {
    std::vector<std::wstring> all{statementOf(L"VERSION", kVersion)};
    for (const SettingRow& row : kSettings)
        all.push_back(statementOf(row.name, valueOf(row)));
    return all;
}

} // namespace exchange
