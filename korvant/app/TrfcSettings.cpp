#include "TrfcSettings.h"

#include <string_view>

namespace {
#define TRFC_SETTING_ROW(KEY, KIND, UNIT, SECTION, VALUE, SINCE, RANK) {KEY, TrfcSettingKind::KIND, TrfcSettingUnit::UNIT, SECTION, VALUE, SINCE, RANK},
constexpr TrfcSetting kAppSettings[] = {TRFC_APP_SETTINGS(TRFC_SETTING_ROW)};
constexpr TrfcSetting kDocSettings[] = {TRFC_DOC_SETTINGS(TRFC_SETTING_ROW)};
#undef TRFC_SETTING_ROW
} // namespace

std::span<const TrfcSetting> trfcAppSettings() {
    return kAppSettings;
}

std::span<const TrfcSetting> trfcDocSettings() {
    return kDocSettings;
}

const ACHAR* exchangeNameOf(const TrfcSetting& docSetting) {
    return docSetting.key + std::wstring_view(L"DOC_").size();
}
