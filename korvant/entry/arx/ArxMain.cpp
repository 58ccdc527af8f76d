// The module's exports.
#include "CTrfcSignsARXApp.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet) {
    return acrxDispatchMessage(*trfcApp(), code, packet);
}

extern "C" int acrxGetApiVersion() {
    return kAcrxApiVersion;
}
