// The application object: answers the host's messages. The module's only door is acrxEntryPoint.
#pragma once

#include "AcRxArxApp.h"

class CTrfcSignsARXApp : public AcRxArxApp {
public:
    // kRetError refuses the module: a settings file could not be loaded.
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
    AcRx::AppRetCode On_kLoadDwgMsg(void* packet) override;

protected:
    AcRxTables tables() const override;
};
CTrfcSignsARXApp* trfcApp();
