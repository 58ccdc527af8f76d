#include "showHelpTopic.h"

#include "CWnd.h"
#include "TrfcAppSettings.h"
#include "WinShell.h"

void showHelpTopic(CWnd* window, const ACHAR* topic) {
    const std::wstring address = TrfcAppSettings::moduleDirectory() + L"help\\Korvant.chm" + L"::/" + topic;
    HtmlHelpW(window != nullptr ? window->GetSafeHwnd() : nullptr, address.c_str(), HH_DISPLAY_TOPIC, 0);
}
