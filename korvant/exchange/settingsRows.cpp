// The rows of SETTINGS: the settings of the drawing at the time of the export, each as text.
#include "schema.h"

#include "TrfcDocSettings.h"

#include <algorithm>

namespace exchange {

namespace {
std::wstring valueOf(const TrfcSetting& setting) {
    switch (setting.kind) {
    case TrfcSettingKind::integer: return integerValue(TrfcDocSettings::getDocInt(TrfcIntKey(setting.key)));
    case TrfcSettingKind::real: return realValue(TrfcDocSettings::getDocDouble(TrfcRealKey(setting.key)));
    case TrfcSettingKind::text: break;
    }
    return TrfcDocSettings::getDocString(TrfcTextKey(setting.key));
}
// The order of the rows is the outside format's, not the file's.
std::vector<TrfcSetting> exchangedSettings() {
    std::vector<TrfcSetting> settings;
    for (const TrfcSetting& setting : trfcDocSettings())
        if (setting.exchangeRank > 0)
            settings.push_back(setting);
    std::sort(settings.begin(), settings.end(), [](const TrfcSetting& a, const TrfcSetting& b) { return a.exchangeRank < b.exchangeRank; });
    return settings;
}
std::wstring statementOf(const std::wstring& name, const std::wstring& value) {
    return L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES (" + textValue(name) + L", " + textValue(value) + L")";
}
} // namespace

std::vector<std::wstring> settingsStatements() {
    std::vector<std::wstring> all{statementOf(L"VERSION", kVersion)};
    for (const TrfcSetting& setting : exchangedSettings())
        all.push_back(statementOf(exchangeNameOf(setting), valueOf(setting)));
    return all;
}

} // namespace exchange
